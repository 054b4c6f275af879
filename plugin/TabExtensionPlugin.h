#pragma once

#include "plugin/TabExtensionInterface.h"

class AdvTriggerWidget;
class QLabel;
class QLayout;

/// The plugin object: builds the "Advanced Trigger IO" tab. GUI thread only.
class TabExtensionPlugin : public TabExtensionInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID TAB_EXTENSION_METADATA_IID)
    Q_INTERFACES(TabExtensionInterface)

public:
    TabExtensionPlugin();

    /// Returns 0, or CameraNotSupported for a camera of another vendor or without trigger features;
    /// then the container is as it was. Exceptions other than TabExtensionException reach the
    /// caller.
    int get(const ZalCPP::FeatureList& features, QWidget& container,
            QMap<QString, QVariant>* options) override;

    /// Always false: this tab has no such signal.
    bool connectToResetFps(QObject* receiver, const char* member) override;
    bool connectFromAcquire(QObject* receiver, const char* member) override;

private:
    QLayout* buildNotice(QWidget& container, AdvTriggerWidget* widget);

    QLabel* noticeLabel = nullptr; ///< Of the most recent get(); the container owns it.
};
