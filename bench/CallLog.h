#pragma once

#include <ZalCPP/Feature.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Bench {

/// What is asked of a camera: always the number of calls; while recording also each distinct read
/// and every write, so that they can be made again without anything around them.
///
/// Counting is allowed on any thread, recording on one.
class CallLog
{
public:
    using Replay = std::function<void(ZalCPP::Feature&)>;

    void count() { calls.fetch_add(1, std::memory_order_relaxed); }
    std::uint64_t callCount() const { return calls.load(std::memory_order_relaxed); }

    /// Forgets the earlier recording.
    void startRecording();
    void stopRecording() { recording = false; }
    bool isRecording() const { return recording; }

    /// Keeps the read unless the same question to the same feature was recorded before.
    void recordRead(const ZalCPP::FeaturePtr& feature, const std::string& question, Replay replay);
    void recordWrite(const ZalCPP::FeaturePtr& feature, Replay replay);

    std::size_t distinctReads() const { return questions.size(); }
    std::size_t recordedCalls() const { return recorded.size(); }

    /// Makes the recorded calls, each once and in their order, directly on the features.
    void replay() const;

private:
    std::atomic<std::uint64_t> calls{0};
    bool recording = false;
    std::set<std::pair<const ZalCPP::Feature*, std::string>> questions;
    std::vector<std::pair<ZalCPP::FeaturePtr, Replay>> recorded;
};

} // namespace Bench
