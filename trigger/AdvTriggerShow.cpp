// Values and limits of features in widgets, for the first time and after every change.
#include "features/FeatureManager.h"
#include "features/NumberConversions.h"
#include "trigger/AdvTriggerBase.h"
#include "trigger/NumberInput.h"
#include "trigger/TypedText.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QLocale>
#include <QRegularExpressionValidator>
#include <QSpinBox>

#include <limits>

using NumberInput::UnknownLimit;

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

struct Range
{
    double min = UnknownLimit;
    double max = UnknownLimit;

    /// By the minimum alone: fitted to an increment, an unknown maximum does not stay what it was.
    bool isKnown() const { return min != UnknownLimit; }
};

void LimitNumber(QLineEdit& edit, const Range& range)
{
    constexpr int decimals = 10;
    edit.setValidator(new DoubleValidator(range.min, range.max, decimals, &edit));
}

/// Without the increment: the steps of a spin box stay the form's.
Range RangeOf(const FeatureManager& manager, const QString& feature)
{
    Range range;
    double increment = -1.0;
    manager.GetValueRangeIncrement(feature, &range.min, &range.max, &increment);
    return range;
}

} // namespace

bool AdvTriggerBase::IsTextFeature(const QString& feature) const
{
    const ZalFeatureDataType type = m_featureManager->GetDataType(feature);
    return type == ZalFeatureEnum || type == ZalFeatureString;
}

bool AdvTriggerBase::IsHexFeature(const QString& feature) const
{
    return m_featureManager->GetRepresentation(feature) == QLatin1String("HexNumber");
}

/// All digits that tell the number from its neighbours, and no more: 4294967295, 0.1.
QString AdvTriggerBase::NumberText(double value)
{
    return QStringLiteral("%1").arg(value, 0, 'g', QLocale::FloatingPointShortest);
}

QString AdvTriggerBase::ValueText(const QString& feature) const
{
    if (IsTextFeature(feature))
        return m_featureManager->GetStringValue(feature);
    const double value = m_featureManager->GetValue(feature);
    if (!IsHexFeature(feature))
        return NumberText(value);
    // Negative numbers show as their 64-bit pattern.
    return QStringLiteral("0x%1").arg(
        QString::number(NumberConversions::toInt64(value), 16).toUpper());
}

std::optional<QString> AdvTriggerBase::ReadableText(const QString& feature) const
{
    if (!m_featureManager->GetIsReadable(feature))
        return std::nullopt;
    return ValueText(feature);
}

/// Limits what may be typed to what can be written.
void AdvTriggerBase::LimitInput(QLineEdit& edit, const QString& feature)
{
    if (IsHexFeature(feature)) {
        static const QRegularExpression hexNumber(QStringLiteral("0x([0-9a-fA-F]){1,16}"));
        edit.setValidator(new QRegularExpressionValidator(hexNumber, &edit));
        return;
    }
    LimitNumber(edit, RangeOf(*m_featureManager, feature));
}

/// A camera that did not tell the limits when the form was bound, or whether there are any, may do
/// so by now. Limits that are not known, or of a text that was taken for a number, would let
/// nothing be typed; without any, what is no number would be written as 0.
void AdvTriggerBase::LimitInputLate(QLineEdit& edit, const QString& feature)
{
    const auto* limits = qobject_cast<const QDoubleValidator*>(edit.validator());
    if (edit.validator() && !(limits && limits->bottom() == UnknownLimit))
        return;
    const bool isText = IsTextFeature(feature);
    const bool isKnown =
        isText || IsHexFeature(feature) || RangeOf(*m_featureManager, feature).isKnown();
    if (!isKnown) {
        if (!limits)
            LimitNumber(edit, {UnknownLimit, std::numeric_limits<double>::max()});
        return;
    }
    delete limits;
    if (!isText)
        LimitInput(edit, feature);
}

double AdvTriggerBase::ShowValue(QDoubleSpinBox& box, const QString& feature)
{
    const TypedText::Keeper typed(box);
    const Range range = RangeOf(*m_featureManager, feature);
    box.setRange(range.min, range.max);
    const double value = m_featureManager->GetValue(feature);
    box.setValue(value);
    return value;
}

double AdvTriggerBase::ShowValue(QSpinBox& box, const QString& feature)
{
    const TypedText::Keeper typed(box);
    const Range range = RangeOf(*m_featureManager, feature);
    box.setRange(NumberConversions::toInt(range.min), NumberConversions::toInt(range.max));
    const double value = m_featureManager->GetValue(feature);
    box.setValue(NumberConversions::toInt(value));
    return value;
}

double AdvTriggerBase::ShowValue(QCheckBox& box, const QString& feature)
{
    const double value = m_featureManager->GetValue(feature);
    box.setChecked(value != 0.0);
    return value;
}

bool AdvTriggerBase::IsSoftwareTriggered() const
{
    return m_featureManager->GetStringValue(QStringLiteral("TriggerSource")) ==
           QLatin1String("Software");
}
