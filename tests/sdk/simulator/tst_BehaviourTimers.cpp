#include "sdk/simulator/BehaviourLines.h"
#include "sdk/simulator/BehaviourTimers.h"
#include "tests/sdk/simulator/Bench.h"

#include <QtTest>

using namespace ZalSim;
using namespace ZalSim::Registers;

namespace {
constexpr std::uint32_t Idle = 0;
constexpr std::uint32_t TriggerWait = 1;
constexpr std::uint32_t Active = 2;
constexpr std::uint32_t Completed = 3;
} // namespace

class tst_BehaviourTimers : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_bench = std::make_unique<BenchOf<BehaviourTimers>>(); }

    void startsIdle();
    void waitsForItsTrigger();
    void runsForDelayAndDuration();
    void resetCommandStartsIt();
    void triggerWhileRunningIsIgnored();
    void completedTimerStartsAgain();
    void onlyTheChosenEdgeStartsIt();
    void valueIsTheTimeSinceThePulseBegan();
    void timersAreIndependent();
    void startAndEndAreSignals();
    void ownSignalMakesAPulseTrain_data();
    void ownSignalMakesAPulseTrain();
    void ownBeginningStartsNothing_data();
    void ownBeginningStartsNothing();
    void pulseTrainTogglesTheLineAtItsRate_data();
    void pulseTrainTogglesTheLineAtItsRate();
    void pulseTrainFasterThanAStepHasAllItsEdges();
    void pulseTrainFollowsNewTimes();
    void pulseTrainEndsWhenTheSourceIsTakenAway();
    void pulseWithoutAnyTimeDoesNotHang();

private:
    Address registerAt(Address offset, unsigned timer = 0) const;
    void configure(std::uint32_t source, std::uint32_t activation, double delay,
                   double duration) const;
    std::uint32_t status() const;
    void trigger(std::uint32_t signal) const;

    std::unique_ptr<BenchOf<BehaviourTimers>> m_bench;
};

Address tst_BehaviourTimers::registerAt(Address offset, unsigned timer) const
{
    return Registers::Timer + timer * BlockSize + offset;
}

void tst_BehaviourTimers::configure(std::uint32_t source, std::uint32_t activation, double delay,
                                    double duration) const
{
    m_bench->registers().writeDouble(registerAt(TimerBlock::Delay), delay);
    m_bench->registers().writeDouble(registerAt(TimerBlock::Duration), duration);
    m_bench->registers().write(registerAt(TimerBlock::TriggerActivation), activation);
    m_bench->registers().write(registerAt(TimerBlock::TriggerSource), source);
}

std::uint32_t tst_BehaviourTimers::status() const
{
    return m_bench->registers().read(registerAt(TimerBlock::Status));
}

void tst_BehaviourTimers::trigger(std::uint32_t signal) const
{
    m_bench->pulse(signal);
    m_bench->step();
}

void tst_BehaviourTimers::startsIdle()
{
    m_bench->step();
    QCOMPARE(status(), Idle);
    QVERIFY(!m_bench->level(SignalTimer0Active));
    QCOMPARE(m_bench->registers().readDouble(registerAt(TimerBlock::Duration)), 1000.0);
    QCOMPARE(m_bench->registers().readDouble(registerAt(TimerBlock::Delay)), 0.0);
}

void tst_BehaviourTimers::waitsForItsTrigger()
{
    configure(SignalLine0, RisingEdge, 0, 5000);
    m_bench->steps(20);
    QCOMPARE(status(), TriggerWait);
}

void tst_BehaviourTimers::runsForDelayAndDuration()
{
    configure(SignalLine0, RisingEdge, 3000, 5000);
    trigger(SignalLine0);
    QCOMPARE(status(), TriggerWait);
    m_bench->steps(2);
    QVERIFY(!m_bench->level(SignalTimer0Active));
    m_bench->step();
    QCOMPARE(status(), Active);
    QVERIFY(m_bench->level(SignalTimer0Active));
    m_bench->steps(4);
    QCOMPARE(status(), Active);
    m_bench->step();
    QCOMPARE(status(), Completed);
    QVERIFY(!m_bench->level(SignalTimer0Active));
}

