#pragma once

#include "trigger/BoundForm.h"
#include "trigger/FeatureDisplay.h"

#include <QStringList>
#include <QVariant>

#include <functional>

class FeatureManager;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLineEdit;
class QSpinBox;

/// Ties the widgets of a form to the features that they are named after: shows what the camera has,
/// at first and whenever it changes, and writes what the user does.
///
/// The rule: an object name is a prefix of three letters followed by the exact name of a feature.
/// The prefix says to people what the widget is; the binding goes by the widget's class alone.
///
///     cmbTriggerMode      a combo box with the entries of TriggerMode
///     spbTriggerDelay     a spin box or double spin box with the value and range of TriggerDelay
///     chkLineInverter     a check box for LineInverter
///     txtActionDeviceKey  a line edit for ActionDeviceKey
///     btnTriggerSoftware  a push button that runs the command TriggerSoftware
///     lblTriggerMode      a label: counts as a widget of TriggerMode, shows nothing of it
///
/// The exceptions, in the order in which they apply:
/// - The line edit inside a spin box ("qt_spinbox_lineedit") is part of the spin box.
/// - A widget whose feature the camera lacks is disabled and left unbound, unless its object name
///   is exempt: "cmbSelectPreset" names no feature and stays as the form has it.
/// - "btnTriggerSoftware" can be pressed only while TriggerSource is "Software"; a report of the
///   command itself alone enables it as any button, by writability.
///
/// Another feature needs a widget of that name in the form and no code; what goes with the widget,
/// and with another kind of widget, stands in CONTRIBUTING.md. Another kind needs its pass in
/// bindAll(), its line in refreshWidget(), an edit here, and a member of EditSlots with a slot of
/// the engine; one that the wheel turns is also named in the engine's event filter. The cells of
/// the I/O table are no part of this: LineTable builds and connects its own widgets.
///
/// GUI thread only.
class FormBinding
{
public:
    /// Told of a feature and the value that was read: a text for combo boxes and line edits, a
    /// number for the other widgets, either for features that have no widget.
    using Report = std::function<void(const QString& feature, const QVariant& value)>;

    /// The form is told each feature that is bound. Each of its slots for edits passes its sender
    /// to the edit below. Features and form must outlive this object.
    FormBinding(const FeatureManager& features, BoundForm form);

    /// Binds the form's widgets; those of features that the camera lacks are disabled, unless their
    /// object names are exempt. Changes nothing on the camera.
    void bindAll(const QStringList& exemptWidgets) const;

    /// Shows the camera's state of these features, selectors first. Each widget that shows a value
    /// is reported; a button shows none, nor does a line edit while its feature cannot be read, and
    /// a feature whose only widgets are labels is not reported at all. Changes nothing on the
    /// camera.
    void refresh(const QStringList& changedFeatures, const Report& report) const;

    /// Writes the edit of the widget that sent it and shows what the camera took.
    void editComboBox(QObject* sender, const QString& text) const;
    void editLine(QObject* sender) const;
    void editSpinBox(QObject* sender, int value) const;
    void editDoubleSpinBox(QObject* sender, double value) const;
    void editCheckBox(QObject* sender, int state) const;
    /// Runs the command of the object that asks for it, whatever its class.
    void runCommand(const QObject* sender) const;

private:
    void bindComboBoxes(const QStringList& exemptWidgets) const;
    void bindLineEdits(const QStringList& exemptWidgets) const;
    void bindDoubleSpinBoxes(const QStringList& exemptWidgets) const;
    void bindSpinBoxes(const QStringList& exemptWidgets) const;
    void bindCheckBoxes(const QStringList& exemptWidgets) const;
    void bindButtons(const QStringList& exemptWidgets) const;
    bool disableUnlessAvailable(QWidget& widget, const QStringList& exemptWidgets) const;
    void bind(QComboBox& box, const QString& feature) const;
    void bind(QLineEdit& edit, const QString& feature) const;
    void bind(QDoubleSpinBox& box, const QString& feature) const;
    void bind(QSpinBox& box, const QString& feature) const;
    void bind(QCheckBox& box, const QString& feature) const;

    void refreshFeature(const QString& feature, const Report& report) const;
    void refreshSoftwareButton() const;
    QVariant refreshWidget(QWidget& widget, const QString& feature) const;
    QVariant refreshComboBox(QComboBox& box, const QString& feature) const;
    QVariant refreshLineEdit(QLineEdit& edit, const QString& feature) const;
    void limitLate(QLineEdit& edit, const QString& feature) const;
    double show(QDoubleSpinBox& box, const QString& feature) const;
    double show(QSpinBox& box, const QString& feature) const;
    double show(QCheckBox& box, const QString& feature) const;
    bool isSoftwareTriggered() const;

    double write(const QWidget& widget, double value) const;

    const FeatureManager& m_features;
    FeatureDisplay m_display;
    BoundForm m_form;
};
