#include "host/CommandLine.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using Action = CommandLine::Action;
using Kind = Cameras::Source::Kind;

Q_DECLARE_METATYPE(Kind)

namespace {

CommandLine read(const QStringList& arguments)
{
    return readCommandLine(QStringList{"ZalViewer"} + arguments, {"full", "foreign", "notrigger"});
}

} // namespace

class tst_CommandLine : public QObject
{
    Q_OBJECT

private slots:
    void withoutArgumentsOpensTheSimulatedFullModel()
    {
        const CommandLine line = read({});
        QCOMPARE(line.action, Action::Run);
        QCOMPARE(line.options.camera.kind, Kind::Simulated);
        QCOMPARE(line.options.camera.name, std::string("full"));
        QVERIFY(line.options.pluginFolder.isEmpty());
        QVERIFY(line.options.screenshotFile.isEmpty());
        QVERIFY(!line.options.windowSize.isValid());
        QVERIFY(line.options.palette.isEmpty());
        QVERIFY(!line.options.acquire);
        QCOMPARE(line.options.screenshotDelay, 1500);
    }

    void cameraIsChosen_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<QString>("name");
        QTest::newRow("model") << QStringList{"--simulate", "foreign"} << Kind::Simulated
                               << "foreign";
        QTest::newRow("first found") << QStringList{"--camera", "first"} << Kind::Found << "";
        QTest::newRow("id") << QStringList{"--camera", "Aravis-Fake-GV01"} << Kind::Found
                            << "Aravis-Fake-GV01";
        QTest::newRow("address") << QStringList{"--camera=127.0.0.1"} << Kind::Found << "127.0.0.1";
    }
    void cameraIsChosen()
    {
        QFETCH(QStringList, arguments);
        const CommandLine line = read(arguments);
        QCOMPARE(line.action, Action::Run);
        QTEST(line.options.camera.kind, "kind");
        QTEST(QString::fromStdString(line.options.camera.name), "name");
    }

    void acquisitionStartsForAScreenshotOrOnDemand_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<bool>("acquire");
        QTest::newRow("window") << QStringList{} << false;
        QTest::newRow("screenshot") << QStringList{"--screenshot", "a.png"} << true;
        QTest::newRow("window, on") << QStringList{"--acquire", "on"} << true;
        QTest::newRow("screenshot, off")
            << QStringList{"--screenshot", "a.png", "--acquire", "off"} << false;
    }
    void acquisitionStartsForAScreenshotOrOnDemand()
    {
        QFETCH(QStringList, arguments);
        QTEST(read(arguments).options.acquire, "acquire");
    }

    void sizePaletteAndDelayAreRead()
    {
        const CommandLine line = read(
            {"--size", "1024x768", "--palette", "dark", "--screenshot", "a.png", "--delay", "250"});
        QCOMPARE(line.action, Action::Run);
        QCOMPARE(line.options.windowSize, QSize(1024, 768));
        QCOMPARE(line.options.palette, QString("dark"));
        QCOMPARE(line.options.screenshotDelay, 250);
    }

    void relativePathsCountFromTheCurrentDirectory()
    {
        const QTemporaryDir folder;
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(folder.path()));
        QVERIFY(QDir().mkdir("extensions"));
        const CommandLine line = read({"--screenshot", "shots/a.png", "--plugins", "extensions"});
        const QString here = QDir::currentPath();
        QVERIFY(QDir::setCurrent(before));
        QCOMPARE(line.options.screenshotFile, here + "/shots/a.png");
        QCOMPARE(line.options.pluginFolder, here + "/extensions");
    }

    void listIsAnActionOfItsOwn() { QCOMPARE(read({"--list"}).action, Action::ListCameras); }

    void versionNamesTheProgram()
    {
        for (const char* option : {"--version", "-v"}) {
            const CommandLine line = read({option});
            QCOMPARE(line.action, Action::ShowText);
            QVERIFY2(line.text.startsWith("ZalViewer 0."), qPrintable(line.text));
        }
    }

    void helpNames_data()
    {
        QTest::addColumn<QString>("text");
        for (const char* text : {"--help",
                                 "--version",
                                 "--list",
                                 "--camera <ID>",
                                 "--simulate <MODEL>",
                                 "--acquire <on|off>",
                                 "--plugins <DIR>",
                                 "--screenshot <FILE>",
                                 "--delay <MS>",
                                 "--size <WxH>",
                                 "--palette <NAME>",
                                 "--language <LANG>",
                                 "full, foreign, notrigger",
                                 "Exit codes:",
                                 "0  success",
                                 "2  bad arguments",
                                 "3  no camera found",
                                 "4  a file in the plugins",
                                 "5  the screenshot",
                                 "6  no display"})
            QTest::newRow(text) << QString(text);
    }
    void helpNames()
    {
        QFETCH(QString, text);
        const CommandLine line = read({"--help"});
        QCOMPARE(line.action, Action::ShowText);
        QVERIFY2(line.text.contains(text), qPrintable(line.text));
    }

    void printedTextsEndWithoutAnEmptyLine()
    {
        for (const char* option : {"--help", "--version"}) {
            const QString text = read({option}).text;
            QCOMPARE(text, text.trimmed());
        }
    }

    void helpBeatsOtherFaults()
    {
        QCOMPARE(read({"--help", "--size", "huge"}).action, Action::ShowText);
    }

    void faultIsRejectedWithASentence_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("sentence");
        const auto row = [](const char* name, const QStringList& arguments, const char* sentence) {
            QTest::newRow(name) << arguments << QString::fromUtf8(sentence);
        };
        row("unknown option", {"--frobnicate"}, "Unknown option 'frobnicate'.");
        row("missing value", {"--camera"}, "Missing value after '--camera'.");
        row("argument", {"camera1"}, "Unexpected argument \"camera1\".");
        row("two cameras", {"--camera", "a", "--simulate", "full"},
            "--camera and --simulate exclude each other.");
        row("empty camera", {"--camera", ""},
            "--camera needs an id, a serial number, an address or \"first\".");
        row("model", {"--simulate", "best"},
            "There is no simulated model \"best\". Known models: full, foreign, notrigger.");
        row("acquire", {"--acquire", "yes"}, "--acquire takes \"on\" or \"off\", not \"yes\".");
        row("plugins", {"--plugins", "/nowhere"}, "There is no folder \"/nowhere\".");
        row("empty screenshot", {"--screenshot", ""}, "--screenshot needs the name of a file.");
        row("delay alone", {"--delay", "10"}, "--delay is for --screenshot only.");
        row("delay text", {"--screenshot", "a.png", "--delay", "long"},
            "--delay takes 0 to 60000 milliseconds, not \"long\".");
        row("delay negative", {"--screenshot", "a.png", "--delay", "-1"},
            "--delay takes 0 to 60000 milliseconds, not \"-1\".");
        row("delay too long", {"--screenshot", "a.png", "--delay", "60001"},
            "--delay takes 0 to 60000 milliseconds, not \"60001\".");
        const char* size = "--size takes a size from 640x480 to 7680x4320, not \"%1\".";
        for (const char* value : {"", "1024", "1024x", "639x480", "640x479", "7681x1000",
                                  "1000x4321", "-800x600", "800x600x2"})
            QTest::addRow("size %s", value)
                << QStringList{"--size", value} << QString(size).arg(value);
        row("palette", {"--palette", "pink"},
            "--palette takes \"light\" or \"dark\", not \"pink\".");
        row("language", {"--language", "xx"},
            "--language takes one of de, en, es, fr, ja, zh, not \"xx\".");
        row("list with a fault", {"--list", "more"}, "Unexpected argument \"more\".");
    }
    void faultIsRejectedWithASentence()
    {
        QFETCH(QStringList, arguments);
        const CommandLine line = read(arguments);
        QCOMPARE(line.action, Action::Reject);
        QTEST(line.text, "sentence");
    }

    void delayLimitsThemselvesAreAllowed_data()
    {
        QTest::addColumn<int>("delay");
        QTest::newRow("shortest") << 0;
        QTest::newRow("longest") << 60000;
    }
    void delayLimitsThemselvesAreAllowed()
    {
        QFETCH(int, delay);
        const CommandLine line = read({"--screenshot", "a.png", "--delay", QString::number(delay)});
        QCOMPARE(line.action, Action::Run);
        QCOMPARE(line.options.screenshotDelay, delay);
    }

    void sizeLimitsThemselvesAreAllowed_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("smallest") << QSize(640, 480);
        QTest::newRow("largest") << QSize(7680, 4320);
    }
    void sizeLimitsThemselvesAreAllowed()
    {
        QFETCH(QSize, size);
        const QString text = QString("%1x%2").arg(size.width()).arg(size.height());
        const CommandLine line = read({"--size", text});
        QCOMPARE(line.action, Action::Run);
        QCOMPARE(line.options.windowSize, size);
    }
};

QTEST_GUILESS_MAIN(tst_CommandLine)
#include "tst_CommandLine.moc"