void tst_BehaviourTimers::resetCommandStartsIt()
{
    configure(SignalOff, RisingEdge, 0, 5000);
    m_bench->registers().write(registerAt(TimerBlock::Reset), 1);
    m_bench->step();
    QCOMPARE(status(), Active);
    QCOMPARE(m_bench->registers().read(registerAt(TimerBlock::Reset)), 0U);
    m_bench->steps(5);
    QCOMPARE(status(), Completed);
}

void tst_BehaviourTimers::triggerWhileRunningIsIgnored()
{
    configure(SignalLine0, RisingEdge, 0, 5000);
    trigger(SignalLine0);
    m_bench->steps(3);
    trigger(SignalLine0);
    m_bench->step();
    QCOMPARE(status(), Completed);
}

void tst_BehaviourTimers::completedTimerStartsAgain()
{
    configure(SignalLine0, RisingEdge, 0, 2000);
    trigger(SignalLine0);
    m_bench->steps(4);
    QCOMPARE(status(), Completed);
    trigger(SignalLine0);
    QCOMPARE(status(), Active);
}

void tst_BehaviourTimers::onlyTheChosenEdgeStartsIt()
{
    configure(SignalLine0, FallingEdge, 0, 2000);
    m_bench->setLevel(SignalLine0, true);
    m_bench->step();
    QCOMPARE(status(), TriggerWait);
    m_bench->setLevel(SignalLine0, false);
    m_bench->step();
    QCOMPARE(status(), Active);
}

void tst_BehaviourTimers::valueIsTheTimeSinceThePulseBegan()
{
    configure(SignalLine0, RisingEdge, 0, 5000);
    trigger(SignalLine0);
    m_bench->steps(3);
    QCOMPARE(m_bench->registers().readDouble(registerAt(TimerBlock::Value)), 3000.0);
    m_bench->steps(5);
    QCOMPARE(m_bench->registers().readDouble(registerAt(TimerBlock::Value)), 0.0);
}

void tst_BehaviourTimers::timersAreIndependent()
{
    configure(SignalLine0, RisingEdge, 0, 5000);
    trigger(SignalLine0);
    QVERIFY(m_bench->level(SignalTimer0Active));
    QVERIFY(!m_bench->level(SignalTimer0Active + 1));
    QCOMPARE(m_bench->registers().read(registerAt(TimerBlock::Status, 1)), Idle);
}

void tst_BehaviourTimers::startAndEndAreSignals()
{
    configure(SignalLine0, RisingEdge, 2000, 3000);
    trigger(SignalLine0);
    m_bench->step();
    QCOMPARE(m_bench->allSignals().pulses(SignalTimer0Start), 0U);
    m_bench->step();
    QCOMPARE(m_bench->allSignals().pulses(SignalTimer0Start), 1U);
    m_bench->steps(2);
    QCOMPARE(m_bench->allSignals().pulses(SignalTimer0End), 0U);
    m_bench->step();
    QCOMPARE(m_bench->allSignals().pulses(SignalTimer0End), 1U);
}

void tst_BehaviourTimers::ownSignalMakesAPulseTrain_data()
{
    QTest::addColumn<unsigned>("source");
    QTest::addColumn<unsigned>("activation");
    QTest::newRow("falling edge of its activity")
        << unsigned(SignalTimer0Active) << unsigned(FallingEdge);
    QTest::newRow("its end") << unsigned(SignalTimer0End) << unsigned(RisingEdge);
}

void tst_BehaviourTimers::ownSignalMakesAPulseTrain()
{
    QFETCH(unsigned, source);
    QFETCH(unsigned, activation);
    configure(source, activation, 6000, 4000);
    unsigned rises = 0;
    unsigned highSteps = 0;
    for (int i = 0; i < 1000; ++i) {
        m_bench->step();
        rises += m_bench->allSignals().edges(SignalTimer0Active, RisingEdge);
        highSteps += m_bench->level(SignalTimer0Active) ? 1 : 0;
    }
    QCOMPARE(rises, 100U);
    QCOMPARE(highSteps, 400U);
}

