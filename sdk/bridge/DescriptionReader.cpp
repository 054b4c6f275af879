#include "sdk/bridge/DescriptionReader.h"

#include "sdk/bridge/AravisStatus.h"
#include "sdk/bridge/DependencyGraph.h"
#include "sdk/bridge/Evaluation.h"
#include "sdk/bridge/Implementation.h"
#include "sdk/bridge/Limits.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

namespace ZalCPP {
namespace {

// Of the nodes that Aravis asks on its own account when it opens a stream. It brings them along,
// but a camera may describe them itself.
constexpr char StreamPrefix[] = "ArvGev";

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
std::chrono::milliseconds pollingTimeOf(ArvGcNode* node)
{
    gint64 shortest = 0;
    for (ArvGcNode* source : reachableNodes(node, {ARV_GC_PROPERTY_NODE_TYPE_P_VALUE,
                                                   ARV_GC_PROPERTY_NODE_TYPE_P_VALUE_INDEXED,
                                                   ARV_GC_PROPERTY_NODE_TYPE_P_VARIABLE})) {
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

std::vector<ArvGcFeatureNode*> valueChainOf(ArvGcNode* node)
{
    std::vector<ArvGcFeatureNode*> chain;
    for (ArvGcNode* link : reachableNodes(node, {ARV_GC_PROPERTY_NODE_TYPE_P_VALUE})) {
        if (ARV_IS_GC_FEATURE_NODE(link))
            chain.push_back(ARV_GC_FEATURE_NODE(link));
    }
    return chain;
}

// The texts, and what else the node itself says.
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

// What the nodes behind it say.
void readFacts(FeatureDescription& feature)
{
    auto* node = ARV_GC_NODE(feature.node);
    feature.valueChain = valueChainOf(node);
    feature.flags = accessFlagsOf(feature.node);
    feature.pollingTime = pollingTimeOf(node);
    if (feature.pollingTime.count() > 0)
        feature.flags |= ZalFeatureFlagsVolatile;
    readNumberFacts(feature);
    if (feature.type == ZalFeatureEnum)
        readEntries(feature);
    if (feature.type == ZalFeatureCommand)
        readCommandFacts(feature);
}

bool isAnswerable(const Evaluation& evaluation, ArvGcNode* node)
{
    const auto chain = reachableNodes(node, {ARV_GC_PROPERTY_NODE_TYPE_P_VALUE});
    return std::all_of(chain.begin(), chain.end(),
                       [&](ArvGcNode* link) { return evaluation.isAnswerable(link); });
}

std::vector<ArvGcRegister*> sizedRegistersOf(const Evaluation& evaluation, ArvGcNode* node)
{
    std::vector<ArvGcRegister*> registers;
    for (ArvGcNode* source : evaluation.sourcesOf(node)) {
        const bool isSized =
            ARV_IS_GC_REGISTER(source) &&
            !linkedNodes(ARV_DOM_NODE(source), {ARV_GC_PROPERTY_NODE_TYPE_P_LENGTH}).empty();
        if (isSized)
            registers.push_back(ARV_GC_REGISTER(source));
    }
    return registers;
}

/// Walks the tree of categories and collects what hangs on it.
class Walker
{
public:
    explicit Walker(ArvGc* description)
        : genicam(description), evaluation(description), graph(description)
    {
    }

    ZalErrorType walk(CameraDescription& description)
    {
        collectMembers();
        result.canStream = evaluation.areAnswerable(StreamPrefix);
        const ZalErrorType status = addFeatures();
        connect();
        if (status == ZalErrorSuccess)
            description = std::move(result);
        return status;
    }

private:
    struct Member
    {
        ArvGcNode* node;
        std::string path; ///< Of the categories above it.
        std::size_t depth;
    };

    void collectMembers();
    void pushMembersOf(const Member& category, std::vector<Member>& pending) const;
    ZalErrorType addFeatures();
    ZalErrorType addFeature(const Member& member, const Implementation& implementation);
    void connect();
    std::vector<std::size_t> positionsOf(const std::vector<ArvGcNode*>& nodes) const;

    ArvGc* const genicam;
    const Evaluation evaluation;
    const DependencyGraph graph;
    std::vector<Member> members; ///< The features among the categories' members, in their order.
    CameraDescription result;
    std::unordered_map<ArvGcNode*, std::size_t> positions;
};

// A feature that several categories name belongs to the first of them.
void Walker::collectMembers()
{
    ArvGcNode* root = arv_gc_get_node(genicam, "Root");
    if (!ARV_IS_GC_CATEGORY(root))
        return;
    std::vector<Member> pending;
    std::unordered_set<ArvGcNode*> visited{root};
    pushMembersOf({root, "", 0}, pending);
    while (!pending.empty()) {
        const Member member = std::move(pending.back());
        pending.pop_back();
        if (!ARV_IS_GC_FEATURE_NODE(member.node) || !visited.insert(member.node).second)
            continue;
        if (ARV_IS_GC_CATEGORY(member.node))
            pushMembersOf(member, pending);
        else
            members.push_back(member);
    }
}

// The last one goes first: it is taken from the end.
void Walker::pushMembersOf(const Member& category, std::vector<Member>& pending) const
{
    Member member{nullptr, category.path, category.depth + 1};
    if (category.depth > 0 && category.depth <= Limits::CategoryDepth) {
        const std::string name = nameOf(ARV_GC_FEATURE_NODE(category.node));
        member.path += member.path.empty() ? name : '/' + name;
    }
    auto nodes = linkedNodes(ARV_DOM_NODE(category.node), {ARV_GC_PROPERTY_NODE_TYPE_P_FEATURE});
    for (auto node = nodes.rbegin(); node != nodes.rend(); ++node) {
        member.node = *node;
        pending.push_back(member);
    }
}

ZalErrorType Walker::addFeatures()
{
    std::vector<ArvGcNode*> listed;
    for (const Member& member : members) {
        if (isAnswerable(evaluation, member.node))
            listed.push_back(member.node);
    }
    const Implementation implementation(evaluation, listed);
    for (const Member& member : members) {
        const ZalErrorType status = addFeature(member, implementation);
        if (status != ZalErrorSuccess)
            return status;
    }
    return ZalErrorSuccess;
}

ZalErrorType Walker::addFeature(const Member& member, const Implementation& implementation)
{
    FeatureDescription feature = readTexts(ARV_GC_FEATURE_NODE(member.node), member.path);
    feature.isAnswerable = isAnswerable(evaluation, member.node);
    if (feature.isAnswerable) {
        readFacts(feature);
        feature.sizedRegisters = sizedRegistersOf(evaluation, member.node);
        bool implemented = false;
        const ZalErrorType status = implementation.decide(feature, implemented);
        if (status != ZalErrorSuccess || !implemented)
            return status;
    }
    positions[member.node] = result.features.size();
    result.positions[feature.name] = result.features.size();
    result.features.push_back(std::move(feature));
    return ZalErrorSuccess;
}

void Walker::connect()
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
        if (!evaluation.hasValue(ARV_GC_NODE(volatileRegister)))
            continue;
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
    return Walker(genicam).walk(description);
}

} // namespace ZalCPP
