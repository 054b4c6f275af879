#pragma once

#include "sdk/bridge/NodeAccess.h"

#include <string>
#include <variant>
#include <vector>

namespace ZalCPP {

/// A float that equals itself even when it is not a number.
struct Real
{
    double value = 0;
};

bool operator==(const Real& a, const Real& b);

/// A feature's value, or the status of the read that gave none.
using SnapshotValue = std::variant<ZalErrorType, long long, Real, bool, std::string, RawData>;

/// Everything about a feature whose change its observers are told.
struct Snapshot
{
    Permissions permissions;
    SnapshotValue value;
    SnapshotValue min;
    SnapshotValue max;
    SnapshotValue increment;
    std::vector<bool> entriesAvailable; ///< In step with the description's entries.
};

bool operator==(const Snapshot& a, const Snapshot& b);

// On the worker thread. They fail only when the camera does not answer: a value that cannot be read
// for another reason is part of what a snapshot says.
/// Asks for limits and entries, too. A failure leaves `snapshot` as it was.
ZalErrorType readSnapshot(const FeatureDescription& feature, Snapshot& snapshot);
/// Leaves `value` alone for a feature without one, such as a command.
ZalErrorType readSnapshotValue(const FeatureDescription& feature, SnapshotValue& value);

} // namespace ZalCPP
