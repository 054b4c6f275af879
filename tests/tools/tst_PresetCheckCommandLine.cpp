#include "tools/presetcheck/CommandLine.h"

#include <QtTest>

using Cameras::Source;
using namespace PresetCheck;

class tst_PresetCheckCommandLine : public QObject
{
    Q_OBJECT

    static CommandLine read(const QStringList& arguments)
    {
        return readCommandLine(QStringList("advtrigger-preset-check") + arguments,
                               {"full", "basic"});
    }

private slots:
    void filesAreCheckedWithoutACameraAndAsText()
    {
        const CommandLine line = read({"a.json", "b.json"});
        QCOMPARE(line.action, CommandLine::Action::Check);
        QCOMPARE(line.files, (QStringList{"a.json", "b.json"}));
        QVERIFY(!line.camera);
        QVERIFY(!line.json);
    }

    void aCameraOrAModelCanBeNamed()
    {
        CommandLine line = read({"--camera", "SN1", "a.json"});
        QVERIFY(line.camera);
        QCOMPARE(line.camera->kind, Source::Kind::Found);
        QCOMPARE(line.camera->name, std::string("SN1"));
        line = read({"a.json", "--simulate", "basic", "--format", "json"});
        QVERIFY(line.camera);
        QCOMPARE(line.camera->kind, Source::Kind::Simulated);
        QCOMPARE(line.camera->name, std::string("basic"));
        QVERIFY(line.json);
    }

    void theFirstCameraHasNoName()
    {
        const CommandLine line = read({"--camera", "first", "a.json"});
        QVERIFY(line.camera);
        QCOMPARE(line.camera->kind, Source::Kind::Found);
        QCOMPARE(line.camera->name, std::string());
    }

    void nonsenseIsRejected_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("complaint");
        const auto row = [](const char* name, const QStringList& arguments, const char* text) {
            QTest::newRow(name) << arguments << QString(text);
        };
        row("no file", {}, "Name a presets file to check.");
        row("two cameras", {"--camera", "x", "--simulate", "full", "f"},
            "--camera and --simulate exclude each other.");
        row("empty id", {"--camera", "", "f"},
            "--camera needs an id, a serial number, an address or \"first\".");
        row("unknown model", {"--simulate", "big", "f"},
            "There is no simulated model \"big\". Known models: full, basic.");
        row("unknown format", {"--format", "xml", "f"},
            "--format takes \"text\" or \"json\", not \"xml\".");
        row("unknown option", {"--fast", "f"}, "Unknown option 'fast'.");
        row("option without value", {"f", "--camera"}, "Missing value after '--camera'.");
    }
    void nonsenseIsRejected()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, complaint);
        const CommandLine line = read(arguments);
        QCOMPARE(line.action, CommandLine::Action::Reject);
        QCOMPARE(line.text, complaint);
    }

    void helpNamesEveryOptionAndExitCode()
    {
        const CommandLine line = read({"--help"});
        QCOMPARE(line.action, CommandLine::Action::ShowText);
        for (const char* part : {"FILE...", "--camera <ID>", "--simulate <MODEL>", "(full, basic)",
                                 "--format <text|json>", "--version", "Exit codes: 0 nothing",
                                 "1 errors or warnings", "2 bad arguments"})
            QVERIFY2(line.text.simplified().contains(part), part);
    }

    void versionIsShown()
    {
        const QRegularExpression pattern("^advtrigger-preset-check \\d+\\.\\d+\\.\\d+$");
        QVERIFY(pattern.match(read({"-v"}).text).hasMatch());
    }
};

QTEST_GUILESS_MAIN(tst_PresetCheckCommandLine)
#include "tst_PresetCheckCommandLine.moc"
