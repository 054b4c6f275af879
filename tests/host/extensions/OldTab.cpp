#include <QObject>

/// Says that it is a tab extension, but has none of the interface that the viewer knows.
class OldTab : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "TabExtensionInterface")
};

#include "OldTab.moc"
