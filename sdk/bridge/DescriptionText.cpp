#include "sdk/bridge/DescriptionText.h"

#include <libxml/parser.h>

#include <climits>
#include <memory>
#include <string_view>

namespace ZalCPP {
namespace {

constexpr std::string_view RootName = "RegisterDescription";
constexpr char OffsetName[] = "pOffset";

// Cameras keep their descriptions in memory of a fixed size and pad the rest.
std::string_view withoutPadding(std::string_view text)
{
    const std::size_t name = text.rfind(RootName);
    const std::size_t end = name == std::string_view::npos ? name : text.find('>', name);
    return end == std::string_view::npos ? text : text.substr(0, end + 1);
}

using DocumentPtr = std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)>;

// The parser that Aravis uses, but strict. It fetches nothing.
DocumentPtr parse(std::string_view text)
{
    constexpr int options = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
    return {xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr, options),
            xmlFreeDoc};
}

bool isRoot(const xmlNode* node)
{
    return node && RootName == reinterpret_cast<const char*>(node->name);
}

bool isNamed(const xmlNode& node, const char* name)
{
    return xmlStrEqual(node.name, reinterpret_cast<const xmlChar*>(name)) == 1;
}

std::string attribute(const xmlNode& node, const char* name)
{
    const std::unique_ptr<xmlChar, decltype(xmlFree)> text(
        xmlGetProp(&node, reinterpret_cast<const xmlChar*>(name)), xmlFree);
    return text ? reinterpret_cast<const char*>(text.get()) : "";
}

// A structure has no name of its own: any of its parts stands for it.
std::string nameOf(const xmlNode& registerNode)
{
    std::string name = attribute(registerNode, "Name");
    for (const xmlNode* node = registerNode.children; node && name.empty(); node = node->next) {
        if (isNamed(*node, "StructEntry"))
            name = attribute(*node, "Name");
    }
    return name;
}

// The nesting of a document's elements is limited by the parser.
void collectOffsets(const xmlNode& parent, std::vector<IndexOffset>& offsets)
{
    for (const xmlNode* node = parent.children; node; node = node->next) {
        if (node->type != XML_ELEMENT_NODE)
            continue;
        const std::string offset = isNamed(*node, "pIndex") ? attribute(*node, OffsetName) : "";
        if (!offset.empty())
            offsets.push_back({nameOf(parent), offset});
        collectOffsets(*node, offsets);
    }
}

// Hardly any camera has one, and a description may be megabytes long. A text of wide characters,
// in which half of the bytes are zero, cannot be searched.
bool mayHaveOffsets(std::string_view text)
{
    return text.find(OffsetName) != std::string_view::npos ||
           text.find('\0') != std::string_view::npos;
}

} // namespace

bool isWholeDescription(const char* text, std::size_t size)
{
    if (!text || size > INT_MAX)
        return false;
    const DocumentPtr document = parse(withoutPadding({text, size}));
    return document && isRoot(xmlDocGetRootElement(document.get()));
}

std::vector<IndexOffset> indexOffsetsOf(const char* text, std::size_t size)
{
    std::vector<IndexOffset> offsets;
    if (!text || size > INT_MAX)
        return offsets;
    const std::string_view whole = withoutPadding({text, size});
    if (!mayHaveOffsets(whole))
        return offsets;
    const DocumentPtr document = parse(whole);
    if (const xmlNode* root = document ? xmlDocGetRootElement(document.get()) : nullptr)
        collectOffsets(*root, offsets);
    return offsets;
}

} // namespace ZalCPP
