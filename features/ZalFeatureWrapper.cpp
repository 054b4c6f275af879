#include "features/ZalFeatureWrapper.h"

#include "features/TwoCallRead.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace {

using ZalCPP::Feature;

using TextCall = ZalErrorType (Feature::*)(char*, std::uint32_t&) const;

ZalErrorType readText(const Feature& feature, TextCall call, std::string& output)
{
    return TwoCallRead::readText(
        [&](char* buffer, std::uint32_t& count) { return (feature.*call)(buffer, count); }, output);
}

template <typename T>
ZalErrorType readArray(const Feature& feature,
                       ZalErrorType (Feature::*call)(T*, std::uint32_t&) const,
                       std::vector<T>& output)
{
    return TwoCallRead::readArray(
        [&](T* buffer, std::uint32_t& count) { return (feature.*call)(buffer, count); }, output);
}

ZalErrorType copyTexts(const std::vector<const char*>& texts, std::vector<std::string>& output)
{
    if (std::find(texts.begin(), texts.end(), nullptr) != texts.end())
        return ZalErrorUnknown;
    try {
        output = std::vector<std::string>(texts.begin(), texts.end());
        return ZalErrorSuccess;
    } catch (const std::exception&) {
        return ZalErrorOutOfResources;
    }
}

} // namespace

ZalFeatureWrapper::ZalFeatureWrapper(ZalCPP::FeaturePtr wrapped) : feature(std::move(wrapped)) {}

ZalFeatureWrapper::~ZalFeatureWrapper() = default;

const ZalCPP::FeaturePtr& ZalFeatureWrapper::GetZalFeaturePtr()
{
    return feature;
}

ZalErrorType ZalFeatureWrapper::GetValue(long long& value) const
{
    return feature->GetIntegerValue(value);
}

ZalErrorType ZalFeatureWrapper::GetValue(double& value) const
{
    return feature->GetFloatValue(value);
}

ZalErrorType ZalFeatureWrapper::GetValue(std::string& value) const
{
    return readText(*feature, &Feature::GetStringValue, value);
}

ZalErrorType ZalFeatureWrapper::GetValue(bool& value) const
{
    return feature->GetBoolValue(value);
}

ZalErrorType ZalFeatureWrapper::GetValue(std::vector<unsigned char>& value) const
{
    return readArray(*feature, &Feature::GetRawValue, value);
}

ZalErrorType ZalFeatureWrapper::GetValue(std::vector<unsigned char>& value,
                                         unsigned int& sizeFilled) const
{
    const ZalErrorType status = readArray(*feature, &Feature::GetRawValue, value);
    if (status == ZalErrorSuccess)
        sizeFilled = static_cast<unsigned int>(value.size());
    return status;
}

ZalErrorType ZalFeatureWrapper::GetValues(std::vector<long long>& values)
{
    return readArray(*feature, &Feature::GetEnumValues, values);
}

ZalErrorType ZalFeatureWrapper::GetValues(std::vector<std::string>& names)
{
    std::vector<const char*> texts;
    const ZalErrorType status = readArray(*feature, &Feature::GetEnumNames, texts);
    return status == ZalErrorSuccess ? copyTexts(texts, names) : status;
}

ZalErrorType ZalFeatureWrapper::GetEntry(ZalCPP::EnumEntry& entry, const char* name) const
{
    return feature->GetEntry(entry, name);
}

ZalErrorType ZalFeatureWrapper::GetEntries(std::vector<ZalCPP::EnumEntry>& entries)
{
    return readArray(*feature, &Feature::GetEntries, entries);
}

ZalErrorType ZalFeatureWrapper::GetRange(double& min, double& max) const
{
    return feature->GetFloatRange(min, max);
}

ZalErrorType ZalFeatureWrapper::GetRange(long long& min, long long& max) const
{
    return feature->GetIntegerRange(min, max);
}

ZalErrorType ZalFeatureWrapper::SetValue(long long value)
{
    return feature->SetIntegerValue(value);
}

ZalErrorType ZalFeatureWrapper::SetValue(double value)
{
    return feature->SetFloatValue(value);
}

