// Which translation file a tab extension finds installed when it builds its tab.
#include "host/TabExtensions.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

#include <memory>

class tst_ExtensionTranslations : public QObject
{
    Q_OBJECT

    const QString folderBefore = QDir::currentPath();
    std::unique_ptr<QTemporaryDir> m_folder;

    /// Loads the extension from a library of that name.
    std::vector<TabExtension> load(const QString& library)
    {
        const QString plugins = m_folder->filePath("plugins");
        if (!QDir().mkpath(plugins) ||
            !QFile::copy(EXTENSIONS_DIR "/SignTab/libSignTab.so", plugins + '/' + library))
            qFatal("The extension cannot be copied");
        return loadTabExtensions(plugins, nullptr);
    }

    static QList<QTranslator*> translators()
    {
        return QCoreApplication::instance()->findChildren<QTranslator*>();
    }

private slots:
    // Files are found below the working directory, so every test has an empty one of its own.
    void init()
    {
        QLocale::setDefault(QLocale("de_AT"));
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir::setCurrent(m_folder->path()));
        QVERIFY(QDir().mkdir("qm"));
    }
    void cleanup()
    {
        qDeleteAll(translators());
        QVERIFY(QDir::setCurrent(folderBefore));
    }

    void bestFileIsInstalledBeforeTheTabIsBuilt_data()
    {
        QTest::addColumn<QString>("library");
        QTest::addColumn<QStringList>("austrian");
        QTest::addColumn<QStringList>("german");
        QTest::addColumn<QString>("title");
        const QString library = "libSignTab.so";
        const QStringList none;
        QTest::newRow("both") << library << QStringList{"SignTab_de_AT.qm"}
                              << QStringList{"SignTab_de.qm"} << "Lamperl";
        QTest::newRow("language only")
            << library << none << QStringList{"SignTab_de.qm"} << "Leuchte";
        QTest::newRow("another territory")
            << library << QStringList{"SignTab_de_CH.qm"} << none << "Lamp";
        QTest::newRow("another language")
            << library << none << QStringList{"SignTab_fr.qm"} << "Lamp";
        QTest::newRow("another extension's")
            << library << none << QStringList{"GoodTab_de.qm"} << "Lamp";
        QTest::newRow("with the library's prefix")
            << library << none << QStringList{"libSignTab_de.qm"} << "Lamp";
        QTest::newRow("library without prefix")
            << "SignTab.so" << none << QStringList{"SignTab_de.qm"} << "Leuchte";
        QTest::newRow("tab extension by its full name")
            << "libtabextensionsign.so" << none << QStringList{"tabextensionsign_de.qm"}
            << "Leuchte";
        QTest::newRow("tab extension by its short name")
            << "libtabextensionsign.so" << none << QStringList{"sign_de.qm"} << "Lamp";
        QTest::newRow("no file") << library << none << none << "Lamp";
    }
    void bestFileIsInstalledBeforeTheTabIsBuilt()
    {
        QFETCH(QString, library);
        QFETCH(QStringList, austrian);
        QFETCH(QStringList, german);
        for (const QString& file : austrian)
            QVERIFY(QFile::copy(QStringLiteral(TRANSLATIONS "/de_AT.qm"), "qm/" + file));
        for (const QString& file : german)
            QVERIFY(QFile::copy(QStringLiteral(TRANSLATIONS "/de.qm"), "qm/" + file));
        const std::vector<TabExtension> loaded = load(library);
        QCOMPARE(loaded.size(), std::size_t{1});
        QTEST(loaded[0].title, "title");
    }

    void translationsAreKeptForLaterTexts()
    {
        QVERIFY(QFile::copy(QStringLiteral(TRANSLATIONS "/de.qm"), "qm/SignTab_de.qm"));
        load("libSignTab.so").clear();
        QCOMPARE(QCoreApplication::translate("SignTab", "Lamp"), QString("Leuchte"));
    }

    void nothingIsInstalledWithoutAFile()
    {
        load("libSignTab.so");
        QVERIFY(translators().isEmpty());
    }
};

QTEST_MAIN(tst_ExtensionTranslations)
#include "tst_ExtensionTranslations.moc"
