// The overview steps selectors after each preset: on a camera that leaves calls unanswered the next
// preset must not meet one at another entry.
#include "tests/trigger/MessageBoxes.h"
#include "tests/trigger/PresetForm.h"

#include <QtTest>

#include <algorithm>
#include <set>

namespace {

using Fake::FakeCamera;
using Fake::FakeFeature;

QByteArray shippedPresets()
{
    QFile file(QStringLiteral(SHIPPED_PRESETS));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// What the shipped presets set, with a burst trigger on and selected.
std::unique_ptr<FakeCamera> triggeredCamera()
{
    auto camera = acceptedCamera();
    camera->addEnum("TriggerSelector", {"FrameStart", "FrameBurstStart"}, "FrameBurstStart");
    camera->addEnum("TriggerMode", {"Off", "On"}, "Off");
    camera->addEnum("TriggerSource", {"Software", "Line0", "Timer0Active", "Counter0End"},
                    "Software");
    camera->addFloat("TriggerDelay", 0.0);
    camera->addEnum("TimerSelector", {"Timer0", "Timer1"}, "Timer1");
    camera->addEnum("TimerTriggerSource", {"Off", "Line0"}, "Off");
    camera->addFloat("TimerDelay", 0.0);
    camera->addEnum("CounterSelector", {"Counter0", "Counter1"}, "Counter1");
    camera->addEnum("CounterEventSource", {"Off", "Line0"}, "Off");
    camera->addEnum("ExposureMode", {"Timed", "TriggerWidth"}, "Timed");
    camera->addInteger("AcquisitionBurstFrameCount", 1, 1, 255);
    camera->select("TriggerSelector", {"TriggerMode", "TriggerSource", "TriggerDelay"});
    camera->select("TimerSelector", {"TimerTriggerSource", "TimerDelay"});
    camera->select("CounterSelector", {"CounterEventSource"});
    (*camera)["TriggerMode"].stateFor("FrameBurstStart").text = "On";
    camera->setLogging(false);
    return camera;
}

std::string valueText(const Fake::State& state)
{
    return std::to_string(state.integer) + '/' + std::to_string(state.real) + '/' + state.text;
}

/// All that the camera holds, for every entry of every selector.
std::vector<std::string> stateOf(const FakeCamera& camera)
{
    std::vector<std::string> texts;
    for (const auto& listed : *camera.features()) {
        auto& feature = static_cast<FakeFeature&>(*listed);
        if (!feature.selector) {
            texts.push_back(feature.name + '=' + valueText(feature.state()));
            continue;
        }
        for (const Fake::Entry& entry : feature.selector->state().entries)
            texts.push_back(feature.name + '@' + entry.name + '=' +
                            valueText(feature.stateFor(entry.name)));
    }
    return texts;
}

/// What choosing a preset did.
struct Chosen
{
    QStringList boxes;
    std::vector<std::string> state;
    /// What was written under which entry.
    std::set<std::string> underEntries;
    std::vector<std::string> calls; ///< Without the names, which are asked far more often.
    std::vector<std::string> names; ///< Whose name was asked for.
};

/// Says whether a call is lost: its number, from 1, and what it is.
using Loss = std::function<bool(int number, const std::string& call)>;

enum class Lost
{
    Calls,
    Names
};

Chosen choose(
    const QString& preset, const Loss& loss = [](int, const std::string&) { return false; },
    ZalErrorType status = ZalErrorTimeout, Lost lost = Lost::Calls)
{
    const auto camera = triggeredCamera();
    const PresetForm form(*camera, shippedPresets());
    Chosen result;
    const auto judge = [&](Lost kind, std::vector<std::string>& calls, const std::string& call) {
        calls.push_back(call);
        return kind == lost && loss(static_cast<int>(calls.size()), call) ? status
                                                                          : ZalErrorSuccess;
    };
    camera->onCall = [&](const std::string& operation, const std::string& feature) {
        return operation == "GetName" ? judge(Lost::Names, result.names, feature)
                                      : judge(Lost::Calls, result.calls, operation + ' ' + feature);
    };
    camera->onAccepted = [&](const Fake::Accepted& write) {
        if (!write.entry.empty())
            result.underEntries.insert(write.entry + ": " + write.feature + '=' + write.value);
    };
    const MessageBoxes boxes;
    form.select(preset);
    result.boxes = boxes.texts();
    camera->onCall = nullptr;
    result.state = stateOf(*camera);
    return result;
}

/// The numbers of those calls, among all of an application.
std::vector<int> numbersOf(const Chosen& chosen, const std::string& call)
{
    std::vector<int> numbers;
    for (std::size_t i = 0; i < chosen.calls.size(); ++i) {
        if (chosen.calls[i] == call)
            numbers.push_back(static_cast<int>(i) + 1);
    }
    return numbers;
}

/// The numbers of the names at which looking a feature up ended: those that decide. Each lookup
/// asks for names in the order of the list, twice each, from the first one on.
std::vector<int> namesThatDecide(const std::vector<std::string>& names)
{
    std::vector<int> numbers;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const bool isLast = i + 1 == names.size();
        if (isLast || (names[i + 1] == names.front() && names[i] != names.front()))
            numbers.push_back(static_cast<int>(i) + 1);
    }
    return numbers;
}

/// What was written under an entry that the undisturbed preset does not write there.
QByteArray astray(const Chosen& disturbed, const Chosen& undisturbed)
{
    // The source is a setting of its own in that preset, written whatever became of the selector.
    const std::string ownSetting = "FrameStart: TriggerSource=Line0";
    for (const std::string& write : disturbed.underEntries) {
        if (undisturbed.underEntries.count(write) == 0 && write != ownSetting)
            return QByteArray::fromStdString(write);
    }
    return QByteArray();
}

/// What is wrong with how a disturbed choice ended; empty for nothing.
QByteArray faultOf(const Chosen& disturbed, const Chosen& undisturbed)
{
    if (disturbed.boxes.isEmpty() && disturbed.state != undisturbed.state)
        return "ended wrong without a line";
    return astray(disturbed, undisturbed);
}

const std::map<QByteArray, ZalErrorType> Silences = {
    {"time-out", ZalErrorTimeout}, {"transport", ZalErrorTransport}, {"not open", ZalErrorNotOpen}};

const QString TimerPreset = QStringLiteral("Delayed Trigger (Timer)");

QString boxOf(const QString& line)
{
    return QStringLiteral("Error(s) on setting the preset:\n\n") + line;
}

} // namespace

