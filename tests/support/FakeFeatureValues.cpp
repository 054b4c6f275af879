// What a fake feature answers about values, limits, entries and commands.
#include "tests/support/FakeCamera.h"
#include "tests/support/FakeDelivery.h"
#include "tests/support/FakeFeature.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace Fake {
namespace {

template <typename T> ZalErrorType give(const std::optional<T>& source, T& target)
{
    if (!source)
        return ZalErrorNotAvailable;
    target = *source;
    return ZalErrorSuccess;
}

std::string realText(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.15g", value);
    return text;
}

std::string hexText(const unsigned char* data, std::uint32_t count)
{
    std::string result;
    for (std::uint32_t i = 0; i < count; ++i) {
        char text[3];
        std::snprintf(text, sizeof text, "%02x", static_cast<unsigned>(data[i]));
        result += text;
    }
    return result;
}

bool accepts(const State& state, long long value)
{
    if (value < state.minInteger || value > state.maxInteger)
        return false;
    const long long step = state.incrementInteger.value_or(1);
    return step <= 1 || (value - state.minInteger) % step == 0;
}

bool accepts(const State& state, double value)
{
    if (!(value >= state.minReal && value <= state.maxReal))
        return false;
    const double step = state.incrementReal.value_or(0.0);
    if (step <= 0.0)
        return true;
    const double steps = (value - state.minReal) / step;
    return std::abs(steps - std::round(steps)) < 1e-9;
}

template <typename Predicate> const Entry* findEntryIf(const State& state, Predicate matches)
{
    const auto it = std::find_if(state.entries.begin(), state.entries.end(), matches);
    return it == state.entries.end() ? nullptr : &*it;
}

const Entry* findEntry(const State& state, const std::string& entryName)
{
    return findEntryIf(state, [&](const Entry& entry) { return entry.name == entryName; });
}

ZalCPP::EnumEntry sdkEntry(const Entry& entry)
{
    return {entry.name, entry.name, std::string(), entry.value, ZalFeatureVisibilityBeginner};
}

ZalErrorType giveAvailability(const Entry* entry, bool& available)
{
    if (entry == nullptr)
        return ZalErrorBadParameter;
    available = entry->available;
    return ZalErrorSuccess;
}

} // namespace

ZalErrorType FakeFeature::GetIntegerValue(long long& value) const
{
    if (const ZalErrorType status = checkRead("GetIntegerValue", ZalFeatureInteger))
        return status;
    value = state().integer;
    return ZalErrorSuccess;
}

ZalErrorType FakeFeature::GetFloatValue(double& value) const
{
    if (const ZalErrorType status = checkRead("GetFloatValue", ZalFeatureFloat))
        return status;
    value = state().real;
    return ZalErrorSuccess;
}

ZalErrorType FakeFeature::GetBoolValue(bool& value) const
{
    if (const ZalErrorType status = checkRead("GetBoolValue", ZalFeatureBool))
        return status;
    value = state().boolean;
    return ZalErrorSuccess;
}

ZalErrorType FakeFeature::GetStringValue(char* buffer, std::uint32_t& count) const
{
    const auto wanted = type == ZalFeatureEnum ? ZalFeatureEnum : ZalFeatureString;
    const ZalErrorType status = checkRead("GetStringValue", wanted);
    return status ? status : deliverText(state().text, buffer, count);
}

ZalErrorType FakeFeature::GetRawValue(unsigned char* buffer, std::uint32_t& count) const
{
    const ZalErrorType status = checkRead("GetRawValue", ZalFeatureRaw);
    return status ? status : deliver(state().raw, buffer, count);
}

ZalErrorType FakeFeature::SetIntegerValue(long long value)
{
    const std::string text = std::to_string(value);
    if (const ZalErrorType status = checkWrite("SetIntegerValue", text, ZalFeatureInteger))
        return status;
    if (!accepts(state(), value))
        return ZalErrorOutOfRange;
    state().integer = value;
    return written();
}

ZalErrorType FakeFeature::SetFloatValue(double value)
{
    if (const auto status = checkWrite("SetFloatValue", realText(value), ZalFeatureFloat))
        return status;
    if (!accepts(state(), value))
        return ZalErrorOutOfRange;
    state().real = value;
    return written();
}

ZalErrorType FakeFeature::SetBoolValue(bool value)
{
    const char* text = value ? "true" : "false";
    if (const ZalErrorType status = checkWrite("SetBoolValue", text, ZalFeatureBool))
        return status;
    state().boolean = value;
    return written();
}

ZalErrorType FakeFeature::SetStringValue(const char* value)
{
    const auto wanted = type == ZalFeatureEnum ? ZalFeatureEnum : ZalFeatureString;
    if (const ZalErrorType status = checkWrite("SetStringValue", value, wanted))
        return status;
    if (type == ZalFeatureEnum)
        return acceptEntry(value);
    state().text = value;
    return written();
}

