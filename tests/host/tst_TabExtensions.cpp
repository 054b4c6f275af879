#include "host/ExtensionArea.h"
#include "host/TabExtensions.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

using Outcome = TabExtension::Outcome;
Q_DECLARE_METATYPE(TabExtension::Outcome)

namespace {

QString folderOf(const QString& extension)
{
    return QString(EXTENSIONS_DIR "/") + extension;
}

std::vector<TabExtension> load(const QString& folder)
{
    return loadTabExtensions(folder, std::make_shared<std::vector<ZalCPP::FeaturePtr>>(5));
}

void putInto(const QTemporaryDir& folder, const QString& extension, const QString& as)
{
    const QString library = "lib" + extension + ".so";
    QVERIFY(QFile::copy(folderOf(extension) + '/' + library, folder.filePath(as)));
}

} // namespace

class tst_TabExtensions : public QObject
{
    Q_OBJECT

private slots:
    void fileThatGivesNoTab_data()
    {
        QTest::addColumn<QString>("extension");
        QTest::addColumn<Outcome>("outcome");
        QTest::addColumn<QString>("sentence");
        const auto row = [](const char* extension, Outcome outcome, const char* sentence) {
            QTest::newRow(extension) << QString(extension) << outcome << QString(sentence);
        };
        row("RefusingTab", Outcome::Refused,
            "The tab extension \"RefusingTab\" does not support this camera.");
        row("FailingTab", Outcome::Refused,
            "The tab extension \"FailingTab\" built no tab (code 7).");
        row("ThrowingTab", Outcome::Broken,
            "The tab extension \"ThrowingTab\" failed. The tab fell over.");
        row("ThrowingNumberTab", Outcome::Broken,
            "The tab extension \"ThrowingNumberTab\" failed. It gave no reason.");
        row("OtherPlugin", Outcome::Broken,
            "\"OtherPlugin\" is a plugin of another kind (SomeOtherInterface).");
        row("OldTab", Outcome::Broken,
            "The tab extension \"OldTab\" was made for another version of the viewer (it lacks "
            "com.tarselimaging.Plugin.TabExtensionInterface/1.0).");
    }
    void fileThatGivesNoTab()
    {
        QFETCH(QString, extension);
        const std::vector<TabExtension> loaded = load(folderOf(extension));
        QCOMPARE(loaded.size(), std::size_t{1});
        QCOMPARE(loaded[0].name, extension);
        QTEST(loaded[0].outcome, "outcome");
        QTEST(loaded[0].sentence, "sentence");
        QVERIFY(!loaded[0].page);
    }

    void libraryThatIsNoPluginIsBroken()
    {
        const std::vector<TabExtension> loaded = load(folderOf("PlainLibrary"));
        QCOMPARE(loaded.size(), std::size_t{1});
        QCOMPARE(loaded[0].outcome, Outcome::Broken);
        QVERIFY2(loaded[0].sentence.startsWith("\"PlainLibrary\" is not a plugin. "),
                 qPrintable(loaded[0].sentence));
    }

    void textFileThatIsNamedLikeALibraryIsBroken()
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath("liar.so"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("This is no library.");
        file.close();
        const std::vector<TabExtension> loaded = load(folder.path());
        QCOMPARE(loaded.size(), std::size_t{1});
        QCOMPARE(loaded[0].outcome, Outcome::Broken);
        QVERIFY2(loaded[0].sentence.startsWith("\"liar\" is not a plugin. "),
                 qPrintable(loaded[0].sentence));
        QVERIFY2(loaded[0].sentence.contains(file.fileName()), qPrintable(loaded[0].sentence));
    }

    void extensionWithAMissingSymbolIsBrokenAndSaysWhich()
    {
        const std::vector<TabExtension> loaded = load(folderOf("UnlinkedTab"));
        QCOMPARE(loaded.size(), std::size_t{1});
        QCOMPARE(loaded[0].outcome, Outcome::Broken);
        const QString sentence = loaded[0].sentence;
        QVERIFY2(sentence.startsWith("The tab extension \"UnlinkedTab\" could not be loaded. "),
                 qPrintable(sentence));
        QVERIFY2(sentence.contains("valueThatNobodyDefines"), qPrintable(sentence));
    }