class tst_PresetAndOverview : public QObject
{
    Q_OBJECT

private slots:
    void noPresetEndsUnderAnotherEntry_data();
    void noPresetEndsUnderAnotherEntry();
    void noPresetEndsUnderAnotherEntryWhereNamesAreLost_data();
    void noPresetEndsUnderAnotherEntryWhereNamesAreLost();
    void aSelectorWithoutKnownEntryIsNotStepped();
    void aSelectorThatIsNotPutBackAtOnceIsPutBackAgain();
    void aSelectorLeftAstrayIsReportedAndNoPresetStartsFromThere();
    void aPresetDoesNotStartWhereTurnOffAllLeftASelectorAstray();
};

void tst_PresetAndOverview::noPresetEndsUnderAnotherEntry_data()
{
    QTest::addColumn<QString>("preset");
    QTest::addColumn<ZalErrorType>("status");
    QTest::addColumn<int>("lost");
    for (const QByteArray preset : {"Reset All", "Burst of 5 Frames", "Delayed Trigger (Timer)"}) {
        const QString name = QString::fromLatin1(preset);
        for (const auto& [silence, status] : Silences)
            QTest::newRow(preset + ", one " + silence) << name << status << 1;
        QTest::newRow(preset + ", six time-outs") << name << ZalErrorType(ZalErrorTimeout) << 6;
    }
}

void tst_PresetAndOverview::noPresetEndsUnderAnotherEntry()
{
    QFETCH(QString, preset);
    QFETCH(ZalErrorType, status);
    QFETCH(int, lost);
    const Chosen undisturbed = choose(preset);
    QCOMPARE(undisturbed.boxes, QStringList());
    QVERIFY(undisturbed.calls.size() > 100);
    for (int first = 1; first <= int(undisturbed.calls.size()); ++first) {
        const auto isLost = [=](int number, const std::string&) {
            return number >= first && number < first + lost;
        };
        const QByteArray fault = faultOf(choose(preset, isLost, status), undisturbed);
        const QByteArray where = QByteArray::fromStdString(undisturbed.calls[first - 1]);
        QVERIFY2(fault.isEmpty(),
                 where + " unanswered, call " + QByteArray::number(first) + ": " + fault);
    }
}

