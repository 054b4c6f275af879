#include "sdk/bridge/NodeChecks.h"

#include "sdk/bridge/Evaluation.h"
#include "sdk/bridge/NodeAccess.h"
#include "sdk/bridge/NodeCalls.h"

namespace ZalCPP::NodeAccess {
namespace {

// Asks the nodes that make up the value until one answers `decisive`. Aravis itself looks at the
// feature's own node only.
ZalErrorType askChain(const std::vector<ArvGcFeatureNode*>& chain,
                      gboolean (*query)(ArvGcFeatureNode*, GError**), bool decisive, bool& answer)
{
    answer = !decisive;
    for (ArvGcFeatureNode* node : chain) {
        const ZalErrorType status = get(node, query, answer);
        if (status != ZalErrorSuccess || answer == decisive)
            return status;
    }
    return ZalErrorSuccess;
}

// What is not implemented at the moment, as under another selector's entry, is not available.
ZalErrorType isAvailable(const FeatureDescription& feature, bool& available)
{
    const ZalErrorType status = askChain(feature.sometimesImplemented,
                                         arv_gc_feature_node_is_implemented, false, available);
    if (status != ZalErrorSuccess || !available)
        return status;
    return askChain(feature.valueChain, arv_gc_feature_node_is_available, false, available);
}

// A lock does not show in the access mode.
ZalErrorType isLocked(const FeatureDescription& feature, bool& locked)
{
    return askChain(feature.valueChain, arv_gc_feature_node_is_locked, true, locked);
}

ZalErrorType checkLengths(const FeatureDescription& feature)
{
    std::size_t length = 0;
    for (ArvGcRegister* node : feature.sizedRegisters) {
        const ZalErrorType status = usableLength(node, length);
        if (status != ZalErrorSuccess)
            return status;
    }
    return ZalErrorSuccess;
}

// Turns the outcome of a check into an answer; what is neither yes nor no remains a failure.
ZalErrorType answer(ZalErrorType check, bool& possible)
{
    const bool refused = check == ZalErrorNotAvailable || check == ZalErrorNotReadable ||
                         check == ZalErrorNotWritable;
    if (check != ZalErrorSuccess && !refused)
        return check;
    possible = check == ZalErrorSuccess;
    return ZalErrorSuccess;
}

} // namespace

ZalErrorType checkReadable(const FeatureDescription& feature)
{
    if (!(feature.flags & ZalFeatureFlagsRead))
        return ZalErrorNotReadable;
    bool available = false;
    const ZalErrorType status = isAvailable(feature, available);
    if (status != ZalErrorSuccess)
        return status;
    return available ? ZalErrorSuccess : ZalErrorNotAvailable;
}

ZalErrorType checkWritable(const FeatureDescription& feature)
{
    if (!(feature.flags & ZalFeatureFlagsWrite))
        return ZalErrorNotWritable;
    bool available = false;
    bool locked = false;
    ZalErrorType status = isAvailable(feature, available);
    if (status == ZalErrorSuccess && !available)
        status = ZalErrorNotAvailable;
    if (status == ZalErrorSuccess)
        status = isLocked(feature, locked);
    return status == ZalErrorSuccess && locked ? ZalErrorNotWritable : status;
}

ZalErrorType checkAnswerable(const FeatureDescription& feature)
{
    return feature.isAnswerable ? checkLengths(feature) : ZalErrorNotReadable;
}

ZalErrorType prepareRead(const FeatureDescription& feature)
{
    const ZalErrorType status = checkReadable(feature);
    return status == ZalErrorSuccess ? checkLengths(feature) : status;
}

ZalErrorType prepareWrite(const FeatureDescription& feature)
{
    const ZalErrorType status = checkWritable(feature);
    return status == ZalErrorSuccess ? checkLengths(feature) : status;
}

ZalErrorType usableLength(ArvGcRegister* node, std::size_t& length)
{
    guint64 bytes = 0;
    const ZalErrorType status = get(node, arv_gc_register_get_length, bytes);
    if (status != ZalErrorSuccess)
        return status;
    if (bytes == 0 || bytes > longestLength(ARV_GC_NODE(node)))
        return ZalErrorOutOfResources;
    length = bytes;
    return ZalErrorSuccess;
}

ZalErrorType isReadable(const FeatureDescription& feature, bool& readable)
{
    return answer(checkReadable(feature), readable);
}

ZalErrorType isWritable(const FeatureDescription& feature, bool& writable)
{
    return answer(checkWritable(feature), writable);
}

ZalErrorType permissions(const FeatureDescription& feature, Permissions& granted)
{
    Permissions found;
    ZalErrorType status = isReadable(feature, found.readable);
    if (status == ZalErrorSuccess)
        status = isWritable(feature, found.writable);
    if (status == ZalErrorSuccess)
        granted = found;
    return status;
}

ZalErrorType entryAvailable(const FeatureDescription& feature, std::size_t entry, bool& available)
{
    auto* node = feature.entryNodes.at(entry);
    gboolean implemented = FALSE;
    gboolean usable = FALSE;
    ZalErrorType status = checkAnswerable(feature);
    if (status == ZalErrorSuccess)
        status = get(node, arv_gc_feature_node_is_implemented, implemented);
    if (status == ZalErrorSuccess && implemented)
        status = get(node, arv_gc_feature_node_is_available, usable);
    if (status == ZalErrorSuccess)
        available = usable;
    return status;
}

} // namespace ZalCPP::NodeAccess
