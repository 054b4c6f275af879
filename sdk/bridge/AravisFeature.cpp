#include "sdk/bridge/AravisFeature.h"

#include "sdk/bridge/ArrayForm.h"

#include <algorithm>
#include <utility>

namespace ZalCPP {
namespace {

// The data types whose values are read and written as text.
constexpr std::initializer_list<ZalFeatureDataType> TextTypes = {ZalFeatureString, ZalFeatureEnum};

} // namespace

template <typename Work> ZalErrorType AravisFeature::ifOfType(Types types, Work work) const
{
    const bool isOne = std::find(types.begin(), types.end(), facts().type) != types.end();
    return isOne ? work() : ZalErrorWrongType;
}

template <typename Answer, typename Query>
ZalErrorType AravisFeature::ask(Types types, Answer& answer, Query query,
                                const AccessGuard::Demand& demand) const
{
    return ifOfType(types, [&] { return m_core->ask(m_position, answer, query, demand); });
}

template <typename Number>
ZalErrorType AravisFeature::askRange(Types types, NodeAccess::Query<Range<Number>> query,
                                     Number& min, Number& max) const
{
    Range<Number> range;
    const ZalErrorType status = ask(types, range, query);
    if (status == ZalErrorSuccess) {
        min = range.min;
        max = range.max;
    }
    return status;
}

template <typename Value, typename Element>
ZalErrorType AravisFeature::askElements(Types types, NodeAccess::Query<Value> query,
                                        Element* buffer, std::uint32_t& count) const
{
    return ifOfType(types, [&] {
        Value value;
        // The first read after a size query gives what was measured then.
        AccessGuard::Demand demand;
        demand.isContinuation = m_sizeAsked.exchange(!buffer) && buffer;
        const ZalErrorType status = m_core->ask(m_position, value, query, demand);
        return status == ZalErrorSuccess ? copyOut(value, buffer, count) : status;
    });
}

template <typename Write> ZalErrorType AravisFeature::change(Types types, Write write)
{
    return ifOfType(types, [&] { return m_core->change(m_position, write); });
}

AravisFeature::AravisFeature(std::shared_ptr<CameraCore> core, std::size_t position)
    : m_core(std::move(core)), m_position(position)
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
        selected.push_back(m_core->feature(feature));
    return copyOut(selected, buffer, count);
}

ZalErrorType AravisFeature::IsReadable(bool& readable) const
{
    return m_core->ask(m_position, readable, NodeAccess::isReadable);
}

ZalErrorType AravisFeature::IsWritable(bool& writable) const
{
    return m_core->ask(m_position, writable, NodeAccess::isWritable);
}

ZalErrorType AravisFeature::GetIntegerValue(long long& value) const
{
    return ask({ZalFeatureInteger}, value, NodeAccess::integerValue);
}

ZalErrorType AravisFeature::GetFloatValue(double& value) const
{
    return ask({ZalFeatureFloat}, value, NodeAccess::floatValue);
}

ZalErrorType AravisFeature::GetBoolValue(bool& value) const
{
    return ask({ZalFeatureBool}, value, NodeAccess::boolValue);
}

ZalErrorType AravisFeature::GetStringValue(char* buffer, std::uint32_t& count) const
{
    return askElements<std::string>(TextTypes, NodeAccess::textValue, buffer, count);
}

ZalErrorType AravisFeature::GetRawValue(unsigned char* buffer, std::uint32_t& count) const
{
    return askElements<RawData>({ZalFeatureRaw}, NodeAccess::rawValue, buffer, count);
}

ZalErrorType AravisFeature::SetIntegerValue(long long value)
{
    return change({ZalFeatureInteger}, [value](const FeatureDescription& feature) {
        return NodeAccess::setInteger(feature, value);
    });
}

ZalErrorType AravisFeature::SetFloatValue(double value)
{
    return change({ZalFeatureFloat}, [value](const FeatureDescription& feature) {
        return NodeAccess::setFloat(feature, value);
    });
}

ZalErrorType AravisFeature::SetBoolValue(bool value)
{
    return change({ZalFeatureBool}, [value](const FeatureDescription& feature) {
        return NodeAccess::setBool(feature, value);
    });
}

ZalErrorType AravisFeature::SetStringValue(const char* value)
{
    if (!value)
        return ifOfType(TextTypes, [] { return ZalErrorBadParameter; });
    return change(TextTypes, [text = std::string(value)](const FeatureDescription& feature) {
        return NodeAccess::setText(feature, text);
    });
}

ZalErrorType AravisFeature::SetRawValue(const unsigned char* data, std::uint32_t count)
{
    if (!data || count == 0)
        return ifOfType({ZalFeatureRaw}, [] { return ZalErrorBadParameter; });
    return change({ZalFeatureRaw},
                  [raw = RawData(data, data + count)](const FeatureDescription& feature) {
                      return NodeAccess::setRaw(feature, raw);
                  });
}

