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
/// features by their object names, so that the forms need no code per feature. FormBinding tells
/// the rule of the names and its exceptions; m_exemptWidgets holds the names that are no features.
///
/// The work is done by parts, each documented on its own; CONTRIBUTING.md tells which does what.
/// The engine itself has the slots, the signals, the event filter and the tooltips. A widget named
/// in two parts shows the tooltip of the second one: "cmbLine0_LineMode" that of LineMode.
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
    /// See FormBinding::bindAll(). Once, when the form is complete and m_exemptWidgets is filled.
    void InitBaseWidgets();

    /// See FormBinding::refresh(): for the features in m_changedFeatures.
    void UpdateInitBase();

    /// See LineTable::build(). Once, before the observer is registered.
    void CreateIOTable(QTableWidget* table);

    /// See LineTable::refresh(): for the features in m_changedFeatures.
    void UpdateInitTable(QTableWidget* table);

    /// See LineTable::selectLineOf().
    QString SwitchLine_GetFeature(const QString& objectName);

    /// See SettingsTreeModel::showIn().
    void SetupSettingsOverview(QTreeView* view);

    /// See PresetRunner::SetFeatureValue().
    QString SetFeatureValue(const QString& feature, const QVariant& value);

    /// See PresetChoice::load().
    void LoadPresets(QComboBox* box, const QString& applicationDir);

protected slots:
    void OnChangeComboboxSelection(const QString& text);
    void OnFinishLineEdit();
    void OnChangeSpinbox(int value);
    void OnChangeDoubleSpinbox(double value);
    void OnChangeCheckbox(int state);
    void OnExecuteCommandButton();
    /// See PresetChoice::apply(): for the combo box that sent the signal.
    void OnSelectPreset(int index);
    /// See LineTable::editSpinBox().
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
