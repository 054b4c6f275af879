#include "tests/host/extensions/SmallTab.h"

/// Does not support any camera.
class RefusingTab : public SmallTab
{
    Q_OBJECT
    Q_INTERFACES(TabExtensionInterface)
    Q_PLUGIN_METADATA(IID "TabExtensionInterface")

public:
    int get(const ZalCPP::FeatureList&, QWidget&, QMap<QString, QVariant>*) override { return 4; }
};

#include "RefusingTab.moc"