void tst_BehaviourTimers::ownBeginningStartsNothing_data()
{
    QTest::addColumn<unsigned>("source");
    QTest::newRow("rising edge of its activity") << unsigned(SignalTimer0Active);
    QTest::newRow("its start") << unsigned(SignalTimer0Start);
}

void tst_BehaviourTimers::ownBeginningStartsNothing()
{
    QFETCH(unsigned, source);
    configure(source, RisingEdge, 6000, 4000);
    m_bench->steps(50);
    QCOMPARE(status(), TriggerWait);
}

void tst_BehaviourTimers::pulseTrainTogglesTheLineAtItsRate_data()
{
    QTest::addColumn<double>("delay");
    QTest::addColumn<double>("duration");
    QTest::addColumn<unsigned>("pulsesInASecond");
    QTest::newRow("10 Hz, 25 %") << 75000.0 << 25000.0 << 10U;
    QTest::newRow("100 Hz, 50 %") << 5000.0 << 5000.0 << 100U;
    QTest::newRow("1 kHz, 25 %") << 750.0 << 250.0 << 1000U;
    QTest::newRow("10 kHz, 10 %") << 90.0 << 10.0 << 10000U;
}

void tst_BehaviourTimers::pulseTrainTogglesTheLineAtItsRate()
{
    QFETCH(double, delay);
    QFETCH(double, duration);
    BehaviourLines lines;
    lines.switchOn(m_bench->registers());
    m_bench->registers().write(Line + 3 * BlockSize + LineBlock::Source, SignalTimer0Active);
    configure(SignalTimer0Active, FallingEdge, delay, duration);
    unsigned pulses = 0;
    for (int i = 0; i < 1005; ++i) {
        m_bench->step(lines);
        if (i >= 5)
            pulses += m_bench->allSignals().edges(SignalLine0 + 3, RisingEdge);
    }
    QTEST(pulses, "pulsesInASecond");
}

void tst_BehaviourTimers::pulseTrainFasterThanAStepHasAllItsEdges()
{
    configure(SignalTimer0Active, FallingEdge, 75, 25);
    m_bench->step();
    m_bench->step();
    QCOMPARE(m_bench->allSignals().edges(SignalTimer0Active, RisingEdge), 10U);
    QCOMPARE(m_bench->allSignals().edges(SignalTimer0Active, FallingEdge), 10U);
}

void tst_BehaviourTimers::pulseTrainFollowsNewTimes()
{
    configure(SignalTimer0Active, FallingEdge, 6000, 4000);
    m_bench->steps(15);
    configure(SignalTimer0Active, FallingEdge, 1000, 1000);
    m_bench->steps(20);
    unsigned rises = 0;
    for (int i = 0; i < 20; ++i) {
        m_bench->step();
        rises += m_bench->allSignals().edges(SignalTimer0Active, RisingEdge);
    }
    QCOMPARE(rises, 10U);
}

void tst_BehaviourTimers::pulseTrainEndsWhenTheSourceIsTakenAway()
{
    configure(SignalTimer0Active, FallingEdge, 6000, 4000);
    m_bench->steps(15);
    configure(SignalOff, FallingEdge, 6000, 4000);
    m_bench->steps(20);
    QCOMPARE(status(), Completed);
    QVERIFY(!m_bench->level(SignalTimer0Active));
}

void tst_BehaviourTimers::pulseWithoutAnyTimeDoesNotHang()
{
    configure(SignalTimer0Active, FallingEdge, 0, 0);
    m_bench->step();
    m_bench->step();
    QCOMPARE(m_bench->allSignals().edges(SignalTimer0Active, RisingEdge), 1000U);
}

QTEST_GUILESS_MAIN(tst_BehaviourTimers)
#include "tst_BehaviourTimers.moc"
