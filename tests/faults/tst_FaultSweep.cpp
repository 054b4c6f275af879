// A part of the sweep that scripts/faults plays as a whole, and the proof that the sweep can fail.
#include "tests/faults/Cases.h"
#include "tests/faults/Sweep.h"

#include <QIntValidator>
#include <QLineEdit>
#include <QProcess>
#include <QtTest>

#include <unistd.h>

using namespace Faults;

namespace {

/// A call amid the edits in the tab.
const Fault Ordinary = {Series::Calls, 700, ZalErrorTimeout, Mode::Once};

Sweep sweepWith(const QStringList& arguments)
{
    Sweep sweep;
    sweep.program = QStringLiteral(SWEEP_PROGRAM);
    sweep.arguments = QStringList{"--play"} + arguments;
    sweep.jobs = 2;
    return sweep;
}

/// The first call of that description, "step: operation feature"; 0 without one.
int callIn(const QString& description)
{
    static const QStringList calls = takeCensus().callList;
    return calls.indexOf(description) + 1;
}

QMap<QString, int> sizesOf(const Groups& groups)
{
    QMap<QString, int> sizes;
    for (auto it = groups.begin(); it != groups.end(); ++it)
        sizes[it.key()] = it->count;
    return sizes;
}

QMap<QString, int> countsOf(const QStringList& texts)
{
    QMap<QString, int> counts;
    for (const QString& text : texts)
        ++counts[text];
    return counts;
}

/// For the reader of a failed test: what is wrong, and how to see it again.
QByteArray replays(const Groups& findings)
{
    QByteArray lines;
    for (auto it = findings.begin(); it != findings.end(); ++it)
        lines += "\n" + it.key().toUtf8() + " (scripts/faults --replay " +
                 toText(it->first).toUtf8() + ")";
    return lines;
}

} // namespace

class tst_FaultSweep : public QObject
{
    Q_OBJECT

private slots:
    void faultsAreWrittenAsTheyAreRead_data();
    void faultsAreWrittenAsTheyAreRead();
    void whatNamesNoFaultIsRefused_data();
    void whatNamesNoFaultIsRefused();
    void theUndisturbedSessionGetsWhatItAsksForAndNothingElse();
    void aDenseSweepLeavesOutNoCallAndNoStatus();
    void whatIsPlantedIsFound_data();
    void whatIsPlantedIsFound();
    void aCrashIsThatOfItsFaultAndEndsNoOtherSession();
    void aCallThatTheSessionDoesNotMakeIsAFinding();
    void aFaultBesideTheDialogIsSoughtInTheTabToo();
    void whatAValidatorSaysBelongsToThePortrait();
    void aReplayFailsWithAFinding_data();
    void aReplayFailsWithAFinding();
    void aSelectorLeftElsewhereIsExcusedByItsOwnFailure();
    void aSessionThatBranchesOffFindsWhatItFindsAlone_data();
    void aSessionThatBranchesOffFindsWhatItFindsAlone();
    void theDigestTellsStatesOfTheCameraApart_data();
    void theDigestTellsStatesOfTheCameraApart();
    void aNewFormIsMadeOncePerStateOfTheCamera();
    void theDialogIsLeftOutOnTroddenWaysOnly_data();
    void theDialogIsLeftOutOnTroddenWaysOnly();
    void noFaultBreaksAPromise_data();
    void noFaultBreaksAPromise();
};

void tst_FaultSweep::faultsAreWrittenAsTheyAreRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("call") << "17 -12 once";
    QTest::newRow("name") << "name:230 -5 lasting";
}

void tst_FaultSweep::faultsAreWrittenAsTheyAreRead()
{
    QFETCH(QString, text);
    const auto fault = fromText(text);
    QVERIFY(fault);
    QCOMPARE(toText(*fault), text);
}

