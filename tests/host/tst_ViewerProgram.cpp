#include "host/ExitCode.h"
#include "host/ImageView.h"
#include "sdk/simulator/SimulatedCamera.h"
#include "tests/host/ViewerProcess.h"

#include <QImage>
#include <QTemporaryDir>
#include <QTest>

namespace {

/// Without what Qt itself has to say, which is not the viewer's.
QProcessEnvironment quietEnvironment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_LOGGING_RULES", "*=false");
    return environment;
}

/// With a desktop in that locale, whether or not it is installed.
QProcessEnvironment environmentIn(const QString& locale)
{
    QProcessEnvironment environment = quietEnvironment();
    environment.remove("LANGUAGE");
    environment.insert("LC_ALL", locale);
    return environment;
}

/// How much of a picture of the window is the image view's background.
int pixelsWithoutImage(const QImage& picture)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            count += picture.pixel(x, y) == ImageView::backgroundColour().rgb();
    }
    return count;
}

} // namespace

/// The built program, from its command line to its exit code.
class tst_ViewerProgram : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;

    Outcome runViewer(const QStringList& arguments)
    {
        return runViewerProgram(arguments, quietEnvironment(), m_folder.path());
    }

    Outcome shoot(const QStringList& arguments)
    {
        return runViewer(QStringList{"--screenshot", "shot.png", "--delay", "0", "--plugins",
                                     extensionFolder("GoodTab"), "--size", "800x600"} +
                         arguments);
    }

