// Writing the user's changes to the camera and showing what the camera made of them.
#include "features/FeatureManager.h"
#include "features/NumberConversions.h"
#include "trigger/AdvTriggerBase.h"
#include "trigger/BoundWidget.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QSpinBox>

void AdvTriggerBase::OnChangeComboboxSelection(const QString& text)
{
    EditBoundWidget<QComboBox>(sender(), [&](QComboBox& box) {
        box.setCurrentText(m_featureManager->SetValue(BoundFeatureName(box.objectName()), text));
    });
}

void AdvTriggerBase::OnFinishLineEdit()
{
    EditBoundWidget<QLineEdit>(sender(), [&](QLineEdit& edit) {
        const QString feature = BoundFeatureName(edit.objectName());
        // Always parsed as a decimal number: a hexadecimal entry, or a text, counts as 0.
        const double taken = m_featureManager->SetValue(feature, edit.text().toDouble());
        if (m_featureManager->GetIsReadable(feature))
            edit.setText(NumberText(taken));
    });
}

void AdvTriggerBase::OnChangeSpinbox(int value)
{
    EditBoundWidget<QSpinBox>(sender(), [&](QSpinBox& box) {
        box.setValue(NumberConversions::toInt(WriteNumber(box, value)));
    });
}

void AdvTriggerBase::OnChangeDoubleSpinbox(double value)
{
    EditBoundWidget<QDoubleSpinBox>(
        sender(), [&](QDoubleSpinBox& box) { box.setValue(WriteNumber(box, value)); });
}

void AdvTriggerBase::OnChangeCheckbox(int state)
{
    EditBoundWidget<QCheckBox>(sender(), [&](QCheckBox& box) {
        // The check state itself is written: a checked box writes 2, not 1.
        box.setChecked(WriteNumber(box, state) != 0.0);
    });
}

void AdvTriggerBase::OnExecuteCommandButton()
{
    if (!sender())
        return;
    const QString feature = BoundFeatureName(sender()->objectName());
    if (!m_featureManager->RunCommand(feature))
        qWarning("Error executing command '%s'", qUtf8Printable(feature));
}

double AdvTriggerBase::WriteNumber(const QWidget& widget, double value)
{
    return m_featureManager->SetValue(BoundFeatureName(widget.objectName()), value);
}

QString AdvTriggerBase::SetFeatureValue(const QString& feature, const QVariant& value)
{
    if (!m_featureManager->GetIsFeatureAvailable(feature) ||
        !m_featureManager->GetIsWritable(feature))
        return QString();
    QVariant requested = value;
    QVariant actual;
    switch (m_featureManager->GetDataType(feature)) {
    case ZalFeatureBool:
        requested = value.toBool();
        actual = m_featureManager->SetValue(feature, requested.toBool() ? 1.0 : 0.0);
        break;
    case ZalFeatureInteger:
    case ZalFeatureFloat:
        requested = WithinRange(feature, value);
        actual = m_featureManager->SetValue(feature, requested.toDouble());
        break;
    default:
        actual = m_featureManager->SetValue(feature, value.toString());
    }
    if (actual == requested)
        return QString();
    return tr("  Failed to set %1 = %2, Current value: '%3'\n")
        .arg(feature, value.toString(), actual.toString());
}

double AdvTriggerBase::WithinRange(const QString& feature, const QVariant& value) const
{
    double min = -1.0;
    double max = -1.0;
    m_featureManager->GetValueRange(feature, &min, &max);
    if (value.toString() == QLatin1String("<max>"))
        return max;
    if (value.toString() == QLatin1String("<min>"))
        return min;
    const double number = value.toDouble();
    if (number < min)
        return min;
    return number > max ? max : number;
}
