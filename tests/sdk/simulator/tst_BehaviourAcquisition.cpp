#include "sdk/simulator/BehaviourAcquisition.h"
#include "tests/sdk/simulator/Bench.h"

#include <QtTest>

using namespace ZalSim;
using namespace ZalSim::Registers;

namespace {
constexpr unsigned AcquisitionStart = 0;
constexpr unsigned FrameStart = 1;
constexpr unsigned FrameBurstStart = 2;
constexpr std::uint32_t SingleFrame = 2;
constexpr std::uint32_t MultiFrame = 3;
constexpr std::uint32_t TriggerWidth = 1;
} // namespace

class tst_BehaviourAcquisition : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void nothingIsSentBeforeTheStart();
    void runsFreelyAtTheFrameRate_data();
    void runsFreelyAtTheFrameRate();
    void longExposureSlowsTheFramesDown();
    void triggeredCameraSendsNothingByItself();
    void softwareTriggerMakesExactlyOneFrame();
    void softwareTriggerNeedsItsSource();
    void softwareTriggerBeforeTheStartIsLost();
    void triggersDuringTheExposureAreKept();
    void busyNetworkLosesNoFrame();
    void signalTriggersOnTheChosenEdge_data();
    void signalTriggersOnTheChosenEdge();
    void levelLetsFramesThroughWhileItLasts();
    void delayPostponesTheFrame();
    void switchingTheTriggerOffForgetsWhatWaits();
    void acquisitionTriggerStartsTheFrames();
    void burstTriggerStartsABurst();
    void burstOfTriggeredFramesTakesOneTriggerEach();
    void singleFrameStopsByItself();
    void multiFrameStopsByItself();
    void triggerWidthExposesWhileTheSignalLasts();
    void exposureShowsAsSignals();
    void waitingForATriggerShowsAsSignal();
    void restartBeginsAnew();
    void stopClearsWhatIsStillToBeSent();
    void lostHostStopsTheAcquisitionAndUnlocks();
    void triggersOfAllSelectorsStartOffWithSoftwareSource();

private:
    Address Register(unsigned selector, Address offset) const;
    void SwitchTrigger(unsigned selector, std::uint32_t source,
                       std::uint32_t activation = RisingEdge) const;
    void Start() const { bench->Registers().Write(Acquisition, 1); }
    bool IsAcquiring() const { return bench->Registers().Read(Acquisition) != 0; }
    void SoftwareTrigger(unsigned selector = FrameStart) const;
    unsigned FramesIn(int steps) const;

    std::unique_ptr<BenchOf<BehaviourAcquisition>> bench;
};

void tst_BehaviourAcquisition::init()
{
    bench = std::make_unique<BenchOf<BehaviourAcquisition>>();
    bench->Registers().Write(ControlPrivilege, 2);
}

Address tst_BehaviourAcquisition::Register(unsigned selector, Address offset) const
{
    return Trigger + selector * BlockSize + offset;
}

void tst_BehaviourAcquisition::SwitchTrigger(unsigned selector, std::uint32_t source,
                                             std::uint32_t activation) const
{
    bench->Registers().Write(Register(selector, TriggerBlock::Mode), 1);
    bench->Registers().Write(Register(selector, TriggerBlock::Source), source);
    bench->Registers().Write(Register(selector, TriggerBlock::Activation), activation);
}

void tst_BehaviourAcquisition::SoftwareTrigger(unsigned selector) const
{
    bench->Registers().Write(Register(selector, TriggerBlock::Software), 1);
}

unsigned tst_BehaviourAcquisition::FramesIn(int steps) const
{
    const unsigned before = bench->FramesSent();
    bench->Steps(steps);
    return bench->FramesSent() - before;
}

void tst_BehaviourAcquisition::nothingIsSentBeforeTheStart()
{
    QCOMPARE(FramesIn(1000), 0U);
}

void tst_BehaviourAcquisition::runsFreelyAtTheFrameRate_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<unsigned>("enabled");
    QTest::addColumn<unsigned>("expected");
    QTest::newRow("10 Hz") << 10.0 << 1U << 100U;
    QTest::newRow("20 Hz") << 20.0 << 1U << 200U;
    QTest::newRow("as fast as possible") << 10.0 << 0U << 500U;
    QTest::newRow("faster than possible") << 1e9 << 1U << 500U;
}

void tst_BehaviourAcquisition::runsFreelyAtTheFrameRate()
{
    QFETCH(double, rate);
    QFETCH(unsigned, enabled);
    bench->Registers().WriteDouble(FrameRate, rate);
    bench->Registers().Write(FrameRateEnable, enabled);
    Start();
    bench->Steps(15);
    QTEST(FramesIn(10000), "expected");
}

void tst_BehaviourAcquisition::longExposureSlowsTheFramesDown()
{
    bench->Registers().WriteDouble(ExposureTime, 100000);
    Start();
    QCOMPARE(FramesIn(1010), 10U);
}

void tst_BehaviourAcquisition::triggeredCameraSendsNothingByItself()
{
    SwitchTrigger(FrameStart, SignalSoftware);
    Start();
    QCOMPARE(FramesIn(1000), 0U);
}

