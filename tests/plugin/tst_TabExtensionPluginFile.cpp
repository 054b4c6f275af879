// The built plugin file as a host meets it.
#include "plugin/TabExtensionInterface.h"
#include "tests/plugin/HostWindow.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/FakeCamera.h"
#include "tests/support/LogCapture.h"

#include <QFile>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>

#include <dlfcn.h>
#include <link.h>

namespace {

const QByteArray Marker = "QTMETADATA !";

/// The plugin, loaded as long as this lives.
class LoadedPlugin
{
public:
    LoadedPlugin() : m_loader(QStringLiteral(PLUGIN)) {}
    ~LoadedPlugin() { m_loader.unload(); }
    QObject* instance() { return m_loader.instance(); }
    TabExtensionInterface* extension() { return qobject_cast<TabExtensionInterface*>(instance()); }

private:
    QPluginLoader m_loader;
};

QByteArray metadataSection()
{
    QFile file(QStringLiteral(PLUGIN));
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    const QByteArray content = file.readAll();
    return content.mid(content.indexOf(Marker));
}

/// File of the code at this address, empty when no code is there.
QString fileOfCode(void* address)
{
    Dl_info info = {};
    return dladdr(address, &info) ? QString::fromLocal8Bit(info.dli_fname) : QString();
}

bool saysNeverUnloadMe(void* library)
{
    link_map* map = nullptr;
    if (dlinfo(library, RTLD_DI_LINKMAP, &map) != 0)
        return false;
    const ElfW(Dyn)* entry = map->l_ld;
    while (entry->d_tag != DT_NULL && entry->d_tag != DT_FLAGS_1)
        ++entry;
    return entry->d_tag == DT_FLAGS_1 && (entry->d_un.d_val & DF_1_NODELETE);
}

/// The handler that Qt's messages go to now.
void* messageHandler()
{
    const QtMessageHandler current = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(current);
    return reinterpret_cast<void*>(current);
}

} // namespace

class tst_TabExtensionPluginFile : public QObject
{
    Q_OBJECT

private slots:
    void metadataNamesInterfaceAndClassOnly();
    void metadataBytesAreThoseOfARelease();
    void entryPointsAreTheOnlyOwnSymbols_data();
    void entryPointsAreTheOnlyOwnSymbols();
    void instanceIsATabExtension();
    void thereIsOneInstanceOnly();
    void deletedInstanceIsMadeAgain();
    void tabIsBuiltAcrossTheLibraryBoundary();
    void refusalStaysInsideTheLibrary();
    void firstTabSilencesTheHost();
    void silencedHostWritesNothingAtAll();
    void messageHandlerOutlivesUnloading();
    void fileIsLinkedNeverToBeUnloaded();
    void unloadedPluginCanBeLoadedAgain();
    void strangersAreNotTabExtensions_data();
    void strangersAreNotTabExtensions();
};

void tst_TabExtensionPluginFile::metadataNamesInterfaceAndClassOnly()
{
    const QJsonObject metadata = QPluginLoader(QStringLiteral(PLUGIN)).metaData();
    QCOMPARE(metadata.value("IID").toString(), QStringLiteral("TabExtensionInterface"));
    QCOMPARE(metadata.value("className").toString(), QStringLiteral("TabExtensionPlugin"));
    QVERIFY(metadata.value("MetaData").toObject().isEmpty());
    QCOMPARE(metadata.value("version").toInt(), QT_VERSION & 0xffff00);
}

void tst_TabExtensionPluginFile::metadataBytesAreThoseOfARelease()
{
#ifndef QT_NO_DEBUG
    QSKIP("a debug build says so in its metadata");
#endif
    const QByteArray header("\x00\x05\x0f\x00", 4);
    const QByteArray map = "\xbf"                          // map of open length
                           "\x02\x75TabExtensionInterface" // key 2: text of 21 bytes
                           "\x03\x72TabExtensionPlugin"    // key 3: text of 18 bytes
                           "\xff";                         // end
    const QByteArray expected = Marker + header + map;
    QCOMPARE(metadataSection().left(expected.size()), expected);
}

void tst_TabExtensionPluginFile::entryPointsAreTheOnlyOwnSymbols_data()
{
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<bool>("visible");
    QTest::newRow("instance") << "qt_plugin_instance" << true;
    QTest::newRow("metadata") << "qt_plugin_query_metadata" << true;
    QTest::newRow("plugin class") << "_ZN18TabExtensionPlugin16staticMetaObjectE" << false;
    QTest::newRow("widget class") << "_ZN19BaseTabPluginWidget16staticMetaObjectE" << false;
    QTest::newRow("message handler")
        << "_Z17TABMessageHandler9QtMsgTypeRK18QMessageLogContextRK7QString" << false;
}

void tst_TabExtensionPluginFile::entryPointsAreTheOnlyOwnSymbols()
{
    QFETCH(QString, symbol);
    QLibrary library(QStringLiteral(PLUGIN));
    QVERIFY2(library.load(), qPrintable(library.errorString()));
    const bool found = library.resolve(qPrintable(symbol)) != nullptr;
    library.unload();
    QTEST(found, "visible");
}

void tst_TabExtensionPluginFile::instanceIsATabExtension()
{
    LoadedPlugin plugin;
    QVERIFY(plugin.instance());
    QVERIFY(plugin.extension());
    QVERIFY(!plugin.instance()->parent());
}

