#include "tests/trigger/PlainForm.h"

#include "tests/features/FeatureTestSupport.h"

#include <QEvent>

static EditSlots editSlots()
{
    EditSlots form;
    form.comboBox = SLOT(comboBoxEdited(const QString&));
    form.lineEdit = SLOT(lineEdited());
    form.spinBox = SLOT(spinBoxEdited(int));
    form.doubleSpinBox = SLOT(doubleSpinBoxEdited(double));
    form.checkBox = SLOT(checkBoxEdited(int));
    form.command = SLOT(buttonClicked());
    form.tableComboBox = SLOT(tableComboBoxEdited(const QString&));
    form.tableCheckBox = SLOT(tableCheckBoxEdited(int));
    form.tableSpinBox = SLOT(tableSpinBoxEdited(double));
    form.anyEdit = SLOT(edited());
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
