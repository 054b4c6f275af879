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
    void init() { m_bench = std::make_unique<BenchOf<BehaviourCounters>>(); }

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
    Address registerAt(Address offset, unsigned counter = 0) const;
    void write(Address offset, std::uint32_t value) const;
    std::int64_t value(unsigned counter = 0) const;
    std::uint32_t status() const;
    void countLine0(std::int64_t duration) const;
    void event(std::uint32_t signal, unsigned count = 1) const;
    void divideLine0(std::int64_t duration) const;
    unsigned ends() const { return m_bench->allSignals().pulses(SignalCounter0End); }

    std::unique_ptr<BenchOf<BehaviourCounters>> m_bench;
};

Address tst_BehaviourCounters::registerAt(Address offset, unsigned counter) const
{
    return Counter + counter * BlockSize + offset;
}

void tst_BehaviourCounters::write(Address offset, std::uint32_t value) const
{
    m_bench->registers().write(registerAt(offset), value);
}

std::int64_t tst_BehaviourCounters::value(unsigned counter) const
{
    return m_bench->registers().readLong(registerAt(CounterBlock::Value, counter));
}

std::uint32_t tst_BehaviourCounters::status() const
{
    return m_bench->registers().read(registerAt(CounterBlock::Status));
}

void tst_BehaviourCounters::countLine0(std::int64_t duration) const
{
    write(CounterBlock::EventSource, SignalLine0);
    m_bench->registers().writeLong(registerAt(CounterBlock::Duration), duration);
}

void tst_BehaviourCounters::event(std::uint32_t signal, unsigned count) const
{
    m_bench->pulse(signal, count);
    m_bench->step();
}

void tst_BehaviourCounters::divideLine0(std::int64_t duration) const
{
    countLine0(duration);
    write(CounterBlock::ResetSource, SignalCounter0End);
}

void tst_BehaviourCounters::startsIdleAtZero()
{
    m_bench->step();
    QCOMPARE(value(), 0LL);
    QCOMPARE(status(), Idle);
    QCOMPARE(m_bench->registers().readLong(registerAt(CounterBlock::Duration)), 1000LL);
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
    write(CounterBlock::EventSource, source);
    for (int i = 0; i < 3; ++i)
        event(source);
    QCOMPARE(value(), 3LL);
    m_bench->steps(5);
    QCOMPARE(value(), 3LL);
}

void tst_BehaviourCounters::countsEveryEdgeOfAStep()
{
    countLine0(1000);
    write(CounterBlock::EventActivation, AnyEdge);
    event(SignalLine0, 4);
    QCOMPARE(value(), 8LL);
}

void tst_BehaviourCounters::countersAreIndependent()
{
    countLine0(1000);
    m_bench->registers().write(registerAt(CounterBlock::EventSource, 1), SignalLine0 + 1);
    event(SignalLine0);
    event(SignalLine0 + 1, 2);
    QCOMPARE(value(0), 1LL);
    QCOMPARE(value(1), 2LL);
}

void tst_BehaviourCounters::doesNotCountOtherSignals()
{
    countLine0(1000);
    event(SignalLine0 + 1);
    QCOMPARE(value(), 0LL);
}

void tst_BehaviourCounters::endsAtItsDuration()
{
    countLine0(3);
    for (int i = 0; i < 5; ++i)
        event(SignalLine0);
    QCOMPARE(value(), 3LL);
    QCOMPARE(status(), Completed);
}

void tst_BehaviourCounters::endsAtItsDurationEvenIfMoreCome()
{
    countLine0(3);
    event(SignalLine0, 10);
    QCOMPARE(value(), 3LL);
}

void tst_BehaviourCounters::isActiveUntilItEnds()
{
    countLine0(2);
    m_bench->step();
    QCOMPARE(status(), Active);
    QVERIFY(m_bench->level(SignalCounter0Active));
    event(SignalLine0, 2);
    QVERIFY(!m_bench->level(SignalCounter0Active));
    QCOMPARE(m_bench->allSignals().edges(SignalCounter0Active, FallingEdge), 1U);
}

void tst_BehaviourCounters::commandResetsAndKeepsTheValue()
{
    countLine0(1000);
    event(SignalLine0, 7);
    write(CounterBlock::Reset, 1);
    m_bench->step();
    QCOMPARE(value(), 0LL);
    QCOMPARE(m_bench->registers().readLong(registerAt(CounterBlock::ValueAtReset)), 7LL);
    QCOMPARE(m_bench->registers().read(registerAt(CounterBlock::Reset)), 0U);
}

void tst_BehaviourCounters::signalResetsAndKeepsTheValue()
{
    countLine0(1000);
    write(CounterBlock::ResetSource, SignalLine0 + 1);
    write(CounterBlock::ResetActivation, FallingEdge);
    event(SignalLine0, 5);
    event(SignalLine0 + 1);
    QCOMPARE(value(), 0LL);
    QCOMPARE(m_bench->registers().readLong(registerAt(CounterBlock::ValueAtReset)), 5LL);
}

void tst_BehaviourCounters::resetStartsACompletedCounterAgain()
{
    countLine0(2);
    event(SignalLine0, 2);
    write(CounterBlock::Reset, 1);
    m_bench->step();
    QCOMPARE(status(), Active);
    event(SignalLine0);
    QCOMPARE(value(), 1LL);
}

