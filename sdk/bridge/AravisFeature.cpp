#include "sdk/bridge/AravisFeature.h"

#include "sdk/bridge/ArrayForm.h"
#include "sdk/bridge/NodeAccess.h"

#include <algorithm>
#include <utility>

namespace ZalCPP {

AravisFeature::AravisFeature(std::shared_ptr<CameraCore> camera, std::size_t featurePosition)
    : core(std::move(camera)), position(featurePosition)
{
}

ZalErrorType AravisFeature::GetName(char* buffer, std::uint32_t& count) const
{
    return copyOut(facts().name, buffer, count);
}

ZalErrorType AravisFeature::GetDisplayName(char* buffer, std::uint32_t& count) const
{
    return copyOut(facts().displayName, buffer, count);
}

ZalErrorType AravisFeature::GetCategory(char* buffer, std::uint32_t& count) const
{
    return copyOut(facts().category, buffer, count);
}

ZalErrorType AravisFeature::GetUnit(char* buffer, std::uint32_t& count) const
{
    return copyOut(facts().unit, buffer, count);
}

ZalErrorType AravisFeature::GetRepresentation(char* buffer, std::uint32_t& count) const
{
    return copyOut(facts().representation, buffer, count);
}

ZalErrorType AravisFeature::GetToolTip(char* buffer, std::uint32_t& count) const
{
    return copyOut(facts().toolTip, buffer, count);
}

ZalErrorType AravisFeature::GetDescription(char* buffer, std::uint32_t& count) const
{
    return copyOut(facts().description, buffer, count);
}

ZalErrorType AravisFeature::GetDataType(ZalFeatureDataType& type) const
{
    type = facts().type;
    return ZalErrorSuccess;
}

ZalErrorType AravisFeature::GetFlags(ZalFeatureFlagsType& flags) const
{
    flags = facts().flags;
    return ZalErrorSuccess;
}

ZalErrorType AravisFeature::GetVisibility(ZalFeatureVisibilityType& visibility) const
{
    visibility = facts().visibility;
    return ZalErrorSuccess;
}

ZalErrorType AravisFeature::GetSelectedFeatures(FeaturePtr* buffer, std::uint32_t& count) const
{
    std::vector<FeaturePtr> selected;
    for (const std::size_t feature : facts().selected)
        selected.push_back(core->feature(feature));
    return copyOut(selected, buffer, count);
}

ZalErrorType AravisFeature::IsReadable(bool& readable) const
{
    return core->ask(position, readable, NodeAccess::isReadable);
}

ZalErrorType AravisFeature::IsWritable(bool& writable) const
{
    return core->ask(position, writable, NodeAccess::isWritable);
}

ZalErrorType AravisFeature::GetIntegerValue(long long& value) const
{
    if (!is(ZalFeatureInteger))
        return ZalErrorWrongType;
    return core->ask(position, value, NodeAccess::integerValue);
}

ZalErrorType AravisFeature::GetFloatValue(double& value) const
{
    if (!is(ZalFeatureFloat))
        return ZalErrorWrongType;
    return core->ask(position, value, NodeAccess::floatValue);
}

ZalErrorType AravisFeature::GetBoolValue(bool& value) const
{
    if (!is(ZalFeatureBool))
        return ZalErrorWrongType;
    return core->ask(position, value, NodeAccess::boolValue);
}

// The first read after a size query is to give what was measured.
AccessGuard::Demand AravisFeature::demandOf(const void* buffer) const
{
    AccessGuard::Demand demand;
    demand.isContinuation = sizeAsked.exchange(!buffer) && buffer;
    return demand;
}

ZalErrorType AravisFeature::GetStringValue(char* buffer, std::uint32_t& count) const
{
    if (!isText())
        return ZalErrorWrongType;
    std::string value;
    const ZalErrorType status = core->ask(position, value, NodeAccess::textValue, demandOf(buffer));
    return status == ZalErrorSuccess ? copyOut(value, buffer, count) : status;
}

ZalErrorType AravisFeature::GetRawValue(unsigned char* buffer, std::uint32_t& count) const
{
    if (!is(ZalFeatureRaw))
        return ZalErrorWrongType;
    RawData value;
    const ZalErrorType status = core->ask(position, value, NodeAccess::rawValue, demandOf(buffer));
    return status == ZalErrorSuccess ? copyOut(value, buffer, count) : status;
}

ZalErrorType AravisFeature::SetIntegerValue(long long value)
{
    if (!is(ZalFeatureInteger))
        return ZalErrorWrongType;
    return core->change(position, [value](const FeatureDescription& feature) {
        return NodeAccess::setInteger(feature, value);
    });
}

ZalErrorType AravisFeature::SetFloatValue(double value)
{
    if (!is(ZalFeatureFloat))
        return ZalErrorWrongType;
    return core->change(position, [value](const FeatureDescription& feature) {
        return NodeAccess::setFloat(feature, value);
    });
}

ZalErrorType AravisFeature::SetBoolValue(bool value)
{
    if (!is(ZalFeatureBool))
        return ZalErrorWrongType;
    return core->change(position, [value](const FeatureDescription& feature) {
        return NodeAccess::setBool(feature, value);
    });
}

ZalErrorType AravisFeature::SetStringValue(const char* value)
{
    if (!isText())
        return ZalErrorWrongType;
    if (!value)
        return ZalErrorBadParameter;
    return core->change(position, [text = std::string(value)](const FeatureDescription& feature) {
        return NodeAccess::setText(feature, text);
    });
}

ZalErrorType AravisFeature::SetRawValue(const unsigned char* data, std::uint32_t count)
{
    if (!is(ZalFeatureRaw))
        return ZalErrorWrongType;
    if (!data || count == 0)
        return ZalErrorBadParameter;
    return core->change(position,
                        [raw = RawData(data, data + count)](const FeatureDescription& feature) {
                            return NodeAccess::setRaw(feature, raw);
                        });
}

ZalErrorType AravisFeature::GetIntegerRange(long long& min, long long& max) const
{
    if (!is(ZalFeatureInteger))
        return ZalErrorWrongType;
    Range<long long> range;
    const ZalErrorType status = core->ask(position, range, NodeAccess::integerRange);
    if (status == ZalErrorSuccess) {
        min = range.min;
        max = range.max;
    }
    return status;
}

ZalErrorType AravisFeature::GetFloatRange(double& min, double& max) const
{
    if (!is(ZalFeatureFloat))
        return ZalErrorWrongType;
    Range<double> range;
    const ZalErrorType status = core->ask(position, range, NodeAccess::floatRange);
    if (status == ZalErrorSuccess) {
        min = range.min;
        max = range.max;
    }
    return status;
}

ZalErrorType AravisFeature::HasIncrement(bool& hasIncrement) const
{
    ZalErrorType status = ZalErrorNotImplemented;
    if (is(ZalFeatureInteger)) {
        long long increment = 0;
        status = core->ask(position, increment, NodeAccess::integerIncrement);
    } else if (is(ZalFeatureFloat)) {
        double increment = 0;
        status = core->ask(position, increment, NodeAccess::floatIncrement);
    }
    if (status != ZalErrorSuccess && status != ZalErrorNotImplemented)
        return status;
    hasIncrement = status == ZalErrorSuccess;
    return ZalErrorSuccess;
}

ZalErrorType AravisFeature::GetIntegerIncrement(long long& increment) const
{
    if (!is(ZalFeatureInteger))
        return ZalErrorWrongType;
    return core->ask(position, increment, NodeAccess::integerIncrement);
}

ZalErrorType AravisFeature::GetFloatIncrement(double& increment) const
{
    if (!is(ZalFeatureFloat))
        return ZalErrorWrongType;
    return core->ask(position, increment, NodeAccess::floatIncrement);
}

// Aravis does not read sets of valid values, so that every feature is without one.
ZalErrorType AravisFeature::GetValidValueSet(long long* buffer, std::uint32_t& count) const
{
    if (!is(ZalFeatureInteger))
        return ZalErrorWrongType;
    return copyOut(std::vector<long long>(), buffer, count);
}

ZalErrorType AravisFeature::GetEnumValues(long long* buffer, std::uint32_t& count) const
{
    if (!is(ZalFeatureEnum))
        return ZalErrorWrongType;
    std::vector<long long> values;
    for (const EnumEntry& entry : facts().entries)
        values.push_back(entry.value);
    return copyOut(values, buffer, count);
}

ZalErrorType AravisFeature::GetEnumNames(const char** buffer, std::uint32_t& count) const
{
    if (!is(ZalFeatureEnum))
        return ZalErrorWrongType;
    std::vector<const char*> names;
    for (const EnumEntry& entry : facts().entries)
        names.push_back(entry.name.c_str());
    return copyOut(names, buffer, count);
}

ZalErrorType AravisFeature::GetEntry(EnumEntry& entry, const char* name) const
{
    if (!is(ZalFeatureEnum))
        return ZalErrorWrongType;
    if (!name)
        return ZalErrorBadParameter;
    for (const EnumEntry& candidate : facts().entries) {
        if (candidate.name == name) {
            entry = candidate;
            return ZalErrorSuccess;
        }
    }
    return ZalErrorNotFound;
}

ZalErrorType AravisFeature::GetEntries(EnumEntry* buffer, std::uint32_t& count) const
{
    if (!is(ZalFeatureEnum))
        return ZalErrorWrongType;
    return copyOut(facts().entries, buffer, count);
}

template <typename Condition>
ZalErrorType AravisFeature::entryAvailable(Condition condition, bool& available) const
{
    if (!is(ZalFeatureEnum))
        return ZalErrorWrongType;
    const auto& entries = facts().entries;
    const auto found = std::find_if(entries.begin(), entries.end(), condition);
    if (found == entries.end())
        return ZalErrorNotFound;
    const auto entry = static_cast<std::size_t>(found - entries.begin());
    return core->ask(position, available, [entry](const FeatureDescription& feature, bool& answer) {
        return NodeAccess::entryAvailable(feature, entry, answer);
    });
}

ZalErrorType AravisFeature::IsValueAvailable(const char* name, bool& available) const
{
    if (!name)
        return ZalErrorBadParameter;
    return entryAvailable([name](const EnumEntry& entry) { return entry.name == name; }, available);
}

ZalErrorType AravisFeature::IsValueAvailable(long long value, bool& available) const
{
    return entryAvailable([value](const EnumEntry& entry) { return entry.value == value; },
                          available);
}

ZalErrorType AravisFeature::RunCommand()
{
    if (!is(ZalFeatureCommand))
        return ZalErrorWrongType;
    return core->change(position, NodeAccess::runCommand);
}

ZalErrorType AravisFeature::IsCommandDone(bool& done) const
{
    if (!is(ZalFeatureCommand))
        return ZalErrorWrongType;
    // Commands end by themselves.
    return core->ask(position, done, NodeAccess::isCommandDone, {AccessGuard::Clock::now()});
}

ZalErrorType AravisFeature::RegisterObserver(const std::shared_ptr<IFeatureObserver>& observer)
{
    if (!observer)
        return ZalErrorBadParameter;
    if (!core->isOpen())
        return ZalErrorNotOpen;
    core->notifier().addObserver(position, observer);
    return ZalErrorSuccess;
}

// The observer is let go of even when the camera is lost.
ZalErrorType AravisFeature::UnregisterObserver(const std::shared_ptr<IFeatureObserver>& observer)
{
    if (!observer)
        return ZalErrorBadParameter;
    core->notifier().removeObserver(position, observer);
    return core->isOpen() ? ZalErrorSuccess : ZalErrorNotOpen;
}

} // namespace ZalCPP