void tst_BehaviourAcquisition::softwareTriggerMakesExactlyOneFrame()
{
    SwitchTrigger(FrameStart, SignalSoftware);
    Start();
    bench->Step();
    for (int i = 0; i < 5; ++i) {
        SoftwareTrigger();
        QCOMPARE(FramesIn(50), 1U);
    }
}

void tst_BehaviourAcquisition::softwareTriggerNeedsItsSource()
{
    SwitchTrigger(FrameStart, SignalLine0);
    Start();
    SoftwareTrigger();
    QCOMPARE(FramesIn(50), 0U);
    SwitchTrigger(FrameStart, SignalSoftware);
    QCOMPARE(FramesIn(50), 0U);
}

void tst_BehaviourAcquisition::softwareTriggerBeforeTheStartIsLost()
{
    SwitchTrigger(FrameStart, SignalSoftware);
    SoftwareTrigger();
    bench->Step();
    Start();
    QCOMPARE(FramesIn(50), 0U);
}

void tst_BehaviourAcquisition::triggersDuringTheExposureAreKept()
{
    SwitchTrigger(FrameStart, SignalSoftware);
    Start();
    for (int i = 0; i < 3; ++i) {
        SoftwareTrigger();
        bench->Step();
    }
    QCOMPARE(FramesIn(100), 3U);
}

void tst_BehaviourAcquisition::busyNetworkLosesNoFrame()
{
    SwitchTrigger(FrameStart, SignalSoftware);
    Start();
    bench->HoldFrames(true);
    for (int i = 0; i < 3; ++i) {
        SoftwareTrigger();
        QCOMPARE(FramesIn(50), 0U);
    }
    bench->HoldFrames(false);
    QCOMPARE(FramesIn(50), 3U);
}

void tst_BehaviourAcquisition::signalTriggersOnTheChosenEdge_data()
{
    QTest::addColumn<unsigned>("activation");
    QTest::addColumn<unsigned>("up");
    QTest::addColumn<unsigned>("down");
    QTest::newRow("rising") << unsigned(RisingEdge) << 1U << 0U;
    QTest::newRow("falling") << unsigned(FallingEdge) << 0U << 1U;
    QTest::newRow("any") << unsigned(AnyEdge) << 1U << 1U;
}

void tst_BehaviourAcquisition::signalTriggersOnTheChosenEdge()
{
    QFETCH(unsigned, activation);
    SwitchTrigger(FrameStart, SignalLine0 + 1, activation);
    Start();
    bench->Step();
    bench->SetLevel(SignalLine0 + 1, true);
    QTEST(FramesIn(50), "up");
    bench->SetLevel(SignalLine0 + 1, false);
    QTEST(FramesIn(50), "down");
}

void tst_BehaviourAcquisition::levelLetsFramesThroughWhileItLasts()
{
    SwitchTrigger(FrameStart, SignalLine0, LevelHigh);
    Start();
    QCOMPARE(FramesIn(200), 0U);
    bench->SetLevel(SignalLine0, true);
    QCOMPARE(FramesIn(190), 4U);
    bench->SetLevel(SignalLine0, false);
    QCOMPARE(FramesIn(200), 0U);
}

void tst_BehaviourAcquisition::delayPostponesTheFrame()
{
    SwitchTrigger(FrameStart, SignalSoftware);
    bench->Registers().WriteDouble(Register(FrameStart, TriggerBlock::Delay), 200000);
    Start();
    SoftwareTrigger();
    QCOMPARE(FramesIn(200), 0U);
    QCOMPARE(FramesIn(20), 1U);
}

void tst_BehaviourAcquisition::switchingTheTriggerOffForgetsWhatWaits()
{
    SwitchTrigger(FrameStart, SignalSoftware);
    bench->Registers().WriteDouble(Register(FrameStart, TriggerBlock::Delay), 200000);
    bench->Registers().WriteDouble(FrameRate, 0.1);
    Start();
    SoftwareTrigger();
    bench->Step();
    bench->Registers().Write(Register(FrameStart, TriggerBlock::Mode), 0);
    QCOMPARE(FramesIn(20), 1U);
    bench->Registers().Write(Register(FrameStart, TriggerBlock::Mode), 1);
    QCOMPARE(FramesIn(500), 0U);
}

void tst_BehaviourAcquisition::acquisitionTriggerStartsTheFrames()
{
    SwitchTrigger(AcquisitionStart, SignalSoftware);
    Start();
    QCOMPARE(FramesIn(500), 0U);
    SoftwareTrigger(AcquisitionStart);
    QCOMPARE(FramesIn(490), 10U);
}

void tst_BehaviourAcquisition::burstTriggerStartsABurst()
{
    SwitchTrigger(FrameBurstStart, SignalSoftware);
    bench->Registers().Write(BurstFrameCount, 4);
    Start();
    QCOMPARE(FramesIn(500), 0U);
    for (int i = 0; i < 2; ++i) {
        SoftwareTrigger(FrameBurstStart);
        QCOMPARE(FramesIn(110), 3U);
        QCOMPARE(FramesIn(500), 1U);
    }
}

