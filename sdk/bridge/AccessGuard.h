#pragma once

#include "sdk/bridge/FeatureDescription.h"
#include "sdk/bridge/RegisterTap.h"

#include <atomic>
#include <functional>
#include <memory>
#include <vector>

namespace ZalCPP {

/// Every access to a feature passes through here, on the worker thread. An access is an operation:
/// a read, a write or a question. The guard decides how fresh an answer has to be, and which
/// features are left alone because they never answer.
///
/// An answer from the cache is good enough for registers that change only when written. Those that
/// change by themselves, and whatever a write looks at before it writes, are read anew.
///
/// A camera may answer for all registers but one. Each access to that one would open the breaker,
/// and have everything reported as changed afterwards. So a feature is given up, for reading or for
/// writing, after three accesses of that kind in a row without an answer; only opening the camera
/// again gives it another chance. A read that took longer than callers wait counts as unanswered,
/// because nobody got the answer; a write that took long did its work.
class AccessGuard
{
public:
    using Clock = ReadCache::Clock;
    /// What it returns is handed on.
    using Access = std::function<ZalErrorType(const FeatureDescription&)>;

    /// How good an answer has to be.
    struct Demand
    {
        Clock::time_point earliest; ///< No answer counts that the camera gave before.
        /// Goes on with the read of a moment before, as the text does that follows its size query.
        bool isContinuation = false;
    };

    /// Nothing is given up yet. The tap is that of the camera with this description.
    AccessGuard(std::shared_ptr<const CameraDescription> description,
                std::shared_ptr<RegisterTap> tap);

    /// By position of the feature. Any thread; costs no traffic.
    bool hasGivenUpReading(std::size_t feature) const;
    /// As hasGivenUpReading(), for writing.
    bool hasGivenUpWriting(std::size_t feature) const;

    // On the worker thread.
    /// Runs an access that only reads, with answers that are as good as demanded.
    ZalErrorType read(std::size_t feature, const Access& access, const Demand& demand);
    /// Runs an access that writes; what it looks at before is read anew.
    ZalErrorType write(std::size_t feature, const Access& access);
    /// Runs an access that is not to one feature; everything is read anew.
    ZalErrorType anew(const std::function<ZalErrorType()>& access);

private:
    void forgetVolatile(const FeatureDescription& feature);

    using Failures = std::vector<std::atomic<int>>; ///< In a row, by position of the feature.

    const std::shared_ptr<const CameraDescription> m_description;
    const std::shared_ptr<RegisterTap> m_tap;
    Failures m_reading;
    Failures m_writing;
};

} // namespace ZalCPP
