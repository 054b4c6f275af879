#pragma once

#include "features/Answer.h"
#include "features/ZalFeatureWrapper.h"

#include <QString>
#include <QStringList>

#include <type_traits>
#include <utility>

/// Questions to one feature, each with the status of its answer. A failed one has the neutral value
/// that FeatureManager stands for: false, -1, an empty text or list. GUI thread only.
namespace FeatureQuestions {

template <typename T> struct Range
{
    T min = T(-1);
    T max = T(-1);
};

template <typename T> Answer<T> settled(ZalErrorType status, T value, T neutral = T())
{
    return {status == ZalErrorSuccess ? std::move(value) : std::move(neutral), status};
}

inline Answer<ZalFeatureDataType> dataType(const ZalFeatureWrapper& feature)
{
    ZalFeatureDataType type = ZalFeatureUnknown;
    const ZalErrorType status = feature.GetDataType(type);
    return settled(status, type);
}

inline Answer<bool> isWritable(ZalFeatureWrapper& feature)
{
    bool writable = false;
    const ZalErrorType status = feature.IsWritable(writable);
    return settled(status, writable);
}

inline Answer<bool> isValueAvailable(const ZalFeatureWrapper& feature, const QString& entry)
{
    bool available = false;
    const ZalErrorType status = feature.IsValueAvailable(entry.toUtf8().constData(), available);
    return settled(status, available);
}

inline Answer<QString> text(const ZalFeatureWrapper& feature)
{
    std::string value;
    const ZalErrorType status = feature.GetValue(value);
    return settled(status, QString::fromStdString(value));
}

/// All entry names, available or not, in the camera's order.
inline Answer<QStringList> entries(ZalFeatureWrapper& feature)
{
    std::vector<std::string> names;
    const ZalErrorType status = feature.GetValues(names);
    QStringList texts;
    for (const std::string& name : names)
        texts.append(QString::fromStdString(name));
    return settled(status, texts);
}

template <typename T> Answer<T> value(const ZalFeatureWrapper& feature)
{
    T current = T();
    const ZalErrorType status = feature.GetValue(current);
    return settled(status, current, std::is_same_v<T, bool> ? T(0) : T(-1));
}

template <typename T> Answer<Range<T>> range(const ZalFeatureWrapper& feature)
{
    Range<T> limits;
    const ZalErrorType status = feature.GetRange(limits.min, limits.max);
    return settled(status, limits);
}

template <typename T> Answer<T> increment(const ZalFeatureWrapper& feature)
{
    T step = T(-1);
    const ZalErrorType status = feature.GetIncrement(step);
    return settled(status, step, T(-1));
}

} // namespace FeatureQuestions