void tst_BehaviourAcquisition::burstOfTriggeredFramesTakesOneTriggerEach()
{
    SwitchTrigger(FrameBurstStart, SignalSoftware);
    SwitchTrigger(FrameStart, SignalLine0);
    bench->Registers().Write(BurstFrameCount, 2);
    Start();
    SoftwareTrigger(FrameBurstStart);
    unsigned frames = FramesIn(50);
    for (int i = 0; i < 5; ++i) {
        bench->Pulse(SignalLine0);
        frames += FramesIn(50);
    }
    QCOMPARE(frames, 2U);
}

void tst_BehaviourAcquisition::singleFrameStopsByItself()
{
    bench->Registers().Write(AcquisitionMode, SingleFrame);
    Start();
    QCOMPARE(FramesIn(500), 1U);
    QVERIFY(!IsAcquiring());
}

void tst_BehaviourAcquisition::multiFrameStopsByItself()
{
    bench->Registers().Write(AcquisitionMode, MultiFrame);
    bench->Registers().Write(FrameCount, 4);
    Start();
    bench->Steps(100);
    QVERIFY(IsAcquiring());
    bench->Steps(500);
    QCOMPARE(bench->FramesSent(), 4U);
    QVERIFY(!IsAcquiring());
}

void tst_BehaviourAcquisition::triggerWidthExposesWhileTheSignalLasts()
{
    SwitchTrigger(FrameStart, SignalLine0);
    bench->Registers().Write(ExposureMode, TriggerWidth);
    Start();
    bench->Step();
    bench->SetLevel(SignalLine0, true);
    QCOMPARE(FramesIn(300), 0U);
    QVERIFY(bench->Level(SignalExposureActive));
    bench->SetLevel(SignalLine0, false);
    QCOMPARE(FramesIn(5), 1U);
    QVERIFY(!bench->Level(SignalExposureActive));
}

void tst_BehaviourAcquisition::exposureShowsAsSignals()
{
    SwitchTrigger(FrameStart, SignalSoftware);
    Start();
    bench->Step();
    SoftwareTrigger();
    bench->Step();
    const Signals& bus = bench->AllSignals();
    QVERIFY(bench->Level(SignalExposureActive));
    for (const unsigned signal : {SignalFrameTrigger, SignalFrameStart, SignalExposureStart})
        QCOMPARE(bus.Pulses(signal), 1U);
    bench->Steps(9);
    QVERIFY(bench->Level(SignalExposureActive));
    bench->Step();
    QVERIFY(!bench->Level(SignalExposureActive));
    for (const unsigned signal : {SignalFrameEnd, SignalExposureEnd})
        QCOMPARE(bus.Pulses(signal), 1U);
}

void tst_BehaviourAcquisition::waitingForATriggerShowsAsSignal()
{
    SwitchTrigger(FrameStart, SignalSoftware);
    bench->Step();
    QVERIFY(!bench->Level(SignalFrameTriggerWait));
    Start();
    bench->Step();
    QVERIFY(bench->Level(SignalFrameTriggerWait));
    QVERIFY(bench->Level(SignalAcquisitionActive));
    SoftwareTrigger();
    bench->Step();
    QVERIFY(!bench->Level(SignalFrameTriggerWait));
}

void tst_BehaviourAcquisition::restartBeginsAnew()
{
    bench->Registers().Write(AcquisitionMode, MultiFrame);
    bench->Registers().Write(FrameCount, 2);
    for (int i = 0; i < 2; ++i) {
        Start();
        QCOMPARE(FramesIn(500), 2U);
        QVERIFY(!IsAcquiring());
    }
}

void tst_BehaviourAcquisition::stopClearsWhatIsStillToBeSent()
{
    SwitchTrigger(FrameStart, SignalSoftware);
    Start();
    bench->HoldFrames(true);
    SoftwareTrigger();
    bench->Steps(50);
    bench->Registers().Write(Acquisition, 0);
    bench->Step();
    bench->HoldFrames(false);
    Start();
    QCOMPARE(FramesIn(100), 0U);
}

void tst_BehaviourAcquisition::lostHostStopsTheAcquisitionAndUnlocks()
{
    Start();
    bench->Registers().Write(ParamsLocked, 1);
    bench->Steps(10);
    bench->Registers().Write(ControlPrivilege, 0);
    bench->Step();
    QVERIFY(!IsAcquiring());
    QCOMPARE(bench->Registers().Read(ParamsLocked), 0U);
}

void tst_BehaviourAcquisition::triggersOfAllSelectorsStartOffWithSoftwareSource()
{
    QCOMPARE(bench->Registers().Read(TriggerSelector), std::uint32_t(FrameStart));
    for (const unsigned selector : {AcquisitionStart, FrameStart, FrameBurstStart}) {
        QCOMPARE(bench->Registers().Read(Register(selector, TriggerBlock::Mode)), 0U);
        QCOMPARE(bench->Registers().Read(Register(selector, TriggerBlock::Source)),
                 std::uint32_t(SignalSoftware));
    }
}

QTEST_GUILESS_MAIN(tst_BehaviourAcquisition)
#include "tst_BehaviourAcquisition.moc"
