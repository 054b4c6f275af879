#include "tests/host/extensions/SmallTab.h"

/// Gives up for a reason of its own.
class FailingTab : public SmallTab
{
    Q_OBJECT
    Q_INTERFACES(TabExtensionInterface)
    Q_PLUGIN_METADATA(IID "TabExtensionInterface")

public:
    int get(const ZalCPP::FeatureList&, QWidget&, QMap<QString, QVariant>*) override { return 7; }
};

#include "FailingTab.moc"
