#pragma once

#include "bench/CallLog.h"

#include <ZalCPP/Feature.h>

#include <memory>
#include <vector>

namespace Bench {

/// Passes everything on to another feature and tells a log about each call.
///
/// Observers it keeps to itself: watching a camera causes traffic at times that nobody can
/// foretell, so changes are reported by notify() alone. The selected features that the other
/// feature hands out stay uncounted. The log must outlive the feature's use.
class CountedFeature final : public ZalCPP::Feature,
                             public std::enable_shared_from_this<CountedFeature>
{
public:
    CountedFeature(ZalCPP::FeaturePtr feature, CallLog& callLog);

    bool isObserved() const { return !observers.empty(); }

    /// Tells the observers on the calling thread, with no queue between, that the feature changed.
    void notify();

    // ZalCPP::Feature
    ZalErrorType GetName(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetDisplayName(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetCategory(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetUnit(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetRepresentation(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetToolTip(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetDescription(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetDataType(ZalFeatureDataType& type) const override;
    ZalErrorType GetFlags(ZalFeatureFlagsType& flags) const override;
    ZalErrorType GetVisibility(ZalFeatureVisibilityType& visibility) const override;
    ZalErrorType GetSelectedFeatures(ZalCPP::FeaturePtr* buffer,
                                     std::uint32_t& count) const override;
    ZalErrorType IsReadable(bool& readable) const override;
    ZalErrorType IsWritable(bool& writable) const override;
    ZalErrorType GetIntegerValue(long long& value) const override;
    ZalErrorType GetFloatValue(double& value) const override;
    ZalErrorType GetBoolValue(bool& value) const override;
    ZalErrorType GetStringValue(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetRawValue(unsigned char* buffer, std::uint32_t& count) const override;
    ZalErrorType SetIntegerValue(long long value) override;
    ZalErrorType SetFloatValue(double value) override;
    ZalErrorType SetBoolValue(bool value) override;
    ZalErrorType SetStringValue(const char* value) override;
    ZalErrorType SetRawValue(const unsigned char* data, std::uint32_t count) override;
    ZalErrorType GetIntegerRange(long long& min, long long& max) const override;
    ZalErrorType GetFloatRange(double& min, double& max) const override;
    ZalErrorType HasIncrement(bool& hasIncrement) const override;
    ZalErrorType GetIntegerIncrement(long long& increment) const override;
    ZalErrorType GetFloatIncrement(double& increment) const override;
    ZalErrorType GetValidValueSet(long long* buffer, std::uint32_t& count) const override;
    ZalErrorType GetEnumValues(long long* buffer, std::uint32_t& count) const override;
    ZalErrorType GetEnumNames(const char** buffer, std::uint32_t& count) const override;
    ZalErrorType GetEntry(ZalCPP::EnumEntry& entry, const char* name) const override;
    ZalErrorType GetEntries(ZalCPP::EnumEntry* buffer, std::uint32_t& count) const override;
    ZalErrorType IsValueAvailable(const char* name, bool& available) const override;
    ZalErrorType IsValueAvailable(long long value, bool& available) const override;
    ZalErrorType RunCommand() override;
    ZalErrorType IsCommandDone(bool& done) const override;
    ZalErrorType
    RegisterObserver(const std::shared_ptr<ZalCPP::IFeatureObserver>& observer) override;
    ZalErrorType
    UnregisterObserver(const std::shared_ptr<ZalCPP::IFeatureObserver>& observer) override;

private:
    template <typename Method, typename... Arguments>
    ZalErrorType read(const char* operation, Method method, Arguments&&... arguments) const;
    template <typename Method, typename... Arguments>
    ZalErrorType fact(const char* operation, Method method, Arguments&&... arguments) const;
    template <typename Value>
    ZalErrorType write(ZalErrorType (ZalCPP::Feature::*method)(Value), Value value);

    ZalCPP::FeaturePtr inner;
    CallLog& log;
    std::vector<std::shared_ptr<ZalCPP::IFeatureObserver>> observers;
};

} // namespace Bench
