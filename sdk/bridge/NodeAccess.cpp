#include "sdk/bridge/NodeAccess.h"

#include "sdk/bridge/NodeCalls.h"
#include "sdk/bridge/NodeChecks.h"

#include <algorithm>
#include <utility>

namespace ZalCPP::NodeAccess {
namespace {

// Reads from a node of a readable feature.
template <typename Node, typename Result, typename Value>
ZalErrorType read(const FeatureDescription& feature, Node* node, Result (*getter)(Node*, GError**),
                  Value& value)
{
    const ZalErrorType status = prepareRead(feature);
    return status == ZalErrorSuccess ? get(node, getter, value) : status;
}

// Writes to a writable feature: `setter` makes the Aravis call.
template <typename Setter> ZalErrorType write(const FeatureDescription& feature, Setter setter)
{
    const ZalErrorType status = prepareWrite(feature);
    if (status != ZalErrorSuccess)
        return status;
    AravisError error;
    setter(error.out());
    return error.status();
}

// Aravis checks limits but not increments. Unsigned arithmetic, because the distance from the
// minimum may not fit a signed number.
ZalErrorType checkIncrement(const FeatureDescription& feature, long long value)
{
    long long increment = 1;
    long long min = 0;
    ZalErrorType status = integerIncrement(feature, increment);
    if (status != ZalErrorSuccess || increment <= 1)
        return status;
    status = getOrDefault(integerNode(feature), arv_gc_integer_get_min, min);
    if (status != ZalErrorSuccess)
        return status;
    const auto distance =
        static_cast<unsigned long long>(value) - static_cast<unsigned long long>(min);
    const bool isStep = value >= min && distance % static_cast<unsigned long long>(increment) == 0;
    return isStep ? ZalErrorSuccess : ZalErrorOutOfRange;
}

ZalErrorType currentEntry(const FeatureDescription& feature, std::string& name)
{
    AravisError error;
    const char* current =
        arv_gc_enumeration_get_string_value(ARV_GC_ENUMERATION(feature.node), error.out());
    if (error.status() != ZalErrorSuccess)
        return error.status();
    // The register may hold a number that no entry has.
    if (!current)
        return ZalErrorNotFound;
    name = current;
    return ZalErrorSuccess;
}

ZalErrorType stringValue(const FeatureDescription& feature, std::string& value)
{
    AravisError error;
    const char* string = arv_gc_string_get_value(ARV_GC_STRING(feature.node), error.out());
    if (error.status() == ZalErrorSuccess)
        value = string ? string : "";
    return error.status();
}

ZalErrorType setEntry(const FeatureDescription& feature, const std::string& name)
{
    const auto entry = std::find_if(feature.entries.begin(), feature.entries.end(),
                                    [&](const EnumEntry& e) { return e.name == name; });
    if (entry == feature.entries.end())
        return ZalErrorNotFound;
    bool available = false;
    const auto position = static_cast<std::size_t>(entry - feature.entries.begin());
    const ZalErrorType status = entryAvailable(feature, position, available);
    if (status != ZalErrorSuccess)
        return status;
    if (!available)
        return ZalErrorNotAvailable;
    return write(feature, [&](GError** error) {
        arv_gc_enumeration_set_string_value(ARV_GC_ENUMERATION(feature.node), name.c_str(), error);
    });
}

ZalErrorType setString(const FeatureDescription& feature, const std::string& value)
{
    return write(feature, [&](GError** error) {
        arv_gc_string_set_value(ARV_GC_STRING(feature.node), value.c_str(), error);
    });
}

} // namespace

ZalErrorType integerValue(const FeatureDescription& feature, long long& value)
{
    return read(feature, integerNode(feature), arv_gc_integer_get_value, value);
}

ZalErrorType floatValue(const FeatureDescription& feature, double& value)
{
    return read(feature, floatNode(feature), arv_gc_float_get_value, value);
}

ZalErrorType boolValue(const FeatureDescription& feature, bool& value)
{
    return read(feature, ARV_GC_BOOLEAN(feature.node), arv_gc_boolean_get_value, value);
}

ZalErrorType textValue(const FeatureDescription& feature, std::string& value)
{
    const ZalErrorType status = prepareRead(feature);
    if (status != ZalErrorSuccess)
        return status;
    return feature.type == ZalFeatureEnum ? currentEntry(feature, value)
                                          : stringValue(feature, value);
}

ZalErrorType rawValue(const FeatureDescription& feature, RawData& value)
{
    auto* node = ARV_GC_REGISTER(feature.node);
    std::size_t length = 0;
    ZalErrorType status = checkReadable(feature);
    if (status == ZalErrorSuccess)
        status = usableLength(node, length);
    if (status != ZalErrorSuccess)
        return status;
    RawData data(length);
    AravisError error;
    arv_gc_register_get(node, data.data(), data.size(), error.out());
    if (error.status() == ZalErrorSuccess)
        value = std::move(data);
    return error.status();
}

ZalErrorType setInteger(const FeatureDescription& feature, long long value)
{
    ZalErrorType status = prepareWrite(feature);
    if (status == ZalErrorSuccess)
        status = checkIncrement(feature, value);
    if (status != ZalErrorSuccess)
        return status;
    AravisError error;
    arv_gc_integer_set_value(integerNode(feature), value, error.out());
    return error.status();
}

ZalErrorType setFloat(const FeatureDescription& feature, double value)
{
    return write(feature,
                 [&](GError** error) { arv_gc_float_set_value(floatNode(feature), value, error); });
}

ZalErrorType setBool(const FeatureDescription& feature, bool value)
{
    return write(feature, [&](GError** error) {
        arv_gc_boolean_set_value(ARV_GC_BOOLEAN(feature.node), value, error);
    });
}

ZalErrorType setText(const FeatureDescription& feature, const std::string& value)
{
    return feature.type == ZalFeatureEnum ? setEntry(feature, value) : setString(feature, value);
}

ZalErrorType setRaw(const FeatureDescription& feature, const RawData& value)
{
    auto* node = ARV_GC_REGISTER(feature.node);
    std::size_t length = 0;
    ZalErrorType status = checkWritable(feature);
    if (status == ZalErrorSuccess)
        status = usableLength(node, length);
    if (status != ZalErrorSuccess)
        return status;
    // A register is written as a whole; Aravis would clear what a shorter write leaves out.
    if (value.size() != length)
        return ZalErrorBadParameter;
    AravisError error;
    arv_gc_register_set(node, value.data(), value.size(), error.out());
    return error.status();
}

ZalErrorType runCommand(const FeatureDescription& feature)
{
    return write(feature, [&](GError** error) {
        arv_gc_command_execute(ARV_GC_COMMAND(feature.node), error);
    });
}

ZalErrorType isCommandDone(const FeatureDescription& feature, bool& done)
{
    const bool observable =
        feature.commandRegister && feature.commandValue && (feature.flags & ZalFeatureFlagsRead);
    if (!observable) {
        done = true;
        return ZalErrorSuccess;
    }
    gint64 now = 0;
    gint64 pending = 0;
    ZalErrorType status = read(feature, feature.commandRegister, arv_gc_integer_get_value, now);
    if (status == ZalErrorSuccess)
        status = get(feature.commandValue, arv_gc_property_node_get_int64, pending);
    if (status == ZalErrorSuccess)
        done = now != pending;
    return status;
}

} // namespace ZalCPP::NodeAccess
