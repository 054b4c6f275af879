#include "trigger/FeatureDisplay.h"

#include "features/NumberConversions.h"
#include "trigger/NumberInput.h"

#include <QLocale>
#include <QRegularExpressionValidator>

#include <limits>

// Fields know the limits by this number that no camera told.
static_assert(FeatureRange().min == NumberInput::UnknownLimit &&
              FeatureRange().max == NumberInput::UnknownLimit);

namespace {

/// Lets a number field be cleared: a field without acceptable text never finishes its editing.
class DoubleValidator : public NumberInput::Validator
{
public:
    using Validator::Validator;

    State validate(QString& input, int& position) const override
    {
        return input.isEmpty() ? Acceptable : Validator::validate(input, position);
    }
};

QValidator* newNumberValidator(const FeatureRange& limits, QObject* field)
{
    constexpr int decimals = 10;
    return new DoubleValidator(limits.min, limits.max, decimals, field);
}

} // namespace

FeatureDisplay::FeatureDisplay(const FeatureManager& features) : m_features(features) {}

bool FeatureDisplay::isText(const QString& feature) const
{
    const ZalFeatureDataType type = m_features.GetDataType(feature);
    return type == ZalFeatureEnum || type == ZalFeatureString;
}

bool FeatureDisplay::isHexadecimal(const QString& feature) const
{
    return m_features.GetRepresentation(feature) == QLatin1String("HexNumber");
}

QVariant FeatureDisplay::value(const QString& feature) const
{
    if (isText(feature))
        return m_features.GetStringValue(feature);
    return number(feature);
}

double FeatureDisplay::number(const QString& feature) const
{
    return m_features.GetValue(feature);
}

std::optional<QString> FeatureDisplay::text(const QString& feature) const
{
    if (!m_features.GetIsReadable(feature))
        return std::nullopt;
    if (isText(feature))
        return m_features.GetStringValue(feature);
    const double value = number(feature);
    if (!isHexadecimal(feature))
        return numberText(value);
    // Negative numbers show as their 64-bit pattern.
    return QStringLiteral("0x%1").arg(
        QString::number(NumberConversions::toInt64(value), 16).toUpper());
}

QString FeatureDisplay::numberText(double value)
{
    return QStringLiteral("%1").arg(value, 0, 'g', QLocale::FloatingPointShortest);
}

SteppedRange FeatureDisplay::steppedRange(const QString& feature) const
{
    SteppedRange range;
    m_features.GetValueRangeIncrement(feature, &range.limits.min, &range.limits.max, &range.step);
    return range;
}

FeatureRange FeatureDisplay::range(const QString& feature) const
{
    return steppedRange(feature).limits;
}

bool FeatureDisplay::knowsLimits(const QString& feature) const
{
    // Only the minimum tells: an unknown maximum changes when it is fitted to an increment.
    return isHexadecimal(feature) || range(feature).min != NumberInput::UnknownLimit;
}

QValidator* FeatureDisplay::newValidator(const QString& feature, QObject* field) const
{
    if (isHexadecimal(feature)) {
        static const QRegularExpression hexNumber(QStringLiteral("0x([0-9a-fA-F]){1,16}"));
        return new QRegularExpressionValidator(hexNumber, field);
    }
    return newNumberValidator(range(feature), field);
}

QValidator* FeatureDisplay::newOpenValidator(QObject* field)
{
    return newNumberValidator({NumberInput::UnknownLimit, std::numeric_limits<double>::max()},
                              field);
}
