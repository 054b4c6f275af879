#include "sdk/bridge/DescriptionReader.h"

#include "sdk/bridge/AravisStatus.h"
#include "sdk/bridge/DependencyGraph.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

namespace ZalCPP {
namespace {

std::string text(const char* string)
{
    return string ? string : "";
}

std::string nameOf(ArvGcFeatureNode* node)
{
    return text(arv_gc_feature_node_get_name(node));
}

// A name for people: GenICam says that the name itself is shown where none is given.
std::string displayNameOf(ArvGcFeatureNode* node)
{
    const char* displayName = arv_gc_feature_node_get_display_name(node);
    return displayName ? displayName : nameOf(node);
}

// The kind of node decides, not its interfaces: an enumeration, for example, also is an integer.
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

ZalFeatureFlagsType accessFlagsOf(ArvGcFeatureNode* node)
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
    forEachChild(node, [&](ArvDomNode* child) {
        if (!ARV_IS_GC_PROPERTY_NODE(child))
            return;
        auto* property = ARV_GC_PROPERTY_NODE(child);
        if (arv_gc_property_node_get_node_type(property) != ARV_GC_PROPERTY_NODE_TYPE_POLLING_TIME)
            return;
        AravisError error;
        time = arv_gc_property_node_get_int64(property, error.out());
    });
    return time;
}

// The shortest polling time of the nodes that make up the value; 0 when none has one.
gint64 pollingTimeOf(ArvGcNode* node, std::unordered_set<ArvGcNode*>& visited)
{
    if (!visited.insert(node).second)
        return 0;
    gint64 shortest = ownPollingTime(ARV_DOM_NODE(node));
    const auto sources = linkedNodes(ARV_DOM_NODE(node), {ARV_GC_PROPERTY_NODE_TYPE_P_VALUE,
                                                          ARV_GC_PROPERTY_NODE_TYPE_P_VALUE_INDEXED,
                                                          ARV_GC_PROPERTY_NODE_TYPE_P_VARIABLE});
    for (ArvGcNode* source : sources) {
        const gint64 time = pollingTimeOf(source, visited);
        if (time > 0)
            shortest = shortest > 0 ? std::min(shortest, time) : time;
    }
    return shortest;
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
        if (ARV_IS_GC_ENUM_ENTRY(child))
            readEntry(feature, child);
    });
}

void readCommandFacts(FeatureDescription& feature)
{
    forEachChild(ARV_DOM_NODE(feature.node), [&](ArvDomNode* child) {
        if (!ARV_IS_GC_PROPERTY_NODE(child))
            return;
        auto* property = ARV_GC_PROPERTY_NODE(child);
        const auto type = arv_gc_property_node_get_node_type(property);
        if (type == ARV_GC_PROPERTY_NODE_TYPE_COMMAND_VALUE ||
            type == ARV_GC_PROPERTY_NODE_TYPE_P_COMMAND_VALUE)
            feature.commandValue = property;
        auto* linked = arv_gc_property_node_get_linked_node(property);
        if (type == ARV_GC_PROPERTY_NODE_TYPE_P_VALUE && ARV_IS_GC_INTEGER(linked))
            feature.commandRegister = ARV_GC_INTEGER(linked);
    });
}

void collectValueChain(ArvGcNode* node, std::vector<ArvGcFeatureNode*>& chain)
{
    if (!ARV_IS_GC_FEATURE_NODE(node))
        return;
    auto* link = ARV_GC_FEATURE_NODE(node);
    if (std::find(chain.begin(), chain.end(), link) != chain.end())
        return;
    chain.push_back(link);
    for (ArvGcNode* next : linkedNodes(ARV_DOM_NODE(node), {ARV_GC_PROPERTY_NODE_TYPE_P_VALUE}))
        collectValueChain(next, chain);
}

// A camera that cannot be asked differs from one whose description makes no sense: there the
// feature does not exist.
bool isFailedRead(ZalErrorType status)
{
    return isSilent(status) || status == ZalErrorTransport || status == ZalErrorUnknown;
}

ZalErrorType isImplemented(const std::vector<ArvGcFeatureNode*>& valueChain, bool& implemented)
{
    implemented = true;
    for (ArvGcFeatureNode* node : valueChain) {
        AravisError error;
        implemented = implemented && arv_gc_feature_node_is_implemented(node, error.out());
        if (isFailedRead(error.status()))
            return error.status();
    }
    return ZalErrorSuccess;
}

