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
    void init() { bench = std::make_unique<BenchOf<BehaviourTimers>>(); }

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
    Address Register(Address offset, unsigned timer = 0) const;
    void Configure(std::uint32_t source, std::uint32_t activation, double delay,
                   double duration) const;
    std::uint32_t Status() const;
    void Trigger(std::uint32_t signal) const;

    std::unique_ptr<BenchOf<BehaviourTimers>> bench;
};

Address tst_BehaviourTimers::Register(Address offset, unsigned timer) const
{
    return Registers::Timer + timer * BlockSize + offset;
}

void tst_BehaviourTimers::Configure(std::uint32_t source, std::uint32_t activation, double delay,
                                    double duration) const
{
    bench->Registers().WriteDouble(Register(TimerBlock::Delay), delay);
    bench->Registers().WriteDouble(Register(TimerBlock::Duration), duration);
    bench->Registers().Write(Register(TimerBlock::TriggerActivation), activation);
    bench->Registers().Write(Register(TimerBlock::TriggerSource), source);
}

std::uint32_t tst_BehaviourTimers::Status() const
{
    return bench->Registers().Read(Register(TimerBlock::Status));
}

void tst_BehaviourTimers::Trigger(std::uint32_t signal) const
{
    bench->Pulse(signal);
    bench->Step();
}

void tst_BehaviourTimers::startsIdle()
{
    bench->Step();
    QCOMPARE(Status(), Idle);
    QVERIFY(!bench->Level(SignalTimer0Active));
    QCOMPARE(bench->Registers().ReadDouble(Register(TimerBlock::Duration)), 1000.0);
    QCOMPARE(bench->Registers().ReadDouble(Register(TimerBlock::Delay)), 0.0);
}

void tst_BehaviourTimers::waitsForItsTrigger()
{
    Configure(SignalLine0, RisingEdge, 0, 5000);
    bench->Steps(20);
    QCOMPARE(Status(), TriggerWait);
}

void tst_BehaviourTimers::runsForDelayAndDuration()
{
    Configure(SignalLine0, RisingEdge, 3000, 5000);
    Trigger(SignalLine0);
    QCOMPARE(Status(), TriggerWait);
    bench->Steps(2);
    QVERIFY(!bench->Level(SignalTimer0Active));
    bench->Step();
    QCOMPARE(Status(), Active);
    QVERIFY(bench->Level(SignalTimer0Active));
    bench->Steps(4);
    QCOMPARE(Status(), Active);
    bench->Step();
    QCOMPARE(Status(), Completed);
    QVERIFY(!bench->Level(SignalTimer0Active));
}

void tst_BehaviourTimers::resetCommandStartsIt()
{
    Configure(SignalOff, RisingEdge, 0, 5000);
    bench->Registers().Write(Register(TimerBlock::Reset), 1);
    bench->Step();
    QCOMPARE(Status(), Active);
    QCOMPARE(bench->Registers().Read(Register(TimerBlock::Reset)), 0U);
    bench->Steps(5);
    QCOMPARE(Status(), Completed);
}

void tst_BehaviourTimers::triggerWhileRunningIsIgnored()
{
    Configure(SignalLine0, RisingEdge, 0, 5000);
    Trigger(SignalLine0);
    bench->Steps(3);
    Trigger(SignalLine0);
    bench->Step();
    QCOMPARE(Status(), Completed);
}

void tst_BehaviourTimers::completedTimerStartsAgain()
{
    Configure(SignalLine0, RisingEdge, 0, 2000);
    Trigger(SignalLine0);
    bench->Steps(4);
    QCOMPARE(Status(), Completed);
    Trigger(SignalLine0);
    QCOMPARE(Status(), Active);
}

void tst_BehaviourTimers::onlyTheChosenEdgeStartsIt()
{
    Configure(SignalLine0, FallingEdge, 0, 2000);
    bench->SetLevel(SignalLine0, true);
    bench->Step();
    QCOMPARE(Status(), TriggerWait);
    bench->SetLevel(SignalLine0, false);
    bench->Step();
    QCOMPARE(Status(), Active);
}

