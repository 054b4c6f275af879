#include "tests/host/extensions/SmallTab.h"

extern int valueThatNobodyDefines;

/// Cannot be loaded: nobody defines the variable that it reads.
class UnlinkedTab : public SmallTab
{
    Q_OBJECT
    Q_INTERFACES(TabExtensionInterface)
    Q_PLUGIN_METADATA(IID "TabExtensionInterface")

public:
    int get(const ZalCPP::FeatureList&, QWidget&, QMap<QString, QVariant>*) override
    {
        return valueThatNobodyDefines;
    }
};

#include "UnlinkedTab.moc"
