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
    void init();
    void cleanup();

    void startsIdle();
    void waitsForItsTrigger();
    void runsForDelayAndDuration();
    void resetCommandStartsIt();
    void triggerWhileRunningIsIgnored();
    void completedTimerStartsAgain();
    void onlyTheChosenEdgeStartsIt();
    void valueIsTheTimeSinceThePulseBegan();
    void timersAreIndependent();
    void ownFallingEdgeMakesAPulseTrain();
    void ownRisingEdgeStartsNothing();
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

    std::unique_ptr<Bench> bench;
    std::unique_ptr<BehaviourTimers> timers;
};

void tst_BehaviourTimers::init()
{
    bench = std::make_unique<Bench>();
    timers = std::make_unique<BehaviourTimers>();
    timers->SwitchOn(bench->Registers());
}

void tst_BehaviourTimers::cleanup()
{
    timers.reset();
    bench.reset();
}

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
    bench->Step(*timers);
}

void tst_BehaviourTimers::startsIdle()
{
    bench->Step(*timers);
    QCOMPARE(Status(), Idle);
    QVERIFY(!bench->Level(SignalTimer0Active));
    QCOMPARE(bench->Registers().ReadDouble(Register(TimerBlock::Duration)), 1000.0);
    QCOMPARE(bench->Registers().ReadDouble(Register(TimerBlock::Delay)), 0.0);
}

void tst_BehaviourTimers::waitsForItsTrigger()
{
    Configure(SignalLine0, RisingEdge, 0, 5000);
    bench->Steps(20, *timers);
    QCOMPARE(Status(), TriggerWait);
}

void tst_BehaviourTimers::runsForDelayAndDuration()
{
    Configure(SignalLine0, RisingEdge, 3000, 5000);
    Trigger(SignalLine0);
    QCOMPARE(Status(), TriggerWait);
    bench->Steps(2, *timers);
    QVERIFY(!bench->Level(SignalTimer0Active));
    bench->Step(*timers);
    QCOMPARE(Status(), Active);
    QVERIFY(bench->Level(SignalTimer0Active));
    bench->Steps(4, *timers);
    QCOMPARE(Status(), Active);
    bench->Step(*timers);
    QCOMPARE(Status(), Completed);
    QVERIFY(!bench->Level(SignalTimer0Active));
}

void tst_BehaviourTimers::resetCommandStartsIt()
{
    Configure(SignalOff, RisingEdge, 0, 5000);
    bench->Registers().Write(Register(TimerBlock::Reset), 1);
    bench->Step(*timers);
    QCOMPARE(Status(), Active);
    QCOMPARE(bench->Registers().Read(Register(TimerBlock::Reset)), 0U);
    bench->Steps(5, *timers);
    QCOMPARE(Status(), Completed);
}

void tst_BehaviourTimers::triggerWhileRunningIsIgnored()
{
    Configure(SignalLine0, RisingEdge, 0, 5000);
    Trigger(SignalLine0);
    bench->Steps(3, *timers);
    Trigger(SignalLine0);
    bench->Step(*timers);
    QCOMPARE(Status(), Completed);
}

void tst_BehaviourTimers::completedTimerStartsAgain()
{
    Configure(SignalLine0, RisingEdge, 0, 2000);
    Trigger(SignalLine0);
    bench->Steps(4, *timers);
    QCOMPARE(Status(), Completed);
    Trigger(SignalLine0);
    QCOMPARE(Status(), Active);
}

void tst_BehaviourTimers::onlyTheChosenEdgeStartsIt()
{
    Configure(SignalLine0, FallingEdge, 0, 2000);
    bench->SetLevel(SignalLine0, true);
    bench->Step(*timers);
    QCOMPARE(Status(), TriggerWait);
    bench->SetLevel(SignalLine0, false);
    bench->Step(*timers);
    QCOMPARE(Status(), Active);
}

void tst_BehaviourTimers::valueIsTheTimeSinceThePulseBegan()
{
    Configure(SignalLine0, RisingEdge, 0, 5000);
    Trigger(SignalLine0);
    bench->Steps(3, *timers);
    QCOMPARE(bench->Registers().ReadDouble(Register(TimerBlock::Value)), 3000.0);
    bench->Steps(5, *timers);
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

void tst_BehaviourTimers::ownFallingEdgeMakesAPulseTrain()
{
    Configure(SignalTimer0Active, FallingEdge, 6000, 4000);
    unsigned rises = 0;
    unsigned highSteps = 0;
    for (int i = 0; i < 1000; ++i) {
        bench->Step(*timers);
        rises += bench->AllSignals().Edges(SignalTimer0Active, RisingEdge);
        highSteps += bench->Level(SignalTimer0Active) ? 1 : 0;
    }
    QCOMPARE(rises, 100U);
    QCOMPARE(highSteps, 400U);
}

void tst_BehaviourTimers::ownRisingEdgeStartsNothing()
{
    Configure(SignalTimer0Active, RisingEdge, 6000, 4000);
    bench->Steps(50, *timers);
    QCOMPARE(Status(), TriggerWait);
}

void tst_BehaviourTimers::pulseTrainFasterThanAStepHasAllItsEdges()
{
    Configure(SignalTimer0Active, FallingEdge, 75, 25);
    bench->Step(*timers);
    bench->Step(*timers);
    QCOMPARE(bench->AllSignals().Edges(SignalTimer0Active, RisingEdge), 10U);
    QCOMPARE(bench->AllSignals().Edges(SignalTimer0Active, FallingEdge), 10U);
}

void tst_BehaviourTimers::pulseTrainFollowsNewTimes()
{
    Configure(SignalTimer0Active, FallingEdge, 6000, 4000);
    bench->Steps(15, *timers);
    Configure(SignalTimer0Active, FallingEdge, 1000, 1000);
    bench->Steps(20, *timers);
    unsigned rises = 0;
    for (int i = 0; i < 20; ++i) {
        bench->Step(*timers);
        rises += bench->AllSignals().Edges(SignalTimer0Active, RisingEdge);
    }
    QCOMPARE(rises, 10U);
}

void tst_BehaviourTimers::pulseTrainEndsWhenTheSourceIsTakenAway()
{
    Configure(SignalTimer0Active, FallingEdge, 6000, 4000);
    bench->Steps(15, *timers);
    Configure(SignalOff, FallingEdge, 6000, 4000);
    bench->Steps(20, *timers);
    QCOMPARE(Status(), Completed);
    QVERIFY(!bench->Level(SignalTimer0Active));
}

void tst_BehaviourTimers::pulseWithoutAnyTimeDoesNotHang()
{
    Configure(SignalTimer0Active, FallingEdge, 0, 0);
    bench->Step(*timers);
    bench->Step(*timers);
    QCOMPARE(bench->AllSignals().Edges(SignalTimer0Active, RisingEdge), 1000U);
}

QTEST_GUILESS_MAIN(tst_BehaviourTimers)
#include "tst_BehaviourTimers.moc"
