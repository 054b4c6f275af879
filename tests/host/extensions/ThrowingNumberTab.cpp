#include "tests/host/extensions/SmallTab.h"

/// Throws something that is no exception class.
class ThrowingNumberTab : public SmallTab
{
    Q_OBJECT
    Q_INTERFACES(TabExtensionInterface)
    Q_PLUGIN_METADATA(IID "TabExtensionInterface")

public:
    int get(const ZalCPP::FeatureList&, QWidget&, QMap<QString, QVariant>*) override { throw 42; }
};

#include "ThrowingNumberTab.moc"
