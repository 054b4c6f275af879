#include "sdk/bridge/NodeAccess.h"
#include "sdk/bridge/NodeCalls.h"
#include "sdk/bridge/NodeChecks.h"

#include <cmath>
#include <limits>

namespace ZalCPP::NodeAccess {
namespace {

template <typename Node, typename Result, typename Number>
ZalErrorType rangeOf(const FeatureDescription& feature, Node* node,
                     Result (*minimum)(Node*, GError**), Result (*maximum)(Node*, GError**),
                     Range<Number>& range)
{
    Range<Number> found;
    ZalErrorType status = checkAnswerable(feature);
    if (status == ZalErrorSuccess)
        status = getOrDefault(node, minimum, found.min);
    if (status == ZalErrorSuccess)
        status = getOrDefault(node, maximum, found.max);
    if (status == ZalErrorSuccess)
        range = found;
    return status;
}

} // namespace

ZalErrorType integerRange(const FeatureDescription& feature, Range<long long>& range)
{
    return rangeOf(feature, integerNode(feature), arv_gc_integer_get_min, arv_gc_integer_get_max,
                   range);
}

ZalErrorType floatRange(const FeatureDescription& feature, Range<double>& range)
{
    return rangeOf(feature, floatNode(feature), arv_gc_float_get_min, arv_gc_float_get_max, range);
}

ZalErrorType integerIncrement(const FeatureDescription& feature, long long& increment)
{
    long long found = 1;
    ZalErrorType status = checkAnswerable(feature);
    if (status == ZalErrorSuccess)
        status = getOrDefault(integerNode(feature), arv_gc_integer_get_inc, found);
    if (status == ZalErrorSuccess)
        increment = found < 0 ? 1 : found;
    return status;
}

ZalErrorType floatIncrement(const FeatureDescription& feature, double& increment)
{
    double found = 0;
    ZalErrorType status = checkAnswerable(feature);
    if (status == ZalErrorSuccess)
        status = getOrDefault(floatNode(feature), arv_gc_float_get_inc, found);
    if (status != ZalErrorSuccess)
        return status;
    // The smallest number is Aravis' way of saying that there is none.
    const bool isStep = std::isfinite(found) && found > std::numeric_limits<double>::min();
    if (!isStep)
        return ZalErrorNotImplemented;
    increment = found;
    return ZalErrorSuccess;
}

} // namespace ZalCPP::NodeAccess
