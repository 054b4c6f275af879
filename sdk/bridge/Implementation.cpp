#include "sdk/bridge/Implementation.h"

#include "sdk/bridge/AravisStatus.h"
#include "sdk/bridge/DescriptionNodes.h"

#include <algorithm>

namespace ZalCPP {
namespace {

// A camera that cannot be asked differs from one whose description makes no sense: in the latter
// the feature does not exist.
bool isFailedRead(ZalErrorType status)
{
    return isSilent(status) || status == ZalErrorTransport || status == ZalErrorUnknown;
}

ZalErrorType ask(ArvGcFeatureNode* node, bool& implemented)
{
    AravisError error;
    implemented = arv_gc_feature_node_is_implemented(node, error.out());
    return isFailedRead(error.status()) ? error.status() : ZalErrorSuccess;
}

bool canBeWritten(ArvGcNode* node)
{
    const auto mode = arv_gc_feature_node_get_actual_access_mode(ARV_GC_FEATURE_NODE(node));
    return mode == ARV_GC_ACCESS_MODE_RW || mode == ARV_GC_ACCESS_MODE_WO;
}

// By what the description says of the node alone.
bool changesByItself(ArvGcNode* node)
{
    const bool isStored = ARV_IS_GC_REGISTER(node) || ARV_IS_GC_STRUCT_ENTRY_NODE(node);
    bool changes = isStored && canBeWritten(node);
    forEachProperty(ARV_DOM_NODE(node),
                    [&](ArvGcPropertyNode* property, ArvGcPropertyNodeType type) {
                        changes = changes || saysVolatile(property) ||
                                  type == ARV_GC_PROPERTY_NODE_TYPE_P_INVALIDATOR;
                    });
    return changes;
}

} // namespace

Implementation::Implementation(const Evaluation& evaluation,
                               const std::vector<ArvGcNode*>& features)
    : m_evaluation(evaluation)
{
    for (ArvGcNode* feature : features) {
        if (canBeWritten(feature))
            addAll(writtenNodes(feature));
        for (ArvGcNode* selected :
             linkedNodes(ARV_DOM_NODE(feature), {ARV_GC_PROPERTY_NODE_TYPE_P_SELECTED}))
            addAll(writtenNodes(selected));
    }
}

void Implementation::addAll(const std::vector<ArvGcNode*>& nodes)
{
    m_changing.insert(nodes.begin(), nodes.end());
}

ZalErrorType Implementation::decide(FeatureDescription& feature, bool& implemented) const
{
    implemented = true;
    for (ArvGcFeatureNode* node : feature.valueChain) {
        if (canChange(node)) {
            feature.sometimesImplemented.push_back(node);
            continue;
        }
        const ZalErrorType status = ask(node, implemented);
        if (status != ZalErrorSuccess || !implemented)
            return status;
    }
    return ZalErrorSuccess;
}

bool Implementation::canChange(ArvGcFeatureNode* node) const
{
    for (ArvGcNode* condition :
         linkedNodes(ARV_DOM_NODE(node), {ARV_GC_PROPERTY_NODE_TYPE_P_IS_IMPLEMENTED})) {
        const auto sources = m_evaluation.sourcesOf(condition);
        const bool changes = std::any_of(sources.begin(), sources.end(), [this](ArvGcNode* source) {
            return m_changing.count(source) > 0 || changesByItself(source);
        });
        if (changes)
            return true;
    }
    return false;
}

} // namespace ZalCPP