    void goodExtensionFillsItsPage()
    {
        const std::vector<TabExtension> loaded = load(folderOf("GoodTab"));
        QCOMPARE(loaded.size(), std::size_t{1});
        QCOMPARE(loaded[0].outcome, Outcome::Shown);
        QCOMPARE(loaded[0].title, QString("Good Tab"));
        QVERIFY(loaded[0].sentence.isEmpty());
        QWidget* tab = loaded[0].page->findChild<QWidget*>("goodTab");
        QVERIFY(tab);
        QCOMPARE(tab->parentWidget(), &loaded[0].page->container());
        QCOMPARE(tab->property("features").toInt(), 5);
        QCOMPARE(tab->property("options").toStringList(), QStringList{"connectWidgetToSignal"});
        QVERIFY(tab->property("containerWasEmpty").toBool());
    }

    /// It chooses its colours then.
    void newTabIsToldOfThePalette()
    {
        const std::vector<TabExtension> loaded = load(folderOf("GoodTab"));
        QWidget* tab = loaded[0].page->findChild<QWidget*>("goodTab");
        QCOMPARE(tab->property("paletteChanges").toInt(), 1);
    }

    void containersParentTellsTheTabOfTheAcquisition()
    {
        const std::vector<TabExtension> loaded = load(folderOf("GoodTab"));
        TabPage& page = *loaded[0].page;
        QCOMPARE(page.container().parent(), &page);
        QWidget* tab = page.findChild<QWidget*>("goodTab");
        QVERIFY(tab->property("connected").toBool());
        emit page.acquisitionChanged(true);
        QCOMPARE(tab->property("heard").toStringList(), QStringList{"on"});
        emit page.acquisitionChanged(false);
        QCOMPARE(tab->property("heard").toStringList(), QStringList({"on", "off"}));
    }

    void signalIsHandedOverInItsEncodedForm()
    {
        QCOMPARE(TabPage::acquisitionSignal(), QString("2acquisitionChanged(bool)"));
    }

    void extensionWithoutATitleIsNamedAfterItsFile()
    {
        const std::vector<TabExtension> loaded = load(folderOf("NamelessTab"));
        QCOMPARE(loaded.size(), std::size_t{1});
        QCOMPARE(loaded[0].outcome, Outcome::Shown);
        QCOMPARE(loaded[0].title, QString("NamelessTab"));
    }

