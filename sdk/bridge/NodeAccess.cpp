#include "sdk/bridge/NodeAccess.h"

#include "sdk/bridge/AravisStatus.h"
#include "sdk/bridge/Evaluation.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ZalCPP::NodeAccess {
namespace {

ArvGcInteger* integerNode(const FeatureDescription& feature)
{
    return ARV_GC_INTEGER(feature.node);
}

ArvGcFloat* floatNode(const FeatureDescription& feature)
{
    return ARV_GC_FLOAT(feature.node);
}

// Runs one Aravis getter and stores what it returned.
template <typename Node, typename Result, typename Value>
ZalErrorType get(Node* node, Result (*getter)(Node*, GError**), Value& value)
{
    AravisError error;
    const Result result = getter(node, error.out());
    if (error.status() == ZalErrorSuccess)
        value = static_cast<Value>(result);
    return error.status();
}

// As get(), for properties that a description may leave out: Aravis then answers with the default
// and says so.
template <typename Node, typename Result, typename Value>
ZalErrorType getOrDefault(Node* node, Result (*getter)(Node*, GError**), Value& value)
{
    AravisError error;
    const Result result = getter(node, error.out());
    if (error.status() != ZalErrorSuccess && !error.isUndefinedProperty())
        return error.status();
    value = static_cast<Value>(result);
    return ZalErrorSuccess;
}

// Asks the nodes that make up the value until one answers `decisive`. Aravis itself looks at the
// feature's own node only.
ZalErrorType askChain(const std::vector<ArvGcFeatureNode*>& chain,
                      gboolean (*query)(ArvGcFeatureNode*, GError**), bool decisive, bool& answer)
{
    answer = !decisive;
    for (ArvGcFeatureNode* node : chain) {
        const ZalErrorType status = get(node, query, answer);
        if (status != ZalErrorSuccess || answer == decisive)
            return status;
    }
    return ZalErrorSuccess;
}

// What is not implemented at the moment, as under another selector's entry, is not available.
ZalErrorType isAvailable(const FeatureDescription& feature, bool& available)
{
    const ZalErrorType status = askChain(feature.sometimesImplemented,
                                         arv_gc_feature_node_is_implemented, false, available);
    if (status != ZalErrorSuccess || !available)
        return status;
    return askChain(feature.valueChain, arv_gc_feature_node_is_available, false, available);
}

// A lock does not show in the access mode.
ZalErrorType isLocked(const FeatureDescription& feature, bool& locked)
{
    return askChain(feature.valueChain, arv_gc_feature_node_is_locked, true, locked);
}

ZalErrorType usableLength(ArvGcRegister* node, std::size_t& length)
{
    guint64 bytes = 0;
    const ZalErrorType status = get(node, arv_gc_register_get_length, bytes);
    if (status != ZalErrorSuccess)
        return status;
    if (bytes == 0 || bytes > longestLength(ARV_GC_NODE(node)))
        return ZalErrorOutOfResources;
    length = bytes;
    return ZalErrorSuccess;
}

// Aravis makes room for whatever length the camera names, and ends the process where there is none.
ZalErrorType checkLengths(const FeatureDescription& feature)
{
    std::size_t length = 0;
    for (ArvGcRegister* node : feature.sizedRegisters) {
        const ZalErrorType status = usableLength(node, length);
        if (status != ZalErrorSuccess)
            return status;
    }
    return ZalErrorSuccess;
}

// Aravis does not refuse to access an unavailable or locked feature. Only what the access needs is
// asked, because each question may be a register read.
ZalErrorType checkReadable(const FeatureDescription& feature)
{
    if (!(feature.flags & ZalFeatureFlagsRead))
        return ZalErrorNotReadable;
    bool available = false;
    const ZalErrorType status = isAvailable(feature, available);
    if (status != ZalErrorSuccess)
        return status;
    return available ? ZalErrorSuccess : ZalErrorNotAvailable;
}

ZalErrorType checkWritable(const FeatureDescription& feature)
{
    if (!(feature.flags & ZalFeatureFlagsWrite))
        return ZalErrorNotWritable;
    bool available = false;
    bool locked = false;
    ZalErrorType status = isAvailable(feature, available);
    if (status == ZalErrorSuccess && !available)
        status = ZalErrorNotAvailable;
    if (status == ZalErrorSuccess)
        status = isLocked(feature, locked);
    return status == ZalErrorSuccess && locked ? ZalErrorNotWritable : status;
}

ZalErrorType prepareRead(const FeatureDescription& feature)
{
    const ZalErrorType status = checkReadable(feature);
    return status == ZalErrorSuccess ? checkLengths(feature) : status;
}

ZalErrorType prepareWrite(const FeatureDescription& feature)
{
    const ZalErrorType status = checkWritable(feature);
    return status == ZalErrorSuccess ? checkLengths(feature) : status;
}

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

// Limits may be asked of what is neither readable nor writable, but not of everything.
ZalErrorType checkAnswerable(const FeatureDescription& feature)
{
    return feature.isAnswerable ? checkLengths(feature) : ZalErrorNotReadable;
}

// Turns the outcome of a check into an answer; what is neither yes nor no remains a failure.
ZalErrorType answer(ZalErrorType check, bool& possible)
{
    const bool refused = check == ZalErrorNotAvailable || check == ZalErrorNotReadable ||
                         check == ZalErrorNotWritable;
    if (check != ZalErrorSuccess && !refused)
        return check;
    possible = check == ZalErrorSuccess;
    return ZalErrorSuccess;
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

ZalErrorType isReadable(const FeatureDescription& feature, bool& readable)
{
    return answer(checkReadable(feature), readable);
}

ZalErrorType isWritable(const FeatureDescription& feature, bool& writable)
{
    return answer(checkWritable(feature), writable);
}

ZalErrorType accessMode(const FeatureDescription& feature, AccessMode& mode)
{
    AccessMode found;
    ZalErrorType status = isReadable(feature, found.readable);
    if (status == ZalErrorSuccess)
        status = isWritable(feature, found.writable);
    if (status == ZalErrorSuccess)
        mode = found;
    return status;
}

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

ZalErrorType integerRange(const FeatureDescription& feature, Range<long long>& range)
{
    Range<long long> found;
    ZalErrorType status = checkAnswerable(feature);
    if (status == ZalErrorSuccess)
        status = getOrDefault(integerNode(feature), arv_gc_integer_get_min, found.min);
    if (status == ZalErrorSuccess)
        status = getOrDefault(integerNode(feature), arv_gc_integer_get_max, found.max);
    if (status == ZalErrorSuccess)
        range = found;
    return status;
}

ZalErrorType floatRange(const FeatureDescription& feature, Range<double>& range)
{
    Range<double> found;
    ZalErrorType status = checkAnswerable(feature);
    if (status == ZalErrorSuccess)
        status = getOrDefault(floatNode(feature), arv_gc_float_get_min, found.min);
    if (status == ZalErrorSuccess)
        status = getOrDefault(floatNode(feature), arv_gc_float_get_max, found.max);
    if (status == ZalErrorSuccess)
        range = found;
    return status;
}

ZalErrorType integerIncrement(const FeatureDescription& feature, long long& increment)
{
    long long found = 1;
    ZalErrorType status = checkAnswerable(feature);
    if (status == ZalErrorSuccess)
        status = getOrDefault(integerNode(feature), arv_gc_integer_get_inc, found);
    if (status == ZalErrorSuccess)
        increment = found < 0 ? 1 : found;
    return status;
}

ZalErrorType floatIncrement(const FeatureDescription& feature, double& increment)
{
    double found = 0;
    ZalErrorType status = checkAnswerable(feature);
    if (status == ZalErrorSuccess)
        status = getOrDefault(floatNode(feature), arv_gc_float_get_inc, found);
    if (status != ZalErrorSuccess)
        return status;
    // The smallest number is Aravis' way of saying that there is none.
    const bool isStep = std::isfinite(found) && found > std::numeric_limits<double>::min();
    if (!isStep)
        return ZalErrorNotImplemented;
    increment = found;
    return ZalErrorSuccess;
}

ZalErrorType entryAvailable(const FeatureDescription& feature, std::size_t entry, bool& available)
{
    auto* node = feature.entryNodes.at(entry);
    gboolean implemented = FALSE;
    gboolean usable = FALSE;
    ZalErrorType status = checkAnswerable(feature);
    if (status == ZalErrorSuccess)
        status = get(node, arv_gc_feature_node_is_implemented, implemented);
    if (status == ZalErrorSuccess && implemented)
        status = get(node, arv_gc_feature_node_is_available, usable);
    if (status == ZalErrorSuccess)
        available = usable;
    return status;
}

} // namespace ZalCPP::NodeAccess
