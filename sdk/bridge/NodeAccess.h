// Typed access to the nodes of an open camera. Everything here talks to the camera and runs on its
// worker thread only. Each function returns a status and fills its output only on success.
#pragma once

#include "sdk/bridge/FeatureDescription.h"

#include <string>
#include <vector>

namespace ZalCPP {

template <typename Number> struct Range
{
    Number min = 0;
    Number max = 0;
};

/// What can be done with a feature at this moment.
struct AccessMode
{
    bool readable = false;
    bool writable = false;
};

inline bool operator==(const AccessMode& a, const AccessMode& b)
{
    return a.readable == b.readable && a.writable == b.writable;
}

using RawData = std::vector<unsigned char>;

namespace NodeAccess {

ZalErrorType accessMode(const FeatureDescription& feature, AccessMode& mode);
ZalErrorType isReadable(const FeatureDescription& feature, bool& readable);
ZalErrorType isWritable(const FeatureDescription& feature, bool& writable);

// These fail for a feature that is not readable, or not writable, at the moment.
ZalErrorType integerValue(const FeatureDescription& feature, long long& value);
ZalErrorType floatValue(const FeatureDescription& feature, double& value);
ZalErrorType boolValue(const FeatureDescription& feature, bool& value);
ZalErrorType textValue(const FeatureDescription& feature, std::string& value);
ZalErrorType rawValue(const FeatureDescription& feature, RawData& value);

ZalErrorType setInteger(const FeatureDescription& feature, long long value);
ZalErrorType setFloat(const FeatureDescription& feature, double value);
ZalErrorType setBool(const FeatureDescription& feature, bool value);
ZalErrorType setText(const FeatureDescription& feature, const std::string& value);
ZalErrorType setRaw(const FeatureDescription& feature, const RawData& value);
ZalErrorType runCommand(const FeatureDescription& feature);
/// A command is done when its register no longer holds the command's value.
ZalErrorType isCommandDone(const FeatureDescription& feature, bool& done);

ZalErrorType integerRange(const FeatureDescription& feature, Range<long long>& range);
ZalErrorType floatRange(const FeatureDescription& feature, Range<double>& range);
/// 1 where the description gives none.
ZalErrorType integerIncrement(const FeatureDescription& feature, long long& increment);
/// Fails with ZalErrorNotImplemented where the description gives none.
ZalErrorType floatIncrement(const FeatureDescription& feature, double& increment);
ZalErrorType entryAvailable(const FeatureDescription& feature, std::size_t entry, bool& available);

} // namespace NodeAccess
} // namespace ZalCPP
