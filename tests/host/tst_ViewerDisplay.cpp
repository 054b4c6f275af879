// What the built viewer does with the displays that its environment names.
#include "host/ExitCode.h"
#include "tests/host/ViewerProcess.h"
#include "tests/support/ChildProcess.h"

#include <QFile>
#include <QImage>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

namespace {

constexpr quint16 X11Port = 6000; // Of display 0; the others follow.

using Variables = QMap<QString, QString>;

QProcessEnvironment environmentWith(const Variables& variables)
{
    QProcessEnvironment environment = environmentWithoutDisplay();
    for (auto variable = variables.cbegin(); variable != variables.cend(); ++variable)
        environment.insert(variable.key(), variable.value());
    return environment;
}

/// A display that lets everybody connect and then says nothing.
class SilentDisplay
{
public:
    SilentDisplay()
    {
        while (!m_server.isListening() && m_display < 1000)
            m_server.listen(QHostAddress::LocalHost, X11Port + ++m_display);
    }
    QString name() const { return QString("127.0.0.1:%1").arg(m_display); }
    bool wasAsked() { return m_server.waitForNewConnection(0); }

private:
    QTcpServer m_server;
    quint16 m_display = 100;
};

/// A display in memory.
class WorkingDisplay
{
public:
    explicit WorkingDisplay(const QStringList& options, const QSize& size = {1280, 1024})
    {
        const QString screen = QString("%1x%2x24").arg(size.width()).arg(size.height());
        const QStringList base{"-displayfd", "1", "-screen", "0", screen, "-nolisten", "tcp"};
        m_server.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_server.start("Xvfb", base + options);
        m_server.waitForReadyRead();
        m_number = m_server.readAllStandardOutput().trimmed();
    }
    ~WorkingDisplay()
    {
        m_server.terminate();
        m_server.waitForFinished();
    }
    WorkingDisplay(const WorkingDisplay&) = delete;
    WorkingDisplay& operator=(const WorkingDisplay&) = delete;

    bool isRunning() const { return !m_number.isEmpty(); }
    QString name() const { return ':' + QString::fromLatin1(m_number); }

private:
    ChildProcess m_server;
    QByteArray m_number;
};

/// Hands its own deafness to ended children on to the program.
class HeedlessProcess : public QProcess
{
protected:
    void setupChildProcess() override { std::signal(SIGCHLD, SIG_IGN); }
};

/// Hands on that alarms do not reach the program.
class UnalarmedProcess : public QProcess
{
protected:
    void setupChildProcess() override
    {
        std::signal(SIGALRM, SIG_IGN);
        sigset_t alarms;
        ::sigemptyset(&alarms);
        ::sigaddset(&alarms, SIGALRM);
        ::sigprocmask(SIG_BLOCK, &alarms, nullptr);
    }
};

/// Lets in only who shows the cookie that nobody has.
QByteArray authorityFile()
{
    const QByteArray entry = QByteArray::fromHex("ffff 0000 0000") + QByteArray("\0\x12", 2) +
                             "MIT-MAGIC-COOKIE-1" + QByteArray("\0\x10", 2) +
                             QByteArray(16, '\x5a');
    return entry;
}

} // namespace

class tst_ViewerDisplay : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;

    Outcome open(const Variables& variables, const QStringList& arguments = {})
    {
        return runViewerProgram(arguments, environmentWith(variables), m_folder.path());
    }

    /// With an extension that tells the platform.
    Outcome shoot(const Variables& variables)
    {
        return open(variables, {"--screenshot", "shot.png", "--delay", "0", "--acquire", "off",
                                "--size", "640x480", "--plugins", extensionFolder("PlatformTab")});
    }