void tst_PresetAndOverview::noPresetEndsUnderAnotherEntryWhereNamesAreLost_data()
{
    noPresetEndsUnderAnotherEntry_data();
}

void tst_PresetAndOverview::noPresetEndsUnderAnotherEntryWhereNamesAreLost()
{
    QFETCH(QString, preset);
    QFETCH(ZalErrorType, status);
    QFETCH(int, lost);
    const Chosen undisturbed = choose(preset);
    const std::vector<int> deciding = namesThatDecide(undisturbed.names);
    QVERIFY(deciding.size() > 100);
    for (std::size_t i = 0; i < deciding.size(); ++i) {
        const int first = deciding[i];
        const int last = deciding[std::min(i + lost, deciding.size()) - 1];
        const auto isLost = [=](int number, const std::string&) {
            return number >= first && number <= last;
        };
        const QByteArray fault = faultOf(choose(preset, isLost, status, Lost::Names), undisturbed);
        const QByteArray where = QByteArray::fromStdString(undisturbed.names[first - 1]);
        QVERIFY2(fault.isEmpty(), "name of " + where + " unanswered, call " +
                                      QByteArray::number(first) + ": " + fault);
    }
}

void tst_PresetAndOverview::aSelectorWithoutKnownEntryIsNotStepped()
{
    const Chosen turnedOff = choose(QStringLiteral("Turn Off All"));
    const std::vector<int> reads = numbersOf(turnedOff, "GetStringValue TriggerSelector");
    // The overview's two steps and the way back, after it asked for the entry.
    const int step = numbersOf(turnedOff, "SetStringValue TriggerSelector").rbegin()[2];
    const int asked = *std::prev(std::lower_bound(reads.begin(), reads.end(), step));
    const Chosen undisturbed = choose(TimerPreset);
    const Chosen disturbed =
        choose(TimerPreset, [=](int number, const std::string&) { return number == asked; });
    QCOMPARE(disturbed.boxes, QStringList());
    QCOMPARE(disturbed.state, undisturbed.state);
}

void tst_PresetAndOverview::aSelectorThatIsNotPutBackAtOnceIsPutBackAgain()
{
    const Chosen turnedOff = choose(QStringLiteral("Turn Off All"));
    const int putBack = numbersOf(turnedOff, "SetStringValue TriggerSelector").back();
    const Chosen undisturbed = choose(TimerPreset);
    const Chosen disturbed =
        choose(TimerPreset, [=](int number, const std::string&) { return number == putBack; });
    QCOMPARE(disturbed.boxes, QStringList());
    QCOMPARE(disturbed.state, undisturbed.state);
}

void tst_PresetAndOverview::aSelectorLeftAstrayIsReportedAndNoPresetStartsFromThere()
{
    const Chosen turnedOff = choose(QStringLiteral("Turn Off All"));
    // With the overview after "Turn Off All" the put-back is the selector's last write.
    const int putBack = numbersOf(turnedOff, "SetStringValue TriggerSelector").back();
    const Chosen disturbed = choose(TimerPreset, [=](int number, const std::string& call) {
        return number >= putBack && call == "SetStringValue TriggerSelector";
    });
    QCOMPARE(disturbed.boxes, QStringList{boxOf("  Failed to set TriggerSelector = FrameStart, "
                                                "Current value: ''\n")});
    QVERIFY(disturbed.underEntries == turnedOff.underEntries);
}

void tst_PresetAndOverview::aPresetDoesNotStartWhereTurnOffAllLeftASelectorAstray()
{
    const Chosen turnedOff = choose(QStringLiteral("Turn Off All"));
    // Two steps and the way to FrameStart, before the overview.
    const int reached = numbersOf(turnedOff, "SetStringValue TriggerSelector").at(2);
    const Chosen disturbed = choose(TimerPreset, [=](int number, const std::string& call) {
        return number >= reached && call == "SetStringValue TriggerSelector";
    });
    QCOMPARE(disturbed.boxes.first(), boxOf("  Failed to set TriggerSelector = FrameStart, "
                                            "Current value: 'FrameBurstStart'\n"));
    QVERIFY(disturbed.underEntries == turnedOff.underEntries);
}

QTEST_MAIN(tst_PresetAndOverview)
#include "tst_PresetAndOverview.moc"
