#pragma once

#include "features/FeatureManager.h"
#include "tests/support/FakeCamera.h"
#include "tests/trigger/CameraWrites.h"
#include "trigger/FormBinding.h"
#include "trigger/LineTable.h"

#include <QSet>
#include <QStringList>
#include <QVariant>
#include <QWidget>

/// A form on the parts that bind and build its widgets, without an engine: it takes the edits and
/// notes what the parts tell it.
class PlainForm : public QWidget
{
    Q_OBJECT

public:
    explicit PlainForm(const Fake::FakeCamera& camera);

    /// Adds a widget to the form; the form owns it.
    template <class Widget> Widget& add(const QString& objectName)
    {
        auto* widget = new Widget(this);
        widget->setObjectName(objectName);
        return *widget;
    }

    void bind() { binding.bindAll(exemptWidgets); }

    /// Refreshes as after changes of these features, in this order.
    void refresh(const QStringList& changedFeatures);

    bool eventFilter(QObject* watched, QEvent* event) override;

    FeatureManager features;
    FormBinding binding;
    LineTable lineTable;
    QStringList exemptWidgets;
    QStringList boundFeatures;     ///< As the binding told them.
    QStringList tableFeatures;     ///< As the table told them.
    QSet<const QObject*> filtered; ///< Whose tooltip events came by.
    int customPresets = 0;         ///< How often the preset box was told to show "Custom".

signals:
    void FeatureChanged(const QString& featureName, const QVariant& value);

public slots:
    void comboBoxEdited(const QString& text) { binding.editComboBox(sender(), text); }
    void lineEdited() { binding.editLine(sender()); }
    void spinBoxEdited(int value) { binding.editSpinBox(sender(), value); }
    void doubleSpinBoxEdited(double value) { binding.editDoubleSpinBox(sender(), value); }
    void checkBoxEdited(int state) { binding.editCheckBox(sender(), state); }
    void buttonClicked() { binding.runCommand(sender()); }
    void tableComboBoxEdited(const QString& text) { lineTable.editComboBox(sender(), text); }
    void tableCheckBoxEdited(int state) { lineTable.editCheckBox(sender(), state); }
    void tableSpinBoxEdited(double value) { lineTable.editSpinBox(sender(), value); }
    void edited() { ++customPresets; }
};