void tst_TabExtensionPluginFile::thereIsOneInstanceOnly()
{
    LoadedPlugin first;
    LoadedPlugin second;
    QVERIFY(first.instance());
    QCOMPARE(first.instance(), second.instance());
}

void tst_TabExtensionPluginFile::deletedInstanceIsMadeAgain()
{
    LoadedPlugin plugin;
    const QPointer<QObject> first(plugin.instance());
    QVERIFY(first);
    delete plugin.instance();
    QVERIFY(!first);
    QVERIFY(plugin.extension());
}

void tst_TabExtensionPluginFile::tabIsBuiltAcrossTheLibraryBoundary()
{
    LoadedPlugin plugin;
    const auto camera = Fake::FakeCamera::standard();
    HostWindow host;
    QVERIFY(plugin.extension());
    QMap<QString, QVariant> options = {{"connectWidgetToSignal", SIGNAL(streaming(bool))}};
    QCOMPARE(plugin.extension()->get(camera->features(), *host.container, &options), 0);

    const auto* presets = host.findChild<QWidget*>("cmbSelectPreset");
    QVERIFY(presets);
    QVERIFY(presets->isEnabled());
    emit host.streaming(true);
    QVERIFY(!presets->isEnabled());
}

void tst_TabExtensionPluginFile::refusalStaysInsideTheLibrary()
{
    LoadedPlugin plugin;
    const auto camera = Fake::FakeCamera::standard();
    camera->remove("LineMode");
    HostWindow host;
    QVERIFY(plugin.extension());
    QCOMPARE(plugin.extension()->get(camera->features(), *host.container, nullptr), 4);
    QVERIFY(host.container->children().isEmpty());
}

void tst_TabExtensionPluginFile::firstTabSilencesTheHost()
{
    LoadedPlugin plugin;
    const auto camera = Fake::FakeCamera::standard();
    HostWindow host;
    QVERIFY(plugin.extension());
    const LogCapture log;
    qWarning("before");
    QCOMPARE(plugin.extension()->get(camera->features(), *host.container, nullptr), 0);
    qWarning("after");
    qCritical("after");
    QCOMPARE(log.lines(), QStringList{"default/warning before"});
}

// Seen from outside: a handler that passes the lines on to the console is none of ours either.
void tst_TabExtensionPluginFile::silencedHostWritesNothingAtAll()
{
    const QTemporaryDir runtimeFolder; // Without one Qt has something to say, too.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_RUNTIME_DIR", runtimeFolder.path());
    ChildProcess talkative;
    talkative.setProcessEnvironment(environment);
    talkative.start(TALKATIVE_HOST, QStringList());
    QVERIFY(talkative.waitForFinished());
    QCOMPARE(talkative.exitStatus(), QProcess::NormalExit);
    QCOMPARE(talkative.exitCode(), 0);
    const QByteArray everything =
        talkative.readAllStandardError() + talkative.readAllStandardOutput();
    QCOMPARE(everything, QByteArray("before debug\nbefore info\nbefore warning\n"
                                    "before critical\n"));
}

// The handler stays in use after the plugin was unloaded, so its code must stay as well.
void tst_TabExtensionPluginFile::messageHandlerOutlivesUnloading()
{
    QPointer<QObject> instance;
    {
        LoadedPlugin plugin;
        instance = plugin.instance();
        QVERIFY(instance);
        const auto camera = Fake::FakeCamera::standard();
        HostWindow host;
        QCOMPARE(plugin.extension()->get(camera->features(), *host.container, nullptr), 0);
    }
    QVERIFY2(!instance, "unloading deletes the instance");
    QCOMPARE(fileOfCode(messageHandler()), QStringLiteral(PLUGIN));
    qWarning("goes to the handler");
}

// Other things keep a library loaded too, but only this one holds for every compiler.
void tst_TabExtensionPluginFile::fileIsLinkedNeverToBeUnloaded()
{
    void* library = dlopen(PLUGIN, RTLD_LAZY);
    QVERIFY2(library, dlerror());
    const bool never = saysNeverUnloadMe(library);
    dlclose(library);
    QVERIFY(never);
}

void tst_TabExtensionPluginFile::unloadedPluginCanBeLoadedAgain()
{
    for (int round = 0; round < 2; ++round) {
        LoadedPlugin plugin;
        const auto camera = Fake::FakeCamera::standard();
        HostWindow host;
        QVERIFY(plugin.extension());
        QCOMPARE(plugin.extension()->get(camera->features(), *host.container, nullptr), 0);
    }
}

void tst_TabExtensionPluginFile::strangersAreNotTabExtensions_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("plugin");
    QTest::newRow("a library") << PLAIN_LIBRARY << false;
    QTest::newRow("another interface") << OTHER_PLUGIN << true;
    QTest::newRow("our metadata, another interface") << OLD_PLUGIN << true;
    QTest::newRow("no library at all") << __FILE__ << false;
}

void tst_TabExtensionPluginFile::strangersAreNotTabExtensions()
{
    QFETCH(QString, file);
    QFETCH(bool, plugin);
    QPluginLoader loader(file);
    QCOMPARE(loader.instance() != nullptr, plugin);
    QVERIFY(!qobject_cast<TabExtensionInterface*>(loader.instance()));
    loader.unload();
}

QTEST_MAIN(tst_TabExtensionPluginFile)
#include "tst_TabExtensionPluginFile.moc"
