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

ZalFeatureWrapper::ZalFeatureWrapper(ZalCPP::FeaturePtr feature) : m_feature(std::move(feature)) {}

ZalFeatureWrapper::~ZalFeatureWrapper() = default;

const ZalCPP::FeaturePtr& ZalFeatureWrapper::GetZalFeaturePtr()
{
    return m_feature;
}

ZalErrorType ZalFeatureWrapper::GetValue(long long& value) const
{
    return m_feature->GetIntegerValue(value);
}

ZalErrorType ZalFeatureWrapper::GetValue(double& value) const
{
    return m_feature->GetFloatValue(value);
}

ZalErrorType ZalFeatureWrapper::GetValue(std::string& value) const
{
    return readText(*m_feature, &Feature::GetStringValue, value);
}

ZalErrorType ZalFeatureWrapper::GetValue(bool& value) const
{
    return m_feature->GetBoolValue(value);
}

ZalErrorType ZalFeatureWrapper::GetValue(std::vector<unsigned char>& value) const
{
    return readArray(*m_feature, &Feature::GetRawValue, value);
}

ZalErrorType ZalFeatureWrapper::GetValue(std::vector<unsigned char>& value,
                                         unsigned int& sizeFilled) const
{
    const ZalErrorType status = readArray(*m_feature, &Feature::GetRawValue, value);
    if (status == ZalErrorSuccess)
        sizeFilled = static_cast<unsigned int>(value.size());
    return status;
}

ZalErrorType ZalFeatureWrapper::GetValues(std::vector<long long>& values)
{
    return readArray(*m_feature, &Feature::GetEnumValues, values);
}

ZalErrorType ZalFeatureWrapper::GetValues(std::vector<std::string>& names)
{
    std::vector<const char*> texts;
    const ZalErrorType status = readArray(*m_feature, &Feature::GetEnumNames, texts);
    return status == ZalErrorSuccess ? copyTexts(texts, names) : status;
}

ZalErrorType ZalFeatureWrapper::GetEntry(ZalCPP::EnumEntry& entry, const char* name) const
{
    return m_feature->GetEntry(entry, name);
}

ZalErrorType ZalFeatureWrapper::GetEntries(std::vector<ZalCPP::EnumEntry>& entries)
{
    return readArray(*m_feature, &Feature::GetEntries, entries);
}

ZalErrorType ZalFeatureWrapper::GetRange(double& min, double& max) const
{
    return m_feature->GetFloatRange(min, max);
}

ZalErrorType ZalFeatureWrapper::GetRange(long long& min, long long& max) const
{
    return m_feature->GetIntegerRange(min, max);
}

ZalErrorType ZalFeatureWrapper::SetValue(long long value)
{
    return m_feature->SetIntegerValue(value);
}

ZalErrorType ZalFeatureWrapper::SetValue(double value)
{
    return m_feature->SetFloatValue(value);
}

ZalErrorType ZalFeatureWrapper::SetValue(bool value)
{
    return m_feature->SetBoolValue(value);
}

ZalErrorType ZalFeatureWrapper::SetValue(const char* value)
{
    return m_feature->SetStringValue(value);
}

ZalErrorType ZalFeatureWrapper::SetValue(std::vector<unsigned char>& value)
{
    if (value.empty())
        return ZalErrorBadParameter;
    return m_feature->SetRawValue(value.data(), static_cast<std::uint32_t>(value.size()));
}

ZalErrorType ZalFeatureWrapper::HasIncrement(bool& hasIncrement) const
{
    return m_feature->HasIncrement(hasIncrement);
}

ZalErrorType ZalFeatureWrapper::GetIncrement(long long& increment) const
{
    return m_feature->GetIntegerIncrement(increment);
}

ZalErrorType ZalFeatureWrapper::GetIncrement(double& increment) const
{
    return m_feature->GetFloatIncrement(increment);
}

ZalErrorType ZalFeatureWrapper::IsValueAvailable(const char* name, bool& available) const
{
    return m_feature->IsValueAvailable(name, available);
}

ZalErrorType ZalFeatureWrapper::IsValueAvailable(long long value, bool& available) const
{
    return m_feature->IsValueAvailable(value, available);
}

ZalErrorType ZalFeatureWrapper::RunCommand()
{
    return m_feature->RunCommand();
}

ZalErrorType ZalFeatureWrapper::IsCommandDone(bool& done) const
{
    return m_feature->IsCommandDone(done);
}

ZalErrorType ZalFeatureWrapper::GetName(std::string& name) const
{
    return readText(*m_feature, &Feature::GetName, name);
}

ZalErrorType ZalFeatureWrapper::GetDisplayName(std::string& displayName) const
{
    return readText(*m_feature, &Feature::GetDisplayName, displayName);
}

ZalErrorType ZalFeatureWrapper::GetDataType(ZalFeatureDataType& type) const
{
    return m_feature->GetDataType(type);
}

ZalErrorType ZalFeatureWrapper::GetFlags(ZalFeatureFlagsType& flags) const
{
    return m_feature->GetFlags(flags);
}

ZalErrorType ZalFeatureWrapper::GetCategory(std::string& category) const
{
    return readText(*m_feature, &Feature::GetCategory, category);
}

ZalErrorType ZalFeatureWrapper::GetUnit(std::string& unit) const
{
    return readText(*m_feature, &Feature::GetUnit, unit);
}

ZalErrorType ZalFeatureWrapper::GetRepresentation(std::string& representation) const
{
    return readText(*m_feature, &Feature::GetRepresentation, representation);
}

ZalErrorType ZalFeatureWrapper::GetVisibility(ZalFeatureVisibilityType& visibility) const
{
    return m_feature->GetVisibility(visibility);
}

ZalErrorType ZalFeatureWrapper::GetToolTip(std::string& toolTip) const
{
    return readText(*m_feature, &Feature::GetToolTip, toolTip);
}

ZalErrorType ZalFeatureWrapper::GetDescription(std::string& description) const
{
    return readText(*m_feature, &Feature::GetDescription, description);
}

ZalErrorType ZalFeatureWrapper::GetSelectedFeatures(std::vector<ZalCPP::FeaturePtr>& features)
{
    return readArray(*m_feature, &Feature::GetSelectedFeatures, features);
}

ZalErrorType ZalFeatureWrapper::GetValidValueSet(std::vector<long long>& values) const
{
    return readArray(*m_feature, &Feature::GetValidValueSet, values);
}

ZalErrorType ZalFeatureWrapper::IsReadable(bool& readable)
{
    return m_feature->IsReadable(readable);
}

ZalErrorType ZalFeatureWrapper::IsWritable(bool& writable)
{
    return m_feature->IsWritable(writable);
}

ZalErrorType
ZalFeatureWrapper::RegisterObserver(const std::shared_ptr<ZalCPP::IFeatureObserver>& observer)
{
    return m_feature->RegisterObserver(observer);
}

ZalErrorType
ZalFeatureWrapper::UnregisterObserver(const std::shared_ptr<ZalCPP::IFeatureObserver>& observer)
{
    return m_feature->UnregisterObserver(observer);
}