private slots:
    void init() { QFile::remove(m_folder.filePath("shot.png")); }

    void informationIsPrintedAndNothingOpened_data()
    {
        QTest::addColumn<QString>("argument");
        QTest::addColumn<QString>("output");
        QTest::newRow("help") << "--help"
                              << "Exit codes:";
        QTest::newRow("version") << "--version"
                                 << "ZalViewer 0.";
    }
    void informationIsPrintedAndNothingOpened()
    {
        QFETCH(QString, argument);
        QFETCH(QString, output);
        const Outcome outcome =
            runViewerProgram({argument}, environmentWithoutDisplay(), m_folder.path());
        QVERIFY(!outcome.crashed);
        QCOMPARE(outcome.exitCode, int(ExitSuccess));
        QVERIFY2(outcome.output.contains(output), qPrintable(outcome.output));
        QCOMPARE(outcome.complaint, QString());
    }

    void faultEndsWithItsOwnCodeAndASentence_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("sentence");
        QTest::newRow("unknown option") << QStringList{"--frobnicate"} << int(ExitBadArguments)
                                        << "Unknown option 'frobnicate'.";
        QTest::newRow("bad size") << QStringList{"--size", "1"} << int(ExitBadArguments)
                                  << "--size takes a size";
        QTest::newRow("unknown model") << QStringList{"--simulate", "best"} << int(ExitBadArguments)
                                       << "There is no simulated model \"best\".";
        QTest::newRow("no such camera")
            << QStringList{"--camera", "no-such-camera"} << int(ExitNoCamera) << "no-such-camera";
        QTest::newRow("no camera at all")
            << QStringList{"--camera", "first"} << int(ExitNoCamera) << "No camera was found.";
        QTest::newRow("no camera to list")
            << QStringList{"--list"} << int(ExitNoCamera) << "No camera was found.";
    }
    void faultEndsWithItsOwnCodeAndASentence()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, sentence);
        const Outcome outcome = runViewer(arguments);
        QVERIFY(!outcome.crashed);
        QTEST(outcome.exitCode, "exitCode");
        QVERIFY2(outcome.complaint.startsWith("ZalViewer: "), qPrintable(outcome.complaint));
        QVERIFY2(outcome.complaint.contains(sentence), qPrintable(outcome.complaint));
        QVERIFY2(outcome.complaint.endsWith(".\n"), qPrintable(outcome.complaint));
        QCOMPARE(outcome.output, QString());
    }

    void screenshotShowsTheLiveImageOfTheSimulatedCamera()
    {
        const Outcome outcome = shoot({});
        QVERIFY(!outcome.crashed);
        QVERIFY2(outcome.exitCode == ExitSuccess, qPrintable(outcome.complaint));
        QCOMPARE(outcome.complaint, QString());
        const QImage image(m_folder.filePath("shot.png"), "PNG");
        QCOMPARE(image.size(), QSize(800, 600));
        const int emptyWithImage = pixelsWithoutImage(image);
        shoot({"--acquire", "off"});
        const int emptyWithoutImage = pixelsWithoutImage(QImage(m_folder.filePath("shot.png")));
        // The view is narrow in this window, and the image low.
        QVERIFY2(emptyWithImage < emptyWithoutImage * 9 / 10,
                 qPrintable(QString("%1 %2").arg(emptyWithImage).arg(emptyWithoutImage)));
    }

    void paletteShowsInTheScreenshot_data()
    {
        QTest::addColumn<QString>("palette");
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << "light" << false;
        QTest::newRow("dark") << "dark" << true;
    }
    void paletteShowsInTheScreenshot()
    {
        QFETCH(QString, palette);
        const Outcome outcome = shoot({"--palette", palette, "--acquire", "off"});
        QVERIFY2(outcome.exitCode == ExitSuccess, qPrintable(outcome.complaint));
        const QImage image(m_folder.filePath("shot.png"));
        QTEST(image.pixelColor(image.width() - 4, image.height() - 4).lightness() < 100, "dark");
    }

    void unwritableScreenshotHasItsOwnCode()
    {
        const Outcome outcome = runViewer({"--screenshot", "/nowhere/shot.png", "--delay", "0",
                                           "--plugins", extensionFolder("GoodTab")});
        QVERIFY(!outcome.crashed);
        QCOMPARE(outcome.exitCode, int(ExitScreenshotFailed));
        QVERIFY2(outcome.complaint.contains("could not be written to \"/nowhere/shot.png\"."),
                 qPrintable(outcome.complaint));
    }

    void extensionsFateShowsInTheExitCode_data()
    {
        QTest::addColumn<QString>("extension");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("sentence");
        QTest::newRow("refuses the camera")
            << "RefusingTab" << int(ExitSuccess)
            << "The tab extension \"RefusingTab\" does not support this camera.";
        QTest::newRow("no plugin")
            << "PlainLibrary" << int(ExitBrokenExtension) << "\"PlainLibrary\" is not a plugin.";
        QTest::newRow("wrong interface")
            << "OldTab" << int(ExitBrokenExtension) << "was made for another version of the viewer";
        QTest::newRow("throws") << "ThrowingTab" << int(ExitBrokenExtension)
                                << "The tab fell over.";
    }
    void extensionsFateShowsInTheExitCode()
    {
        QFETCH(QString, extension);
        QFETCH(QString, sentence);
        const Outcome outcome = shoot({"--plugins", extensionFolder(extension)});
        QVERIFY(!outcome.crashed);
        QTEST(outcome.exitCode, "exitCode");
        QVERIFY2(outcome.complaint.contains(sentence), qPrintable(outcome.complaint));
        QVERIFY(QFile::exists(m_folder.filePath("shot.png")));
    }

    void extensionsBesideTheProgramAreLoadedByDefault()
    {
        const Outcome outcome = runViewer({"--screenshot", "shot.png", "--delay", "0", "--acquire",
                                           "off", "--simulate", "foreign"});
        QCOMPARE(outcome.exitCode, int(ExitSuccess));
        QCOMPARE(outcome.complaint, QString("ZalViewer: The tab extension \"advtrigger\" does not "
                                            "support this camera.\n"));
    }

    void openWindowSpeaksTheLanguageAskedFor()
    {
        const Outcome outcome =
            shoot({"--plugins", extensionFolder("RefusingTab"), "--language", "de"});
        QVERIFY2(outcome.complaint.contains("unterstützt diese Kamera nicht."),
                 qPrintable(outcome.complaint));
    }

    void speaksTheLanguageOfTheDesktopOrTheOneAskedFor_data()
    {
        QTest::addColumn<QString>("desktop");
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("sentence");
        const QStringList size{"--size", "1"};
        const QStringList unknown{"--frobnicate"};
        const QString english = "--size takes a size from";
        const QString german = "--size erwartet eine Größe von";
        QTest::newRow("desktop") << "de_AT.UTF-8" << size << german;
        QTest::newRow("desktop without translations") << "pt_BR.UTF-8" << size << english;
        QTest::newRow("option") << "C.UTF-8" << size + QStringList{"--language", "de"} << german;
        QTest::newRow("option, plain C") << "C" << size + QStringList{"--language=de"} << german;
        QTest::newRow("option beats desktop")
            << "de_DE.UTF-8" << size + QStringList{"--language", "en"} << english;
        QTest::newRow("Chinese") << "C.UTF-8" << size + QStringList{"--language", "zh"}
                                 << "--size 只接受";
        QTest::newRow("Qt's own texts")
            << "C.UTF-8" << unknown + QStringList{"--language", "de"} << "Unbekannte Option";
        QTest::newRow("Japanese full stop")
            << "C.UTF-8" << size + QStringList{"--language", "ja"} << "「1」は指定できません。\n";
    }
    void speaksTheLanguageOfTheDesktopOrTheOneAskedFor()
    {
        QFETCH(QString, desktop);
        QFETCH(QStringList, arguments);
        QFETCH(QString, sentence);
        const Outcome outcome =
            runViewerProgram(arguments, environmentIn(desktop), m_folder.path());
        QCOMPARE(outcome.exitCode, int(ExitBadArguments));
        QVERIFY2(outcome.complaint.contains(sentence), qPrintable(outcome.complaint));
    }

    void tabExtensionsHearTheSameLanguage_data()
    {
        QTest::addColumn<QString>("desktop");
        QTest::addColumn<QStringList>("option");
        QTest::addColumn<QString>("heard");
        QTest::newRow("desktop") << "fr_FR.UTF-8" << QStringList() << "fr_FR fr_FR found";
        QTest::newRow("option") << "C.UTF-8" << QStringList{"--language", "ja"}
                                << "ja_JP ja_JP found";
        QTest::newRow("option beats desktop")
            << "fr_FR.UTF-8" << QStringList{"--language", "de"} << "de_DE de_DE found";
    }
    void tabExtensionsHearTheSameLanguage()
    {
        QFETCH(QString, desktop);
        QFETCH(QStringList, option);
        QFETCH(QString, heard);
        const Outcome outcome =
            runViewerProgram(QStringList{"--screenshot", "shot.png", "--delay", "0", "--acquire",
                                         "off", "--plugins", extensionFolder("SpeakingTab")} +
                                 option,
                             environmentIn(desktop), m_folder.path());
        QCOMPARE(outcome.exitCode, int(ExitBrokenExtension));
        QVERIFY2(outcome.complaint.contains(heard), qPrintable(outcome.complaint));
    }

    void listShowsTheCamerasOfTheNetwork()
    {
        ZalSim::Options options;
        options.serial = "SIM0042";
        std::string error;
        const auto simulator = ZalSim::SimulatedCamera::start(options, error);
        QVERIFY2(simulator, error.c_str());
        const Outcome outcome = runViewer({"--list"});
        QVERIFY(!outcome.crashed);
        QCOMPARE(outcome.exitCode, int(ExitSuccess));
        const QStringList columns = outcome.output.trimmed().split('\t');
        QCOMPARE(columns.size(), 5);
        QVERIFY2(columns[0].endsWith("-SIM0042"), qPrintable(outcome.output));
        QCOMPARE(columns[1], QString("Tarsel Imaging GmbH"));
        QVERIFY(!columns[2].isEmpty());
        QCOMPARE(columns[3], QString("SIM0042"));
        QCOMPARE(columns[4], QString("127.0.0.1"));
    }

    void takenPortIsASentence()
    {
        std::string error;
        const auto simulator = ZalSim::SimulatedCamera::start({}, error);
        QVERIFY2(simulator, error.c_str());
        const Outcome outcome = shoot({});
        QVERIFY(!outcome.crashed);
        QCOMPARE(outcome.exitCode, int(ExitNoCamera));
        QVERIFY2(outcome.complaint.endsWith(".\n"), qPrintable(outcome.complaint));
    }
};

QTEST_GUILESS_MAIN(tst_ViewerProgram)
#include "tst_ViewerProgram.moc"
