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
    Address registerAt(unsigned selector, Address offset) const;
    void switchTrigger(unsigned selector, std::uint32_t source,
                       std::uint32_t activation = RisingEdge) const;
    void start() const { m_bench->registers().write(Acquisition, 1); }
    bool isAcquiring() const { return m_bench->registers().read(Acquisition) != 0; }
    void softwareTrigger(unsigned selector = FrameStart) const;
    unsigned framesIn(int steps) const;

    std::unique_ptr<BenchOf<BehaviourAcquisition>> m_bench;
};

void tst_BehaviourAcquisition::init()
{
    m_bench = std::make_unique<BenchOf<BehaviourAcquisition>>();
    m_bench->registers().write(ControlPrivilege, 2);
}

Address tst_BehaviourAcquisition::registerAt(unsigned selector, Address offset) const
{
    return Trigger + selector * BlockSize + offset;
}

void tst_BehaviourAcquisition::switchTrigger(unsigned selector, std::uint32_t source,
                                             std::uint32_t activation) const
{
    m_bench->registers().write(registerAt(selector, TriggerBlock::Mode), 1);
    m_bench->registers().write(registerAt(selector, TriggerBlock::Source), source);
    m_bench->registers().write(registerAt(selector, TriggerBlock::Activation), activation);
}

void tst_BehaviourAcquisition::softwareTrigger(unsigned selector) const
{
    m_bench->registers().write(registerAt(selector, TriggerBlock::Software), 1);
}

unsigned tst_BehaviourAcquisition::framesIn(int steps) const
{
    const unsigned before = m_bench->framesSent();
    m_bench->steps(steps);
    return m_bench->framesSent() - before;
}

void tst_BehaviourAcquisition::nothingIsSentBeforeTheStart()
{
    QCOMPARE(framesIn(1000), 0U);
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
    m_bench->registers().writeDouble(FrameRate, rate);
    m_bench->registers().write(FrameRateEnable, enabled);
    start();
    m_bench->steps(15);
    QTEST(framesIn(10000), "expected");
}

void tst_BehaviourAcquisition::longExposureSlowsTheFramesDown()
{
    m_bench->registers().writeDouble(ExposureTime, 100000);
    start();
    QCOMPARE(framesIn(1010), 10U);
}

void tst_BehaviourAcquisition::triggeredCameraSendsNothingByItself()
{
    switchTrigger(FrameStart, SignalSoftware);
    start();
    QCOMPARE(framesIn(1000), 0U);
}

void tst_BehaviourAcquisition::softwareTriggerMakesExactlyOneFrame()
{
    switchTrigger(FrameStart, SignalSoftware);
    start();
    m_bench->step();
    for (int i = 0; i < 5; ++i) {
        softwareTrigger();
        QCOMPARE(framesIn(50), 1U);
    }
}

void tst_BehaviourAcquisition::softwareTriggerNeedsItsSource()
{
    switchTrigger(FrameStart, SignalLine0);
    start();
    softwareTrigger();
    QCOMPARE(framesIn(50), 0U);
    switchTrigger(FrameStart, SignalSoftware);
    QCOMPARE(framesIn(50), 0U);
}

void tst_BehaviourAcquisition::softwareTriggerBeforeTheStartIsLost()
{
    switchTrigger(FrameStart, SignalSoftware);
    softwareTrigger();
    m_bench->step();
    start();
    QCOMPARE(framesIn(50), 0U);
}

void tst_BehaviourAcquisition::triggersDuringTheExposureAreKept()
{
    switchTrigger(FrameStart, SignalSoftware);
    start();
    for (int i = 0; i < 3; ++i) {
        softwareTrigger();
        m_bench->step();
    }
    QCOMPARE(framesIn(100), 3U);
}

