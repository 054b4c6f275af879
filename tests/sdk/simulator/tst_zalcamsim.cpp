#include "tests/sdk/simulator/Client.h"
#include "tests/support/ChildProcess.h"

#include <QtTest>

namespace {

struct Outcome
{
    int exitCode;
    QString output;
    QString errors;
};

QString program()
{
    return QCoreApplication::applicationDirPath() + "/../bin/zalcamsim";
}

Outcome run(const QStringList& arguments)
{
    ChildProcess process;
    process.start(program(), arguments);
    if (!process.waitForFinished())
        return {-1, {}, "does not end"};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

/// A program that serves a camera until it goes out of scope.
class Server
{
public:
    explicit Server(const QStringList& arguments = {})
    {
        process.start(program(), arguments);
        while (!process.canReadLine() && process.waitForReadyRead()) {
        }
        line = process.readLine();
    }

    ~Server()
    {
        process.kill();
        process.waitForFinished();
    }

    bool ends() { return process.waitForFinished(); }

    ChildProcess process;
    QByteArray line;
};

} // namespace

class tst_zalcamsim : public QObject
{
    Q_OBJECT

private slots:
    void saysWhenItIsReadyAndServes_data();
    void saysWhenItIsReadyAndServes();
    void endsCleanlyOnSignals_data();
    void endsCleanlyOnSignals();
    void wrongCallsHaveTheirOwnExitCodes_data();
    void wrongCallsHaveTheirOwnExitCodes();
    void takenPortHasItsOwnExitCode();
    void listsItsModels();
    void helpTellsOptionsAndExitCodes();
    void versionIsTold();
    void holdsNoPathOfTheBuild();
    void goesOnAfterBeingStopped();
    void vanishedHostIsGivenUp();
};

void tst_zalcamsim::saysWhenItIsReadyAndServes_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("vendor");
    const QByteArray tarsel = "Tarsel Imaging GmbH";
    QTest::newRow("default") << QStringList()
                             << QByteArray("full camera SIM0001 listening on 127.0.0.1\n")
                             << tarsel;
    QTest::newRow("all options") << QStringList{"--model", "foreign",     "--serial",
                                                "F9",      "--interface", "127.0.0.1"}
                                 << QByteArray("foreign camera F9 listening on 127.0.0.1\n")
                                 << QByteArray("Nordlicht Optik AS");
    QTest::newRow("own description")
        << QStringList{"--description",
                       QCoreApplication::applicationDirPath() + "/../bin/models/notrigger.xml"}
        << QByteArray("full camera SIM0001 listening on 127.0.0.1\n") << tarsel;
}

void tst_zalcamsim::saysWhenItIsReadyAndServes()
{
    QFETCH(QStringList, arguments);
    const Server server(arguments);
    QTEST(server.line, "line");
    const Client client;
    QTEST(QByteArray::fromStdString(client.text("DeviceVendorName")), "vendor");
}

void tst_zalcamsim::endsCleanlyOnSignals_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
}

void tst_zalcamsim::endsCleanlyOnSignals()
{
    QFETCH(int, number);
    Server server;
    QVERIFY(server.process.signal(number));
    QVERIFY(server.ends());
    QCOMPARE(server.process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(server.process.exitCode(), 0);
}

void tst_zalcamsim::wrongCallsHaveTheirOwnExitCodes_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("errors");
    QTest::newRow("unknown option")
        << QStringList{"--fast"} << 2 << "zalcamsim: Unknown option --fast\n";
    QTest::newRow("stray argument")
        << QStringList{"full"} << 2 << "zalcamsim: unexpected argument \"full\"\n";
    QTest::newRow("unknown model") << QStringList{"--model", "fancy"} << 3
                                   << "zalcamsim: There is no camera model \"fancy\". Known "
                                      "models: full, basic, aliaslines, foreign, notrigger.\n";
    QTest::newRow("no description")
        << QStringList{"--description", "/nowhere.xml"} << 4
        << "zalcamsim: The camera description /nowhere.xml does not exist.\n";
    QTest::newRow("no such address")
        << QStringList{"--interface", "192.0.2.7"} << 4
        << "zalcamsim: A camera cannot listen on the address 192.0.2.7.\n";
}