private slots:
    void init() { QFile::remove(m_folder.filePath("shot.png")); }

    void windowWithoutAUsableDisplayIsRefusedWithASentence_data()
    {
        QTest::addColumn<Variables>("variables");
        QTest::addColumn<QString>("complaint");
        const QString advice = " Use --screenshot FILE to save a picture of it.\n";
        QTest::newRow("none") << Variables{}
                              << "There is no display to open the window on." + advice;
        const auto row = [&](const char* name, const Variables& variables, const char* tried) {
            QTest::newRow(name) << variables
                                << QString("There is no usable display to open the window on "
                                           "(%1).")
                                           .arg(tried) +
                                       advice;
        };
        row("nobody there", {{"DISPLAY", ":98765"}}, "DISPLAY=:98765");
        row("nobody there on the network", {{"DISPLAY", "127.0.0.1:98"}}, "DISPLAY=127.0.0.1:98");
        row("no display's name", {{"DISPLAY", "screen"}}, "DISPLAY=screen");
        row("no compositor", {{"WAYLAND_DISPLAY", "wayland-98"}}, "WAYLAND_DISPLAY=wayland-98");
        row("neither answers", {{"DISPLAY", ":98765"}, {"WAYLAND_DISPLAY", "wayland-98"}},
            "DISPLAY=:98765, WAYLAND_DISPLAY=wayland-98");
        row("platform without a display", {{"QT_QPA_PLATFORM", "xcb"}}, "QT_QPA_PLATFORM=xcb");
        row("platform with a dead display", {{"QT_QPA_PLATFORM", "xcb"}, {"DISPLAY", ":98765"}},
            "QT_QPA_PLATFORM=xcb, DISPLAY=:98765");
        row("no such platform", {{"QT_QPA_PLATFORM", "nonsense"}}, "QT_QPA_PLATFORM=nonsense");
    }
    void windowWithoutAUsableDisplayIsRefusedWithASentence()
    {
        QFETCH(Variables, variables);
        QFETCH(QString, complaint);
        const Outcome outcome = open(variables);
        QVERIFY(!outcome.crashed);
        QCOMPARE(outcome.exitCode, int(ExitNoDisplay));
        QCOMPARE(outcome.complaint, "ZalViewer: " + complaint);
        QCOMPARE(outcome.output, QString());
    }

    void launcherThatIgnoresItsChildrenMakesNoDifference()
    {
        HeedlessProcess process;
        process.setProcessEnvironment(environmentWith({{"DISPLAY", ":98765"}}));
        process.start(VIEWER, QStringList());
        QVERIFY(process.waitForFinished(60000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), int(ExitNoDisplay));
    }

    void launcherThatIgnoresAlarmsMakesNoDifference()
    {
        SilentDisplay display;
        UnalarmedProcess process;
        process.setProcessEnvironment(environmentWith({{"DISPLAY", display.name()}}));
        process.start(VIEWER, QStringList());
        QVERIFY(process.waitForFinished(60000));
        QVERIFY(display.wasAsked());
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), int(ExitNoDisplay));
    }

    void displayThatNeverAnswersIsGivenUp()
    {
        SilentDisplay display;
        const Outcome outcome = open({{"DISPLAY", display.name()}});
        QVERIFY(display.wasAsked());
        QVERIFY(!outcome.crashed);
        QCOMPARE(outcome.exitCode, int(ExitNoDisplay));
        QVERIFY2(outcome.complaint.contains("(DISPLAY=" + display.name() + ")."),
                 qPrintable(outcome.complaint));
    }

    void displayThatRefusesTheUserIsNotUsable()
    {
        QFile cookies(m_folder.filePath("cookies"));
        QVERIFY(cookies.open(QIODevice::WriteOnly));
        cookies.write(authorityFile());
        cookies.close();
        const WorkingDisplay display({"-auth", cookies.fileName()});
        QVERIFY(display.isRunning());
        const Outcome refused = open({{"DISPLAY", display.name()}, {"XAUTHORITY", "/dev/null"}});
        QVERIFY(!refused.crashed);
        QCOMPARE(refused.exitCode, int(ExitNoDisplay));

        const Outcome admitted =
            shoot({{"DISPLAY", display.name()}, {"XAUTHORITY", cookies.fileName()}});
        QVERIFY2(admitted.complaint.contains(" xcb."), qPrintable(admitted.complaint));
    }

    void displayThatAnswersIsUsed()
    {
        const WorkingDisplay display({});
        QVERIFY(display.isRunning());
        const Outcome outcome = shoot({{"DISPLAY", display.name()}});
        QVERIFY(!outcome.crashed);
        QCOMPARE(outcome.exitCode, int(ExitBrokenExtension));
        QVERIFY2(outcome.complaint.contains("\"PlatformTab\" failed. xcb."),
                 qPrintable(outcome.complaint));
    }

    void windowIsAsLargeAsTheScreenAllows_data()
    {
        QTest::addColumn<QSize>("screen");
        QTest::addColumn<QSize>("window");
        QTest::newRow("more than enough") << QSize(1920, 1080) << QSize(1280, 860);
        QTest::newRow("exactly enough") << QSize(1280, 860) << QSize(1280, 860);
        QTest::newRow("too small") << QSize(1024, 768) << QSize(1024, 768);
        QTest::newRow("too low") << QSize(1366, 768) << QSize(1280, 768);
    }
    void windowIsAsLargeAsTheScreenAllows()
    {
        QFETCH(QSize, screen);
        const WorkingDisplay display({}, screen);
        QVERIFY(display.isRunning());
        open({{"DISPLAY", display.name()}},
             {"--screenshot", "shot.png", "--delay", "0", "--acquire", "off", "--plugins",
              extensionFolder("GoodTab")});
        QTEST(QImage(m_folder.filePath("shot.png")).size(), "window");
    }

    void screenshotNeedsNoDisplay_data()
    {
        QTest::addColumn<Variables>("variables");
        QTest::newRow("none") << Variables{};
        QTest::newRow("nobody there") << Variables{{"DISPLAY", ":98765"}};
        QTest::newRow("no compositor") << Variables{{"WAYLAND_DISPLAY", "wayland-98"}};
    }
    void screenshotNeedsNoDisplay()
    {
        QFETCH(Variables, variables);
        const Outcome outcome = shoot(variables);
        QVERIFY(!outcome.crashed);
        QCOMPARE(outcome.exitCode, int(ExitBrokenExtension));
        QVERIFY2(outcome.complaint.contains("\"PlatformTab\" failed. offscreen."),
                 qPrintable(outcome.complaint));
        QCOMPARE(QImage(m_folder.filePath("shot.png")).size(), QSize(640, 480));
    }

    /// Who names a platform wants no other one.
    void screenshotIsNotTakenOnAnotherPlatformThanTheOneAskedFor()
    {
        const Outcome outcome = shoot({{"QT_QPA_PLATFORM", "nonsense"}});
        QVERIFY(!outcome.crashed);
        QCOMPARE(outcome.exitCode, int(ExitNoDisplay));
        QCOMPARE(outcome.complaint, QString("ZalViewer: There is no usable display to open the "
                                            "window on (QT_QPA_PLATFORM=nonsense).\n"));
        QVERIFY(!QFile::exists(m_folder.filePath("shot.png")));
    }
};

QTEST_GUILESS_MAIN(tst_ViewerDisplay)
#include "tst_ViewerDisplay.moc"
