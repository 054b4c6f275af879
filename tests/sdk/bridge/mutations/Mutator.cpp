#include "tests/sdk/bridge/mutations/Mutator.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace {

bool isNumber(const std::string& content)
{
    return !content.empty() && std::all_of(content.begin(), content.end(), [](unsigned char c) {
        return std::isxdigit(c) || c == 'x' || c == '-' || c == '.';
    });
}

bool isLink(const std::string& tag)
{
    return tag.size() > 1 && tag[0] == 'p' && std::isupper(static_cast<unsigned char>(tag[1]));
}

std::string attribute(const std::string& tag, const std::string& name)
{
    const std::string key = ' ' + name + "=\"";
    const std::size_t begin = tag.find(key);
    if (begin == std::string::npos)
        return {};
    const std::size_t value = begin + key.size();
    return tag.substr(value, tag.find('"', value) - value);
}

} // namespace

Mutator::Mutator(std::string description, std::uint32_t seed)
    : m_text(std::move(description)), m_random(seed)
{
}

std::string Mutator::mutate()
{
    for (std::size_t left = 1 + below(4); left > 0; --left) {
        parse();
        if (!m_elements.empty())
            mutateOnce();
    }
    return m_text;
}

// What does not fit together any more is passed over.
void Mutator::parse()
{
    m_elements.clear();
    std::vector<std::size_t> stack;
    for (std::size_t begin = m_text.find('<'); begin != std::string::npos;
         begin = m_text.find('<', begin + 1)) {
        const std::size_t end = m_text.find('>', begin);
        if (end == std::string::npos)
            return;
        if (m_text[begin + 1] == '?' || m_text[begin + 1] == '!' || m_text[end - 1] == '/')
            continue;
        if (m_text[begin + 1] != '/') {
            open(begin, end + 1, stack);
        } else if (!stack.empty()) {
            m_elements[stack.back()].contentEnd = begin;
            m_elements[stack.back()].end = end + 1;
            stack.pop_back();
        }
    }
    const auto isOpen = [](const Element& element) { return element.end == 0; };
    m_elements.erase(std::remove_if(m_elements.begin(), m_elements.end(), isOpen),
                     m_elements.end());
}

void Mutator::open(std::size_t begin, std::size_t end, std::vector<std::size_t>& stack)
{
    const std::string tag = m_text.substr(begin + 1, end - begin - 2);
    Element element{begin, end, 0, 0, tag.substr(0, tag.find_first_of(" \n")), "", "", true};
    element.name = isLink(element.tag) ? std::string() : attribute(tag, "Name");
    element.node = element.name;
    if (!stack.empty()) {
        m_elements[stack.back()].isLeaf = false;
        if (element.name.empty())
            element.node = m_elements[stack.back()].node;
    }
    stack.push_back(m_elements.size());
    m_elements.push_back(element);
}

void Mutator::mutateOnce()
{
    static constexpr void (Mutator::*kinds[])() = {
        &Mutator::removeElement,    &Mutator::duplicateElement, &Mutator::swapElements,
        &Mutator::renameNode,       &Mutator::changeTag,        &Mutator::setExtremeNumber,
        &Mutator::setExtremeNumber, &Mutator::linkElsewhere,    &Mutator::linkElsewhere,
        &Mutator::linkInACircle,    &Mutator::linkInACircle,    &Mutator::linkLength,
        &Mutator::changeFormula};
    // A text that is cut off or damaged is refused: most of the others are to be opened.
    const std::size_t damage = below(20);
    if (damage == 0)
        truncate();
    else if (damage == 1)
        flipBytes();
    else
        (this->*kinds[below(std::size(kinds))])();
}

// The distributions of the standard library differ from one to the other.
std::size_t Mutator::below(std::size_t count)
{
    return count == 0 ? 0 : m_random() % count;
}

std::string Mutator::anyNodeName()
{
    for (int attempt = 0; attempt < 100; ++attempt) {
        const Element& element = anyElement();
        if (!element.name.empty())
            return element.name;
    }
    return "Root";
}