ZalErrorType AravisFeature::GetIntegerRange(long long& min, long long& max) const
{
    return askRange({ZalFeatureInteger}, NodeAccess::integerRange, min, max);
}

ZalErrorType AravisFeature::GetFloatRange(double& min, double& max) const
{
    return askRange({ZalFeatureFloat}, NodeAccess::floatRange, min, max);
}

ZalErrorType AravisFeature::HasIncrement(bool& hasIncrement) const
{
    ZalErrorType status = ZalErrorNotImplemented;
    if (facts().type == ZalFeatureInteger) {
        long long increment = 0;
        status = GetIntegerIncrement(increment);
    } else if (facts().type == ZalFeatureFloat) {
        double increment = 0;
        status = GetFloatIncrement(increment);
    }
    if (status != ZalErrorSuccess && status != ZalErrorNotImplemented)
        return status;
    hasIncrement = status == ZalErrorSuccess;
    return ZalErrorSuccess;
}

ZalErrorType AravisFeature::GetIntegerIncrement(long long& increment) const
{
    return ask({ZalFeatureInteger}, increment, NodeAccess::integerIncrement);
}

ZalErrorType AravisFeature::GetFloatIncrement(double& increment) const
{
    return ask({ZalFeatureFloat}, increment, NodeAccess::floatIncrement);
}

// Aravis does not read sets of valid values, so no feature has one.
ZalErrorType AravisFeature::GetValidValueSet(long long* buffer, std::uint32_t& count) const
{
    return ifOfType({ZalFeatureInteger},
                    [&] { return copyOut(std::vector<long long>(), buffer, count); });
}

ZalErrorType AravisFeature::GetEnumValues(long long* buffer, std::uint32_t& count) const
{
    return ifOfType({ZalFeatureEnum}, [&] {
        std::vector<long long> values;
        for (const EnumEntry& entry : facts().entries)
            values.push_back(entry.value);
        return copyOut(values, buffer, count);
    });
}

ZalErrorType AravisFeature::GetEnumNames(const char** buffer, std::uint32_t& count) const
{
    return ifOfType({ZalFeatureEnum}, [&] {
        std::vector<const char*> names;
        for (const EnumEntry& entry : facts().entries)
            names.push_back(entry.name.c_str());
        return copyOut(names, buffer, count);
    });
}

ZalErrorType AravisFeature::GetEntry(EnumEntry& entry, const char* name) const
{
    return ifOfType({ZalFeatureEnum}, [&] {
        if (!name)
            return ZalErrorBadParameter;
        const auto& entries = facts().entries;
        const auto found = std::find_if(entries.begin(), entries.end(),
                                        [name](const EnumEntry& e) { return e.name == name; });
        if (found == entries.end())
            return ZalErrorNotFound;
        entry = *found;
        return ZalErrorSuccess;
    });
}

ZalErrorType AravisFeature::GetEntries(EnumEntry* buffer, std::uint32_t& count) const
{
    return ifOfType({ZalFeatureEnum}, [&] { return copyOut(facts().entries, buffer, count); });
}

template <typename Condition>
ZalErrorType AravisFeature::entryAvailable(Condition condition, bool& available) const
{
    return ifOfType({ZalFeatureEnum}, [&] {
        const auto& entries = facts().entries;
        const auto found = std::find_if(entries.begin(), entries.end(), condition);
        if (found == entries.end())
            return ZalErrorNotFound;
        const auto entry = static_cast<std::size_t>(found - entries.begin());
        const auto query = [entry](const FeatureDescription& feature, bool& answer) {
            return NodeAccess::entryAvailable(feature, entry, answer);
        };
        return m_core->ask(m_position, available, query);
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
    return change({ZalFeatureCommand}, NodeAccess::runCommand);
}

ZalErrorType AravisFeature::IsCommandDone(bool& done) const
{
    // Commands end by themselves, so an answer from a moment ago says nothing.
    return ask({ZalFeatureCommand}, done, NodeAccess::isCommandDone, {AccessGuard::Clock::now()});
}

ZalErrorType AravisFeature::RegisterObserver(const std::shared_ptr<IFeatureObserver>& observer)
{
    if (!observer)
        return ZalErrorBadParameter;
    if (!m_core->isOpen())
        return ZalErrorNotOpen;
    m_core->notifier().addObserver(m_position, observer);
    return ZalErrorSuccess;
}

// The observer is let go of even when the camera is lost.
ZalErrorType AravisFeature::UnregisterObserver(const std::shared_ptr<IFeatureObserver>& observer)
{
    if (!observer)
        return ZalErrorBadParameter;
    m_core->notifier().removeObserver(m_position, observer);
    return m_core->isOpen() ? ZalErrorSuccess : ZalErrorNotOpen;
}

} // namespace ZalCPP
