// Plays the session on a camera that fails, in every way that is asked for. See --help.
#include "tests/faults/Branches.h"
#include "tests/faults/Cases.h"
#include "tests/faults/Sweep.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QThread>

#include <cstdio>
#include <sys/resource.h>

using namespace Faults;

namespace {

const char* const description =
    "Plays one session of the tab and its dialog (get, show, an edit of each kind, presets, PWM,\n"
    "streaming, close, delete) again and again on a fake camera. Each time another SDK call "
    "fails:\n"
    "once, or lasting until the recovery. Afterwards every write that the camera took must be one\n"
    "that the session asked for, and the form must show what a new one shows.\n\n"
    "Dense means: every call other than GetName, every GetName that ends a look-up or a walk\n"
    "through the features, and every hundredth of the other GetNames; each once and lasting. The\n"
    "14 statuses take turns from call to call; --all-statuses tries each of them at every call.\n"
    "A fault in the tab's part is followed by the dialog's part only where no session before came\n"
    "the same way: the same question about the same feature failing, as long, with a status of\n"
    "the same sense, and camera and tab ending the same; --whole plays all of it.\n"
    "That is 24,312 sessions of about 0.16 s of processor time each, by a sample of 178: half an\n"
    "hour on two free cores.";

const QMap<QString, Plant> plants = {{"none", Plant::None},         {"write", Plant::UnaskedWrite},
                                     {"stale", Plant::StaleWidget}, {"crash", Plant::Crash},
                                     {"hang", Plant::Hang},         {"line", Plant::LostLine}};

void print(const QString& text)
{
    std::puts(text.toUtf8().constData());
    std::fflush(stdout);
}

void print(const char* kind, const Groups& groups)
{
    for (auto it = groups.begin(); it != groups.end(); ++it)
        print(QStringLiteral("%1 (%2 cases): %3\n    scripts/faults --replay %4")
                  .arg(kind)
                  .arg(it->count)
                  .arg(it.key(), toText(it->first)));
}

/// Whether there was nothing to find.
bool playAndSay(const Fault& fault, Plant plant)
{
    const Outcome outcome = playCase(fault, plant);
    for (const QString& text : outcome.findings)
        sayFinding(text);
    for (const QString& text : outcome.notes)
        sayNote(text);
    return outcome.findings.isEmpty();
}

/// Of the child processes that have ended.
int processorSeconds()
{
    rusage used{};
    ::getrusage(RUSAGE_CHILDREN, &used);
    return static_cast<int>(used.ru_utime.tv_sec + used.ru_stime.tv_sec);
}

int sweepAll(const Choice& choice, int jobs, bool areWhole)
{
    const Census census = takeCensus();
    const QVector<Fault> cases = casesOf(census, choice);
    print(QStringLiteral("%1 calls, %2 reads of names of which %3 decide, %4 sessions")
              .arg(census.calls)
              .arg(census.names)
              .arg(census.decisiveNames.size())
              .arg(cases.size()));
    QElapsedTimer clock;
    clock.start();
    Sweep sweep;
    sweep.program = QCoreApplication::applicationFilePath();
    sweep.arguments = areWhole ? QStringList{"--play", "--whole"} : QStringList{"--play"};
    sweep.jobs = jobs;
    sweep.onProgress = [&](int played) {
        if (played % 200 == 0)
            print(QStringLiteral("%1 played in %2 s").arg(played).arg(clock.elapsed() / 1000));
    };
    sweep.onNewFinding = [](const QString& text, const Fault& fault) {
        print(QStringLiteral("new: %1\n    scripts/faults --replay %2").arg(text, toText(fault)));
    };
    const Report report = sweep.run(cases);
    print("note", report.notes);
    print("FINDING", report.findings);
    print(QStringLiteral("%1 sessions in %2 s (%3 s of processor time), %4 kinds of findings")
              .arg(report.played)
              .arg(clock.elapsed() / 1000)
              .arg(processorSeconds())
              .arg(report.findings.size()));
    return report.findings.isEmpty() ? 0 : 1;
}

void listCalls()
{
    const Census census = takeCensus();
    for (int i = 0; i < census.callList.size(); ++i)
        print(QStringLiteral("%1 %2").arg(i + 1).arg(census.callList[i]));
}

int positive(const QCommandLineParser& parser, const QString& option)
{
    return qMax(1, parser.value(option).toInt());
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(description);
    parser.addHelpOption();
    parser.addOptions({
        {"stride", "Take every Nth call only.", "N", "1"},
        {"name-stride", "Take every Nth of the GetNames that decide nothing.", "N", "100"},
        {"all-statuses", "Try each status at every call."},
        {"whole", "Play the dialog's part in every session."},
        {"jobs", "Play so many sessions side by side.", "N",
         QString::number(QThread::idealThreadCount())},
        {"list", "Tell what the calls are, GetName left out."},
        {"replay", "Play one session: --replay CALL STATUS MODE, as a finding names it."},
        {"play", "Play what stands on the standard input, a session a line."},
        {"plant", "Do something wrong on purpose: write, stale, crash, hang, line.", "what",
         "none"},
    });
    parser.addPositionalArgument("fault", "CALL STATUS MODE of the session to replay.", "[fault]");
    // A status is negative, and no option.
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    parser.process(application);
    const Plant plant = plants.value(parser.value("plant"), Plant::None);
    if (parser.isSet("play")) {
        Branches(faultsFromStandardInput(), parser.isSet("whole"), plant).play();
    }
    if (parser.isSet("list")) {
        listCalls();
        return 0;
    }
    if (parser.isSet("replay")) {
        const auto fault = fromText(parser.positionalArguments().join(' '));
        if (!fault)
            parser.showHelp(2);
        return playAndSay(*fault, plant) ? 0 : 1;
    }
    Choice choice;
    choice.callStride = choice.decisiveStride = positive(parser, "stride");
    choice.nameStride = positive(parser, "name-stride") * choice.callStride;
    choice.statusesPerCall = parser.isSet("all-statuses") ? failures().size() : 1;
    return sweepAll(choice, positive(parser, "jobs"), parser.isSet("whole"));
}