void tst_BehaviourCounters::waitsForItsTrigger()
{
    countLine0(1000);
    write(CounterBlock::TriggerSource, SignalFrameStart);
    event(SignalLine0);
    QCOMPARE(status(), TriggerWait);
    QCOMPARE(value(), 0LL);
    event(SignalFrameStart);
    QCOMPARE(status(), Active);
    event(SignalLine0);
    QCOMPARE(value(), 1LL);
}

void tst_BehaviourCounters::triggerWhileCountingChangesNothing()
{
    countLine0(1000);
    write(CounterBlock::TriggerSource, SignalFrameStart);
    event(SignalFrameStart);
    event(SignalLine0, 4);
    event(SignalFrameStart);
    QCOMPARE(value(), 4LL);
    QCOMPARE(status(), Active);
}

void tst_BehaviourCounters::triggerStartsACompletedCounterFromZero()
{
    countLine0(2);
    write(CounterBlock::TriggerSource, SignalFrameStart);
    event(SignalFrameStart);
    event(SignalLine0, 2);
    QCOMPARE(status(), Completed);
    event(SignalFrameStart);
    QCOMPARE(value(), 0LL);
    QCOMPARE(status(), Active);
}

void tst_BehaviourCounters::resetCounterWaitsForItsTriggerAgain()
{
    countLine0(1000);
    write(CounterBlock::TriggerSource, SignalFrameStart);
    event(SignalFrameStart);
    write(CounterBlock::Reset, 1);
    event(SignalLine0);
    QCOMPARE(status(), TriggerWait);
    QCOMPARE(value(), 0LL);
}

void tst_BehaviourCounters::startAndEndAreSignals()
{
    countLine0(2);
    m_bench->step();
    QCOMPARE(m_bench->allSignals().pulses(SignalCounter0Start), 1U);
    event(SignalLine0, 2);
    QCOMPARE(m_bench->allSignals().pulses(SignalCounter0Start), 0U);
    QCOMPARE(ends(), 1U);
    event(SignalLine0, 2);
    QCOMPARE(ends(), 0U);
}

void tst_BehaviourCounters::ownEndAsResetDivides()
{
    divideLine0(3);
    unsigned all = 0;
    for (int i = 0; i < 10; ++i) {
        event(SignalLine0);
        all += ends();
    }
    QCOMPARE(all, 3U);
    QCOMPARE(value(), 1LL);
    QCOMPARE(status(), Active);
    QCOMPARE(m_bench->registers().readLong(registerAt(CounterBlock::ValueAtReset)), 3LL);
}

void tst_BehaviourCounters::dividerLosesNoEventWithinAStep()
{
    divideLine0(3);
    event(SignalLine0, 8);
    QCOMPARE(ends(), 2U);
    QCOMPARE(m_bench->allSignals().edges(SignalCounter0Active, FallingEdge), 0U);
    event(SignalLine0, 1);
    QCOMPARE(ends(), 1U);
    QCOMPARE(m_bench->allSignals().edges(SignalCounter0Active, FallingEdge), 1U);
    QCOMPARE(value(), 0LL);
}

void tst_BehaviourCounters::dividerStartsACompletedCounterAgain()
{
    countLine0(2);
    event(SignalLine0, 2);
    QCOMPARE(status(), Completed);
    divideLine0(2);
    m_bench->step();
    QCOMPARE(status(), Active);
    QCOMPARE(value(), 0LL);
}

void tst_BehaviourCounters::dividerWithAValueBeyondTheDurationTurnsOnce()
{
    divideLine0(3);
    m_bench->registers().writeLong(registerAt(CounterBlock::Value),
                                   std::numeric_limits<std::int64_t>::max());
    m_bench->step();
    QCOMPARE(ends(), 1U);
    QCOMPARE(value(), 0LL);
}

void tst_BehaviourCounters::ownEndAsResetOfATriggeredCounterWaitsForTheTrigger()
{
    divideLine0(2);
    write(CounterBlock::TriggerSource, SignalFrameStart);
    event(SignalFrameStart);
    event(SignalLine0, 2);
    QCOMPARE(ends(), 1U);
    m_bench->step();
    QCOMPARE(status(), TriggerWait);
    event(SignalLine0, 1);
    QCOMPARE(value(), 0LL);
}

void tst_BehaviourCounters::numbersOutOfRangeDoNoHarm_data()
{
    QTest::addColumn<qint64>("duration");
    QTest::addColumn<qint64>("written");
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
    QFETCH(qint64, written);
    QFETCH(bool, divides);
    countLine0(duration);
    if (divides)
        divideLine0(duration);
    m_bench->registers().writeLong(registerAt(CounterBlock::Value), written);
    event(SignalLine0, 2);
    QTEST(qint64(value()), "after");
}

void tst_BehaviourCounters::hostMaySetTheValue()
{
    countLine0(1000);
    event(SignalLine0, 3);
    m_bench->registers().writeLong(registerAt(CounterBlock::Value), 40);
    event(SignalLine0);
    QCOMPARE(value(), 41LL);
}

void tst_BehaviourCounters::valueBeyondTheDurationStays()
{
    countLine0(5);
    m_bench->registers().writeLong(registerAt(CounterBlock::Value), 40);
    event(SignalLine0);
    QCOMPARE(value(), 40LL);
    QCOMPARE(status(), Completed);
}

QTEST_GUILESS_MAIN(tst_BehaviourCounters)
#include "tst_BehaviourCounters.moc"