void tst_FaultSweep::whatNamesNoFaultIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << "";
    QTest::newRow("no call") << "0 -12 once";
    QTest::newRow("success") << "17 0 once";
    QTest::newRow("no status") << "17 -99 once";
    QTest::newRow("no mode") << "17 -12 twice";
}

void tst_FaultSweep::whatNamesNoFaultIsRefused()
{
    QFETCH(QString, text);
    QVERIFY(!fromText(text));
}

void tst_FaultSweep::theUndisturbedSessionGetsWhatItAsksForAndNothingElse()
{
    const Census census = takeCensus();
    QCOMPARE(census.findings, QStringList());
    QCOMPARE(census.notes, QStringList());
    QCOMPARE(census.unansweredAsks, QStringList());
}

void tst_FaultSweep::aDenseSweepLeavesOutNoCallAndNoStatus()
{
    Census census;
    census.calls = 100;
    census.names = 50;
    census.decisiveNames = {3, 4, 49};
    const QVector<Fault> cases = casesOf(census, Choice());
    QMap<Mode, QSet<int>> calls;
    QMap<Mode, QSet<int>> statuses;
    QSet<int> names;
    for (const Fault& fault : cases) {
        (fault.series == Series::Calls ? calls[fault.mode] : names).insert(fault.call);
        statuses[fault.mode].insert(fault.status);
    }
    for (const Mode mode : {Mode::Once, Mode::Lasting}) {
        QCOMPARE(calls[mode].size(), 100);
        QCOMPARE(statuses[mode].size(), failures().size());
    }
    QCOMPARE(names, (QSet<int>{1, 3, 4, 49}));
}

void tst_FaultSweep::whatIsPlantedIsFound_data()
{
    QTest::addColumn<QString>("planted");
    QTest::addColumn<QString>("found");
    QTest::newRow("write that nobody asked for") << "write"
                                                 << "unasked write TriggerDelay=77";
    QTest::newRow("widget that does not follow") << "stale"
                                                 << "the tab shows cmbTriggerSource";
    QTest::newRow("line that nobody selected") << "line"
                                               << "LineSelector left at another entry";
    QTest::newRow("crash") << "crash"
                           << "crash, signal 11";
    QTest::newRow("hang") << "hang"
                          << "hang";
}

void tst_FaultSweep::whatIsPlantedIsFound()
{
    QFETCH(QString, planted);
    QFETCH(QString, found);
    Sweep sweep = sweepWith({"--plant", planted});
    if (planted == "hang")
        sweep.patienceMs = 2000;
    const Report report = sweep.run({Ordinary});
    QCOMPARE(report.played, 1);
    const QStringList findings = report.findings.keys();
    QVERIFY2(findings.join('\n').contains(found), qPrintable(findings.join('\n')));
    QCOMPARE(toText(report.findings.first().first), toText(Ordinary));
}

void tst_FaultSweep::aCrashIsThatOfItsFaultAndEndsNoOtherSession()
{
    Fault never = Ordinary;
    never.call = 1000000000;
    const Report report = sweepWith({"--plant", "crash"}).run({never, Ordinary, never});
    QCOMPARE(report.played, 3);
    QCOMPARE(report.findings["crash, signal 11"].count, 1);
    QCOMPARE(toText(report.findings["crash, signal 11"].first), toText(Ordinary));
}

void tst_FaultSweep::aCallThatTheSessionDoesNotMakeIsAFinding()
{
    Fault never = Ordinary;
    never.call = 1000000000;
    QCOMPARE(playCase(never).findings, QStringList{"the session has no such call"});
}

void tst_FaultSweep::aFaultBesideTheDialogIsSoughtInTheTabToo()
{
    const QStringList calls = takeCensus().callList;
    const int call = calls.indexOf(QRegularExpression("choose counter: .*")) + 1;
    QVERIFY(call > 0);
    const Fault fault = {Series::Calls, call, ZalErrorTimeout, Mode::Once};
    const QStringList findings = playCase(fault, Plant::StaleWidget).findings;
    QCOMPARE(findings.size(), 1);
    QVERIFY2(findings[0].contains("the tab shows cmbTriggerSource"), qPrintable(findings[0]));
}

