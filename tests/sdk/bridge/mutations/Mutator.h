#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

/// Changes a camera's description in one to four places, in ways that depend on the seed alone.
class Mutator
{
public:
    Mutator(std::string description, std::uint32_t seed);

    std::string mutate();

private:
    struct Element
    {
        std::size_t begin;
        std::size_t content;    ///< Behind the opening tag.
        std::size_t contentEnd; ///< At the closing tag.
        std::size_t end;
        std::string tag;
        std::string name; ///< The attribute Name; empty for those without.
        std::string node; ///< Name of the node that it belongs to.
        bool isLeaf;
    };

    void parse();
    void open(std::size_t begin, std::size_t end, std::vector<std::size_t>& stack);
    void mutateOnce();
    std::size_t below(std::size_t count);
    const Element& anyElement() { return m_elements[below(m_elements.size())]; }
    std::string anyNodeName();
    template <typename Condition> const Element* anyLeaf(Condition condition);
    void setContent(const Element& leaf, const std::string& content);

    void removeElement();
    void duplicateElement();
    void swapElements();
    void renameNode();
    void changeTag();
    void setExtremeNumber();
    void linkElsewhere();
    void linkInACircle();
    void linkLength();
    void changeFormula();
    void truncate();
    void flipBytes();

    std::string m_text;
    std::mt19937 m_random;
    std::vector<Element> m_elements;
};
