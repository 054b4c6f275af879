#include "tests/host/extensions/SmallTab.h"

#include <QFile>
#include <QLocale>

#include <stdexcept>

/// Fails with what it takes for the user's language, and says whether it finds translations.
class SpeakingTab : public SmallTab
{
    Q_OBJECT
    Q_INTERFACES(TabExtensionInterface)
    Q_PLUGIN_METADATA(IID "TabExtensionInterface")

public:
    int get(const ZalCPP::FeatureList&, QWidget&, QMap<QString, QVariant>*) override
    {
        const QString system = QLocale::system().name();
        const bool found = QFile::exists("qm/zalviewer_" + system.left(2) + ".qm");
        throw std::runtime_error(
            (system + ' ' + QLocale().name() + (found ? " found" : " missing")).toStdString());
    }
};

#include "SpeakingTab.moc"
