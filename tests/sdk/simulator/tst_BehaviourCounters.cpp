#include "sdk/simulator/BehaviourCounters.h"
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

class tst_BehaviourCounters : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void startsIdleAtZero();
    void countsItsEvent_data();
    void countsItsEvent();
    void countsEveryEdgeOfAStep();
    void countersAreIndependent();
    void doesNotCountOtherSignals();
    void endsAtItsDuration();
    void endsAtItsDurationEvenIfMoreCome();
    void isActiveUntilItEnds();
    void commandResetsAndKeepsTheValue();
    void signalResetsAndKeepsTheValue();
    void resetStartsACompletedCounterAgain();
    void waitsForItsTrigger();
    void triggerWhileCountingChangesNothing();
    void triggerStartsACompletedCounterFromZero();
    void resetCounterWaitsForItsTriggerAgain();
    void hostMaySetTheValue();
    void valueBeyondTheDurationStays();

private:
    Address Register(Address offset, unsigned counter = 0) const;
    void Write(Address offset, std::uint32_t value) const;
    std::int64_t Value(unsigned counter = 0) const;
    std::uint32_t Status() const;
    void CountLine0(std::int64_t duration) const;
    void Event(std::uint32_t signal, unsigned count = 1) const;

    std::unique_ptr<Bench> bench;
    std::unique_ptr<BehaviourCounters> counters;
};

void tst_BehaviourCounters::init()
{
    bench = std::make_unique<Bench>();
    counters = std::make_unique<BehaviourCounters>();
    counters->SwitchOn(bench->Registers());
}

void tst_BehaviourCounters::cleanup()
{
    counters.reset();
    bench.reset();
}

Address tst_BehaviourCounters::Register(Address offset, unsigned counter) const
{
    return Counter + counter * BlockSize + offset;
}

void tst_BehaviourCounters::Write(Address offset, std::uint32_t value) const
{
    bench->Registers().Write(Register(offset), value);
}

std::int64_t tst_BehaviourCounters::Value(unsigned counter) const
{
    return bench->Registers().ReadLong(Register(CounterBlock::Value, counter));
}

std::uint32_t tst_BehaviourCounters::Status() const
{
    return bench->Registers().Read(Register(CounterBlock::Status));
}

void tst_BehaviourCounters::CountLine0(std::int64_t duration) const
{
    Write(CounterBlock::EventSource, SignalLine0);
    bench->Registers().WriteLong(Register(CounterBlock::Duration), duration);
}

void tst_BehaviourCounters::Event(std::uint32_t signal, unsigned count) const
{
    bench->Pulse(signal, count);
    bench->Step(*counters);
}

void tst_BehaviourCounters::startsIdleAtZero()
{
    bench->Step(*counters);
    QCOMPARE(Value(), 0LL);
    QCOMPARE(Status(), Idle);
    QCOMPARE(bench->Registers().ReadLong(Register(CounterBlock::Duration)), 1000LL);
}

void tst_BehaviourCounters::countsItsEvent_data()
{
    QTest::addColumn<unsigned>("source");
    QTest::newRow("frame trigger") << unsigned(SignalFrameTrigger);
    QTest::newRow("frame start") << unsigned(SignalFrameStart);
    QTest::newRow("exposure end") << unsigned(SignalExposureEnd);
    QTest::newRow("line") << unsigned(SignalLine0) + 1;
    QTest::newRow("timer") << unsigned(SignalTimer0Active);
    QTest::newRow("software signal") << unsigned(SignalSoftwareSignal0);
    QTest::newRow("action") << unsigned(SignalAction0);
}

void tst_BehaviourCounters::countsItsEvent()
{
    QFETCH(unsigned, source);
    Write(CounterBlock::EventSource, source);
    for (int i = 0; i < 3; ++i)
        Event(source);
    QCOMPARE(Value(), 3LL);
    bench->Steps(5, *counters);
    QCOMPARE(Value(), 3LL);
}

void tst_BehaviourCounters::countsEveryEdgeOfAStep()
{
    CountLine0(1000);
    Write(CounterBlock::EventActivation, AnyEdge);
    Event(SignalLine0, 4);
    QCOMPARE(Value(), 8LL);
}

void tst_BehaviourCounters::countersAreIndependent()
{
    CountLine0(1000);
    bench->Registers().Write(Register(CounterBlock::EventSource, 1), SignalLine0 + 1);
    Event(SignalLine0);
    Event(SignalLine0 + 1, 2);
    QCOMPARE(Value(0), 1LL);
    QCOMPARE(Value(1), 2LL);
}

void tst_BehaviourCounters::doesNotCountOtherSignals()
{
    CountLine0(1000);
    Event(SignalLine0 + 1);
    QCOMPARE(Value(), 0LL);
}

