#include "sdk/bridge/DescriptionReader.h"

#include "sdk/bridge/DependencyGraph.h"
#include "sdk/bridge/DescriptionNodes.h"
#include "sdk/bridge/Evaluation.h"
#include "sdk/bridge/FeatureFacts.h"
#include "sdk/bridge/Implementation.h"
#include "sdk/bridge/Limits.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace ZalCPP {
namespace {

// Of the nodes that Aravis itself asks when it opens a stream. It brings them along, but a camera
// may describe its own.
constexpr char StreamPrefix[] = "ArvGev";

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

/// Walks the tree of categories and collects the features in it.
class Walker
{
public:
    explicit Walker(ArvGc* genicam) : m_genicam(genicam), m_evaluation(genicam), m_graph(genicam) {}

    ZalErrorType walk(CameraDescription& description)
    {
        collectMembers();
        m_result.canStream = m_evaluation.areAnswerable(StreamPrefix);
        const ZalErrorType status = addFeatures();
        connect();
        if (status == ZalErrorSuccess)
            description = std::move(m_result);
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

    ArvGc* const m_genicam;
    const Evaluation m_evaluation;
    const DependencyGraph m_graph;
    std::vector<Member> m_members; ///< The features among the categories' members, in their order.
    CameraDescription m_result;
    std::unordered_map<ArvGcNode*, std::size_t> m_positions;
};

// A feature that several categories name belongs to the first of them.
void Walker::collectMembers()
{
    ArvGcNode* root = arv_gc_get_node(m_genicam, "Root");
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
            m_members.push_back(member);
    }
}

// In reverse, because the next one is taken from the end.
void Walker::pushMembersOf(const Member& category, std::vector<Member>& pending) const
{
    Member member{nullptr, category.path, category.depth + 1};
    if (category.depth > 0 && category.depth <= Limits::CategoryDepth) {
        const std::string name = arv_gc_feature_node_get_name(ARV_GC_FEATURE_NODE(category.node));
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
    for (const Member& member : m_members) {
        if (isAnswerable(m_evaluation, member.node))
            listed.push_back(member.node);
    }
    const Implementation implementation(m_evaluation, listed);
    for (const Member& member : m_members) {
        const ZalErrorType status = addFeature(member, implementation);
        if (status != ZalErrorSuccess)
            return status;
    }
    return ZalErrorSuccess;
}

ZalErrorType Walker::addFeature(const Member& member, const Implementation& implementation)
{
    FeatureDescription feature = readTexts(ARV_GC_FEATURE_NODE(member.node), member.path);
    feature.isAnswerable = isAnswerable(m_evaluation, member.node);
    if (feature.isAnswerable) {
        readFacts(feature);
        feature.sizedRegisters = sizedRegistersOf(m_evaluation, member.node);
        bool implemented = false;
        const ZalErrorType status = implementation.decide(feature, implemented);
        if (status != ZalErrorSuccess || !implemented)
            return status;
    }
    m_positions[member.node] = m_result.features.size();
    m_result.positions[feature.name] = m_result.features.size();
    m_result.features.push_back(std::move(feature));
    return ZalErrorSuccess;
}

void Walker::connect()
{
    for (FeatureDescription& feature : m_result.features) {
        const auto selected =
            linkedNodes(ARV_DOM_NODE(feature.node), {ARV_GC_PROPERTY_NODE_TYPE_P_SELECTED});
        if (!selected.empty())
            feature.flags |= ZalFeatureFlagsModifyWrite;
        feature.selected = positionsOf(selected);
        const auto affected = m_graph.affectedBy(ARV_GC_NODE(feature.node));
        feature.affected = positionsOf({affected.begin(), affected.end()});
    }
    for (const auto& [volatileRegister, dependents] : m_graph.volatileRegisters()) {
        if (!m_evaluation.hasValue(ARV_GC_NODE(volatileRegister)))
            continue;
        for (const std::size_t position : positionsOf({dependents.begin(), dependents.end()}))
            m_result.features[position].volatileRegisters.push_back(volatileRegister);
    }
}

// Nodes that are not in the feature list have no position.
std::vector<std::size_t> Walker::positionsOf(const std::vector<ArvGcNode*>& nodes) const
{
    std::vector<std::size_t> found;
    for (ArvGcNode* node : nodes) {
        const auto position = m_positions.find(node);
        if (position != m_positions.end())
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
