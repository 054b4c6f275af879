#include "tests/support/FakeFeature.h"

#include "tests/support/FakeCamera.h"
#include "tests/support/FakeDelivery.h"

#include <algorithm>
#include <utility>

namespace Fake {

FakeFeature::FakeFeature(FakeCamera& ownerCamera, std::string featureName,
                         ZalFeatureDataType dataType)
    : name(std::move(featureName)), type(dataType), m_camera(ownerCamera)
{
}

std::string FakeFeature::selectedEntry() const
{
    const State& chosen = selector->state();
    return selector->type == ZalFeatureInteger ? std::to_string(chosen.integer) : chosen.text;
}

const State& FakeFeature::state() const
{
    if (selector == nullptr)
        return m_base;
    const auto it = m_perEntry.find(selectedEntry());
    return it == m_perEntry.end() ? m_base : it->second;
}

State& FakeFeature::state()
{
    return const_cast<State&>(std::as_const(*this).state());
}

State& FakeFeature::stateFor(const std::string& entry)
{
    return m_perEntry.try_emplace(entry, m_base).first->second;
}

std::size_t FakeFeature::observerCount() const
{
    return observers().size();
}

std::vector<std::shared_ptr<ZalCPP::IFeatureObserver>> FakeFeature::observers() const
{
    const std::lock_guard<std::mutex> lock(m_camera.m_mutex);
    return m_registered;
}

ZalErrorType FakeFeature::checkRead(const char* operation, ZalFeatureDataType wanted) const
{
    if (const ZalErrorType status = m_camera.enter(operation, name))
        return status;
    if (type != wanted)
        return ZalErrorWrongType;
    if (!state().implemented)
        return ZalErrorNotAvailable;
    return state().readable ? ZalErrorSuccess : ZalErrorNotReadable;
}

ZalErrorType FakeFeature::checkRange(const char* operation, ZalFeatureDataType wanted) const
{
    if (const ZalErrorType status = m_camera.enter(operation, name))
        return status;
    if (type != wanted)
        return ZalErrorWrongType;
    return state().implemented && state().hasRange ? ZalErrorSuccess : ZalErrorNotAvailable;
}

ZalErrorType FakeFeature::checkEnum(const char* operation) const
{
    if (const ZalErrorType status = m_camera.enter(operation, name))
        return status;
    if (type != ZalFeatureEnum)
        return ZalErrorWrongType;
    return state().implemented ? ZalErrorSuccess : ZalErrorNotAvailable;
}

ZalErrorType FakeFeature::checkWrite(const char* operation, const std::string& value,
                                     ZalFeatureDataType wanted)
{
    m_offered = value;
    if (const ZalErrorType status = m_camera.enter(operation, name, value, true))
        return status;
    if (type != wanted)
        return ZalErrorWrongType;
    if (!state().implemented)
        return ZalErrorNotAvailable;
    return state().writable ? ZalErrorSuccess : ZalErrorNotWritable;
}

void FakeFeature::reportAccepted() const
{
    if (m_camera.onAccepted)
        m_camera.onAccepted({name, m_offered, selector ? selectedEntry() : std::string()});
}

ZalErrorType FakeFeature::written()
{
    reportAccepted();
    if (onWrite)
        onWrite(*this);
    return ZalErrorSuccess;
}

ZalErrorType FakeFeature::giveFact(const char* operation, const std::string& fact, char* buffer,
                                   std::uint32_t& count) const
{
    const ZalErrorType status = m_camera.enter(operation, name);
    return status ? status : deliverText(fact, buffer, count);
}

ZalErrorType FakeFeature::GetName(char* buffer, std::uint32_t& count) const
{
    if (const ZalErrorType status = m_camera.enter("GetName", name))
        return status;
    return state().implemented ? deliverText(name, buffer, count) : ZalErrorNotAvailable;
}

ZalErrorType FakeFeature::GetDisplayName(char* buffer, std::uint32_t& count) const
{
    return giveFact("GetDisplayName", displayName, buffer, count);
}

ZalErrorType FakeFeature::GetCategory(char* buffer, std::uint32_t& count) const
{
    return giveFact("GetCategory", category, buffer, count);
}

ZalErrorType FakeFeature::GetUnit(char* buffer, std::uint32_t& count) const
{
    return giveFact("GetUnit", unit, buffer, count);
}

ZalErrorType FakeFeature::GetRepresentation(char* buffer, std::uint32_t& count) const
{
    return giveFact("GetRepresentation", representation, buffer, count);
}

ZalErrorType FakeFeature::GetToolTip(char* buffer, std::uint32_t& count) const
{
    return giveFact("GetToolTip", toolTip, buffer, count);
}

ZalErrorType FakeFeature::GetDescription(char* buffer, std::uint32_t& count) const
{
    return giveFact("GetDescription", description, buffer, count);
}

ZalErrorType FakeFeature::GetDataType(ZalFeatureDataType& dataType) const
{
    if (const ZalErrorType status = m_camera.enter("GetDataType", name))
        return status;
    dataType = type;
    return ZalErrorSuccess;
}

ZalErrorType FakeFeature::GetFlags(ZalFeatureFlagsType& accessFlags) const
{
    if (const ZalErrorType status = m_camera.enter("GetFlags", name))
        return status;
    accessFlags = flags;
    return ZalErrorSuccess;
}

ZalErrorType FakeFeature::GetVisibility(ZalFeatureVisibilityType& level) const
{
    if (const ZalErrorType status = m_camera.enter("GetVisibility", name))
        return status;
    level = visibility;
    return ZalErrorSuccess;
}

ZalErrorType FakeFeature::GetSelectedFeatures(ZalCPP::FeaturePtr* buffer,
                                              std::uint32_t& count) const
{
    if (const ZalErrorType status = m_camera.enter("GetSelectedFeatures", name))
        return status;
    const std::vector<ZalCPP::FeaturePtr> handles(selectedFeatures.begin(), selectedFeatures.end());
    return deliver(handles, buffer, count);
}

ZalErrorType FakeFeature::IsReadable(bool& readable) const
{
    if (const ZalErrorType status = m_camera.enter("IsReadable", name))
        return status;
    readable = state().implemented && state().readable;
    return ZalErrorSuccess;
}

ZalErrorType FakeFeature::IsWritable(bool& writable) const
{
    if (const ZalErrorType status = m_camera.enter("IsWritable", name))
        return status;
    writable = state().implemented && state().writable;
    return ZalErrorSuccess;
}

ZalErrorType
FakeFeature::RegisterObserver(const std::shared_ptr<ZalCPP::IFeatureObserver>& observer)
{
    if (const ZalErrorType status = m_camera.enter("RegisterObserver", name))
        return status;
    if (!observer)
        return ZalErrorBadParameter;
    const std::lock_guard<std::mutex> lock(m_camera.m_mutex);
    if (std::find(m_registered.begin(), m_registered.end(), observer) == m_registered.end())
        m_registered.push_back(observer);
    return ZalErrorSuccess;
}

ZalErrorType
FakeFeature::UnregisterObserver(const std::shared_ptr<ZalCPP::IFeatureObserver>& observer)
{
    if (const ZalErrorType status = m_camera.enter("UnregisterObserver", name))
        return status;
    const std::lock_guard<std::mutex> lock(m_camera.m_mutex);
    const auto it = std::find(m_registered.begin(), m_registered.end(), observer);
    if (it == m_registered.end())
        return ZalErrorNotFound;
    m_registered.erase(it);
    return ZalErrorSuccess;
}

} // namespace Fake