void tst_FaultSweep::whatAValidatorSaysBelongsToThePortrait()
{
    QWidget form;
    QLineEdit edit("7", &form);
    edit.setObjectName("txtActionQueueSize");
    const Portrait bare = portraitOf(form);
    QIntValidator validator(0, 10);
    edit.setValidator(&validator);
    const Portrait content = portraitOf(form);
    QVERIFY(content != bare);
    validator.setRange(-1, -1);
    const auto found = differences(portraitOf(form), content);
    QCOMPARE(int(found.size()), 1);
    QCOMPARE(found[0].widget, QString("txtActionQueueSize"));
}

void tst_FaultSweep::aReplayFailsWithAFinding_data()
{
    QTest::addColumn<QString>("planted");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("finding") << "write" << 1;
    QTest::newRow("none") << "none" << 0;
}

void tst_FaultSweep::aReplayFailsWithAFinding()
{
    QFETCH(QString, planted);
    QFETCH(int, exitCode);
    const QStringList fault = toText(Ordinary).split(' ');
    QCOMPARE(QProcess::execute(SWEEP_PROGRAM, QStringList{"--plant", planted, "--replay"} + fault),
             exitCode);
}

void tst_FaultSweep::aSelectorLeftElsewhereIsExcusedByItsOwnFailure()
{
    const Fault fault = {Series::Calls, callIn("choose line source: GetStringValue LineSelector"),
                         ZalErrorTimeout, Mode::Once};
    const Outcome outcome = playCase(fault, Plant::LostLine);
    QCOMPARE(outcome.findings, QStringList());
    QVERIFY(!outcome.notes.isEmpty());
    QVERIFY2(outcome.notes[0].contains("LineSelector left at another entry"),
             qPrintable(outcome.notes[0]));
}

void tst_FaultSweep::aSessionThatBranchesOffFindsWhatItFindsAlone_data()
{
    QTest::addColumn<QString>("planted");
    QTest::newRow("write that nobody asked for") << "write";
    QTest::newRow("line that nobody selected") << "line";
    QTest::newRow("nothing") << "none";
}

void tst_FaultSweep::aSessionThatBranchesOffFindsWhatItFindsAlone()
{
    QFETCH(QString, planted);
    const Plant plant = planted == "write"  ? Plant::UnaskedWrite
                        : planted == "line" ? Plant::LostLine
                                            : Plant::None;
    const QVector<Fault> faults = {{Series::Calls, 30, ZalErrorTimeout, Mode::Lasting},
                                   Ordinary,
                                   // Made by the thread in which the camera reports a change.
                                   {Series::Calls, 1394, ZalErrorNotReadable, Mode::Once},
                                   {Series::Calls, 1800, ZalErrorNotReadable, Mode::Lasting},
                                   {Series::Names, 5000, ZalErrorTransport, Mode::Once},
                                   {Series::Calls, 4000, ZalErrorUnknown, Mode::Once}};
    QStringList alone;
    QStringList notes;
    for (const Fault& fault : faults) {
        const Outcome outcome = playCase(fault, plant);
        alone += outcome.findings;
        notes += outcome.notes;
    }
    const Report report = sweepWith({"--plant", planted}).run(faults);
    QCOMPARE(report.played, faults.size());
    QCOMPARE(sizesOf(report.findings), countsOf(alone));
    QCOMPARE(sizesOf(report.notes), countsOf(notes));
}

void tst_FaultSweep::theDigestTellsStatesOfTheCameraApart_data()
{
    QTest::addColumn<QString>("feature");
    QTest::addColumn<QString>("entry");
    QTest::newRow("without a selector") << "AcquisitionFrameCount"
                                        << "";
    QTest::newRow("under the selected entry") << "TimerDelay"
                                              << "Timer0";
    QTest::newRow("under another entry") << "TimerDelay"
                                         << "Timer1";
}

