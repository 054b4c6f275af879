#include "sdk/bridge/FeatureFacts.h"

#include "sdk/bridge/AravisStatus.h"
#include "sdk/bridge/DescriptionNodes.h"
#include "sdk/bridge/Limits.h"

#include <algorithm>
#include <map>
#include <string_view>

namespace ZalCPP {
namespace {

std::string text(const char* string)
{
    return string ? string : "";
}

// A name for people: GenICam says that the name itself is shown where none is given.
std::string displayNameOf(ArvGcFeatureNode* node)
{
    const char* displayName = arv_gc_feature_node_get_display_name(node);
    return displayName ? displayName : nameOf(node);
}

// The kind of node decides, not its interfaces: an enumeration, for example, is also an integer.
ZalFeatureDataType typeOf(ArvGcFeatureNode* node)
{
    static const std::map<std::string_view, ZalFeatureDataType> types = {
        {"Integer", ZalFeatureInteger},      {"IntReg", ZalFeatureInteger},
        {"MaskedIntReg", ZalFeatureInteger}, {"StructEntry", ZalFeatureInteger},
        {"IntConverter", ZalFeatureInteger}, {"IntSwissKnife", ZalFeatureInteger},
        {"Float", ZalFeatureFloat},          {"FloatReg", ZalFeatureFloat},
        {"Converter", ZalFeatureFloat},      {"SwissKnife", ZalFeatureFloat},
        {"Enumeration", ZalFeatureEnum},     {"Boolean", ZalFeatureBool},
        {"String", ZalFeatureString},        {"StringReg", ZalFeatureString},
        {"Command", ZalFeatureCommand},      {"Register", ZalFeatureRaw},
    };
    const auto found = types.find(arv_dom_node_get_node_name(ARV_DOM_NODE(node)));
    return found == types.end() ? ZalFeatureNone : found->second;
}

ZalFeatureVisibilityType visibilityOf(ArvGcFeatureNode* node)
{
    switch (arv_gc_feature_node_get_visibility(node)) {
    case ARV_GC_VISIBILITY_BEGINNER:
        return ZalFeatureVisibilityBeginner;
    case ARV_GC_VISIBILITY_EXPERT:
        return ZalFeatureVisibilityExpert;
    case ARV_GC_VISIBILITY_GURU:
        return ZalFeatureVisibilityGuru;
    case ARV_GC_VISIBILITY_INVISIBLE:
        return ZalFeatureVisibilityInvisible;
    default:
        return ZalFeatureVisibilityUnknown;
    }
}

std::string representationText(ArvGcRepresentation representation)
{
    switch (representation) {
    case ARV_GC_REPRESENTATION_LINEAR:
        return "Linear";
    case ARV_GC_REPRESENTATION_LOGARITHMIC:
        return "Logarithmic";
    case ARV_GC_REPRESENTATION_BOOLEAN:
        return "Boolean";
    case ARV_GC_REPRESENTATION_PURE_NUMBER:
        return "PureNumber";
    case ARV_GC_REPRESENTATION_HEX_NUMBER:
        return "HexNumber";
    case ARV_GC_REPRESENTATION_IPV4_ADDRESS:
        return "IPV4Address";
    case ARV_GC_REPRESENTATION_MAC_ADDRESS:
        return "MACAddress";
    default:
        return "";
    }
}

ZalFeatureFlagsType flagsOf(ArvGcFeatureNode* node)
{
    switch (arv_gc_feature_node_get_actual_access_mode(node)) {
    case ARV_GC_ACCESS_MODE_RO:
        return ZalFeatureFlagsRead;
    case ARV_GC_ACCESS_MODE_WO:
        return ZalFeatureFlagsWrite;
    case ARV_GC_ACCESS_MODE_RW:
        return ZalFeatureFlagsRead | ZalFeatureFlagsWrite;
    default:
        return ZalFeatureFlagsNone;
    }
}

gint64 ownPollingTime(ArvDomNode* node)
{
    gint64 time = 0;
    forEachProperty(node, [&](ArvGcPropertyNode* property, ArvGcPropertyNodeType type) {
        if (type != ARV_GC_PROPERTY_NODE_TYPE_POLLING_TIME)
            return;
        AravisError error;
        time = arv_gc_property_node_get_int64(property, error.out());
    });
    return time;
}

// The shortest polling time of the nodes that make up the value; 0 when none has one.
std::chrono::milliseconds pollingTimeOf(ArvGcNode* node)
{
    gint64 shortest = 0;
    for (ArvGcNode* source : valueNodes(node)) {
        const gint64 time = ownPollingTime(ARV_DOM_NODE(source));
        if (time > 0)
            shortest = shortest > 0 ? std::min(shortest, time) : time;
    }
    if (shortest == 0)
        return std::chrono::milliseconds::zero();
    return std::clamp(std::chrono::milliseconds(shortest), Limits::ShortestPollingTime,
                      Limits::LongestPollingTime);
}

void readNumberFacts(FeatureDescription& feature)
{
    if (feature.type == ZalFeatureInteger) {
        auto* integer = ARV_GC_INTEGER(feature.node);
        feature.unit = text(arv_gc_integer_get_unit(integer));
        feature.representation = representationText(arv_gc_integer_get_representation(integer));
    } else if (feature.type == ZalFeatureFloat) {
        auto* real = ARV_GC_FLOAT(feature.node);
        feature.unit = text(arv_gc_float_get_unit(real));
        feature.representation = representationText(arv_gc_float_get_representation(real));
    }
}

void readEntry(FeatureDescription& feature, ArvDomNode* child)
{
    auto* node = ARV_GC_FEATURE_NODE(child);
    EnumEntry entry;
    AravisError error;
    entry.name = nameOf(node);
    entry.displayName = displayNameOf(node);
    entry.description = text(arv_gc_feature_node_get_description(node));
    entry.value = arv_gc_enum_entry_get_value(ARV_GC_ENUM_ENTRY(child), error.out());
    entry.visibility = visibilityOf(node);
    feature.entries.push_back(entry);
    feature.entryNodes.push_back(node);
}

// Aravis' own list of entries is in reverse order.
void readEntries(FeatureDescription& feature)
{
    forEachChild(ARV_DOM_NODE(feature.node), [&](ArvDomNode* child) {
        if (ARV_IS_GC_ENUM_ENTRY(child) && feature.entries.size() < Limits::Entries)
            readEntry(feature, child);
    });
}

void readCommandFacts(FeatureDescription& feature)
{
    const auto read = [&](ArvGcPropertyNode* property, ArvGcPropertyNodeType type) {
        if (type == ARV_GC_PROPERTY_NODE_TYPE_COMMAND_VALUE ||
            type == ARV_GC_PROPERTY_NODE_TYPE_P_COMMAND_VALUE)
            feature.commandValue = property;
        auto* linked = arv_gc_property_node_get_linked_node(property);
        if (type == ARV_GC_PROPERTY_NODE_TYPE_P_VALUE && ARV_IS_GC_INTEGER(linked))
            feature.commandRegister = ARV_GC_INTEGER(linked);
    };
    forEachProperty(ARV_DOM_NODE(feature.node), read);
}

std::vector<ArvGcFeatureNode*> valueChainOf(ArvGcNode* node)
{
    std::vector<ArvGcFeatureNode*> chain;
    for (ArvGcNode* link : reachableNodes(node, {ARV_GC_PROPERTY_NODE_TYPE_P_VALUE})) {
        if (ARV_IS_GC_FEATURE_NODE(link))
            chain.push_back(ARV_GC_FEATURE_NODE(link));
    }
    return chain;
}

} // namespace

std::string nameOf(ArvGcFeatureNode* node)
{
    return text(arv_gc_feature_node_get_name(node));
}

FeatureDescription readTexts(ArvGcFeatureNode* node, const std::string& category)
{
    FeatureDescription feature;
    feature.node = node;
    feature.name = nameOf(node);
    feature.displayName = displayNameOf(node);
    feature.category = category;
    feature.toolTip = text(arv_gc_feature_node_get_tooltip(node));
    feature.description = text(arv_gc_feature_node_get_description(node));
    feature.type = typeOf(node);
    feature.visibility = visibilityOf(node);
    return feature;
}

void readFacts(FeatureDescription& feature)
{
    auto* node = ARV_GC_NODE(feature.node);
    feature.valueChain = valueChainOf(node);
    feature.flags = flagsOf(feature.node);
    feature.pollingTime = pollingTimeOf(node);
    if (feature.pollingTime.count() > 0)
        feature.flags |= ZalFeatureFlagsVolatile;
    readNumberFacts(feature);
    if (feature.type == ZalFeatureEnum)
        readEntries(feature);
    if (feature.type == ZalFeatureCommand)
        readCommandFacts(feature);
}

} // namespace ZalCPP
