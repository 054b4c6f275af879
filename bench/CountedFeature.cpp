#include "bench/CountedFeature.h"

#include <algorithm>
#include <string>
#include <utility>

namespace Bench {
namespace {

using ZalCPP::Feature;

template <typename Value> CallLog::Replay replayOf(ZalErrorType (Feature::*method)(Value&) const)
{
    return [method](Feature& feature) {
        Value value{};
        (feature.*method)(value);
    };
}

template <typename Value>
CallLog::Replay replayOf(ZalErrorType (Feature::*method)(Value&, Value&) const)
{
    return [method](Feature& feature) {
        Value first{};
        Value second{};
        (feature.*method)(first, second);
    };
}

/// The size query and the read belong together: they are one question.
template <typename Element>
CallLog::Replay replayOf(ZalErrorType (Feature::*method)(Element*, std::uint32_t&) const)
{
    return [method](Feature& feature) {
        std::uint32_t count = 0;
        if ((feature.*method)(nullptr, count) != ZalErrorSuccess || count == 0)
            return;
        std::vector<Element> buffer(count);
        (feature.*method)(buffer.data(), count);
    };
}

} // namespace

CountedFeature::CountedFeature(ZalCPP::FeaturePtr feature, CallLog& callLog)
    : inner(std::move(feature)), log(callLog)
{
}

void CountedFeature::notify()
{
    const auto toCall = observers;
    for (const auto& observer : toCall)
        observer->FeatureChanged(shared_from_this());
}

template <typename Method, typename... Arguments>
ZalErrorType CountedFeature::read(const char* operation, Method method,
                                  Arguments&&... arguments) const
{
    log.count();
    if (log.isRecording())
        log.recordRead(inner, operation, replayOf(method));
    return (inner.get()->*method)(std::forward<Arguments>(arguments)...);
}

template <typename Method, typename... Arguments>
ZalErrorType CountedFeature::fact(const char* operation, Method method,
                                  Arguments&&... arguments) const
{
    log.count();
    if (log.isRecording())
        log.recordFact(inner, operation, replayOf(method));
    return (inner.get()->*method)(std::forward<Arguments>(arguments)...);
}

template <typename Value>
ZalErrorType CountedFeature::write(ZalErrorType (Feature::*method)(Value), Value value)
{
    log.count();
    if (log.isRecording())
        log.recordWrite(inner, std::to_string(value),
                        [=](Feature& feature) { (feature.*method)(value); });
    return (inner.get()->*method)(value);
}

ZalErrorType CountedFeature::GetName(char* buffer, std::uint32_t& count) const
{
    return fact("GetName", &Feature::GetName, buffer, count);
}

ZalErrorType CountedFeature::GetDisplayName(char* buffer, std::uint32_t& count) const
{
    return fact("GetDisplayName", &Feature::GetDisplayName, buffer, count);
}

ZalErrorType CountedFeature::GetCategory(char* buffer, std::uint32_t& count) const
{
    return fact("GetCategory", &Feature::GetCategory, buffer, count);
}

ZalErrorType CountedFeature::GetUnit(char* buffer, std::uint32_t& count) const
{
    return fact("GetUnit", &Feature::GetUnit, buffer, count);
}

ZalErrorType CountedFeature::GetRepresentation(char* buffer, std::uint32_t& count) const
{
    return fact("GetRepresentation", &Feature::GetRepresentation, buffer, count);
}

ZalErrorType CountedFeature::GetToolTip(char* buffer, std::uint32_t& count) const
{
    return fact("GetToolTip", &Feature::GetToolTip, buffer, count);
}

ZalErrorType CountedFeature::GetDescription(char* buffer, std::uint32_t& count) const
{
    return fact("GetDescription", &Feature::GetDescription, buffer, count);
}

ZalErrorType CountedFeature::GetDataType(ZalFeatureDataType& type) const
{
    return fact("GetDataType", &Feature::GetDataType, type);
}

ZalErrorType CountedFeature::GetFlags(ZalFeatureFlagsType& flags) const
{
    return fact("GetFlags", &Feature::GetFlags, flags);
}

ZalErrorType CountedFeature::GetVisibility(ZalFeatureVisibilityType& visibility) const
{
    return fact("GetVisibility", &Feature::GetVisibility, visibility);
}

ZalErrorType CountedFeature::GetSelectedFeatures(ZalCPP::FeaturePtr* buffer,
                                                 std::uint32_t& count) const
{
    return fact("GetSelectedFeatures", &Feature::GetSelectedFeatures, buffer, count);
}

ZalErrorType CountedFeature::IsReadable(bool& readable) const
{
    return read("IsReadable", &Feature::IsReadable, readable);
}

ZalErrorType CountedFeature::IsWritable(bool& writable) const
{
    return read("IsWritable", &Feature::IsWritable, writable);
}

ZalErrorType CountedFeature::GetIntegerValue(long long& value) const
{
    return read("GetIntegerValue", &Feature::GetIntegerValue, value);
}

ZalErrorType CountedFeature::GetFloatValue(double& value) const
{
    return read("GetFloatValue", &Feature::GetFloatValue, value);
}

ZalErrorType CountedFeature::GetBoolValue(bool& value) const
{
    return read("GetBoolValue", &Feature::GetBoolValue, value);
}

ZalErrorType CountedFeature::GetStringValue(char* buffer, std::uint32_t& count) const
{
    return read("GetStringValue", &Feature::GetStringValue, buffer, count);
}

ZalErrorType CountedFeature::GetRawValue(unsigned char* buffer, std::uint32_t& count) const
{
    return read("GetRawValue", &Feature::GetRawValue, buffer, count);
}

ZalErrorType CountedFeature::SetIntegerValue(long long value)
{
    return write(&Feature::SetIntegerValue, value);
}

ZalErrorType CountedFeature::SetFloatValue(double value)
{
    return write(&Feature::SetFloatValue, value);
}

ZalErrorType CountedFeature::SetBoolValue(bool value)
{
    return write(&Feature::SetBoolValue, value);
}

ZalErrorType CountedFeature::SetStringValue(const char* value)
{
    log.count();
    if (log.isRecording())
        log.recordWrite(inner, value, [text = std::string(value)](Feature& feature) {
            feature.SetStringValue(text.c_str());
        });
    return inner->SetStringValue(value);
}

ZalErrorType CountedFeature::SetRawValue(const unsigned char* data, std::uint32_t count)
{
    log.count();
    if (log.isRecording())
        log.recordWrite(inner, std::string(data, data + count),
                        [bytes = std::vector<unsigned char>(data, data + count)](Feature& feature) {
                            feature.SetRawValue(bytes.data(),
                                                static_cast<std::uint32_t>(bytes.size()));
                        });
    return inner->SetRawValue(data, count);
}

ZalErrorType CountedFeature::GetIntegerRange(long long& min, long long& max) const
{
    return read("GetIntegerRange", &Feature::GetIntegerRange, min, max);
}

ZalErrorType CountedFeature::GetFloatRange(double& min, double& max) const
{
    return read("GetFloatRange", &Feature::GetFloatRange, min, max);
}

ZalErrorType CountedFeature::HasIncrement(bool& hasIncrement) const
{
    return read("HasIncrement", &Feature::HasIncrement, hasIncrement);
}

ZalErrorType CountedFeature::GetIntegerIncrement(long long& increment) const
{
    return read("GetIntegerIncrement", &Feature::GetIntegerIncrement, increment);
}

ZalErrorType CountedFeature::GetFloatIncrement(double& increment) const
{
    return read("GetFloatIncrement", &Feature::GetFloatIncrement, increment);
}

ZalErrorType CountedFeature::GetValidValueSet(long long* buffer, std::uint32_t& count) const
{
    return read("GetValidValueSet", &Feature::GetValidValueSet, buffer, count);
}

ZalErrorType CountedFeature::GetEnumValues(long long* buffer, std::uint32_t& count) const
{
    return fact("GetEnumValues", &Feature::GetEnumValues, buffer, count);
}

ZalErrorType CountedFeature::GetEnumNames(const char** buffer, std::uint32_t& count) const
{
    return fact("GetEnumNames", &Feature::GetEnumNames, buffer, count);
}

ZalErrorType CountedFeature::GetEntry(ZalCPP::EnumEntry& entry, const char* name) const
{
    log.count();
    if (log.isRecording())
        log.recordFact(inner, std::string("GetEntry ") + name,
                       [text = std::string(name)](Feature& feature) {
                           ZalCPP::EnumEntry found;
                           feature.GetEntry(found, text.c_str());
                       });
    return inner->GetEntry(entry, name);
}

ZalErrorType CountedFeature::GetEntries(ZalCPP::EnumEntry* buffer, std::uint32_t& count) const
{
    return fact("GetEntries", &Feature::GetEntries, buffer, count);
}

ZalErrorType CountedFeature::IsValueAvailable(const char* name, bool& available) const
{
    log.count();
    if (log.isRecording())
        log.recordRead(inner, std::string("IsValueAvailable ") + name,
                       [text = std::string(name)](Feature& feature) {
                           bool found = false;
                           feature.IsValueAvailable(text.c_str(), found);
                       });
    return inner->IsValueAvailable(name, available);
}

ZalErrorType CountedFeature::IsValueAvailable(long long value, bool& available) const
{
    log.count();
    if (log.isRecording())
        log.recordRead(inner, "IsValueAvailable #" + std::to_string(value),
                       [value](Feature& feature) {
                           bool found = false;
                           feature.IsValueAvailable(value, found);
                       });
    return inner->IsValueAvailable(value, available);
}

ZalErrorType CountedFeature::RunCommand()
{
    log.count();
    if (log.isRecording())
        log.recordWrite(inner, "", [](Feature& feature) { feature.RunCommand(); });
    return inner->RunCommand();
}

ZalErrorType CountedFeature::IsCommandDone(bool& done) const
{
    return read("IsCommandDone", &Feature::IsCommandDone, done);
}

ZalErrorType
CountedFeature::RegisterObserver(const std::shared_ptr<ZalCPP::IFeatureObserver>& observer)
{
    log.count();
    if (std::find(observers.begin(), observers.end(), observer) == observers.end())
        observers.push_back(observer);
    return ZalErrorSuccess;
}

ZalErrorType
CountedFeature::UnregisterObserver(const std::shared_ptr<ZalCPP::IFeatureObserver>& observer)
{
    log.count();
    observers.erase(std::remove(observers.begin(), observers.end(), observer), observers.end());
    return ZalErrorSuccess;
}

} // namespace Bench