void tst_BehaviourCounters::endsAtItsDuration()
{
    CountLine0(3);
    for (int i = 0; i < 5; ++i)
        Event(SignalLine0);
    QCOMPARE(Value(), 3LL);
    QCOMPARE(Status(), Completed);
}

void tst_BehaviourCounters::endsAtItsDurationEvenIfMoreCome()
{
    CountLine0(3);
    Event(SignalLine0, 10);
    QCOMPARE(Value(), 3LL);
}

void tst_BehaviourCounters::isActiveUntilItEnds()
{
    CountLine0(2);
    bench->Step(*counters);
    QCOMPARE(Status(), Active);
    QVERIFY(bench->Level(SignalCounter0Active));
    Event(SignalLine0, 2);
    QVERIFY(!bench->Level(SignalCounter0Active));
    QCOMPARE(bench->AllSignals().Edges(SignalCounter0Active, FallingEdge), 1U);
}

void tst_BehaviourCounters::commandResetsAndKeepsTheValue()
{
    CountLine0(1000);
    Event(SignalLine0, 7);
    Write(CounterBlock::Reset, 1);
    bench->Step(*counters);
    QCOMPARE(Value(), 0LL);
    QCOMPARE(bench->Registers().ReadLong(Register(CounterBlock::ValueAtReset)), 7LL);
    QCOMPARE(bench->Registers().Read(Register(CounterBlock::Reset)), 0U);
}

void tst_BehaviourCounters::signalResetsAndKeepsTheValue()
{
    CountLine0(1000);
    Write(CounterBlock::ResetSource, SignalLine0 + 1);
    Write(CounterBlock::ResetActivation, FallingEdge);
    Event(SignalLine0, 5);
    Event(SignalLine0 + 1);
    QCOMPARE(Value(), 0LL);
    QCOMPARE(bench->Registers().ReadLong(Register(CounterBlock::ValueAtReset)), 5LL);
}

void tst_BehaviourCounters::resetStartsACompletedCounterAgain()
{
    CountLine0(2);
    Event(SignalLine0, 2);
    Write(CounterBlock::Reset, 1);
    bench->Step(*counters);
    QCOMPARE(Status(), Active);
    Event(SignalLine0);
    QCOMPARE(Value(), 1LL);
}

void tst_BehaviourCounters::waitsForItsTrigger()
{
    CountLine0(1000);
    Write(CounterBlock::TriggerSource, SignalFrameStart);
    Event(SignalLine0);
    QCOMPARE(Status(), TriggerWait);
    QCOMPARE(Value(), 0LL);
    Event(SignalFrameStart);
    QCOMPARE(Status(), Active);
    Event(SignalLine0);
    QCOMPARE(Value(), 1LL);
}

void tst_BehaviourCounters::triggerWhileCountingChangesNothing()
{
    CountLine0(1000);
    Write(CounterBlock::TriggerSource, SignalFrameStart);
    Event(SignalFrameStart);
    Event(SignalLine0, 4);
    Event(SignalFrameStart);
    QCOMPARE(Value(), 4LL);
    QCOMPARE(Status(), Active);
}

void tst_BehaviourCounters::triggerStartsACompletedCounterFromZero()
{
    CountLine0(2);
    Write(CounterBlock::TriggerSource, SignalFrameStart);
    Event(SignalFrameStart);
    Event(SignalLine0, 2);
    QCOMPARE(Status(), Completed);
    Event(SignalFrameStart);
    QCOMPARE(Value(), 0LL);
    QCOMPARE(Status(), Active);
}

void tst_BehaviourCounters::resetCounterWaitsForItsTriggerAgain()
{
    CountLine0(1000);
    Write(CounterBlock::TriggerSource, SignalFrameStart);
    Event(SignalFrameStart);
    Write(CounterBlock::Reset, 1);
    Event(SignalLine0);
    QCOMPARE(Status(), TriggerWait);
    QCOMPARE(Value(), 0LL);
}

void tst_BehaviourCounters::hostMaySetTheValue()
{
    CountLine0(1000);
    Event(SignalLine0, 3);
    bench->Registers().WriteLong(Register(CounterBlock::Value), 40);
    Event(SignalLine0);
    QCOMPARE(Value(), 41LL);
}

void tst_BehaviourCounters::valueBeyondTheDurationStays()
{
    CountLine0(5);
    bench->Registers().WriteLong(Register(CounterBlock::Value), 40);
    Event(SignalLine0);
    QCOMPARE(Value(), 40LL);
    QCOMPARE(Status(), Completed);
}

QTEST_GUILESS_MAIN(tst_BehaviourCounters)
#include "tst_BehaviourCounters.moc"
