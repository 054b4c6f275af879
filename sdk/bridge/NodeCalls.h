// How the sources of NodeAccess make an Aravis call.
#pragma once

#include "sdk/bridge/AravisStatus.h"
#include "sdk/bridge/FeatureDescription.h"

namespace ZalCPP::NodeAccess {

/// Of a feature that is an integer.
inline ArvGcInteger* integerNode(const FeatureDescription& feature)
{
    return ARV_GC_INTEGER(feature.node);
}

/// Of a feature that is a float.
inline ArvGcFloat* floatNode(const FeatureDescription& feature)
{
    return ARV_GC_FLOAT(feature.node);
}

/// Runs one Aravis getter and stores what it returned.
template <typename Node, typename Result, typename Value>
ZalErrorType get(Node* node, Result (*getter)(Node*, GError**), Value& value)
{
    AravisError error;
    const Result result = getter(node, error.out());
    if (error.status() == ZalErrorSuccess)
        value = static_cast<Value>(result);
    return error.status();
}

/// As get(), for properties that a description may leave out: Aravis then answers with the default
/// and says so.
template <typename Node, typename Result, typename Value>
ZalErrorType getOrDefault(Node* node, Result (*getter)(Node*, GError**), Value& value)
{
    AravisError error;
    const Result result = getter(node, error.out());
    if (error.status() != ZalErrorSuccess && !error.isUndefinedProperty())
        return error.status();
    value = static_cast<Value>(result);
    return ZalErrorSuccess;
}

} // namespace ZalCPP::NodeAccess