void tst_zalcamsim::wrongCallsHaveTheirOwnExitCodes()
{
    QFETCH(QStringList, arguments);
    const Outcome outcome = run(arguments);
    QTEST(outcome.exitCode, "exitCode");
    QTEST(outcome.errors, "errors");
    QCOMPARE(outcome.output, QString());
}

void tst_zalcamsim::takenPortHasItsOwnExitCode()
{
    const Server first;
    const Outcome second = run({});
    QCOMPARE(second.exitCode, 4);
    QCOMPARE(second.errors, QString("zalcamsim: Another camera already listens on 127.0.0.1, UDP "
                                    "port 3956.\n"));
}

void tst_zalcamsim::listsItsModels()
{
    const Outcome outcome = run({"--list"});
    QCOMPARE(outcome.exitCode, 0);
    const QStringList lines = outcome.output.split('\n', Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 5);
    QVERIFY(lines[0].startsWith("full: Tarsel Imaging GmbH"));
    QVERIFY(lines[1].startsWith("basic: Tarsel Imaging GmbH"));
    QVERIFY(lines[2].startsWith("aliaslines: Tarsel Imaging GmbH"));
    QVERIFY(lines[3].startsWith("foreign: "));
    QVERIFY(lines[4].startsWith("notrigger: Tarsel Imaging GmbH"));
}

void tst_zalcamsim::helpTellsOptionsAndExitCodes()
{
    const Outcome outcome = run({"--help"});
    QCOMPARE(outcome.exitCode, 0);
    for (const char* text : {"--model", "--interface", "--serial", "--description", "--list",
                             "--version", "Exit codes: 0"})
        QVERIFY2(outcome.output.contains(text), text);
}

void tst_zalcamsim::versionIsTold()
{
    QVERIFY(QRegularExpression("^zalcamsim \\d+\\.\\d+\\.\\d+\n$")
                .match(run({"--version"}).output)
                .hasMatch());
}

void tst_zalcamsim::holdsNoPathOfTheBuild()
{
    QFile file(program());
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray folder = QFileInfo(program()).canonicalPath().toLocal8Bit();
    QVERIFY(!file.readAll().contains(folder + "/models"));
}

void tst_zalcamsim::goesOnAfterBeingStopped()
{
    Server server;
    Client client;
    client.startAcquisition();
    QVERIFY(client.waitForFrames(2));
    QVERIFY(server.process.stall());
    QTest::qWait(300);
    server.process.resume();
    QVERIFY(client.waitForFrames(client.frames() + 5));
}

// A host that is killed says nothing. The camera gives it up after the heartbeat timeout, and what
// the host had started and locked is over.
void tst_zalcamsim::vanishedHostIsGivenUp()
{
    const Server server;
    ChildProcess host;
    host.start(QCoreApplication::applicationFilePath(), {"--host"});
    QVERIFY(host.waitForReadyRead());
    host.kill();
    QVERIFY(host.waitForFinished());

    std::unique_ptr<Client> next;
    const auto tryToControl = [&next] {
        next.reset();
        next = std::make_unique<Client>();
        return next->isController();
    };
    QVERIFY(!tryToControl());
    QTRY_VERIFY_WITH_TIMEOUT(tryToControl(), 20000);
    QTRY_COMPARE(next->integer("TLParamsLocked"), 0LL);
    next->set("TriggerMode", "On");
    next->startAcquisition();
    QVERIFY(next->getsExactly(0));
    next->execute("TriggerSoftware");
    QVERIFY(next->getsExactly(1));
}

namespace {

// The host that is going to vanish: acquires until it is killed.
int actAsHost()
{
    Client client;
    client.set("TLParamsLocked", 1);
    client.startAcquisition();
    if (!client.waitForFrames(2))
        return 1;
    QTextStream(stdout) << "acquiring" << Qt::endl;
    while (client.waitForFrames(client.frames() + 1)) {
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && std::string(argv[1]) == "--host")
        return actAsHost();
    QCoreApplication application(argc, argv);
    tst_zalcamsim test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_zalcamsim.moc"