FeatureDescription describe(ArvGcFeatureNode* node, const std::string& category)
{
    FeatureDescription feature;
    feature.node = node;
    collectValueChain(ARV_GC_NODE(node), feature.valueChain);
    feature.name = nameOf(node);
    feature.displayName = displayNameOf(node);
    feature.category = category;
    feature.toolTip = text(arv_gc_feature_node_get_tooltip(node));
    feature.description = text(arv_gc_feature_node_get_description(node));
    feature.type = typeOf(node);
    feature.visibility = visibilityOf(node);
    feature.flags = accessFlagsOf(node);
    std::unordered_set<ArvGcNode*> visited;
    feature.pollingTime = std::chrono::milliseconds(pollingTimeOf(ARV_GC_NODE(node), visited));
    if (feature.pollingTime.count() > 0)
        feature.flags |= ZalFeatureFlagsVolatile;
    readNumberFacts(feature);
    if (feature.type == ZalFeatureEnum)
        readEntries(feature);
    if (feature.type == ZalFeatureCommand)
        readCommandFacts(feature);
    return feature;
}

/// Walks the tree of categories and collects what hangs on it.
class Walker
{
public:
    ZalErrorType walk(ArvGc* genicam, CameraDescription& description)
    {
        ArvGcNode* root = arv_gc_get_node(genicam, "Root");
        if (ARV_IS_GC_CATEGORY(root))
            addCategory(root, "");
        connect(DependencyGraph(genicam));
        if (status == ZalErrorSuccess)
            description = std::move(result);
        return status;
    }

private:
    void addCategory(ArvGcNode* category, const std::string& path);
    void addMember(ArvGcNode* member, const std::string& path);
    void connect(const DependencyGraph& graph);
    std::vector<std::size_t> positionsOf(const std::vector<ArvGcNode*>& nodes) const;

    CameraDescription result;
    ZalErrorType status = ZalErrorSuccess;
    std::unordered_set<ArvGcNode*> visited;
    std::unordered_map<ArvGcNode*, std::size_t> positions;
};

void Walker::addCategory(ArvGcNode* category, const std::string& path)
{
    for (ArvGcNode* member :
         linkedNodes(ARV_DOM_NODE(category), {ARV_GC_PROPERTY_NODE_TYPE_P_FEATURE}))
        addMember(member, path);
}

// A feature that several categories name belongs to the first of them.
void Walker::addMember(ArvGcNode* member, const std::string& path)
{
    if (!ARV_IS_GC_FEATURE_NODE(member) || !visited.insert(member).second)
        return;
    auto* node = ARV_GC_FEATURE_NODE(member);
    if (ARV_IS_GC_CATEGORY(member)) {
        addCategory(member, path.empty() ? nameOf(node) : path + '/' + nameOf(node));
        return;
    }
    FeatureDescription feature = describe(node, path);
    bool implemented = false;
    if (status == ZalErrorSuccess)
        status = isImplemented(feature.valueChain, implemented);
    if (!implemented)
        return;
    positions[member] = result.features.size();
    result.positions[feature.name] = result.features.size();
    result.features.push_back(std::move(feature));
}

void Walker::connect(const DependencyGraph& graph)
{
    for (FeatureDescription& feature : result.features) {
        const auto selected =
            linkedNodes(ARV_DOM_NODE(feature.node), {ARV_GC_PROPERTY_NODE_TYPE_P_SELECTED});
        if (!selected.empty())
            feature.flags |= ZalFeatureFlagsModifyWrite;
        feature.selected = positionsOf(selected);
        const auto affected = graph.affectedBy(ARV_GC_NODE(feature.node));
        feature.affected = positionsOf({affected.begin(), affected.end()});
    }
    for (const auto& [volatileRegister, dependents] : graph.volatileRegisters()) {
        for (const std::size_t position : positionsOf({dependents.begin(), dependents.end()}))
            result.features[position].volatileRegisters.push_back(volatileRegister);
    }
}

// Nodes that are not in the feature list have no position.
std::vector<std::size_t> Walker::positionsOf(const std::vector<ArvGcNode*>& nodes) const
{
    std::vector<std::size_t> found;
    for (ArvGcNode* node : nodes) {
        const auto position = positions.find(node);
        if (position != positions.end())
            found.push_back(position->second);
    }
    return found;
}

} // namespace

ZalErrorType readDescription(ArvGc* genicam, CameraDescription& description)
{
    return Walker().walk(genicam, description);
}

} // namespace ZalCPP
