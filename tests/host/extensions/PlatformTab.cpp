#include "tests/host/extensions/SmallTab.h"

#include <QGuiApplication>

#include <stdexcept>

/// Fails with the name of the platform that the windows are on.
class PlatformTab : public SmallTab
{
    Q_OBJECT
    Q_INTERFACES(TabExtensionInterface)
    Q_PLUGIN_METADATA(IID "TabExtensionInterface")

public:
    int get(const ZalCPP::FeatureList&, QWidget&, QMap<QString, QVariant>*) override
    {
        throw std::runtime_error(QGuiApplication::platformName().toStdString() + '.');
    }
};

#include "PlatformTab.moc"
