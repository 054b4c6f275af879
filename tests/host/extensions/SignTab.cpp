#include "tests/host/extensions/SmallTab.h"

/// Names its tab in the user's language, for which it relies on the viewer.
class SignTab : public SmallTab
{
    Q_OBJECT
    Q_INTERFACES(TabExtensionInterface)
    Q_PLUGIN_METADATA(IID "TabExtensionInterface")

public:
    int get(const ZalCPP::FeatureList&, QWidget& container, QMap<QString, QVariant>*) override
    {
        container.setAccessibleName(tr("Lamp"));
        return 0;
    }
};

#include "SignTab.moc"
