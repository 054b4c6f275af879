#pragma once

#include <ZalCPP/Feature.h>

#include <QStringList>
#include <QWidget>

#include <functional>
#include <memory>

class FeatureManager;
class PluginFeatureObserver;
class QComboBox;
class QMutex;
class QTimer;
class QTranslator;

/// Base of every widget of the plugin: gives its subclass the camera's features by name, collects
/// the names of the features that the camera reports as changed, and calls updateInit() once a
/// second while the widget is visible.
///
/// GUI thread only. Building one silences Qt's message log for the whole process, for good.
class BaseTabPluginWidget : public QWidget
{
    Q_OBJECT

public:
    /// Shares the feature list; a null list counts as an empty one, null features are skipped.
    /// Throws TENotSupported for cameras of other vendors.
    BaseTabPluginWidget(const ZalCPP::FeatureList& features, QWidget* parent);
    ~BaseTabPluginWidget() override;

    /// A translator with qm/<name>_<system locale> loaded, or with the file of the language alone,
    /// or with nothing when there is neither. The caller installs and owns it.
    QTranslator* GetTranslator(const QString& name);

    /// Whether the window colour of this widget's palette is a dark one.
    bool isDarkMode();

    /// Fills the box with the entries that the feature offers now, selects the current one and
    /// enables the box if the feature is writable, which is also the result. The box's signals are
    /// not blocked. A null box gives false. For derived widgets that fill a box of their own; bound
    /// boxes are filled by showFeatureInComboBox().
    bool updateComboBox(const QString& featureName, QComboBox* combo, bool setToolTips);

    /// Attaches the observer to the observed features; with `markChanged` each of them counts as
    /// changed from now on. Returns the status of the last SDK call, -3 without any feature.
    int RegisterFeatureObserver(bool markChanged);

    /// Detaches the observer again; with `tolerateNotOpen` a camera that is not open is no failure
    /// worth a log line. Returns as RegisterFeatureObserver() does.
    int UnRegisterFeatureObserver(bool tolerateNotOpen);

    /// Stops refreshing and detaches the observer.
    void pauseUpdateTimer();

    /// Starts refreshing at the interval last used and attaches the observer.
    void continueUpdateTimer();

signals:
    /// Part of the interface that hosts may connect to; nothing in the plugin emits it.
    void resetFPS();

protected:
    /// Shows the camera's state of the features in m_changedFeatures. Runs with m_mutex held: it
    /// must neither take the mutex nor run an event loop.
    virtual void updateInit() = 0;

    /// Whether the plugin accepts the camera. The constructor asks this class's own rule.
    virtual bool isVendorSupported(FeatureManager* featureManager);

    /// Colours the controls again after a change of palette.
    virtual void updateColoredControls() = 0;

    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

protected slots:
    void updateTimer();

protected:
    /// Feature access by name. Never deleted by the widget: wrappers that were handed out may be
    /// in use longer than any tab lives.
    FeatureManager* m_featureManager = nullptr;
    /// Names of the features that changed since the last refresh.
    std::unique_ptr<QStringList> m_changedFeatures;
    /// Names of the features that the observer is attached to; the subclass fills it.
    QStringList m_observedFeatures;
    ZalCPP::FeatureList m_features;
    QTimer* m_updateTimer = nullptr;
    /// Guards m_changedFeatures and each refresh. Not recursive.
    std::unique_ptr<QMutex> m_mutex;
    /// Shared with the SDK features that it is registered on.
    std::shared_ptr<PluginFeatureObserver> m_observer;

private slots:
    void OnFeatureChanged(const QString& name, const QString& value);

private:
    /// Calls `action` for each observed feature of the list, in list order, and returns the status
    /// of the last SDK call.
    int forEachObservedFeature(
        const std::function<ZalErrorType(ZalCPP::Feature&, const QString&)>& action);
};
