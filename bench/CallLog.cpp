#include "bench/CallLog.h"

namespace Bench {

void CallLog::startRecording()
{
    selection.clear();
    questions.clear();
    recorded.clear();
    recording = true;
}

void CallLog::recordRead(const ZalCPP::FeaturePtr& feature, const std::string& question,
                         Replay replay)
{
    record(feature, question, selection, std::move(replay));
}

void CallLog::recordFact(const ZalCPP::FeaturePtr& feature, const std::string& question,
                         Replay replay)
{
    record(feature, question, Selection(), std::move(replay));
}

void CallLog::record(const ZalCPP::FeaturePtr& feature, const std::string& question,
                     const Selection& asked, Replay replay)
{
    if (questions.emplace(feature.get(), question, asked).second)
        recorded.emplace_back(feature, std::move(replay));
}

void CallLog::recordWrite(const ZalCPP::FeaturePtr& feature, const std::string& value,
                          Replay replay)
{
    selection[feature.get()] = value;
    recorded.emplace_back(feature, std::move(replay));
}

void CallLog::replay() const
{
    for (const auto& [feature, call] : recorded)
        call(*feature);
}

} // namespace Bench
