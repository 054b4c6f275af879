#pragma once

#include <ZalCPP/IFeatureObserver.h>

#include <QObject>
#include <QString>

#include <memory>

/// Turns the SDK's change notifications into a Qt signal.
///
/// Share ownership of it: the widget holds one reference and every feature that it is registered on
/// holds another, so there is no QObject parent.
class PluginFeatureObserver : public QObject, public ZalCPP::IFeatureObserver
{
    Q_OBJECT

public:
    PluginFeatureObserver();

    /// Reads the feature's name and value and emits setChangedFeature. Called by the SDK on its
    /// notification thread; touches no state of the plugin. Null and features whose name or type
    /// cannot be read are passed over in silence.
    void FeatureChanged(const std::shared_ptr<ZalCPP::Feature>& feature) override;
    ~PluginFeatureObserver() override;

signals:
    /// A feature changed. Emitted on the SDK's notification thread: a receiver of the GUI thread
    /// gets it queued. `sValue` is the value for display, empty when there is none to be had.
    void setChangedFeature(const QString& featureName, const QString& sValue);
};
