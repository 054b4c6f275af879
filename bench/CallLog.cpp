#include "bench/CallLog.h"

namespace Bench {

void CallLog::startRecording()
{
    questions.clear();
    recorded.clear();
    recording = true;
}

void CallLog::recordRead(const ZalCPP::FeaturePtr& feature, const std::string& question,
                         Replay replay)
{
    if (questions.emplace(feature.get(), question).second)
        recorded.emplace_back(feature, std::move(replay));
}

void CallLog::recordWrite(const ZalCPP::FeaturePtr& feature, Replay replay)
{
    recorded.emplace_back(feature, std::move(replay));
}

void CallLog::replay() const
{
    for (const auto& [feature, call] : recorded)
        call(*feature);
}

} // namespace Bench
