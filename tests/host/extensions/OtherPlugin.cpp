#include <QObject>

/// A proper plugin, but not for the viewer's tabs.
class OtherPlugin : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "SomeOtherInterface")
};

#include "OtherPlugin.moc"
