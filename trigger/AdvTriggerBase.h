#pragma once

#include "trigger/PresetFile.h"
#include "widgets/BaseTabPluginWidget.h"

#include <QMap>
#include <QVariant>

#include <memory>

class FormBinding;
class LineTable;
class PresetChoice;
class QTableWidget;
class QTreeView;
class SettingsTreeModel;

/// The engine below the trigger tab and the advanced dialog: binds the widgets of a form to camera
/// features by their object names, so that the forms need no code per feature.
///
/// The rule: an object name is a prefix of three letters followed by the exact name of a feature.
/// The prefix says to people what the widget is; the engine goes by the widget's class alone.
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
/// - A widget whose feature the camera lacks is disabled and left unbound, unless m_exemptWidgets
///   holds its object name: "cmbSelectPreset" names no feature and stays as the form has it.
/// - "btnTriggerSoftware" can be pressed only while TriggerSource is "Software"; a report of the
///   command itself alone enables it as any button, by writability.
/// - For its tooltip, a widget named in two parts goes by the second one: "cmbLine0_LineMode" shows
///   the tooltip of LineMode.
///
/// GUI thread only. A camera that adjusts or refuses a value is no error: the widget shows what the
/// camera then has. A refresh changes no setting: where a value lies behind a selector, it steps
/// the selector on the camera and puts it back. Building the engine does so too, for the overview.
class AdvTriggerBase : public BaseTabPluginWidget
{
    Q_OBJECT

public:
    /// Names of the presets that have a meaning of their own.
    inline static const QString CUSTOM_PRESET = PresetFile::CustomPreset;
    inline static const QString TURN_OFF_PRESET = PresetFile::TurnOffPreset;
    inline static const QString RESET_PRESET = PresetFile::ResetPreset;

    /// Shares the feature list. Throws TENotSupported for cameras of other vendors.
    AdvTriggerBase(const ZalCPP::FeatureList& features, QWidget* parent);
    ~AdvTriggerBase() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    /// A refresh read a new value: a text for combo boxes and line edits, a number for the other
    /// widgets, either for features that have no widget.
    void FeatureChanged(const QString& featureName, const QVariant& value);
    /// The host started or stopped the acquisition.
    void CamStreamingOn(bool streamingIsOn);

protected:
    /// Binds the form's widgets. Call it once, after the form is complete and m_exemptWidgets is
    /// filled.
    void InitBaseWidgets();

    /// Shows the camera's state of the features in m_changedFeatures, selectors first.
    void UpdateInitBase();

    /// Fills the table with one row for each line of the camera: mode, inverter, source and status,
    /// and with more than four columns also debounce mode and duration. Call it once, before the
    /// observer is registered. Leaves the camera's line selector at the last line.
    void CreateIOTable(QTableWidget* table);

    /// Shows the camera's state of those cells whose features are in m_changedFeatures. The rows
    /// count as Line0, Line1 and so on. Writes nothing but the camera's line selector, which ends
    /// as it was before.
    void UpdateInitTable(QTableWidget* table);

    /// Selects the line that a cell belongs to ("cmbLine0_LineMode") and returns the feature that
    /// it shows; nothing if the name has no such parts or the camera does not select the line.
    QString SwitchLine_GetFeature(const QString& objectName);

    /// Shows the overview of active triggers, counters and timers in the view.
    void SetupSettingsOverview(QTreeView* view);

    /// Writes one feature and compares what the camera then has. Numbers are clamped to the
    /// feature's range; "<min>" and "<max>" stand for its limits. Returns a line of error text, or
    /// nothing on success and where the camera lacks the feature or does not let it be written. A
    /// question that the camera left unanswered is a line too, without a current value.
    QString SetFeatureValue(const QString& feature, const QVariant& value);

    /// Clears the box and fills it with the presets for this camera from `applicationDir`/plugins.
    /// Without a usable file the box stays empty; that is logged only.
    void LoadPresets(QComboBox* box, const QString& applicationDir);

protected slots:
    void OnChangeComboboxSelection(const QString& text);
    void OnFinishLineEdit();
    void OnChangeSpinbox(int value);
    void OnChangeDoubleSpinbox(double value);
    void OnChangeCheckbox(int state);
    void OnExecuteCommandButton();
    /// Applies the preset at that index of the combo box that sent the signal. Settings that the
    /// camera did not take are reported in one modal box, during which the engine may be destroyed.
    void OnSelectPreset(int index);
    /// Doubles or halves the debounce duration of the line; the value tells the direction only.
    void OnChangeTableSpinbox(double value);
    void OnChangeTableCombobox(const QString& text);
    void OnChangeTableCheckbox(int state);
    /// The user changed a setting by hand: the subclass's preset box goes to CUSTOM_PRESET.
    virtual void SetCustomPreset() = 0;
    /// Feature tooltips are shown while the check state is not zero; at first they are not.
    void ActivateTooltips(int state);

private:
    bool filterToolTip(QObject* watched);
    QString toolTipFeature(const QString& objectName) const;
    QString toolTipOf(const QString& feature);

    std::unique_ptr<FormBinding> m_binding;
    std::unique_ptr<LineTable> m_lineTable;
    std::unique_ptr<PresetChoice> m_presetChoice;

protected:
    /// Features that widgets are bound to, duplicates allowed.
    QStringList m_knownFeatures;
    bool m_tooltipsActive = false;
    /// Keeps the camera's features alive as long as the engine.
    ZalCPP::FeatureList m_featureList;
    /// The overview of active settings; a child of the engine.
    SettingsTreeModel* m_settingsModel = nullptr;
    /// First tooltip of each feature; it is not renewed when the feature's limits change.
    QMap<QString, QString> m_tooltipCache;
    /// Full object names of widgets that are no features: never disabled as unavailable, and their
    /// tooltips are their own.
    QStringList m_exemptWidgets;
};
