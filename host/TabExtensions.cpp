#include "host/TabExtensions.h"

#include "host/Language.h"
#include "plugin/TabExtensionInterface.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QJsonObject>
#include <QMap>
#include <QPluginLoader>
#include <QRegularExpression>
#include <QVariant>

#include <exception>

namespace {

/// Turns one library into a tab, or into the sentence that says why not.
class Loading
{
    Q_DECLARE_TR_FUNCTIONS(TabExtensions)

public:
    explicit Loading(const QString& file) : m_loader(file)
    {
        static const QRegularExpression library(QStringLiteral("^lib"));
        static const QRegularExpression kind(QStringLiteral("^tabextension(?=.)"));
        m_catalogue = QFileInfo(file).completeBaseName().remove(library);
        m_result.name = QString(m_catalogue).remove(kind);
    }

    TabExtension run(const ZalCPP::FeatureList& features)
    {
        if (TabExtensionInterface* extension = load()) {
            Language::installExtensionTranslator(m_catalogue);
            ask(*extension, features);
        }
        return std::move(m_result);
    }

private:
    /// The library's tab extension; null after setting the sentence.
    TabExtensionInterface* load()
    {
        const QJsonObject metaData = m_loader.metaData();
        const QString interface = metaData.value(QStringLiteral("IID")).toString();
        if (metaData.isEmpty()) {
            fail(tr("\"%1\" is not a plugin. %2"), m_loader.errorString());
        } else if (interface != QLatin1String(TAB_EXTENSION_METADATA_IID)) {
            fail(tr("\"%1\" is a plugin of another kind (%2)."), interface);
        } else if (!m_loader.load()) {
            fail(tr("The tab extension \"%1\" could not be loaded. %2"), m_loader.errorString());
        } else if (auto* extension = qobject_cast<TabExtensionInterface*>(m_loader.instance())) {
            return extension;
        } else {
            fail(tr("The tab extension \"%1\" was made for another version of the viewer "
                    "(it lacks %2)."),
                 QString::fromLatin1(qobject_interface_iid<TabExtensionInterface*>()));
        }
        return nullptr;
    }

    void ask(TabExtensionInterface& extension, const ZalCPP::FeatureList& features)
    {
        // The extension connects itself to the container's parent during the call. A page inside a
        // tab widget would have another parent by then.
        auto page = std::make_unique<TabPage>();
        QMap<QString, QVariant> options{
            {TabExtensionInterface::StreamingSignalOption, TabPage::acquisitionSignal()}};
        try {
            const int status = extension.get(features, page->container(), &options);
            if (status == 0)
                accept(std::move(page));
            else
                refuse(status);
        } catch (const std::exception& error) {
            fail(tr("The tab extension \"%1\" failed. %2"), error.what());
        } catch (...) {
            fail(tr("The tab extension \"%1\" failed. %2"), tr("It gave no reason."));
        }
    }

    void accept(std::unique_ptr<TabPage> page)
    {
        m_result.outcome = TabExtension::Outcome::Shown;
        m_result.title = page->container().accessibleName();
        if (m_result.title.isEmpty())
            m_result.title = m_result.name;
        announcePalette(page->container());
        m_result.page = std::move(page);
    }

    /// Tabs choose their colours when the palette changes, which it has not done since they were
    /// built.
    static void announcePalette(QWidget& container)
    {
        const auto tabs = container.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget* tab : tabs) {
            QEvent change(QEvent::PaletteChange);
            QCoreApplication::sendEvent(tab, &change);
        }
    }

    void refuse(int status)
    {
        m_result.outcome = TabExtension::Outcome::Refused;
        if (status == TabExtensionInterface::CameraNotSupported)
            m_result.sentence =
                tr("The tab extension \"%1\" does not support this camera.").arg(m_result.name);
        else
            m_result.sentence = tr("The tab extension \"%1\" built no tab (code %2).")
                                    .arg(m_result.name)
                                    .arg(status);
    }

    void fail(const QString& sentence, const QString& reason)
    {
        m_result.outcome = TabExtension::Outcome::Broken;
        m_result.sentence = sentence.arg(m_result.name, reason);
    }

    QPluginLoader m_loader;
    QString m_catalogue; ///< The name of the extension's translation files.
    TabExtension m_result;
};

} // namespace

std::vector<TabExtension> loadTabExtensions(const QString& folder,
                                            const ZalCPP::FeatureList& features)
{
    std::vector<TabExtension> extensions;
    const QDir directory(folder);
    const QStringList files =
        directory.entryList({QStringLiteral("*.so")}, QDir::Files, QDir::Name);
    for (const QString& file : files)
        extensions.push_back(Loading(directory.filePath(file)).run(features));
    return extensions;
}