    void fileNameIsShortenedForPeople_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("name");
        QTest::newRow("plain") << "lamp.so"
                               << "lamp";
        QTest::newRow("library") << "liblamp.so"
                                 << "lamp";
        QTest::newRow("library of a tab extension") << "libtabextensionlamp.so"
                                                    << "lamp";
        QTest::newRow("tab extension") << "tabextensionlamp.so"
                                       << "lamp";
        QTest::newRow("nothing would be left") << "libtabextension.so"
                                               << "tabextension";
        QTest::newRow("later in the name") << "mylibtabextension.so"
                                           << "mylibtabextension";
        QTest::newRow("version") << "liblamp.2.so"
                                 << "lamp.2";
    }
    void fileNameIsShortenedForPeople()
    {
        QFETCH(QString, file);
        const QTemporaryDir folder;
        putInto(folder, "RefusingTab", file);
        const std::vector<TabExtension> loaded = load(folder.path());
        QCOMPARE(loaded.size(), std::size_t{1});
        QTEST(loaded[0].name, "name");
    }

    void onlyLibrariesAreTriedInTheOrderOfTheirNames()
    {
        const QTemporaryDir folder;
        putInto(folder, "RefusingTab", "libb.so");
        putInto(folder, "GoodTab", "a.so");
        QVERIFY(QFile::copy(folderOf("GoodTab") + "/libGoodTab.so", folder.filePath("c.json")));
        QVERIFY(QDir(folder.path()).mkdir("folder.so"));
        const std::vector<TabExtension> loaded = load(folder.path());
        QCOMPARE(loaded.size(), std::size_t{2});
        QCOMPARE(loaded[0].name, QString("a"));
        QCOMPARE(loaded[0].outcome, Outcome::Shown);
        QCOMPARE(loaded[1].name, QString("b"));
        QCOMPARE(loaded[1].outcome, Outcome::Refused);
    }

    void missingFolderGivesNothing() { QVERIFY(load("/nowhere").empty()); }

    void areaWithoutExtensionsSaysSo()
    {
        ExtensionArea area;
        QVERIFY(area.findChild<QTabWidget*>("tabWidget")->isHidden());
        area.add({});
        QCOMPARE(area.findChild<QLabel*>("extensionNotice")->text(),
                 QString("No tab extension was found."));
        QVERIFY(area.findChild<QTabWidget*>("tabWidget")->isHidden());
    }

    void longSentencesOfTheAreaCanBeReadAndCopied()
    {
        const ExtensionArea area;
        const auto* notice = area.findChild<QLabel*>("extensionNotice");
        QVERIFY(notice->wordWrap());
        QCOMPARE(notice->textFormat(), Qt::PlainText);
        QCOMPARE(notice->textInteractionFlags(), Qt::TextSelectableByMouse);
        QCOMPARE(notice->alignment(), Qt::AlignCenter);
    }

    void tabFillsAreaAndPage()
    {
        ExtensionArea area;
        area.add(load(folderOf("GoodTab")));
        area.resize(600, 700);
        area.show();
        auto* tabs = area.findChild<QTabWidget*>("tabWidget");
        QTRY_COMPARE(tabs->geometry(), area.rect());
        auto* page = qobject_cast<TabPage*>(tabs->currentWidget());
        QVERIFY(page);
        QTRY_COMPARE(page->container().geometry(), page->rect());
    }

    void areaWithTabsOnlyHasNoNotice()
    {
        ExtensionArea area;
        area.add(load(folderOf("GoodTab")));
        QVERIFY(area.findChild<QLabel*>("extensionNotice")->isHidden());
        auto* tabs = area.findChild<QTabWidget*>("tabWidget");
        QVERIFY(!tabs->isHidden());
        QCOMPARE(tabs->count(), 1);
        QCOMPARE(tabs->tabText(0), QString("Good Tab"));
    }

    void pageHasTheWholeWidthOfTheArea()
    {
        ExtensionArea area;
        area.add(load(folderOf("GoodTab")));
        area.resize(540, 700);
        area.show();
        const auto* tabs = area.findChild<QTabWidget*>("tabWidget");
        const QWidget* page = tabs->currentWidget();
        QCOMPARE(page->mapTo(&area, QPoint()).x(), 0);
        QCOMPARE(page->width(), area.width());
    }

    void areaShowsTabsAndSentences()
    {
        const QTemporaryDir folder;
        putInto(folder, "GoodTab", "a.so");
        putInto(folder, "RefusingTab", "b.so");
        putInto(folder, "OtherPlugin", "c.so");
        putInto(folder, "NamelessTab", "d.so");
        ExtensionArea area;
        area.add(load(folder.path()));
        auto* tabs = area.findChild<QTabWidget*>("tabWidget");
        QCOMPARE(tabs->count(), 2);
        QCOMPARE(tabs->tabText(1), QString("d"));
        auto* notice = area.findChild<QLabel*>("extensionNotice");
        QVERIFY(!notice->isHidden());
        QCOMPARE(notice->text(),
                 QString("The tab extension \"b\" does not support this camera.\n"
                         "\"c\" is a plugin of another kind (SomeOtherInterface)."));
    }

    void everyTabOfTheAreaHearsOfTheAcquisition()
    {
        const QTemporaryDir folder;
        putInto(folder, "GoodTab", "a.so");
        putInto(folder, "GoodTab", "b.so");
        ExtensionArea area;
        area.add(load(folder.path()));
        emit area.acquisitionChanged(true);
        const QList<QWidget*> tabs = area.findChildren<QWidget*>("goodTab");
        QCOMPARE(tabs.size(), 2);
        for (const QWidget* tab : tabs)
            QCOMPARE(tab->property("heard").toStringList(), QStringList{"on"});
    }
};

QTEST_MAIN(tst_TabExtensions)
#include "tst_TabExtensions.moc"