void tst_FaultSweep::theDigestTellsStatesOfTheCameraApart()
{
    QFETCH(QString, feature);
    QFETCH(QString, entry);
    const FaultyCamera camera;
    const QByteArray before = camera.digest();
    QCOMPARE(camera.digest(), before);
    Fake::FakeFeature& fake = camera.fake()[feature.toStdString()];
    Fake::State& state = entry.isEmpty() ? fake.state() : fake.stateFor(entry.toStdString());
    state.real += 1e-9;
    QVERIFY(camera.digest() != before);
}

void tst_FaultSweep::aNewFormIsMadeOncePerStateOfTheCamera()
{
    Gallery gallery;
    const auto make = [] { return Portrait{{"made by", QString::number(::getpid())}}; };
    const Portrait first = gallery.portraitFor("here", make);
    QVERIFY(first != make()); // In a copy of this process.
    QCOMPARE(gallery.portraitFor("here", make), first);
    QVERIFY(gallery.portraitFor("there", make) != first);
    Gallery another;
    another.learn(gallery.takeNews());
    QCOMPARE(another.portraitFor("here", make), first);
}

void tst_FaultSweep::theDialogIsLeftOutOnTroddenWaysOnly_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("mayLeaveOut");
    QTest::addColumn<bool>("isLeftOut");
    const QString same = "choose mode: IsWritable TriggerMode";
    QTest::newRow("the same way") << same << int(ZalErrorTimeout) << true << true;
    QTest::newRow("whole") << same << int(ZalErrorTimeout) << false << false;
    QTest::newRow("refused") << same << int(ZalErrorNotReadable) << true << false;
    QTest::newRow("another question")
        << "choose mode: GetStringValue TriggerMode" << int(ZalErrorTimeout) << true << false;
}

void tst_FaultSweep::theDialogIsLeftOutOnTroddenWaysOnly()
{
    QFETCH(QString, call);
    QFETCH(int, status);
    QFETCH(bool, mayLeaveOut);
    QFETCH(bool, isLeftOut);
    Gallery gallery;
    const auto play = [&](const Fault& fault, bool leavesOut) {
        FaultyCamera camera;
        camera.arm(fault);
        Session session(camera, gallery);
        session.leavesOutTroddenWays = leavesOut;
        session.play();
        return camera.callList().filter("open dialog: ").isEmpty();
    };
    const Fault first = {Series::Calls, callIn("choose mode: IsWritable TriggerMode"),
                         ZalErrorTimeout, Mode::Once};
    QVERIFY(!play(first, true));
    QCOMPARE(play({Series::Calls, callIn(call), status, Mode::Once}, mayLeaveOut), isLeftOut);
}

void tst_FaultSweep::noFaultBreaksAPromise_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("once") << int(Mode::Once);
    QTest::newRow("lasting") << int(Mode::Lasting);
}

void tst_FaultSweep::noFaultBreaksAPromise()
{
    QFETCH(int, mode);
    Choice choice;
    choice.callStride = 199;
    choice.decisiveStride = 397;
    choice.nameStride = 9973;
    QVector<Fault> cases = casesOf(takeCensus(), choice);
    const auto isOther = [&](const Fault& fault) { return fault.mode != Mode(mode); };
    cases.erase(std::remove_if(cases.begin(), cases.end(), isOther), cases.end());
    QVERIFY(cases.size() > 50);
    const Report report = sweepWith({}).run(cases);
    QCOMPARE(report.played, cases.size());
    QVERIFY2(report.findings.isEmpty(), replays(report.findings).constData());
}

QTEST_MAIN(tst_FaultSweep)
#include "tst_FaultSweep.moc"
