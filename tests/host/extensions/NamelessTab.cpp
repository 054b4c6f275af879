#include "tests/host/extensions/SmallTab.h"

/// Works, but gives its tab no name.
class NamelessTab : public SmallTab
{
    Q_OBJECT
    Q_INTERFACES(TabExtensionInterface)
    Q_PLUGIN_METADATA(IID "TabExtensionInterface")

public:
    int get(const ZalCPP::FeatureList&, QWidget&, QMap<QString, QVariant>*) override { return 0; }
};

#include "NamelessTab.moc"
