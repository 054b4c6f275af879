// The shipped presets at work: the camera takes the frames, and only the frames, that the tooltip
// of the preset speaks of.
#include "tests/e2e/PresetRig.h"

#include "features/FeatureManager.h"

#include <QtTest>

#include <functional>

namespace {

constexpr unsigned Line0 = 0;
constexpr unsigned Line1 = 1;

using Stimulus = std::function<void(const PresetRig&)>;

Stimulus pulses(unsigned line, int count)
{
    return [line, count](const PresetRig& rig) {
        for (int i = 0; i < count; ++i) {
            rig.simulator->setInputLine(line, true);
            rig.simulator->setInputLine(line, false);
        }
    };
}

void triggerBySoftware(const PresetRig& rig)
{
    rig.engine->m_featureManager->RunCommand(QStringLiteral("TriggerSoftware"));
}

void sendAction(const PresetRig& rig)
{
    rig.simulator->sendAction(0, 1, 1);
}

void sendOtherAction(const PresetRig& rig)
{
    rig.simulator->sendAction(0, 2, 1);
}

} // namespace

Q_DECLARE_METATYPE(Stimulus)

class tst_ShippedPresetsAtWork : public QObject
{
    Q_OBJECT

private slots:
    void takesTheFramesThatItSpeaksOf_data();
    void takesTheFramesThatItSpeaksOf();
    void theWidthOfThePulseIsTheExposure();
    void theStrobeFollowsTheExposure();
    void thePulseTrainRuns();
    void theDelayIsThatOfTheTimer();
    void dividesFromTheStartWhateverTheCounterDidBefore();

private:
    /// The camera with nothing on its input lines.
    static std::unique_ptr<PresetRig> quiet();
    /// Such a camera with the preset, acquiring.
    static std::unique_ptr<PresetRig> working(const QString& preset);
};

std::unique_ptr<PresetRig> tst_ShippedPresetsAtWork::quiet()
{
    auto rig =
        std::make_unique<PresetRig>(QStringLiteral("full"), QStringLiteral(PLUGIN_FOLDER "/.."));
    if (!rig->engine)
        return nullptr;
    rig->simulator->setInputLine(Line0, false);
    rig->simulator->setInputLine(Line1, false);
    return rig;
}

std::unique_ptr<PresetRig> tst_ShippedPresetsAtWork::working(const QString& preset)
{
    auto rig = quiet();
    bool found = false;
    const bool applied = rig && rig->engine->apply(preset, found).isEmpty() && found;
    return applied && rig->startAcquisition() ? std::move(rig) : nullptr;
}

void tst_ShippedPresetsAtWork::takesTheFramesThatItSpeaksOf_data()
{
    QTest::addColumn<QString>("preset");
    QTest::addColumn<Stimulus>("stimulus");
    QTest::addColumn<int>("frames");
    const auto row = [](const char* name, const char* preset, const Stimulus& stimulus,
                        int frames) {
        QTest::newRow(name) << QString::fromLatin1(preset) << stimulus << frames;
    };
    row("software", "Software Trigger", triggerBySoftware, 1);
    row("hardware", "Hardware Trigger on Line0", pulses(Line0, 3), 3);
    row("hardware, other line", "Hardware Trigger on Line0", pulses(Line1, 3), 0);
    row("with strobe", "Hardware Trigger with Strobe", pulses(Line0, 2), 2);
    row("burst", "Burst of 5 Frames on Line0", pulses(Line0, 1), 5);
    row("timer", "Delayed Trigger (Timer0)", pulses(Line0, 1), 1);
    row("counter", "Every 4th Pulse (Counter0)", pulses(Line0, 11), 2);
    row("action", "Action Command Trigger", sendAction, 1);
    row("other action", "Action Command Trigger", sendOtherAction, 0);
}

void tst_ShippedPresetsAtWork::takesTheFramesThatItSpeaksOf()
{
    QFETCH(QString, preset);
    QFETCH(Stimulus, stimulus);
    QFETCH(int, frames);
    const auto rig = working(preset);
    QVERIFY(rig);
    stimulus(*rig);
    QTRY_COMPARE(rig->frames(), frames);
    // A frame too many is on its way before the acquisition ends.
    rig->camera->StopAcquisition();
    QCOMPARE(rig->frames(), frames);
}