ZalErrorType ZalFeatureWrapper::SetValue(bool value)
{
    return feature->SetBoolValue(value);
}

ZalErrorType ZalFeatureWrapper::SetValue(const char* value)
{
    return feature->SetStringValue(value);
}

ZalErrorType ZalFeatureWrapper::SetValue(std::vector<unsigned char>& value)
{
    if (value.empty())
        return ZalErrorBadParameter;
    return feature->SetRawValue(value.data(), static_cast<std::uint32_t>(value.size()));
}

ZalErrorType ZalFeatureWrapper::HasIncrement(bool& hasIncrement) const
{
    return feature->HasIncrement(hasIncrement);
}

ZalErrorType ZalFeatureWrapper::GetIncrement(long long& increment) const
{
    return feature->GetIntegerIncrement(increment);
}

ZalErrorType ZalFeatureWrapper::GetIncrement(double& increment) const
{
    return feature->GetFloatIncrement(increment);
}

ZalErrorType ZalFeatureWrapper::IsValueAvailable(const char* name, bool& available) const
{
    return feature->IsValueAvailable(name, available);
}

ZalErrorType ZalFeatureWrapper::IsValueAvailable(long long value, bool& available) const
{
    return feature->IsValueAvailable(value, available);
}

ZalErrorType ZalFeatureWrapper::RunCommand()
{
    return feature->RunCommand();
}

ZalErrorType ZalFeatureWrapper::IsCommandDone(bool& done) const
{
    return feature->IsCommandDone(done);
}

ZalErrorType ZalFeatureWrapper::GetName(std::string& name) const
{
    return readText(*feature, &Feature::GetName, name);
}

ZalErrorType ZalFeatureWrapper::GetDisplayName(std::string& displayName) const
{
    return readText(*feature, &Feature::GetDisplayName, displayName);
}

ZalErrorType ZalFeatureWrapper::GetDataType(ZalFeatureDataType& type) const
{
    return feature->GetDataType(type);
}

ZalErrorType ZalFeatureWrapper::GetFlags(ZalFeatureFlagsType& flags) const
{
    return feature->GetFlags(flags);
}

ZalErrorType ZalFeatureWrapper::GetCategory(std::string& category) const
{
    return readText(*feature, &Feature::GetCategory, category);
}

ZalErrorType ZalFeatureWrapper::GetUnit(std::string& unit) const
{
    return readText(*feature, &Feature::GetUnit, unit);
}

ZalErrorType ZalFeatureWrapper::GetRepresentation(std::string& representation) const
{
    return readText(*feature, &Feature::GetRepresentation, representation);
}

ZalErrorType ZalFeatureWrapper::GetVisibility(ZalFeatureVisibilityType& visibility) const
{
    return feature->GetVisibility(visibility);
}

ZalErrorType ZalFeatureWrapper::GetToolTip(std::string& toolTip) const
{
    return readText(*feature, &Feature::GetToolTip, toolTip);
}

ZalErrorType ZalFeatureWrapper::GetDescription(std::string& description) const
{
    return readText(*feature, &Feature::GetDescription, description);
}

ZalErrorType ZalFeatureWrapper::GetSelectedFeatures(std::vector<ZalCPP::FeaturePtr>& features)
{
    return readArray(*feature, &Feature::GetSelectedFeatures, features);
}

ZalErrorType ZalFeatureWrapper::GetValidValueSet(std::vector<long long>& values) const
{
    return readArray(*feature, &Feature::GetValidValueSet, values);
}

ZalErrorType ZalFeatureWrapper::IsReadable(bool& readable)
{
    return feature->IsReadable(readable);
}

ZalErrorType ZalFeatureWrapper::IsWritable(bool& writable)
{
    return feature->IsWritable(writable);
}

ZalErrorType
ZalFeatureWrapper::RegisterObserver(const std::shared_ptr<ZalCPP::IFeatureObserver>& observer)
{
    return feature->RegisterObserver(observer);
}

ZalErrorType
ZalFeatureWrapper::UnregisterObserver(const std::shared_ptr<ZalCPP::IFeatureObserver>& observer)
{
    return feature->UnregisterObserver(observer);
}
