#include "sdk/bridge/DescriptionText.h"

#include <libxml/parser.h>

#include <climits>
#include <memory>
#include <string_view>

namespace ZalCPP {
namespace {

constexpr std::string_view RootName = "RegisterDescription";

// Cameras keep their descriptions in memory of a fixed size and fill the rest up.
std::string_view withoutPadding(std::string_view text)
{
    const std::size_t name = text.rfind(RootName);
    const std::size_t end = name == std::string_view::npos ? name : text.find('>', name);
    return end == std::string_view::npos ? text : text.substr(0, end + 1);
}

using DocumentPtr = std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)>;

// The parser that Aravis uses, but one that insists on the rules. It fetches nothing.
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

} // namespace

bool isWholeDescription(const char* text, std::size_t size)
{
    if (!text || size > INT_MAX)
        return false;
    const DocumentPtr document = parse(withoutPadding({text, size}));
    return document && isRoot(xmlDocGetRootElement(document.get()));
}

} // namespace ZalCPP
