#include "sdk/simulator/SimulatedCamera.h"
#include "tests/tools/Checked.h"

#include <ZalCPP/CameraSystem.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

namespace {

struct Outcome
{
    int exitCode = -1;
    QByteArray output;
    QByteArray complaint;
};

Outcome run(const QStringList& arguments)
{
    QProcess process;
    process.start(CHECKER, arguments);
    Outcome outcome;
    if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit)
        outcome.exitCode = process.exitCode();
    outcome.output = process.readAllStandardOutput();
    outcome.complaint = process.readAllStandardError();
    return outcome;
}

} // namespace

/// The built program, from its command line to its exit code.
class tst_PresetCheckProgram : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;

    QString fileOf(const QByteArray& content)
    {
        QFile file(m_folder.filePath("f.json"));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("Cannot write %s", qPrintable(file.fileName()));
        return file.fileName();
    }

private slots:
    void aCleanFileGivesNoOutput()
    {
        const Outcome outcome = run({fileOf(json("{'#presets': []}"))});
        QCOMPARE(outcome.exitCode, 0);
        QCOMPARE(outcome.output, QByteArray());
        QCOMPARE(outcome.complaint, QByteArray());
    }

    void findingsGoToTheOutputAndIntoTheExitCode()
    {
        const QString file = fileOf(json("{'#presets': ['A']}"));
        const Outcome outcome = run({file});
        QCOMPARE(outcome.exitCode, 1);
        QCOMPARE(outcome.output, file.toUtf8() + ":1:15: error: \"A\" is listed, but there is no "
                                                 "such preset [preset-missing]\n");
        QCOMPARE(outcome.complaint, QByteArray());
    }

    void aWarningIsAFindingToo()
    {
        QCOMPARE(run({fileOf(json("{'#presets': [], 'A': {}}"))}).exitCode, 1);
    }

    void aFileThatCannotBeReadIsComplainedAboutAndTheOthersAreChecked()
    {
        const QString file = fileOf(json("{'#presets': ['A']}"));
        const Outcome outcome = run({"/no/such.json", file});
        QCOMPARE(outcome.exitCode, 2);
        QVERIFY(outcome.output.startsWith(file.toUtf8() + ":1:15: error"));
        QCOMPARE(outcome.complaint, QByteArray("advtrigger-preset-check: /no/such.json: No such "
                                               "file or directory\n"));
        QCOMPARE(run({m_folder.path()}).exitCode, 2);
    }

    void badArgumentsAreUnusable()
    {
        const Outcome outcome = run({});
        QCOMPARE(outcome.exitCode, 2);
        QCOMPARE(outcome.complaint,
                 QByteArray("advtrigger-preset-check: Name a presets file to check.\n"));
    }

    void informationGoesToTheOutput()
    {
        QVERIFY(run({"--help"}).output.contains("Exit codes:"));
        QCOMPARE(run({"--help"}).exitCode, 0);
        QVERIFY(run({"--version"}).output.startsWith("advtrigger-preset-check 0."));
    }

    void theJsonFormatIsOneObject()
    {
        const Outcome outcome = run({"--format", "json", fileOf(json("{'#presets': ['A']}"))});
        QCOMPARE(outcome.exitCode, 1);
        const QJsonObject all = QJsonDocument::fromJson(outcome.output).object();
        QCOMPARE(all.value("format").toInt(), 1);
        QCOMPARE(all.value("errors").toInt(), 1);
    }

    void aSimulatedCameraIsStartedAndAsked()
    {
        const QString file =
            fileOf(json(presetOf("'LineSelector': {'#value': 'Line0', 'LineMode': 'Out'}")));
        const Outcome outcome = run({"--simulate", "full", file});
        QCOMPARE(outcome.complaint, QByteArray());
        QCOMPARE(outcome.output, file.toUtf8() + ":1:75: error: \"LineMode\" has no entry "
                                                 "\"Out\"; it has Input, Output "
                                                 "[unknown-entry]\n");
        QCOMPARE(outcome.exitCode, 1);
    }

    void theShippedPresetsHaveNoErrorsOnTheCameraThatTheyAreFor_data()
    {
        QTest::addColumn<QString>("file");
        const QDir presets(PRESETS);
        for (const QString& name : presets.entryList({"*_Presets.json"}))
            QTest::newRow(qPrintable(name)) << presets.filePath(name);
    }
    void theShippedPresetsHaveNoErrorsOnTheCameraThatTheyAreFor()
    {
        QFETCH(QString, file);
        const Outcome outcome = run({"--simulate", "full", "--format", "json", file});
        const QJsonObject all = QJsonDocument::fromJson(outcome.output).object();
        QVERIFY2(all.value("camera").toString().startsWith("Tarsel Imaging GmbH"),
                 outcome.complaint.constData());
        QVERIFY2(all.value("errors") == 0, outcome.output.constData());
        const Outcome alone = run({file});
        QCOMPARE(alone.output, QByteArray());
        QCOMPARE(alone.exitCode, 0);
    }

    void theShippedPresetsHaveNoWarningsOnAnyModel_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("model");
        const QDir presets(PRESETS);
        for (const QString& name : presets.entryList({"*_Presets.json"})) {
            for (const std::string& model : ZalSim::SimulatedCamera::models())
                QTest::addRow("%s, %s", qPrintable(name), model.c_str())
                    << presets.filePath(name) << QString::fromStdString(model);
        }
    }
    void theShippedPresetsHaveNoWarningsOnAnyModel()
    {
        QFETCH(QString, file);
        QFETCH(QString, model);
        const Outcome outcome = run({"--simulate", model, "--format", "json", file});
        const QJsonObject all = QJsonDocument::fromJson(outcome.output).object();
        QVERIFY2(all.value("camera").isString(), outcome.complaint.constData());
        QCOMPARE(outcome.complaint, QByteArray());
        QVERIFY2(all.value("warnings") == 0, outcome.output.constData());
    }

    void whatIsNoRegularFileCannotBeRead()
    {
        const QString pipe = m_folder.filePath("pipe");
        const QString link = m_folder.filePath("link");
        QVERIFY(::mkfifo(QFile::encodeName(pipe).constData(), 0600) == 0);
        QVERIFY(QFile::link("/dev/zero", link));
        const Outcome outcome = run({pipe, link, m_folder.path()});
        QCOMPARE(outcome.exitCode, 2);
        QCOMPARE(QString::fromUtf8(outcome.complaint),
                 QString("advtrigger-preset-check: %1: Not a regular file\n"
                         "advtrigger-preset-check: %2: Not a regular file\n"
                         "advtrigger-preset-check: %3: Not a regular file\n")
                     .arg(pipe, link, m_folder.path()));
    }

    void aFileOfMoreThan16MegabytesCannotBeRead()
    {
        const QString file = fileOf(QByteArray(16 * 1024 * 1024 + 1, ' '));
        const Outcome outcome = run({file});
        QCOMPARE(outcome.exitCode, 2);
        QCOMPARE(QString::fromUtf8(outcome.complaint),
                 QString("advtrigger-preset-check: %1: Larger than 16 MB\n").arg(file));
    }

    void aCameraIsFoundByItsIdAndItsSelectorsAreAsTheyWere()
    {
        std::string error;
        const auto simulated = ZalSim::SimulatedCamera::start({}, error);
        QVERIFY2(simulated, error.c_str());
        const QString id = QString::fromStdString(simulated->cameraId());
        const QString file = fileOf(json(presetOf("'LineSelector': {'#value': '<all>_Line2', "
                                                  "'LineInverter': true}, "
                                                  "'TriggerSelector': {'#value': 'FrameStart'}")));
        const auto values = [&] {
            QStringList result;
            const auto camera = ZalCPP::CameraSystem::Open(id.toStdString(), error);
            for (const char* name : {"LineSelector", "TriggerSelector"}) {
                char text[64] = "";
                std::uint32_t size = sizeof text;
                if (camera && camera->FindFeature(name)->GetStringValue(text, size) == 0)
                    result.append(text);
            }
            bool inverted = true;
            if (camera && camera->FindFeature("LineInverter")->GetBoolValue(inverted) == 0)
                result.append(inverted ? "inverted" : "plain");
            return result;
        };
        const QStringList before = values();
        QCOMPARE(before.size(), 3);
        const Outcome outcome = run({"--camera", id, file});
        QCOMPARE(outcome.complaint, QByteArray());
        QCOMPARE(outcome.output, QByteArray());
        QCOMPARE(outcome.exitCode, 0);
        QCOMPARE(values(), before);
    }

    void aCameraThatIsNotThereIsUnusable()
    {
        const Outcome outcome = run({"--camera", "NoSuchCamera", fileOf("{}")});
        QCOMPARE(outcome.exitCode, 2);
        QVERIFY(outcome.complaint.startsWith("advtrigger-preset-check: "));
        QCOMPARE(outcome.output, QByteArray());
    }
};

QTEST_GUILESS_MAIN(tst_PresetCheckProgram)
#include "tst_PresetCheckProgram.moc"
