#include "widgets/BaseTabPluginWidget.h"

#include "features/FeatureManager.h"
#include "features/PluginFeatureObserver.h"
#include "features/TwoCallRead.h"
#include "features/ZalFeatureWrapper.h"
#include "plugin/TABMessageHandler.h"
#include "plugin/TabExtensionException.h"
#include "widgets/FeatureComboBox.h"

#include <QDebug>
#include <QEvent>
#include <QLocale>
#include <QMutex>
#include <QTimer>
#include <QTranslator>

#include <algorithm>

static const QString TARSEL_IMAGING_VENDOR_NAME = QStringLiteral("Tarsel Imaging");

namespace {

constexpr int RefreshIntervalMs = 1000;
constexpr int DarkestLightness = 99;

// Never inlined, so that leak checkers find by this name what is meant to stay.
Q_NEVER_INLINE FeatureManager* newFeatureManager(const ZalCPP::FeatureList& features)
{
    const auto wrappers = QSharedPointer<QVector<ZalFeatureWrapperPtr>>::create();
    if (features) {
        for (const ZalCPP::FeaturePtr& feature : *features) {
            if (feature)
                wrappers->append(std::make_shared<ZalFeatureWrapper>(feature));
        }
    }
    return new FeatureManager(wrappers);
}

bool holdsFeatures(const ZalCPP::FeatureList& features)
{
    return features && std::any_of(features->begin(), features->end(),
                                   [](const ZalCPP::FeaturePtr& feature) { return bool(feature); });
}

void logStatus(const char* text, ZalErrorType status)
{
    qDebug().nospace() << text << status << '\n';
}

} // namespace

BaseTabPluginWidget::BaseTabPluginWidget(const ZalCPP::FeatureList& features, QWidget* parent)
    : QWidget(parent)
{
    qInstallMessageHandler(TABMessageHandler);
    m_features = features;
    m_featureManager = newFeatureManager(m_features);
    if (!BaseTabPluginWidget::isVendorSupported(m_featureManager))
        throw TENotSupported(QStringLiteral("BaseTabPluginWidget"),
                             tr("Vendor not supported for plugins, widget not created."));

    m_observer = std::make_shared<PluginFeatureObserver>();
    connect(m_observer.get(), SIGNAL(setChangedFeature(const QString&, const QString&)), this,
            SLOT(OnFeatureChanged(const QString&, const QString&)));
    setFocusPolicy(Qt::StrongFocus);
    setStyleSheet(QStringLiteral(
        "QPushButton:disabled, QLineEdit:disabled, QComboBox:disabled, QDoubleSpinBox:disabled,"
        "                                            "
        "QSpinBox:disabled, QwtSlider:disabled, QGroupBox:disabled, QLabel:disabled { color: gray "
        "}"));
    m_mutex = std::make_unique<QMutex>();
    m_updateTimer = new QTimer(this);
    connect(m_updateTimer, SIGNAL(timeout()), this, SLOT(updateTimer()));
    m_changedFeatures = std::make_unique<QStringList>();
}

BaseTabPluginWidget::~BaseTabPluginWidget()
{
    m_changedFeatures.reset();
    m_mutex.reset();
}

bool BaseTabPluginWidget::isVendorSupported(FeatureManager* featureManager)
{
    return featureManager->GetStringValue(QStringLiteral("DeviceVendorName"))
        .startsWith(TARSEL_IMAGING_VENDOR_NAME);
}

QTranslator* BaseTabPluginWidget::GetTranslator(const QString& name)
{
    auto* translator = new QTranslator(nullptr);
    const QString locale = QLocale::system().name();
    const QString base = QLatin1String("qm/") + name + QLatin1Char('_');
    if (!translator->load(base + locale, QString(), QString(), QString()))
        translator->load(base + locale.left(2), QString(), QString(), QString());
    return translator;
}

bool BaseTabPluginWidget::isDarkMode()
{
    const QBrush& window = palette().brush(QPalette::Current, QPalette::Window);
    return window.color().lightness() <= DarkestLightness;
}

bool BaseTabPluginWidget::updateComboBox(const QString& featureName, QComboBox* combo,
                                         bool setToolTips)
{
    return combo && showFeatureInComboBox(*m_featureManager, featureName, *combo, setToolTips);
}

int BaseTabPluginWidget::RegisterFeatureObserver(bool markChanged)
{
    return forEachObservedFeature([&](ZalCPP::Feature& feature, const QString& name) {
        const ZalErrorType status = feature.RegisterObserver(m_observer);
        if (status != ZalErrorSuccess)
            logStatus("Could not register feature observer. Error code: ", status);
        if (markChanged)
            m_changedFeatures->append(name);
        return status;
    });
}

int BaseTabPluginWidget::UnRegisterFeatureObserver(bool tolerateNotOpen)
{
    return forEachObservedFeature([&](ZalCPP::Feature& feature, const QString&) {
        const ZalErrorType status = feature.UnregisterObserver(m_observer);
        const bool tolerated = tolerateNotOpen && status == ZalErrorNotOpen;
        if (status != ZalErrorSuccess && !tolerated)
            logStatus("Could not unregister feature observer. Error code: ", status);
        return status;
    });
}

int BaseTabPluginWidget::forEachObservedFeature(
    const std::function<ZalErrorType(ZalCPP::Feature&, const QString&)>& action)
{
    if (!holdsFeatures(m_features)) {
        logStatus("Could not get features. Error code: ", ZalErrorNotFound);
        return ZalErrorNotFound;
    }

    ZalErrorType status = ZalErrorSuccess;
    for (const ZalCPP::FeaturePtr& feature : *m_features) {
        if (!feature)
            continue;
        std::string text;
        status = TwoCallRead::readText(
            [&](char* buffer, std::uint32_t& count) { return feature->GetName(buffer, count); },
            text);
        if (status != ZalErrorSuccess)
            continue;
        const QString name = QString::fromStdString(text);
        if (m_observedFeatures.contains(name))
            status = action(*feature, name);
    }
    return status;
}

void BaseTabPluginWidget::pauseUpdateTimer()
{
    m_updateTimer->stop();
    UnRegisterFeatureObserver(false);
}

void BaseTabPluginWidget::continueUpdateTimer()
{
    m_updateTimer->start();
    RegisterFeatureObserver(true);
}

// The base handlers of the two events have nothing to do for this widget.
void BaseTabPluginWidget::showEvent(QShowEvent*)
{
    const QMutexLocker locker(m_mutex.get());
    updateInit();
    m_updateTimer->start(RefreshIntervalMs);
    continueUpdateTimer();
}

// Without the mutex: whoever hides the widget from within a refresh holds it already.
void BaseTabPluginWidget::hideEvent(QHideEvent*)
{
    pauseUpdateTimer();
    m_changedFeatures->clear();
}

void BaseTabPluginWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange)
        updateColoredControls();
    QWidget::changeEvent(event);
}

void BaseTabPluginWidget::updateTimer()
{
    const QMutexLocker locker(m_mutex.get());
    updateInit();
    m_changedFeatures->clear();
}

void BaseTabPluginWidget::OnFeatureChanged(const QString& name, const QString&)
{
    const QMutexLocker locker(m_mutex.get());
    if (!m_changedFeatures->contains(name))
        m_changedFeatures->append(name);
}