void tst_BehaviourAcquisition::busyNetworkLosesNoFrame()
{
    switchTrigger(FrameStart, SignalSoftware);
    start();
    m_bench->holdFrames(true);
    for (int i = 0; i < 3; ++i) {
        softwareTrigger();
        QCOMPARE(framesIn(50), 0U);
    }
    m_bench->holdFrames(false);
    QCOMPARE(framesIn(50), 3U);
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
    switchTrigger(FrameStart, SignalLine0 + 1, activation);
    start();
    m_bench->step();
    m_bench->setLevel(SignalLine0 + 1, true);
    QTEST(framesIn(50), "up");
    m_bench->setLevel(SignalLine0 + 1, false);
    QTEST(framesIn(50), "down");
}

void tst_BehaviourAcquisition::levelLetsFramesThroughWhileItLasts()
{
    switchTrigger(FrameStart, SignalLine0, LevelHigh);
    start();
    QCOMPARE(framesIn(200), 0U);
    m_bench->setLevel(SignalLine0, true);
    QCOMPARE(framesIn(190), 4U);
    m_bench->setLevel(SignalLine0, false);
    QCOMPARE(framesIn(200), 0U);
}

void tst_BehaviourAcquisition::delayPostponesTheFrame()
{
    switchTrigger(FrameStart, SignalSoftware);
    m_bench->registers().writeDouble(registerAt(FrameStart, TriggerBlock::Delay), 200000);
    start();
    softwareTrigger();
    QCOMPARE(framesIn(200), 0U);
    QCOMPARE(framesIn(20), 1U);
}

void tst_BehaviourAcquisition::switchingTheTriggerOffForgetsWhatWaits()
{
    switchTrigger(FrameStart, SignalSoftware);
    m_bench->registers().writeDouble(registerAt(FrameStart, TriggerBlock::Delay), 200000);
    m_bench->registers().writeDouble(FrameRate, 0.1);
    start();
    softwareTrigger();
    m_bench->step();
    m_bench->registers().write(registerAt(FrameStart, TriggerBlock::Mode), 0);
    QCOMPARE(framesIn(20), 1U);
    m_bench->registers().write(registerAt(FrameStart, TriggerBlock::Mode), 1);
    QCOMPARE(framesIn(500), 0U);
}

void tst_BehaviourAcquisition::acquisitionTriggerStartsTheFrames()
{
    switchTrigger(AcquisitionStart, SignalSoftware);
    start();
    QCOMPARE(framesIn(500), 0U);
    softwareTrigger(AcquisitionStart);
    QCOMPARE(framesIn(490), 10U);
}

void tst_BehaviourAcquisition::burstTriggerStartsABurst()
{
    switchTrigger(FrameBurstStart, SignalSoftware);
    m_bench->registers().write(BurstFrameCount, 4);
    start();
    QCOMPARE(framesIn(500), 0U);
    for (int i = 0; i < 2; ++i) {
        softwareTrigger(FrameBurstStart);
        QCOMPARE(framesIn(110), 3U);
        QCOMPARE(framesIn(500), 1U);
    }
}

void tst_BehaviourAcquisition::burstOfTriggeredFramesTakesOneTriggerEach()
{
    switchTrigger(FrameBurstStart, SignalSoftware);
    switchTrigger(FrameStart, SignalLine0);
    m_bench->registers().write(BurstFrameCount, 2);
    start();
    softwareTrigger(FrameBurstStart);
    unsigned frames = framesIn(50);
    for (int i = 0; i < 5; ++i) {
        m_bench->pulse(SignalLine0);
        frames += framesIn(50);
    }
    QCOMPARE(frames, 2U);
}

void tst_BehaviourAcquisition::singleFrameStopsByItself()
{
    m_bench->registers().write(AcquisitionMode, SingleFrame);
    start();
    QCOMPARE(framesIn(500), 1U);
    QVERIFY(!isAcquiring());
}

void tst_BehaviourAcquisition::multiFrameStopsByItself()
{
    m_bench->registers().write(AcquisitionMode, MultiFrame);
    m_bench->registers().write(FrameCount, 4);
    start();
    m_bench->steps(100);
    QVERIFY(isAcquiring());
    m_bench->steps(500);
    QCOMPARE(m_bench->framesSent(), 4U);
    QVERIFY(!isAcquiring());
}

