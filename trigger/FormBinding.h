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
/// at first and whenever it changes, and writes what the user does. AdvTriggerBase tells the rule
/// of the names and its exceptions.
///
/// A kind of widget is bound here and nowhere else: its pass in bindAll(), its line in
/// refreshWidget() and its edit.
///
/// GUI thread only.
class FormBinding
{
public:
    /// Told of a feature and the value that was read: a text for combo boxes and line edits, a
    /// number for the other widgets, either for features that have no widget.
    using Report = std::function<void(const QString& feature, const QVariant& value)>;

    /// The form has the slots OnChangeComboboxSelection(const QString&), OnFinishLineEdit(),
    /// OnChangeSpinbox(int), OnChangeDoubleSpinbox(double), OnChangeCheckbox(int),
    /// OnExecuteCommandButton() and SetCustomPreset(), which the widgets are connected to, and is
    /// told each feature that is bound. Features and form must outlive this object.
    FormBinding(const FeatureManager& features, BoundForm form);

    /// Binds the form's widgets; those of features that the camera lacks are disabled, unless their
    /// object names are exempt. Changes nothing on the camera.
    void bindAll(const QStringList& exemptWidgets) const;

    /// Shows the camera's state of these features, selectors first, and reports each. Changes
    /// nothing on the camera.
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
