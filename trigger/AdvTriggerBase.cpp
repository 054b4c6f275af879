#include "trigger/AdvTriggerBase.h"

#include "features/FeatureManager.h"
#include "features/RichText.h"
#include "trigger/FormBinding.h"
#include "trigger/LineTable.h"
#include "trigger/PresetChoice.h"
#include "trigger/PresetRunner.h"
#include "ui/SettingsTreeModel.h"

#include <QComboBox>
#include <QEvent>

/// Turning the wheel over a form scrolls it; it changes a setting only where the user has clicked.
static bool filterWheel(const QObject* watched, QEvent* event)
{
    const QLatin1String className(watched->metaObject()->className());
    const bool takesWheel = className == QLatin1String("QComboBox") ||
                            className == QLatin1String("QSpinBox") ||
                            className == QLatin1String("QDoubleSpinBox");
    const auto* widget = qobject_cast<const QWidget*>(watched);
    if (!takesWheel || !widget || widget->hasFocus())
        return false;
    // An accepted event would end here; ignored, it goes on to the scroll area around the form.
    event->ignore();
    return true;
}

/// By these names forms and hosts connect widgets of their own as well.
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

AdvTriggerBase::AdvTriggerBase(const ZalCPP::FeatureList& features, QWidget* parent)
    : BaseTabPluginWidget(features, parent), m_featureList(features)
{
    const auto addKnownFeature = [this](const QString& feature) {
        m_knownFeatures.append(feature);
        // Only observed features are ever reported as changed, and only those are refreshed.
        m_observedFeatures.append(feature);
    };
    // Watched even where a form has no widget for them.
    for (const char* feature : {"TriggerSelector", "TriggerMode", "CounterSelector",
                                "CounterEventSource", "TimerSelector", "TimerTriggerSource"})
        addKnownFeature(QString::fromLatin1(feature));
    m_settingsModel = new SettingsTreeModel(m_featureManager, this);
    m_binding = std::make_unique<FormBinding>(*m_featureManager,
                                              BoundForm{*this, editSlots(), addKnownFeature});
    m_lineTable = std::make_unique<LineTable>(
        *m_featureManager, BoundForm{*this, editSlots(), [this](const QString& feature) {
                                         m_observedFeatures.append(feature);
                                     }});
    m_presetChoice = std::make_unique<PresetChoice>(*m_featureManager, *this, [this] {
        m_settingsModel->ResetData();
        return m_settingsModel->selectorsAstray();
    });
    setStyleSheet(styleSheet() + QStringLiteral(" QToolTip { padding: 3px; color: black; "
                                                "background-color: lightyellow; "
                                                "border: 1px solid lightgrey; }"));
}

AdvTriggerBase::~AdvTriggerBase()
{
    m_presetChoice->shelterWidgets();
}

void AdvTriggerBase::InitBaseWidgets()
{
    m_binding->bindAll(m_exemptWidgets);
}

void AdvTriggerBase::UpdateInitBase()
{
    m_binding->refresh(*m_changedFeatures, [this](const QString& feature, const QVariant& value) {
        emit FeatureChanged(feature, value);
    });
}

void AdvTriggerBase::CreateIOTable(QTableWidget* table)
{
    m_lineTable->build(*table);
}

void AdvTriggerBase::UpdateInitTable(QTableWidget* table)
{
    m_lineTable->refresh(*table, *m_changedFeatures);
}

QString AdvTriggerBase::SwitchLine_GetFeature(const QString& objectName)
{
    return m_lineTable->selectLineOf(objectName);
}

void AdvTriggerBase::SetupSettingsOverview(QTreeView* view)
{
    m_settingsModel->showIn(view, this);
}

QString AdvTriggerBase::SetFeatureValue(const QString& feature, const QVariant& value)
{
    return PresetRunner(*m_featureManager).SetFeatureValue(feature, value);
}

void AdvTriggerBase::LoadPresets(QComboBox* box, const QString& applicationDir)
{
    m_presetChoice->load(*box, applicationDir);
}

void AdvTriggerBase::OnChangeComboboxSelection(const QString& text)
{
    m_binding->editComboBox(sender(), text);
}

void AdvTriggerBase::OnFinishLineEdit()
{
    m_binding->editLine(sender());
}

void AdvTriggerBase::OnChangeSpinbox(int value)
{
    m_binding->editSpinBox(sender(), value);
}

void AdvTriggerBase::OnChangeDoubleSpinbox(double value)
{
    m_binding->editDoubleSpinBox(sender(), value);
}

void AdvTriggerBase::OnChangeCheckbox(int state)
{
    m_binding->editCheckBox(sender(), state);
}

void AdvTriggerBase::OnExecuteCommandButton()
{
    m_binding->runCommand(sender());
}

void AdvTriggerBase::OnSelectPreset(int index)
{
    if (auto* presets = qobject_cast<QComboBox*>(sender()))
        m_presetChoice->apply(presets, index);
}

void AdvTriggerBase::OnChangeTableSpinbox(double value)
{
    m_lineTable->editSpinBox(sender(), value);
}

void AdvTriggerBase::OnChangeTableCombobox(const QString& text)
{
    m_lineTable->editComboBox(sender(), text);
}

void AdvTriggerBase::OnChangeTableCheckbox(int state)
{
    m_lineTable->editCheckBox(sender(), state);
}

void AdvTriggerBase::ActivateTooltips(int state)
{
    m_tooltipsActive = state != 0;
}

bool AdvTriggerBase::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Wheel:
        return filterWheel(watched, event);
    case QEvent::ToolTip:
        return filterToolTip(watched);
    default:
        return BaseTabPluginWidget::eventFilter(watched, event);
    }
}

bool AdvTriggerBase::filterToolTip(QObject* watched)
{
    if (!m_tooltipsActive)
        return true;
    auto* widget = qobject_cast<QWidget*>(watched);
    if (widget && !m_exemptWidgets.contains(widget->objectName()))
        widget->setToolTip(toolTipOf(toolTipFeature(widget->objectName())));
    return false;
}

QString AdvTriggerBase::toolTipFeature(const QString& objectName) const
{
    QString feature = boundFeatureName(objectName);
    if (m_knownFeatures.contains(feature) || !objectName.contains(QLatin1Char('_')))
        return feature;
    return objectName.section(QLatin1Char('_'), 1, 1);
}

QString AdvTriggerBase::toolTipOf(const QString& feature)
{
    if (!m_tooltipCache.contains(feature) && m_featureManager->GetIsFeatureAvailable(feature))
        m_tooltipCache.insert(feature, m_featureManager->GetInformation(feature));
    // The texts are the camera's: showing them must not make Qt open what they name.
    return RichText::forToolTip(m_tooltipCache.value(feature));
}
