#include "sdk/bridge/Snapshot.h"

#include "sdk/bridge/AravisStatus.h"
#include "sdk/bridge/Guarded.h"

#include <cmath>
#include <tuple>

namespace ZalCPP {
namespace {

SnapshotValue wrap(double value)
{
    return Real{value};
}

template <typename Value> SnapshotValue wrap(Value value)
{
    return value;
}

// Stores what `query` answers, or the status that it fails with.
template <typename Value>
ZalErrorType store(const FeatureDescription& feature, NodeAccess::Query<Value> query,
                   SnapshotValue& stored)
{
    Value value{};
    const ZalErrorType status = guarded([&] { return query(feature, value); });
    stored = status == ZalErrorSuccess ? wrap(std::move(value)) : SnapshotValue(status);
    return isSilent(status) ? status : ZalErrorSuccess;
}

template <typename Number>
ZalErrorType storeRange(const FeatureDescription& feature, NodeAccess::Query<Range<Number>> query,
                        Snapshot& snapshot)
{
    Range<Number> range;
    const ZalErrorType status = query(feature, range);
    const bool known = status == ZalErrorSuccess;
    snapshot.min = known ? wrap(range.min) : SnapshotValue(status);
    snapshot.max = known ? wrap(range.max) : SnapshotValue(status);
    return isSilent(status) ? status : ZalErrorSuccess;
}

ZalErrorType readLimits(const FeatureDescription& feature, Snapshot& snapshot)
{
    if (feature.type == ZalFeatureInteger) {
        const ZalErrorType status = storeRange(feature, NodeAccess::integerRange, snapshot);
        return status == ZalErrorSuccess
                   ? store(feature, NodeAccess::integerIncrement, snapshot.increment)
                   : status;
    }
    if (feature.type == ZalFeatureFloat) {
        const ZalErrorType status = storeRange(feature, NodeAccess::floatRange, snapshot);
        return status == ZalErrorSuccess
                   ? store(feature, NodeAccess::floatIncrement, snapshot.increment)
                   : status;
    }
    return ZalErrorSuccess;
}

ZalErrorType readEntries(const FeatureDescription& feature, Snapshot& snapshot)
{
    for (std::size_t entry = 0; entry < feature.entries.size(); ++entry) {
        bool available = false;
        const ZalErrorType status = NodeAccess::entryAvailable(feature, entry, available);
        if (isSilent(status))
            return status;
        snapshot.entriesAvailable.push_back(available);
    }
    return ZalErrorSuccess;
}

} // namespace

bool operator==(const Real& a, const Real& b)
{
    return a.value == b.value || (std::isnan(a.value) && std::isnan(b.value));
}

bool operator==(const Snapshot& a, const Snapshot& b)
{
    return std::tie(a.permissions, a.value, a.min, a.max, a.increment, a.entriesAvailable) ==
           std::tie(b.permissions, b.value, b.min, b.max, b.increment, b.entriesAvailable);
}

ZalErrorType readSnapshotValue(const FeatureDescription& feature, SnapshotValue& value)
{
    switch (feature.type) {
    case ZalFeatureInteger:
        return store(feature, NodeAccess::integerValue, value);
    case ZalFeatureFloat:
        return store(feature, NodeAccess::floatValue, value);
    case ZalFeatureBool:
        return store(feature, NodeAccess::boolValue, value);
    case ZalFeatureEnum:
    case ZalFeatureString:
        return store(feature, NodeAccess::textValue, value);
    case ZalFeatureRaw:
        return store(feature, NodeAccess::rawValue, value);
    default:
        return ZalErrorSuccess;
    }
}

ZalErrorType readSnapshot(const FeatureDescription& feature, Snapshot& snapshot)
{
    Snapshot found;
    ZalErrorType status = NodeAccess::permissions(feature, found.permissions);
    if (isSilent(status))
        return status;
    status = readSnapshotValue(feature, found.value);
    if (status == ZalErrorSuccess)
        status = readLimits(feature, found);
    if (status == ZalErrorSuccess)
        status = readEntries(feature, found);
    if (status == ZalErrorSuccess)
        snapshot = std::move(found);
    return status;
}

} // namespace ZalCPP
