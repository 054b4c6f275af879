// Writing the user's changes to the camera and showing what the camera made of them.
#include "features/FeatureManager.h"
#include "features/NumberConversions.h"
#include "trigger/AdvTriggerBase.h"
#include "trigger/BoundWidget.h"
#include "trigger/PresetRunner.h"

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
    return PresetRunner(*m_featureManager).SetFeatureValue(feature, value);
}
