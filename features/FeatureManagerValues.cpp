// FeatureManager: values, ranges, writes and commands.
#include "features/FeatureManager.h"

#include "features/NumberConversions.h"

#include <QDebug>

namespace {

template <typename T> struct Range
{
    T min = T(-1);
    T max = T(-1);
};

template <typename T> Range<T> readRange(const ZalFeatureWrapperPtr& wrapper)
{
    Range<T> range;
    const bool known = wrapper->GetRange(range.min, range.max) == ZalErrorSuccess;
    return known ? range : Range<T>();
}

template <typename T> T readIncrement(const ZalFeatureWrapperPtr& wrapper)
{
    T increment = T(-1);
    return wrapper->GetIncrement(increment) == ZalErrorSuccess ? increment : T(-1);
}

template <typename T> T readValue(const ZalFeatureWrapperPtr& wrapper)
{
    T value = T(-1);
    FeatureManager::GetValue<T>(wrapper, &value);
    return value;
}

/// What the range operations report.
struct Limits
{
    double value = -1.0;
    double min = -1.0;
    double max = -1.0;
    double increment = -1.0;
    bool numeric = false;
};

template <typename T>
Limits readLimits(const ZalFeatureWrapperPtr& wrapper, double incrementForNone)
{
    Limits limits;
    limits.numeric = true;
    limits.value = static_cast<double>(readValue<T>(wrapper));
    const Range<T> range = readRange<T>(wrapper);
    limits.min = static_cast<double>(range.min);
    limits.max = static_cast<double>(range.max);
    limits.increment = static_cast<double>(readIncrement<T>(wrapper));
    // The multiple counts from zero, not from the minimum, and wraps around for a negative maximum.
    if (limits.increment > 0.0)
        limits.max = NumberConversions::reduceToMultiple(limits.max, limits.increment);
    else
        limits.increment = incrementForNone;
    return limits;
}

Limits readLimits(const ZalFeatureWrapperPtr& wrapper)
{
    switch (FeatureManager::GetDataType(wrapper)) {
    case ZalFeatureInteger:
        return readLimits<long long>(wrapper, 1.0);
    case ZalFeatureFloat:
        return readLimits<double>(wrapper, 0.01);
    default:
        return Limits();
    }
}

void logRefusal(const char* prefix, const QString& name, ZalErrorType status)
{
    qDebug() << prefix << name << " : " << status;
}

/// A value outside the range becomes the nearer limit. An unreadable range is -1 to -1.
template <typename T> T clamped(T value, const Range<T>& range)
{
    if (range.min > value)
        return range.min;
    return value > range.max ? range.max : value;
}

/// The second attempt: what the camera holds now, reduced to a multiple of the increment.
void writeFloatAgain(const ZalFeatureWrapperPtr& wrapper, const QString& name, double requested,
                     double current)
{
    const double step = readIncrement<double>(wrapper);
    const double value =
        step > 0.0 ? NumberConversions::reduceToMultiple(current, step) : requested;
    const ZalErrorType status = wrapper->SetValue(value);
    if (status != ZalErrorSuccess)
        logRefusal("Error: FeatureManager::SetValue:Double: ", name, status);
}

double writeFloat(const ZalFeatureWrapperPtr& wrapper, const QString& name, double value)
{
    const double requested = clamped(value, readRange<double>(wrapper));
    if (FeatureManager::GetIsWritable(wrapper)) {
        const ZalErrorType status = wrapper->SetValue(requested);
        const double current = readValue<double>(wrapper);
        if (status != ZalErrorSuccess)
            writeFloatAgain(wrapper, name, requested, current);
    }
    return readValue<double>(wrapper);
}

double writeBool(const ZalFeatureWrapperPtr& wrapper, const QString& name, double value)
{
    if (FeatureManager::GetIsWritable(wrapper)) {
        const ZalErrorType status = wrapper->SetValue(value > 0.0);
        if (status != ZalErrorSuccess)
            logRefusal("Error: FeatureManager::SetValue:Bool: ", name, status);
    }
    return readValue<bool>(wrapper) ? 1.0 : 0.0;
}

double writeInteger(const ZalFeatureWrapperPtr& wrapper, const QString& name, double value)
{
    long long requested = NumberConversions::toInt64(value);
    Range<long long> range = readRange<long long>(wrapper);
    const long long step = readIncrement<long long>(wrapper);
    // Multiples count from zero, not from the minimum.
    if (step > 0) {
        range.max = range.max / step * step;
        requested = requested / step * step;
    }
    requested = clamped(requested, range);
    if (FeatureManager::GetIsWritable(wrapper)) {
        const ZalErrorType status = wrapper->SetValue(requested);
        if (status != ZalErrorSuccess)
            logRefusal("Error: FeatureManager::SetValue:Int: ", name, status);
    }
    return static_cast<double>(readValue<long long>(wrapper));
}

} // namespace

double FeatureManager::GetValue(const QString& name, const QString& altName,
                                const QString& altName2) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name, altName, altName2);
    if (!wrapper)
        return -1.0;
    switch (GetDataType(wrapper)) {
    case ZalFeatureFloat:
        return readValue<double>(wrapper);
    case ZalFeatureBool:
        return readValue<bool>(wrapper) ? 1.0 : 0.0;
    case ZalFeatureInteger:
        return static_cast<double>(readValue<long long>(wrapper));
    default:
        return -1.0;
    }
}

double FeatureManager::GetValue(const QString& name, const QString& altName) const
{
    return GetValue(name, altName, QString());
}

double FeatureManager::GetValue(const QString& name) const
{
    return GetValue(name, QString(), QString());
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): takes its own reference by contract.
QString FeatureManager::GetStringValue(ZalFeatureWrapperPtr wrapper)
{
    std::string text;
    if (!wrapper || wrapper->GetValue(text) != ZalErrorSuccess)
        return QString();
    return QString::fromStdString(text);
}

