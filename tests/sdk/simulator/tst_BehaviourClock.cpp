#include "sdk/simulator/BehaviourClock.h"
#include "tests/sdk/simulator/Bench.h"

#include <QtTest>

#include <chrono>
#include <cstdlib>

using namespace ZalSim;
using namespace ZalSim::Registers;

namespace {

constexpr std::uint32_t Initializing = 1;
constexpr std::uint32_t Disabled = 3;
constexpr std::uint32_t Listening = 4;
constexpr std::uint32_t PreMaster = 5;
constexpr std::uint32_t Master = 6;
constexpr std::uint32_t Uncalibrated = 8;
constexpr std::uint32_t Slave = 9;
constexpr std::uint32_t MasterMode = 2;
constexpr std::uint32_t Within1us = 0x23;
constexpr std::uint32_t UnknownAccuracy = 0xfe;
constexpr int StepsToSettle = 2000;

qint64 nanosecondsNow()
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

} // namespace

class tst_BehaviourClock : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_bench = std::make_unique<BenchOf<BehaviourClock>>(); }

    void timestampStaysUntilItIsLatched();
    void latchedTimestampIsTheTimeOfTheLatch();
    void ptpIsDisabledAtFirst();
    void ptpWalksToSlave();
    void ptpWalksToMasterInMasterMode();
    void switchingPtpOffDisablesIt();
    void newModeStartsTheWalkAgain();
    void servoLocksWhenSlave();
    void clockIdentityIsThereFromTheStart();
    void dataSetStaysUntilItIsLatched();
    void latchedDataSetOfASlaveNamesItsMaster();
    void latchedDataSetOfAMasterNamesItself();
    void latchedDataSetWithoutPtpIsEmpty();

private:
    std::uint32_t read(Address address) const { return m_bench->registers().read(address); }
    std::int64_t readLong(Address address) const { return m_bench->registers().readLong(address); }
    QVector<std::uint32_t> walk() const;
    void latch() const;

    std::unique_ptr<BenchOf<BehaviourClock>> m_bench;
};

// The states that the clock goes through, each once.
QVector<std::uint32_t> tst_BehaviourClock::walk() const
{
    QVector<std::uint32_t> states;
    for (int i = 0; i < StepsToSettle; ++i) {
        m_bench->step();
        if (states.isEmpty() || states.last() != read(PtpStatus))
            states.append(read(PtpStatus));
    }
    return states;
}

void tst_BehaviourClock::latch() const
{
    m_bench->registers().write(PtpDataSetLatch, 1);
    m_bench->step();
}

void tst_BehaviourClock::timestampStaysUntilItIsLatched()
{
    m_bench->steps(10);
    QCOMPARE(readLong(TimestampLatchValue), 0LL);
}

void tst_BehaviourClock::latchedTimestampIsTheTimeOfTheLatch()
{
    const qint64 before = nanosecondsNow();
    m_bench->registers().write(TimestampLatch, 1);
    m_bench->step();
    const std::int64_t latched = readLong(TimestampLatchValue);
    QVERIFY(latched >= before);
    QVERIFY(latched <= nanosecondsNow());
    m_bench->steps(10);
    QCOMPARE(readLong(TimestampLatchValue), latched);
}

void tst_BehaviourClock::ptpIsDisabledAtFirst()
{
    m_bench->step();
    QCOMPARE(read(PtpStatus), Disabled);
    QCOMPARE(read(PtpServoStatus), 0U);
}

void tst_BehaviourClock::ptpWalksToSlave()
{
    m_bench->registers().write(PtpEnable, 1);
    QCOMPARE(walk(), (QVector<std::uint32_t>{Initializing, Listening, Uncalibrated, Slave}));
}

void tst_BehaviourClock::ptpWalksToMasterInMasterMode()
{
    m_bench->registers().write(PtpOperationMode, MasterMode);
    m_bench->registers().write(PtpEnable, 1);
    QCOMPARE(walk(), (QVector<std::uint32_t>{Initializing, Listening, PreMaster, Master}));
}

void tst_BehaviourClock::switchingPtpOffDisablesIt()
{
    m_bench->registers().write(PtpEnable, 1);
    m_bench->steps(StepsToSettle);
    m_bench->registers().write(PtpEnable, 0);
    m_bench->step();
    QCOMPARE(read(PtpStatus), Disabled);
}

void tst_BehaviourClock::newModeStartsTheWalkAgain()
{
    m_bench->registers().write(PtpEnable, 1);
    m_bench->steps(StepsToSettle);
    m_bench->registers().write(PtpOperationMode, MasterMode);
    QCOMPARE(walk(), (QVector<std::uint32_t>{Initializing, Listening, PreMaster, Master}));
}

void tst_BehaviourClock::servoLocksWhenSlave()
{
    m_bench->registers().write(PtpEnable, 1);
    m_bench->step();
    QCOMPARE(read(PtpServoStatus), 0U);
    m_bench->steps(StepsToSettle);
    QCOMPARE(read(PtpServoStatus), 1U);
}

void tst_BehaviourClock::clockIdentityIsThereFromTheStart()
{
    QVERIFY(readLong(PtpClockId) != 0);
}

void tst_BehaviourClock::dataSetStaysUntilItIsLatched()
{
    m_bench->registers().write(PtpEnable, 1);
    m_bench->steps(StepsToSettle);
    QCOMPARE(readLong(PtpParentClockId), 0LL);
    QCOMPARE(readLong(PtpGrandmasterClockId), 0LL);
    QCOMPARE(read(PtpClockAccuracy), UnknownAccuracy);
    QCOMPARE(readLong(PtpOffsetFromMaster), 0LL);
}

void tst_BehaviourClock::latchedDataSetOfASlaveNamesItsMaster()
{
    m_bench->registers().write(PtpEnable, 1);
    m_bench->steps(StepsToSettle);
    latch();
    QVERIFY(readLong(PtpParentClockId) != 0);
    QVERIFY(readLong(PtpParentClockId) != readLong(PtpClockId));
    QCOMPARE(readLong(PtpGrandmasterClockId), readLong(PtpParentClockId));
    QCOMPARE(read(PtpClockAccuracy), Within1us);
    const std::int64_t offset = readLong(PtpOffsetFromMaster);
    QVERIFY(offset != 0 && std::llabs(offset) < 1000);
}

void tst_BehaviourClock::latchedDataSetOfAMasterNamesItself()
{
    m_bench->registers().write(PtpOperationMode, MasterMode);
    m_bench->registers().write(PtpEnable, 1);
    m_bench->steps(StepsToSettle);
    latch();
    QCOMPARE(readLong(PtpParentClockId), readLong(PtpClockId));
    QCOMPARE(readLong(PtpGrandmasterClockId), readLong(PtpClockId));
    QCOMPARE(readLong(PtpOffsetFromMaster), 0LL);
}

void tst_BehaviourClock::latchedDataSetWithoutPtpIsEmpty()
{
    latch();
    QCOMPARE(readLong(PtpParentClockId), 0LL);
    QCOMPARE(readLong(PtpGrandmasterClockId), 0LL);
    QCOMPARE(read(PtpClockAccuracy), UnknownAccuracy);
}

QTEST_GUILESS_MAIN(tst_BehaviourClock)
#include "tst_BehaviourClock.moc"
