#include "trigger/AdvTriggerBase.h"

#include "features/FeatureManager.h"
#include "features/RichText.h"
#include "trigger/BoundWidget.h"
#include "ui/SettingsTreeModel.h"

#include <QEvent>

AdvTriggerBase::AdvTriggerBase(const ZalCPP::FeatureList& features, QWidget* parent)
    : BaseTabPluginWidget(features, parent), m_featureList(features)
{
    // Watched even where a form has no widget for them.
    for (const char* feature : {"TriggerSelector", "TriggerMode", "CounterSelector",
                                "CounterEventSource", "TimerSelector", "TimerTriggerSource"})
        AddKnownFeature(QString::fromLatin1(feature));
    // Pictures in a static library are there only for whoever asks for them.
    Q_INIT_RESOURCE(advtrigger);
    m_settingsModel = new SettingsTreeModel(m_featureManager, this);
    setStyleSheet(styleSheet() + QStringLiteral(" QToolTip { padding: 3px; color: black; "
                                                "background-color: lightyellow; "
                                                "border: 1px solid lightgrey; }"));
}

AdvTriggerBase::~AdvTriggerBase()
{
    if (const std::shared_ptr<QWidget> shelter = m_shelter.lock())
        MoveFormTo(*shelter);
}

void AdvTriggerBase::AddKnownFeature(const QString& feature)
{
    m_knownFeatures.append(feature);
    // Only observed features are ever reported as changed, and only those are refreshed.
    m_observedFeatures.append(feature);
}

void AdvTriggerBase::ActivateTooltips(int state)
{
    m_tooltipsActive = state != 0;
}

void AdvTriggerBase::SetupSettingsOverview(QTreeView* view)
{
    m_settingsModel->showIn(view, this);
}

bool AdvTriggerBase::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Wheel:
        return FilterWheel(watched, event);
    case QEvent::ToolTip:
        return FilterToolTip(watched);
    default:
        return BaseTabPluginWidget::eventFilter(watched, event);
    }
}

/// Turning the wheel over a form scrolls it; it changes a setting only where the user has clicked.
bool AdvTriggerBase::FilterWheel(QObject* watched, QEvent* event) const
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

bool AdvTriggerBase::FilterToolTip(QObject* watched)
{
    if (!m_tooltipsActive)
        return true;
    auto* widget = qobject_cast<QWidget*>(watched);
    if (widget && !m_exemptWidgets.contains(widget->objectName()))
        widget->setToolTip(ToolTipOf(ToolTipFeature(widget->objectName())));
    return false;
}

QString AdvTriggerBase::ToolTipFeature(const QString& objectName) const
{
    QString feature = BoundFeatureName(objectName);
    if (m_knownFeatures.contains(feature) || !objectName.contains(QLatin1Char('_')))
        return feature;
    return objectName.section(QLatin1Char('_'), 1, 1);
}

QString AdvTriggerBase::ToolTipOf(const QString& feature)
{
    if (!m_tooltipCache.contains(feature) && m_featureManager->GetIsFeatureAvailable(feature))
        m_tooltipCache.insert(feature, m_featureManager->GetInformation(feature));
    // The texts are the camera's: showing them must not make Qt open what they name.
    return RichText::withoutResources(m_tooltipCache.value(feature));
}