QString FeatureManager::GetStringValue(const QString& name, const QString& altName) const
{
    return GetStringValue(GetFeatureByName(name, altName));
}

QString FeatureManager::GetStringValue(const QString& name) const
{
    return GetStringValue(name, QString());
}

bool FeatureManager::GetIsFloatFeature(const QString& name, const QString& altName,
                                       const QString& altName2) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name, altName, altName2);
    return wrapper && GetDataType(wrapper) == ZalFeatureFloat;
}

bool FeatureManager::GetIsFloatFeature(const QString& name, const QString& altName) const
{
    return GetIsFloatFeature(name, altName, QString());
}

bool FeatureManager::GetIsFloatFeature(const QString& name) const
{
    return GetIsFloatFeature(name, QString(), QString());
}

double FeatureManager::GetIncrement(const QString& name, const QString& altName) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name, altName);
    if (!wrapper)
        return -1.0;
    switch (GetDataType(wrapper)) {
    case ZalFeatureInteger:
        return static_cast<double>(readIncrement<long long>(wrapper));
    case ZalFeatureFloat:
        return readIncrement<double>(wrapper);
    default:
        return -1.0;
    }
}

double FeatureManager::GetIncrement(const QString& name) const
{
    return GetIncrement(name, QString());
}

double FeatureManager::GetValueIsWritableRangeIncrement(const QString& name, const QString& altName,
                                                        const QString& altName2, bool* writable,
                                                        double* min, double* max, double* inc) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name, altName, altName2);
    if (!wrapper)
        return -1.0;
    *writable = GetIsWritable(wrapper);
    const Limits limits = readLimits(wrapper);
    *writable = *writable && limits.numeric;
    *min = limits.min;
    *max = limits.max;
    *inc = limits.increment;
    return limits.value;
}

double FeatureManager::GetValueIsWritableRangeIncrement(const QString& name, const QString& altName,
                                                        bool* writable, double* min, double* max,
                                                        double* inc) const
{
    return GetValueIsWritableRangeIncrement(name, altName, QString(), writable, min, max, inc);
}

double FeatureManager::GetValueIsWritableRangeIncrement(const QString& name, bool* writable,
                                                        double* min, double* max, double* inc) const
{
    return GetValueIsWritableRangeIncrement(name, QString(), QString(), writable, min, max, inc);
}

double FeatureManager::GetValueRangeIncrement(const QString& name, const QString& altName,
                                              const QString& altName2, double* min, double* max,
                                              double* inc) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name, altName, altName2);
    if (!wrapper)
        return -1.0;
    const Limits limits = readLimits(wrapper);
    *min = limits.min;
    *max = limits.max;
    *inc = limits.increment;
    return limits.value;
}

double FeatureManager::GetValueRangeIncrement(const QString& name, const QString& altName,
                                              double* min, double* max, double* inc) const
{
    return GetValueRangeIncrement(name, altName, QString(), min, max, inc);
}

double FeatureManager::GetValueRangeIncrement(const QString& name, double* min, double* max,
                                              double* inc) const
{
    return GetValueRangeIncrement(name, QString(), QString(), min, max, inc);
}

double FeatureManager::GetValueRange(const QString& name, const QString& altName,
                                     const QString& altName2, double* min, double* max) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name, altName, altName2);
    if (!wrapper)
        return -1.0;
    const Limits limits = readLimits(wrapper);
    *min = limits.min;
    *max = limits.max;
    return limits.value;
}

double FeatureManager::GetValueRange(const QString& name, const QString& altName, double* min,
                                     double* max) const
{
    return GetValueRange(name, altName, QString(), min, max);
}

double FeatureManager::GetValueRange(const QString& name, double* min, double* max) const
{
    return GetValueRange(name, QString(), QString(), min, max);
}

QString FeatureManager::GetWritableEnumValue(const QString& name) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name);
    return wrapper && GetIsWritable(wrapper) ? GetStringValue(wrapper) : QString();
}

double FeatureManager::SetValue(const QString& name, const QString& altName,
                                const QString& altName2, double value) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name, altName, altName2);
    if (!wrapper)
        return value;
    // The answer is not used; asking belongs to the defined sequence of camera calls.
    std::string ownName;
    wrapper->GetName(ownName);
    switch (GetDataType(wrapper)) {
    case ZalFeatureFloat:
        return writeFloat(wrapper, name, value);
    case ZalFeatureBool:
        return writeBool(wrapper, name, value);
    case ZalFeatureInteger:
        return writeInteger(wrapper, name, value);
    default:
        return value;
    }
}

double FeatureManager::SetValue(const QString& name, const QString& altName, double value) const
{
    return SetValue(name, altName, QString(), value);
}

double FeatureManager::SetValue(const QString& name, double value) const
{
    return SetValue(name, QString(), QString(), value);
}

QString FeatureManager::SetValue(const QString& name, const QString& altName,
                                 const QString& altName2, const QString& value) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name, altName, altName2);
    if (!wrapper)
        return QString();
    wrapper->SetValue(value.toUtf8().constData());
    // The read-back knows the first name only, even when an alternative was written.
    return GetStringValue(name);
}

QString FeatureManager::SetValue(const QString& name, const QString& altName,
                                 const QString& value) const
{
    return SetValue(name, altName, QString(), value);
}

QString FeatureManager::SetValue(const QString& name, const QString& value) const
{
    return SetValue(name, QString(), QString(), value);
}

bool FeatureManager::RunCommand(const QString& name) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name);
    return wrapper && wrapper->RunCommand() == ZalErrorSuccess;
}
