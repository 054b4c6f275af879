#include "features/NumberWrite.h"

#include "features/FeatureQuestions.h"
#include "features/NumberConversions.h"

#include <QDebug>

namespace Ask = FeatureQuestions;

namespace {

/// A value outside the range becomes the nearer limit. An unreadable range is -1 to -1.
template <typename T> T clamped(T value, const Ask::Range<T>& range)
{
    if (range.min > value)
        return range.min;
    return value > range.max ? range.max : value;
}

} // namespace

NumberWrite::NumberWrite(ZalFeatureWrapperPtr feature, QString name, Silence silence)
    : m_feature(std::move(feature)), m_name(std::move(name)), m_silence(silence)
{
}

Written<double> NumberWrite::run(double value)
{
    // The answer is not used; asking belongs to the defined sequence of camera calls.
    std::string ownName;
    m_feature->GetName(ownName);
    const std::optional<double> taken = write(value);
    return {taken, m_unanswered};
}

std::optional<double> NumberWrite::write(double value)
{
    const Answer<ZalFeatureDataType> type = Ask::dataType(*m_feature);
    if (!mayGoOn(type))
        return std::nullopt;
    switch (type.value) {
    case ZalFeatureFloat:
        return writeFloat(value);
    case ZalFeatureBool:
        return writeBool(value);
    case ZalFeatureInteger:
        return writeInteger(value);
    default:
        return value;
    }
}

std::optional<double> NumberWrite::writeFloat(double value)
{
    const auto range = Ask::range<double>(*m_feature);
    if (!mayGoOn(range))
        return std::nullopt;
    const Answer<bool> writable = Ask::isWritable(*m_feature);
    if (!mayGoOn(writable))
        return std::nullopt;
    if (writable.value) {
        const ZalErrorType status = attemptFloat(clamped(value, range.value));
        if (status != ZalErrorSuccess)
            logRefusal("Error: FeatureManager::SetValue:Double: ", status);
    }
    return readBack<double>();
}

/// A refused float is tried once more: what the camera holds now, reduced to a multiple of the
/// increment. A write that got lost was not refused; it is repeated unchanged.
ZalErrorType NumberWrite::attemptFloat(double requested)
{
    const ZalErrorType status = noted(m_feature->SetValue(requested));
    const Answer<double> current = Ask::value<double>(*m_feature);
    if (status == ZalErrorSuccess)
        return status;
    const double step = Ask::increment<double>(*m_feature).value;
    const bool refused =
        m_silence == Silence::CountsAsNeutral || !(isUnanswered(status) || current.isMissing());
    return noted(m_feature->SetValue(refused && step > 0.0
                                         ? NumberConversions::reduceToMultiple(current.value, step)
                                         : requested));
}

std::optional<double> NumberWrite::writeInteger(double value)
{
    long long requested = NumberConversions::toInt64(value);
    auto range = Ask::range<long long>(*m_feature);
    const auto step = Ask::increment<long long>(*m_feature);
    if (!mayGoOn(range) || !mayGoOn(step))
        return std::nullopt;
    // Multiples count from zero, not from the minimum.
    if (step.value > 0) {
        range.value.max = range.value.max / step.value * step.value;
        requested = requested / step.value * step.value;
    }
    const Answer<bool> writable = Ask::isWritable(*m_feature);
    if (!mayGoOn(writable))
        return std::nullopt;
    if (writable.value) {
        const auto status = noted(m_feature->SetValue(clamped(requested, range.value)));
        if (status != ZalErrorSuccess)
            logRefusal("Error: FeatureManager::SetValue:Int: ", status);
    }
    return readBack<long long>();
}

std::optional<double> NumberWrite::writeBool(double value)
{
    const Answer<bool> writable = Ask::isWritable(*m_feature);
    if (!mayGoOn(writable))
        return std::nullopt;
    if (writable.value) {
        const ZalErrorType status = noted(m_feature->SetValue(value > 0.0));
        if (status != ZalErrorSuccess)
            logRefusal("Error: FeatureManager::SetValue:Bool: ", status);
    }
    return readBack<bool>();
}

template <typename T> std::optional<double> NumberWrite::readBack()
{
    const Answer<T> current = Ask::value<T>(*m_feature);
    if (!mayGoOn(current))
        return std::nullopt;
    return static_cast<double>(current.value);
}

template <typename T> bool NumberWrite::mayGoOn(const Answer<T>& answer)
{
    noted(answer.status);
    return m_silence == Silence::CountsAsNeutral || !answer.isMissing();
}

ZalErrorType NumberWrite::noted(ZalErrorType status)
{
    m_unanswered = m_unanswered || isUnanswered(status);
    return status;
}

void NumberWrite::logRefusal(const char* prefix, ZalErrorType status) const
{
    qDebug() << prefix << m_name << " : " << status;
}