void tst_ShippedPresetsAtWork::theWidthOfThePulseIsTheExposure()
{
    const auto rig = working(QStringLiteral("Exposure by Pulse Width on Line0"));
    QVERIFY(rig);
    rig->write(QStringLiteral("LineSelector=Line2 LineSource=ExposureActive"));
    rig->simulator->setInputLine(Line0, true);
    QTRY_COMPARE(rig->read(QStringLiteral("LineStatus")), QStringLiteral("1"));
    // The exposure time alone would be over long before this timer.
    rig->write(QStringLiteral("TimerSelector=Timer1 TimerDuration=50000"));
    rig->engine->m_featureManager->RunCommand(QStringLiteral("TimerReset"));
    QTRY_COMPARE(rig->read(QStringLiteral("TimerStatus")), QStringLiteral("TimerCompleted"));
    QCOMPARE(rig->read(QStringLiteral("LineStatus")), QStringLiteral("1"));
    QCOMPARE(rig->frames(), 0);
    rig->simulator->setInputLine(Line0, false);
    QTRY_COMPARE(rig->frames(), 1);
    QCOMPARE(rig->read(QStringLiteral("LineStatus")), QStringLiteral("0"));
}

void tst_ShippedPresetsAtWork::theStrobeFollowsTheExposure()
{
    const auto rig = working(QStringLiteral("Strobe on Line3"));
    QVERIFY(rig);
    rig->write(QStringLiteral("LineSelector=Line3"));
    QTRY_COMPARE(rig->read(QStringLiteral("LineStatus")), QStringLiteral("1"));
    QTRY_COMPARE(rig->read(QStringLiteral("LineStatus")), QStringLiteral("0"));
    QTRY_VERIFY(rig->frames() > 2);
}

void tst_ShippedPresetsAtWork::thePulseTrainRuns()
{
    const auto rig = working(QStringLiteral("Pulse Train on Line3 (Timer0)"));
    QVERIFY(rig);
    rig->write(QStringLiteral("CounterSelector=Counter0 CounterDuration=100000 "
                              "CounterEventSource=Line3"));
    const QString value = QStringLiteral("CounterValue");
    QTRY_VERIFY(rig->read(value).toInt() > 50);
    QTRY_VERIFY(rig->frames() > 2);
}

void tst_ShippedPresetsAtWork::theDelayIsThatOfTheTimer()
{
    const auto rig = working(QStringLiteral("Delayed Trigger (Timer0)"));
    QVERIFY(rig);
    // Long enough to be seen waiting.
    rig->write(QStringLiteral("TimerSelector=Timer0 TimerDelay=10000000"));
    pulses(Line0, 1)(*rig);
    QTRY_COMPARE(rig->read(QStringLiteral("TimerStatus")), QStringLiteral("TimerTriggerWait"));
    QCOMPARE(rig->frames(), 0);
    rig->write(QStringLiteral("TimerDelay=5000"));
    rig->engine->m_featureManager->RunCommand(QStringLiteral("TimerReset"));
    QTRY_COMPARE(rig->frames(), 1);
}

void tst_ShippedPresetsAtWork::dividesFromTheStartWhateverTheCounterDidBefore()
{
    const QString divider = QStringLiteral("Every 4th Pulse (Counter0)");
    const QString count = QStringLiteral("CounterSelector=Counter0 CounterValue");
    const auto rig = quiet();
    QVERIFY(rig);
    bool found = false;
    QCOMPARE(rig->engine->apply(divider, found), QString());
    pulses(Line0, 3)(*rig);
    QTRY_COMPARE(rig->read(count), QStringLiteral("3"));
    QCOMPARE(rig->engine->apply(QStringLiteral("Custom"), found), QString());
    QCOMPARE(rig->engine->apply(divider, found), QString());
    QVERIFY(rig->startAcquisition());
    pulses(Line0, 3)(*rig);
    QTRY_COMPARE(rig->read(count), QStringLiteral("3"));
    QCOMPARE(rig->frames(), 0);
    pulses(Line0, 1)(*rig);
    QTRY_COMPARE(rig->frames(), 1);
}

QTEST_MAIN(tst_ShippedPresetsAtWork)
#include "tst_ShippedPresetsAtWork.moc"
