// Binding the widgets of a form to features, one pass for each class of widget.
#include "features/FeatureManager.h"
#include "trigger/AdvTriggerBase.h"
#include "trigger/BoundWidget.h"
#include "trigger/NumberInput.h"
#include "trigger/TypedText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

void AdvTriggerBase::InitBaseWidgets()
{
    InitComboBoxes();
    InitLineEdits();
    InitDoubleSpinBoxes();
    InitSpinBoxes();
    InitCheckBoxes();
    InitButtons();
}

bool AdvTriggerBase::DisableUnlessAvailable(QWidget& widget)
{
    const QString objectName = widget.objectName();
    const bool available = m_featureManager->GetIsFeatureAvailable(BoundFeatureName(objectName));
    if (!available && !m_exemptWidgets.contains(objectName))
        widget.setEnabled(false);
    return available;
}

void AdvTriggerBase::ConnectEdits(QWidget& widget, const char* signal, const char* slot)
{
    connect(&widget, signal, this, slot);
    connect(&widget, signal, this, SLOT(SetCustomPreset()));
}

void AdvTriggerBase::InitComboBoxes()
{
    for (QComboBox* box : findChildren<QComboBox*>()) {
        box->setFocusPolicy(Qt::StrongFocus);
        box->installEventFilter(this);
        if (DisableUnlessAvailable(*box))
            BindComboBox(*box, BoundFeatureName(box->objectName()));
    }
}

void AdvTriggerBase::BindComboBox(QComboBox& box, const QString& feature)
{
    AddKnownFeature(feature);
    updateComboBox(feature, &box, false);
    ConnectEdits(box, SIGNAL(currentTextChanged(const QString&)),
                 SLOT(OnChangeComboboxSelection(const QString&)));
}

void AdvTriggerBase::InitLineEdits()
{
    for (QLineEdit* edit : findChildren<QLineEdit*>()) {
        if (edit->objectName() == QLatin1String("qt_spinbox_lineedit"))
            continue;
        edit->installEventFilter(this);
        if (DisableUnlessAvailable(*edit))
            BindLineEdit(*edit, BoundFeatureName(edit->objectName()));
    }
}

void AdvTriggerBase::BindLineEdit(QLineEdit& edit, const QString& feature)
{
    AddKnownFeature(feature);
    const bool writable = m_featureManager->GetIsWritable(feature);
    const QString text = ReadableText(feature).value_or(QString());
    if (writable && !IsTextFeature(feature))
        LimitInput(edit, feature);
    edit.setText(text);
    edit.setEnabled(writable);
    ConnectEdits(edit, SIGNAL(editingFinished()), SLOT(OnFinishLineEdit()));
    TypedText::watch(edit);
}

void AdvTriggerBase::InitDoubleSpinBoxes()
{
    for (QDoubleSpinBox* box : findChildren<QDoubleSpinBox*>()) {
        if (DisableUnlessAvailable(*box))
            BindDoubleSpinBox(*box, BoundFeatureName(box->objectName()));
    }
}

void AdvTriggerBase::BindDoubleSpinBox(QDoubleSpinBox& box, const QString& feature)
{
    box.setFocusPolicy(Qt::StrongFocus);
    box.installEventFilter(this);
    AddKnownFeature(feature);
    ShowValue(box, feature);
    box.setEnabled(m_featureManager->GetIsWritable(feature));
    ConnectEdits(box, SIGNAL(valueChanged(double)), SLOT(OnChangeDoubleSpinbox(double)));
    NumberInput::limit(box);
    TypedText::watch(box);
}

void AdvTriggerBase::InitSpinBoxes()
{
    for (QSpinBox* box : findChildren<QSpinBox*>()) {
        if (DisableUnlessAvailable(*box))
            BindSpinBox(*box, BoundFeatureName(box->objectName()));
    }
}

void AdvTriggerBase::BindSpinBox(QSpinBox& box, const QString& feature)
{
    box.setFocusPolicy(Qt::StrongFocus);
    box.installEventFilter(this);
    AddKnownFeature(feature);
    // Asked first, unlike above: the sequence of camera calls is a defined one.
    box.setEnabled(m_featureManager->GetIsWritable(feature));
    ShowValue(box, feature);
    ConnectEdits(box, SIGNAL(valueChanged(int)), SLOT(OnChangeSpinbox(int)));
    NumberInput::limit(box);
    TypedText::watch(box);
}

void AdvTriggerBase::InitCheckBoxes()
{
    for (QCheckBox* box : findChildren<QCheckBox*>()) {
        box->installEventFilter(this);
        if (DisableUnlessAvailable(*box))
            BindCheckBox(*box, BoundFeatureName(box->objectName()));
    }
}

void AdvTriggerBase::BindCheckBox(QCheckBox& box, const QString& feature)
{
    AddKnownFeature(feature);
    ShowValue(box, feature);
    box.setEnabled(m_featureManager->GetIsWritable(feature));
    ConnectEdits(box, SIGNAL(stateChanged(int)), SLOT(OnChangeCheckbox(int)));
}

void AdvTriggerBase::InitButtons()
{
    for (QPushButton* button : findChildren<QPushButton*>()) {
        const QString feature = BoundFeatureName(button->objectName());
        button->installEventFilter(this);
        if (DisableUnlessAvailable(*button)) {
            button->setEnabled(m_featureManager->GetIsWritable(feature));
            connect(button, SIGNAL(clicked()), this, SLOT(OnExecuteCommandButton()));
        }
        // Return in a field of a dialog finishes that field; it must not press a button as well.
        button->setAutoDefault(false);
        // By the source alone, whether or not the camera has the command or lets it run now.
        if (feature == QLatin1String("TriggerSoftware"))
            button->setEnabled(IsSoftwareTriggered());
    }
}
