// FeatureManager: values, ranges, writes and commands.
#include "features/FeatureManager.h"

#include "features/FeatureQuestions.h"
#include "features/NumberConversions.h"
#include "features/NumberWrite.h"

namespace Ask = FeatureQuestions;

namespace {

/// What the range operations report.
struct Limits
{
    double value = -1.0;
    double min = -1.0;
    double max = -1.0;
    double increment = -1.0;
    bool numeric = false;
    /// Of the questions about the limits; one that was not answered comes first.
    ZalErrorType status = ZalErrorSuccess;
};

template <typename T> Limits readLimits(const ZalFeatureWrapper& feature, double incrementForNone)
{
    Limits limits;
    limits.numeric = true;
    limits.value = static_cast<double>(Ask::value<T>(feature).value);
    const auto range = Ask::range<T>(feature);
    limits.min = static_cast<double>(range.value.min);
    limits.max = static_cast<double>(range.value.max);
    const Answer<T> increment = Ask::increment<T>(feature);
    limits.increment = static_cast<double>(increment.value);
    limits.status = increment.isMissing() ? increment.status : range.status;
    // The multiple counts from zero, not from the minimum, and wraps around for a negative maximum.
    if (limits.increment > 0.0)
        limits.max = NumberConversions::reduceToMultiple(limits.max, limits.increment);
    else
        limits.increment = incrementForNone;
    return limits;
}

Limits readLimits(const ZalFeatureWrapper& feature)
{
    const Answer<ZalFeatureDataType> type = Ask::dataType(feature);
    switch (type.value) {
    case ZalFeatureInteger:
        return readLimits<long long>(feature, 1.0);
    case ZalFeatureFloat:
        return readLimits<double>(feature, 0.01);
    default:
        Limits limits;
        limits.status = type.status;
        return limits;
    }
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
        return Ask::value<double>(*wrapper).value;
    case ZalFeatureBool:
        return Ask::value<bool>(*wrapper).value ? 1.0 : 0.0;
    case ZalFeatureInteger:
        return static_cast<double>(Ask::value<long long>(*wrapper).value);
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
    return wrapper ? Ask::text(*wrapper).value : QString();
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
        return static_cast<double>(Ask::increment<long long>(*wrapper).value);
    case ZalFeatureFloat:
        return Ask::increment<double>(*wrapper).value;
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
    const Limits limits = readLimits(*wrapper);
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
    const Limits limits = readLimits(*wrapper);
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
    const Limits limits = readLimits(*wrapper);
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
    NumberWrite write(wrapper, name, NumberWrite::Silence::CountsAsNeutral);
    return write.run(value).value.value_or(value);
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

Answer<QString> FeatureManager::askStringValue(const QString& name) const
{
    const Answer<ZalFeatureWrapperPtr> found = findFeature(name);
    return found.value ? Ask::text(*found.value) : Answer<QString>{QString(), found.status};
}

Answer<FeatureRange> FeatureManager::askRange(const QString& name) const
{
    const Answer<ZalFeatureWrapperPtr> found = findFeature(name);
    if (!found.value)
        return {FeatureRange(), found.status};
    const Limits limits = readLimits(*found.value);
    return {{limits.min, limits.max}, limits.status};
}

Written<double> FeatureManager::trySetValue(const QString& name, double value) const
{
    const Answer<ZalFeatureWrapperPtr> found = findFeature(name);
    if (found.isMissing())
        return {std::nullopt, true};
    if (!found.value)
        return {value, false};
    return NumberWrite(found.value, name, NumberWrite::Silence::Ends).run(value);
}

Written<QString> FeatureManager::trySetValue(const QString& name, const QString& value) const
{
    const Answer<ZalFeatureWrapperPtr> found = findFeature(name);
    if (found.isMissing())
        return {std::nullopt, true};
    if (!found.value)
        return {QString(), false};
    const ZalErrorType status = found.value->SetValue(value.toUtf8().constData());
    const Answer<QString> current = askStringValue(name);
    if (current.isMissing())
        return {std::nullopt, true};
    return {current.value, isUnanswered(status)};
}