void tst_BehaviourTimers::valueIsTheTimeSinceThePulseBegan()
{
    Configure(SignalLine0, RisingEdge, 0, 5000);
    Trigger(SignalLine0);
    bench->Steps(3);
    QCOMPARE(bench->Registers().ReadDouble(Register(TimerBlock::Value)), 3000.0);
    bench->Steps(5);
    QCOMPARE(bench->Registers().ReadDouble(Register(TimerBlock::Value)), 0.0);
}

void tst_BehaviourTimers::timersAreIndependent()
{
    Configure(SignalLine0, RisingEdge, 0, 5000);
    Trigger(SignalLine0);
    QVERIFY(bench->Level(SignalTimer0Active));
    QVERIFY(!bench->Level(SignalTimer0Active + 1));
    QCOMPARE(bench->Registers().Read(Register(TimerBlock::Status, 1)), Idle);
}

void tst_BehaviourTimers::startAndEndAreSignals()
{
    Configure(SignalLine0, RisingEdge, 2000, 3000);
    Trigger(SignalLine0);
    bench->Step();
    QCOMPARE(bench->AllSignals().Pulses(SignalTimer0Start), 0U);
    bench->Step();
    QCOMPARE(bench->AllSignals().Pulses(SignalTimer0Start), 1U);
    bench->Steps(2);
    QCOMPARE(bench->AllSignals().Pulses(SignalTimer0End), 0U);
    bench->Step();
    QCOMPARE(bench->AllSignals().Pulses(SignalTimer0End), 1U);
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
    Configure(source, activation, 6000, 4000);
    unsigned rises = 0;
    unsigned highSteps = 0;
    for (int i = 0; i < 1000; ++i) {
        bench->Step();
        rises += bench->AllSignals().Edges(SignalTimer0Active, RisingEdge);
        highSteps += bench->Level(SignalTimer0Active) ? 1 : 0;
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
    Configure(source, RisingEdge, 6000, 4000);
    bench->Steps(50);
    QCOMPARE(Status(), TriggerWait);
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
    lines.SwitchOn(bench->Registers());
    bench->Registers().Write(Line + 3 * BlockSize + LineBlock::Source, SignalTimer0Active);
    Configure(SignalTimer0Active, FallingEdge, delay, duration);
    unsigned pulses = 0;
    for (int i = 0; i < 1005; ++i) {
        bench->Step(lines);
        if (i >= 5)
            pulses += bench->AllSignals().Edges(SignalLine0 + 3, RisingEdge);
    }
    QTEST(pulses, "pulsesInASecond");
}

void tst_BehaviourTimers::pulseTrainFasterThanAStepHasAllItsEdges()
{
    Configure(SignalTimer0Active, FallingEdge, 75, 25);
    bench->Step();
    bench->Step();
    QCOMPARE(bench->AllSignals().Edges(SignalTimer0Active, RisingEdge), 10U);
    QCOMPARE(bench->AllSignals().Edges(SignalTimer0Active, FallingEdge), 10U);
}

void tst_BehaviourTimers::pulseTrainFollowsNewTimes()
{
    Configure(SignalTimer0Active, FallingEdge, 6000, 4000);
    bench->Steps(15);
    Configure(SignalTimer0Active, FallingEdge, 1000, 1000);
    bench->Steps(20);
    unsigned rises = 0;
    for (int i = 0; i < 20; ++i) {
        bench->Step();
        rises += bench->AllSignals().Edges(SignalTimer0Active, RisingEdge);
    }
    QCOMPARE(rises, 10U);
}

void tst_BehaviourTimers::pulseTrainEndsWhenTheSourceIsTakenAway()
{
    Configure(SignalTimer0Active, FallingEdge, 6000, 4000);
    bench->Steps(15);
    Configure(SignalOff, FallingEdge, 6000, 4000);
    bench->Steps(20);
    QCOMPARE(Status(), Completed);
    QVERIFY(!bench->Level(SignalTimer0Active));
}

void tst_BehaviourTimers::pulseWithoutAnyTimeDoesNotHang()
{
    Configure(SignalTimer0Active, FallingEdge, 0, 0);
    bench->Step();
    bench->Step();
    QCOMPARE(bench->AllSignals().Edges(SignalTimer0Active, RisingEdge), 1000U);
}

QTEST_GUILESS_MAIN(tst_BehaviourTimers)
#include "tst_BehaviourTimers.moc"
