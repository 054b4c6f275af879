#include "tests/trigger/PlainForm.h"

#include "tests/features/FeatureTestSupport.h"

#include <QEvent>

static EditSlots editSlots()
{
    EditSlots form;
    form.comboBox = SLOT(OnChangeComboboxSelection(const QString&));
    form.lineEdit = SLOT(OnFinishLineEdit());
    form.spinBox = SLOT(OnChangeSpinbox(int));
    form.doubleSpinBox = SLOT(OnChangeDoubleSpinbox(double));
    form.checkBox = SLOT(OnChangeCheckbox(int));
    form.command = SLOT(OnExecuteCommandButton());
    form.tableComboBox = SLOT(OnChangeTableCombobox(const QString&));
    form.tableCheckBox = SLOT(OnChangeTableCheckbox(int));
    form.tableSpinBox = SLOT(OnChangeTableSpinbox(double));
    form.anyEdit = SLOT(SetCustomPreset());
    return form;
}

PlainForm::PlainForm(const Fake::FakeCamera& camera)
    : features(FeatureTest::wrap(camera)),
      binding(features, {*this, editSlots(),
                         [this](const QString& feature) { boundFeatures.append(feature); }}),
      lineTable(features, {*this, editSlots(),
                           [this](const QString& feature) { tableFeatures.append(feature); }})
{
}

void PlainForm::refresh(const QStringList& changedFeatures)
{
    binding.refresh(changedFeatures, [this](const QString& feature, const QVariant& value) {
        emit FeatureChanged(feature, value);
    });
}

bool PlainForm::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ToolTip)
        filtered.insert(watched);
    return QWidget::eventFilter(watched, event);
}
