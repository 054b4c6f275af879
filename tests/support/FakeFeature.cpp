#include "tests/support/FakeFeature.h"

#include "tests/support/FakeCamera.h"
#include "tests/support/FakeDelivery.h"

#include <algorithm>
#include <utility>

namespace Fake {

FakeFeature::FakeFeature(FakeCamera& ownerCamera, std::string featureName,
                         ZalFeatureDataType dataType)
    : name(std::move(featureName)), type(dataType), camera(ownerCamera)
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
        return base;
    const auto it = perEntry.find(selectedEntry());
    return it == perEntry.end() ? base : it->second;
}

State& FakeFeature::state()
{
    return const_cast<State&>(std::as_const(*this).state());
}

State& FakeFeature::stateFor(const std::string& entry)
{
    return perEntry.try_emplace(entry, base).first->second;
}

std::size_t FakeFeature::observerCount() const
{
    return observers().size();
}

std::vector<std::shared_ptr<ZalCPP::IFeatureObserver>> FakeFeature::observers() const
{
    const std::lock_guard<std::mutex> lock(camera.mutex);
    return registered;
}

ZalErrorType FakeFeature::checkRead(const char* operation, ZalFeatureDataType wanted) const
{
    if (const ZalErrorType status = camera.enter(operation, name))
        return status;
    if (type != wanted)
        return ZalErrorWrongType;
    if (!state().implemented)
        return ZalErrorNotAvailable;
    return state().readable ? ZalErrorSuccess : ZalErrorNotReadable;
}

ZalErrorType FakeFeature::checkRange(const char* operation, ZalFeatureDataType wanted) const
{
    if (const ZalErrorType status = camera.enter(operation, name))
        return status;
    if (type != wanted)
        return ZalErrorWrongType;
    return state().implemented && state().hasRange ? ZalErrorSuccess : ZalErrorNotAvailable;
}

ZalErrorType FakeFeature::checkEnum(const char* operation) const
{
    if (const ZalErrorType status = camera.enter(operation, name))
        return status;
    if (type != ZalFeatureEnum)
        return ZalErrorWrongType;
    return state().implemented ? ZalErrorSuccess : ZalErrorNotAvailable;
}

ZalErrorType FakeFeature::checkWrite(const char* operation, const std::string& value,
                                     ZalFeatureDataType wanted)
{
    offered = value;
    if (const ZalErrorType status = camera.enter(operation, name, value, true))
        return status;
    if (type != wanted)
        return ZalErrorWrongType;
    if (!state().implemented)
        return ZalErrorNotAvailable;
    return state().writable ? ZalErrorSuccess : ZalErrorNotWritable;
}

void FakeFeature::reportAccepted() const
{
    if (camera.onAccepted)
        camera.onAccepted({name, offered, selector ? selectedEntry() : std::string()});
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
    const ZalErrorType status = camera.enter(operation, name);
    return status ? status : deliverText(fact, buffer, count);
}

ZalErrorType FakeFeature::GetName(char* buffer, std::uint32_t& count) const
{
    if (const ZalErrorType status = camera.enter("GetName", name))
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
    if (const ZalErrorType status = camera.enter("GetDataType", name))
        return status;
    dataType = type;
    return ZalErrorSuccess;
}

ZalErrorType FakeFeature::GetFlags(ZalFeatureFlagsType& accessFlags) const
{
    if (const ZalErrorType status = camera.enter("GetFlags", name))
        return status;
    accessFlags = flags;
    return ZalErrorSuccess;
}

ZalErrorType FakeFeature::GetVisibility(ZalFeatureVisibilityType& level) const
{
    if (const ZalErrorType status = camera.enter("GetVisibility", name))
        return status;
    level = visibility;
    return ZalErrorSuccess;
}

ZalErrorType FakeFeature::GetSelectedFeatures(ZalCPP::FeaturePtr* buffer,
                                              std::uint32_t& count) const
{
    if (const ZalErrorType status = camera.enter("GetSelectedFeatures", name))
        return status;
    const std::vector<ZalCPP::FeaturePtr> handles(selectedFeatures.begin(), selectedFeatures.end());
    return deliver(handles, buffer, count);
}

ZalErrorType FakeFeature::IsReadable(bool& readable) const
{
    if (const ZalErrorType status = camera.enter("IsReadable", name))
        return status;
    readable = state().implemented && state().readable;
    return ZalErrorSuccess;
}

ZalErrorType FakeFeature::IsWritable(bool& writable) const
{
    if (const ZalErrorType status = camera.enter("IsWritable", name))
        return status;
    writable = state().implemented && state().writable;
    return ZalErrorSuccess;
}

ZalErrorType
FakeFeature::RegisterObserver(const std::shared_ptr<ZalCPP::IFeatureObserver>& observer)
{
    if (const ZalErrorType status = camera.enter("RegisterObserver", name))
        return status;
    if (!observer)
        return ZalErrorBadParameter;
    const std::lock_guard<std::mutex> lock(camera.mutex);
    if (std::find(registered.begin(), registered.end(), observer) == registered.end())
        registered.push_back(observer);
    return ZalErrorSuccess;
}

ZalErrorType
FakeFeature::UnregisterObserver(const std::shared_ptr<ZalCPP::IFeatureObserver>& observer)
{
    if (const ZalErrorType status = camera.enter("UnregisterObserver", name))
        return status;
    const std::lock_guard<std::mutex> lock(camera.mutex);
    const auto it = std::find(registered.begin(), registered.end(), observer);
    if (it == registered.end())
        return ZalErrorNotFound;
    registered.erase(it);
    return ZalErrorSuccess;
}

} // namespace Fake