template <typename Condition> const Mutator::Element* Mutator::anyLeaf(Condition condition)
{
    const std::size_t first = below(m_elements.size());
    for (std::size_t i = 0; i < m_elements.size(); ++i) {
        const Element& element = m_elements[(first + i) % m_elements.size()];
        if (element.isLeaf && condition(element))
            return &element;
    }
    return nullptr;
}

void Mutator::setContent(const Element& leaf, const std::string& content)
{
    m_text.replace(leaf.content, leaf.contentEnd - leaf.content, content);
}

void Mutator::removeElement()
{
    const Element& element = m_elements[1 % m_elements.size() + below(m_elements.size() - 1)];
    m_text.erase(element.begin, element.end - element.begin);
}

void Mutator::duplicateElement()
{
    const Element& element = m_elements[1 % m_elements.size() + below(m_elements.size() - 1)];
    m_text.insert(element.end, m_text.substr(element.begin, element.end - element.begin));
}

void Mutator::swapElements()
{
    const Element* first = &anyElement();
    const Element* second = &anyElement();
    if (first->begin > second->begin)
        std::swap(first, second);
    if (first->end > second->begin)
        return;
    const std::string late = m_text.substr(second->begin, second->end - second->begin);
    const std::string early = m_text.substr(first->begin, first->end - first->begin);
    m_text.replace(second->begin, late.size(), early);
    m_text.replace(first->begin, early.size(), late);
}

void Mutator::renameNode()
{
    const Element& element = anyElement();
    const std::size_t name = m_text.find("Name=\"" + element.name + '"', element.begin);
    if (!element.name.empty() && name < element.content)
        m_text.replace(name + 6, element.name.size(), anyNodeName());
}

void Mutator::changeTag()
{
    const Element& element = anyElement();
    const std::string tag = anyElement().tag;
    m_text.replace(element.contentEnd + 2, element.tag.size(), tag);
    m_text.replace(element.begin + 1, element.tag.size(), tag);
}

void Mutator::setExtremeNumber()
{
    static const char* const numbers[] = {
        "0",  "-1", "1",     "2",          "7",     "-9223372036854775808", "9223372036854775807",
        "18", "64", "65536", "4294967295", "1e308", "18446744073709551615", "1099511627776",
        "",   "-",  "nan",   "0x",         "-4",    "9300000000000",        "0x7fffffffffffffff"};
    const Element* leaf = anyLeaf([this](const Element& element) {
        return isNumber(m_text.substr(element.content, element.contentEnd - element.content));
    });
    if (leaf)
        setContent(*leaf, numbers[below(std::size(numbers))]);
}

void Mutator::linkElsewhere()
{
    const Element* leaf = anyLeaf([](const Element& element) { return isLink(element.tag); });
    if (leaf)
        setContent(*leaf, anyNodeName());
}

void Mutator::linkInACircle()
{
    const Element* leaf = anyLeaf([](const Element& element) { return isLink(element.tag); });
    if (leaf && !leaf->node.empty())
        setContent(*leaf, leaf->node);
}

// A length that is some other node's value.
void Mutator::linkLength()
{
    const Element* leaf = anyLeaf([](const Element& element) { return element.tag == "Length"; });
    if (leaf)
        m_text.replace(leaf->begin, leaf->end - leaf->begin,
                       "<pLength>" + anyNodeName() + "</pLength>");
}

void Mutator::changeFormula()
{
    static const char* const formulas[] = {"1/0",
                                           "0 % 0",
                                           "((((",
                                           "-",
                                           "X",
                                           "",
                                           "(-9223372036854775807 - 1) / (0 - 1)",
                                           "1 << 64",
                                           "2 ** 9999",
                                           "LN(0)",
                                           "1 ? 2",
                                           "TO",
                                           "FROM",
                                           "0x",
                                           "SQRT(-1)"};
    const Element* leaf =
        anyLeaf([](const Element& element) { return element.tag.compare(0, 7, "Formula") == 0; });
    if (leaf)
        setContent(*leaf, formulas[below(std::size(formulas))]);
}

void Mutator::truncate()
{
    m_text.resize(below(m_text.size()));
}

void Mutator::flipBytes()
{
    for (std::size_t left = 1 + below(8); left > 0; --left)
        m_text[below(m_text.size())] ^= static_cast<char>(1 + below(255));
}