ZalErrorType FakeFeature::acceptEntry(const std::string& entryName)
{
    const Entry* entry = findEntry(state(), entryName);
    if (entry == nullptr || !entry->available)
        return ZalErrorBadParameter;
    state().text = entryName;
    return written();
}

ZalErrorType FakeFeature::SetRawValue(const unsigned char* data, std::uint32_t count)
{
    if (const auto status = checkWrite("SetRawValue", hexText(data, count), ZalFeatureRaw))
        return status;
    if (count == 0)
        return ZalErrorBadParameter;
    state().raw.assign(data, data + count);
    return written();
}

ZalErrorType FakeFeature::GetIntegerRange(long long& min, long long& max) const
{
    if (const ZalErrorType status = checkRange("GetIntegerRange", ZalFeatureInteger))
        return status;
    min = state().minInteger;
    max = state().maxInteger;
    return ZalErrorSuccess;
}

ZalErrorType FakeFeature::GetFloatRange(double& min, double& max) const
{
    if (const ZalErrorType status = checkRange("GetFloatRange", ZalFeatureFloat))
        return status;
    min = state().minReal;
    max = state().maxReal;
    return ZalErrorSuccess;
}

ZalErrorType FakeFeature::HasIncrement(bool& hasIncrement) const
{
    if (const ZalErrorType status = m_camera.enter("HasIncrement", name))
        return status;
    hasIncrement = (type == ZalFeatureInteger && state().incrementInteger) ||
                   (type == ZalFeatureFloat && state().incrementReal);
    return ZalErrorSuccess;
}

ZalErrorType FakeFeature::GetIntegerIncrement(long long& increment) const
{
    if (const ZalErrorType status = m_camera.enter("GetIntegerIncrement", name))
        return status;
    return type == ZalFeatureInteger ? give(state().incrementInteger, increment)
                                     : ZalErrorWrongType;
}

ZalErrorType FakeFeature::GetFloatIncrement(double& increment) const
{
    if (const ZalErrorType status = m_camera.enter("GetFloatIncrement", name))
        return status;
    return type == ZalFeatureFloat ? give(state().incrementReal, increment) : ZalErrorWrongType;
}

ZalErrorType FakeFeature::GetValidValueSet(long long* buffer, std::uint32_t& count) const
{
    if (const ZalErrorType status = m_camera.enter("GetValidValueSet", name))
        return status;
    return type == ZalFeatureInteger ? deliver(validValues, buffer, count) : ZalErrorWrongType;
}

ZalErrorType FakeFeature::GetEnumValues(long long* buffer, std::uint32_t& count) const
{
    if (const ZalErrorType status = checkEnum("GetEnumValues"))
        return status;
    std::vector<long long> values;
    for (const Entry& entry : state().entries)
        values.push_back(entry.value);
    return deliver(values, buffer, count);
}

ZalErrorType FakeFeature::GetEnumNames(const char** buffer, std::uint32_t& count) const
{
    if (const ZalErrorType status = checkEnum("GetEnumNames"))
        return status;
    std::vector<const char*> names;
    for (const Entry& entry : state().entries)
        names.push_back(entry.name.c_str());
    return deliver(names, buffer, count);
}

ZalErrorType FakeFeature::GetEntry(ZalCPP::EnumEntry& entry, const char* entryName) const
{
    if (const ZalErrorType status = checkEnum("GetEntry"))
        return status;
    const Entry* found = findEntry(state(), entryName);
    if (found == nullptr)
        return ZalErrorBadParameter;
    entry = sdkEntry(*found);
    return ZalErrorSuccess;
}

ZalErrorType FakeFeature::GetEntries(ZalCPP::EnumEntry* buffer, std::uint32_t& count) const
{
    if (const ZalErrorType status = checkEnum("GetEntries"))
        return status;
    std::vector<ZalCPP::EnumEntry> entries;
    for (const Entry& entry : state().entries)
        entries.push_back(sdkEntry(entry));
    return deliver(entries, buffer, count);
}

ZalErrorType FakeFeature::IsValueAvailable(const char* entryName, bool& available) const
{
    if (const ZalErrorType status = checkEnum("IsValueAvailable"))
        return status;
    return giveAvailability(findEntry(state(), entryName), available);
}

ZalErrorType FakeFeature::IsValueAvailable(long long value, bool& available) const
{
    if (const ZalErrorType status = checkEnum("IsValueAvailable"))
        return status;
    const auto hasValue = [value](const Entry& entry) { return entry.value == value; };
    return giveAvailability(findEntryIf(state(), hasValue), available);
}

ZalErrorType FakeFeature::RunCommand()
{
    if (const auto status = checkWrite("RunCommand", std::string(), ZalFeatureCommand))
        return status;
    reportAccepted();
    if (onRun)
        onRun();
    return ZalErrorSuccess;
}

ZalErrorType FakeFeature::IsCommandDone(bool& done) const
{
    if (const ZalErrorType status = m_camera.enter("IsCommandDone", name))
        return status;
    if (type != ZalFeatureCommand)
        return ZalErrorWrongType;
    done = commandDone;
    return ZalErrorSuccess;
}

} // namespace Fake
