#pragma once

#include <ZalCPP/Feature.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace Bench {

/// What is asked of a camera: always the number of calls; while recording also each distinct read
/// and every write, so that they can be made again without anything around them.
///
/// The same question is a distinct read under each selection it is asked under: after every write
/// that leaves the features written so far with other values. Facts never change.
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

    /// Keep the question unless it is in the recording already.
    void recordRead(const ZalCPP::FeaturePtr& feature, const std::string& question, Replay replay);
    void recordFact(const ZalCPP::FeaturePtr& feature, const std::string& question, Replay replay);
    void recordWrite(const ZalCPP::FeaturePtr& feature, const std::string& value, Replay replay);

    std::size_t distinctReads() const { return questions.size(); }
    std::size_t recordedCalls() const { return recorded.size(); }

    /// Makes the recorded calls, each once and in their order, directly on the features.
    void replay() const;

private:
    std::atomic<std::uint64_t> calls{0};
    bool recording = false;
    using Selection = std::map<const ZalCPP::Feature*, std::string>;

    void record(const ZalCPP::FeaturePtr& feature, const std::string& question,
                const Selection& asked, Replay replay);

    Selection selection;
    std::set<std::tuple<const ZalCPP::Feature*, std::string, Selection>> questions;
    std::vector<std::pair<ZalCPP::FeaturePtr, Replay>> recorded;
};

} // namespace Bench
