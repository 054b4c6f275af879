#include "tests/host/extensions/SmallTab.h"

#include <stdexcept>

/// Throws something that the interface does not know.
class ThrowingTab : public SmallTab
{
    Q_OBJECT
    Q_INTERFACES(TabExtensionInterface)
    Q_PLUGIN_METADATA(IID "TabExtensionInterface")

public:
    int get(const ZalCPP::FeatureList&, QWidget&, QMap<QString, QVariant>*) override
    {
        throw std::runtime_error("The tab fell over.");
    }
};

#include "ThrowingTab.moc"