void tst_BehaviourAcquisition::triggerWidthExposesWhileTheSignalLasts()
{
    switchTrigger(FrameStart, SignalLine0);
    m_bench->registers().write(ExposureMode, TriggerWidth);
    start();
    m_bench->step();
    m_bench->setLevel(SignalLine0, true);
    QCOMPARE(framesIn(300), 0U);
    QVERIFY(m_bench->level(SignalExposureActive));
    m_bench->setLevel(SignalLine0, false);
    QCOMPARE(framesIn(5), 1U);
    QVERIFY(!m_bench->level(SignalExposureActive));
}

void tst_BehaviourAcquisition::exposureShowsAsSignals()
{
    switchTrigger(FrameStart, SignalSoftware);
    start();
    m_bench->step();
    softwareTrigger();
    m_bench->step();
    const Signals& bus = m_bench->allSignals();
    QVERIFY(m_bench->level(SignalExposureActive));
    for (const unsigned signal : {SignalFrameTrigger, SignalFrameStart, SignalExposureStart})
        QCOMPARE(bus.pulses(signal), 1U);
    m_bench->steps(9);
    QVERIFY(m_bench->level(SignalExposureActive));
    m_bench->step();
    QVERIFY(!m_bench->level(SignalExposureActive));
    for (const unsigned signal : {SignalFrameEnd, SignalExposureEnd})
        QCOMPARE(bus.pulses(signal), 1U);
}

void tst_BehaviourAcquisition::waitingForATriggerShowsAsSignal()
{
    switchTrigger(FrameStart, SignalSoftware);
    m_bench->step();
    QVERIFY(!m_bench->level(SignalFrameTriggerWait));
    start();
    m_bench->step();
    QVERIFY(m_bench->level(SignalFrameTriggerWait));
    QVERIFY(m_bench->level(SignalAcquisitionActive));
    softwareTrigger();
    m_bench->step();
    QVERIFY(!m_bench->level(SignalFrameTriggerWait));
}

void tst_BehaviourAcquisition::restartBeginsAnew()
{
    m_bench->registers().write(AcquisitionMode, MultiFrame);
    m_bench->registers().write(FrameCount, 2);
    for (int i = 0; i < 2; ++i) {
        start();
        QCOMPARE(framesIn(500), 2U);
        QVERIFY(!isAcquiring());
    }
}

void tst_BehaviourAcquisition::stopClearsWhatIsStillToBeSent()
{
    switchTrigger(FrameStart, SignalSoftware);
    start();
    m_bench->holdFrames(true);
    softwareTrigger();
    m_bench->steps(50);
    m_bench->registers().write(Acquisition, 0);
    m_bench->step();
    m_bench->holdFrames(false);
    start();
    QCOMPARE(framesIn(100), 0U);
}

void tst_BehaviourAcquisition::lostHostStopsTheAcquisitionAndUnlocks()
{
    start();
    m_bench->registers().write(ParamsLocked, 1);
    m_bench->steps(10);
    m_bench->registers().write(ControlPrivilege, 0);
    m_bench->step();
    QVERIFY(!isAcquiring());
    QCOMPARE(m_bench->registers().read(ParamsLocked), 0U);
}

void tst_BehaviourAcquisition::triggersOfAllSelectorsStartOffWithSoftwareSource()
{
    QCOMPARE(m_bench->registers().read(TriggerSelector), std::uint32_t(FrameStart));
    for (const unsigned selector : {AcquisitionStart, FrameStart, FrameBurstStart}) {
        QCOMPARE(m_bench->registers().read(registerAt(selector, TriggerBlock::Mode)), 0U);
        QCOMPARE(m_bench->registers().read(registerAt(selector, TriggerBlock::Source)),
                 std::uint32_t(SignalSoftware));
    }
}

QTEST_GUILESS_MAIN(tst_BehaviourAcquisition)
#include "tst_BehaviourAcquisition.moc"
