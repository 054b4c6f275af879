#include "sdk/simulator/BehaviourCounters.h"
#include "tests/sdk/simulator/Bench.h"

#include <QtTest>

#include <limits>

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
    void init() { bench = std::make_unique<BenchOf<BehaviourCounters>>(); }

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
    void startAndEndAreSignals();
    void ownEndAsResetDivides();
    void dividerLosesNoEventWithinAStep();
    void dividerStartsACompletedCounterAgain();
    void dividerWithAValueBeyondTheDurationTurnsOnce();
    void ownEndAsResetOfATriggeredCounterWaitsForTheTrigger();
    void numbersOutOfRangeDoNoHarm_data();
    void numbersOutOfRangeDoNoHarm();
    void hostMaySetTheValue();
    void valueBeyondTheDurationStays();

private:
    Address Register(Address offset, unsigned counter = 0) const;
    void Write(Address offset, std::uint32_t value) const;
    std::int64_t Value(unsigned counter = 0) const;
    std::uint32_t Status() const;
    void CountLine0(std::int64_t duration) const;
    void Event(std::uint32_t signal, unsigned count = 1) const;
    void DivideLine0(std::int64_t duration) const;
    unsigned Ends() const { return bench->AllSignals().Pulses(SignalCounter0End); }

    std::unique_ptr<BenchOf<BehaviourCounters>> bench;
};

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
    bench->Step();
}

void tst_BehaviourCounters::DivideLine0(std::int64_t duration) const
{
    CountLine0(duration);
    Write(CounterBlock::ResetSource, SignalCounter0End);
}

void tst_BehaviourCounters::startsIdleAtZero()
{
    bench->Step();
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
    bench->Steps(5);
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
    bench->Step();
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
    bench->Step();
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
    bench->Step();
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

void tst_BehaviourCounters::startAndEndAreSignals()
{
    CountLine0(2);
    bench->Step();
    QCOMPARE(bench->AllSignals().Pulses(SignalCounter0Start), 1U);
    Event(SignalLine0, 2);
    QCOMPARE(bench->AllSignals().Pulses(SignalCounter0Start), 0U);
    QCOMPARE(Ends(), 1U);
    Event(SignalLine0, 2);
    QCOMPARE(Ends(), 0U);
}

void tst_BehaviourCounters::ownEndAsResetDivides()
{
    DivideLine0(3);
    unsigned ends = 0;
    for (int i = 0; i < 10; ++i) {
        Event(SignalLine0);
        ends += Ends();
    }
    QCOMPARE(ends, 3U);
    QCOMPARE(Value(), 1LL);
    QCOMPARE(Status(), Active);
    QCOMPARE(bench->Registers().ReadLong(Register(CounterBlock::ValueAtReset)), 3LL);
}

void tst_BehaviourCounters::dividerLosesNoEventWithinAStep()
{
    DivideLine0(3);
    Event(SignalLine0, 8);
    QCOMPARE(Ends(), 2U);
    QCOMPARE(bench->AllSignals().Edges(SignalCounter0Active, FallingEdge), 0U);
    Event(SignalLine0, 1);
    QCOMPARE(Ends(), 1U);
    QCOMPARE(bench->AllSignals().Edges(SignalCounter0Active, FallingEdge), 1U);
    QCOMPARE(Value(), 0LL);
}

void tst_BehaviourCounters::dividerStartsACompletedCounterAgain()
{
    CountLine0(2);
    Event(SignalLine0, 2);
    QCOMPARE(Status(), Completed);
    DivideLine0(2);
    bench->Step();
    QCOMPARE(Status(), Active);
    QCOMPARE(Value(), 0LL);
}

void tst_BehaviourCounters::dividerWithAValueBeyondTheDurationTurnsOnce()
{
    DivideLine0(3);
    bench->Registers().WriteLong(Register(CounterBlock::Value),
                                 std::numeric_limits<std::int64_t>::max());
    bench->Step();
    QCOMPARE(Ends(), 1U);
    QCOMPARE(Value(), 0LL);
}

void tst_BehaviourCounters::ownEndAsResetOfATriggeredCounterWaitsForTheTrigger()
{
    DivideLine0(2);
    Write(CounterBlock::TriggerSource, SignalFrameStart);
    Event(SignalFrameStart);
    Event(SignalLine0, 2);
    QCOMPARE(Ends(), 1U);
    bench->Step();
    QCOMPARE(Status(), TriggerWait);
    Event(SignalLine0, 1);
    QCOMPARE(Value(), 0LL);
}

void tst_BehaviourCounters::numbersOutOfRangeDoNoHarm_data()
{
    QTest::addColumn<qint64>("duration");
    QTest::addColumn<qint64>("value");
    QTest::addColumn<bool>("divides");
    QTest::addColumn<qint64>("after");
    constexpr qint64 Least = std::numeric_limits<qint64>::min();
    constexpr qint64 Most = std::numeric_limits<qint64>::max();
    QTest::newRow("most of both") << Most << Most << false << Most;
    QTest::newRow("no duration") << qint64(0) << qint64(0) << false << qint64(1);
    QTest::newRow("least of both") << Least << Least << false << Least + 2;
    QTest::newRow("divider, least of both") << Least << Least << true << qint64(0);
    QTest::newRow("divider, negative value") << qint64(5) << qint64(-7) << true << qint64(2);
}

void tst_BehaviourCounters::numbersOutOfRangeDoNoHarm()
{
    QFETCH(qint64, duration);
    QFETCH(qint64, value);
    QFETCH(bool, divides);
    CountLine0(duration);
    if (divides)
        DivideLine0(duration);
    bench->Registers().WriteLong(Register(CounterBlock::Value), value);
    Event(SignalLine0, 2);
    QTEST(qint64(Value()), "after");
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
