// Typed access to the nodes of an open camera. Everything here talks to the camera and runs on its
// worker thread only. Each function returns a status and fills its output only on success.
#pragma once

#include "sdk/bridge/FeatureDescription.h"

#include <string>
#include <vector>

namespace ZalCPP {

/// Smallest and largest value, both included.
template <typename Number> struct Range
{
    Number min = 0;
    Number max = 0;
};

/// What may be done with a feature at this moment.
struct Permissions
{
    bool readable = false; ///< Implemented, available and not write-only.
    bool writable = false; ///< Implemented, available, unlocked and not read-only.
};

inline bool operator==(const Permissions& a, const Permissions& b)
{
    return a.readable == b.readable && a.writable == b.writable;
}

/// What a register holds, in the camera's order of bytes.
using RawData = std::vector<unsigned char>;

namespace NodeAccess {

/// One of the questions below.
template <typename Answer> using Query = ZalErrorType (*)(const FeatureDescription&, Answer&);

/// isReadable(), then isWritable(): each of them asks whether the feature is available.
ZalErrorType permissions(const FeatureDescription& feature, Permissions& granted);
/// See Feature::IsReadable().
ZalErrorType isReadable(const FeatureDescription& feature, bool& readable);
/// See Feature::IsWritable().
ZalErrorType isWritable(const FeatureDescription& feature, bool& writable);

// These fail for a feature that is not readable, or not writable, at the moment. The feature has to
// be of the data type that they name.

/// In the feature's unit.
ZalErrorType integerValue(const FeatureDescription& feature, long long& value);
/// In the feature's unit.
ZalErrorType floatValue(const FeatureDescription& feature, double& value);
ZalErrorType boolValue(const FeatureDescription& feature, bool& value);
/// Of a string, or the name of an enumeration's current entry.
ZalErrorType textValue(const FeatureDescription& feature, std::string& value);
/// As many bytes as the camera says that the register has.
ZalErrorType rawValue(const FeatureDescription& feature, RawData& value);

/// Fails with ZalErrorOutOfRange outside the range or between two steps.
ZalErrorType setInteger(const FeatureDescription& feature, long long value);
/// Fails with ZalErrorOutOfRange outside the range.
ZalErrorType setFloat(const FeatureDescription& feature, double value);
ZalErrorType setBool(const FeatureDescription& feature, bool value);
/// Of a string, or an enumeration by the name of an entry.
ZalErrorType setText(const FeatureDescription& feature, const std::string& value);
/// Fails with ZalErrorBadParameter for any other length than the register has.
ZalErrorType setRaw(const FeatureDescription& feature, const RawData& value);
/// Does not wait for the command to complete.
ZalErrorType runCommand(const FeatureDescription& feature);
/// A command is done when its register no longer holds the command's value.
ZalErrorType isCommandDone(const FeatureDescription& feature, bool& done);

/// What the description leaves out has the default that GenICam gives.
ZalErrorType integerRange(const FeatureDescription& feature, Range<long long>& range);
/// As integerRange().
ZalErrorType floatRange(const FeatureDescription& feature, Range<double>& range);
/// 1 where the description gives none or a negative one; may be 0.
ZalErrorType integerIncrement(const FeatureDescription& feature, long long& increment);
/// Fails with ZalErrorNotImplemented where the description gives none.
ZalErrorType floatIncrement(const FeatureDescription& feature, double& increment);
/// By position of the entry: whether it is implemented and can be chosen now.
ZalErrorType entryAvailable(const FeatureDescription& feature, std::size_t entry, bool& available);

} // namespace NodeAccess
} // namespace ZalCPP
