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

qint64 NanosecondsNow()
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

} // namespace

class tst_BehaviourClock : public QObject
{
    Q_OBJECT

private slots:
    void init() { bench = std::make_unique<BenchOf<BehaviourClock>>(); }

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
    std::uint32_t Read(Address address) const { return bench->Registers().Read(address); }
    std::int64_t ReadLong(Address address) const { return bench->Registers().ReadLong(address); }
    QVector<std::uint32_t> Walk() const;
    void Latch() const;

    std::unique_ptr<BenchOf<BehaviourClock>> bench;
};

// The states that the clock goes through, each once.
QVector<std::uint32_t> tst_BehaviourClock::Walk() const
{
    QVector<std::uint32_t> states;
    for (int i = 0; i < StepsToSettle; ++i) {
        bench->Step();
        if (states.isEmpty() || states.last() != Read(PtpStatus))
            states.append(Read(PtpStatus));
    }
    return states;
}

void tst_BehaviourClock::Latch() const
{
    bench->Registers().Write(PtpDataSetLatch, 1);
    bench->Step();
}

void tst_BehaviourClock::timestampStaysUntilItIsLatched()
{
    bench->Steps(10);
    QCOMPARE(ReadLong(TimestampLatchValue), 0LL);
}

void tst_BehaviourClock::latchedTimestampIsTheTimeOfTheLatch()
{
    const qint64 before = NanosecondsNow();
    bench->Registers().Write(TimestampLatch, 1);
    bench->Step();
    const std::int64_t latched = ReadLong(TimestampLatchValue);
    QVERIFY(latched >= before);
    QVERIFY(latched <= NanosecondsNow());
    bench->Steps(10);
    QCOMPARE(ReadLong(TimestampLatchValue), latched);
}

void tst_BehaviourClock::ptpIsDisabledAtFirst()
{
    bench->Step();
    QCOMPARE(Read(PtpStatus), Disabled);
    QCOMPARE(Read(PtpServoStatus), 0U);
}

void tst_BehaviourClock::ptpWalksToSlave()
{
    bench->Registers().Write(PtpEnable, 1);
    QCOMPARE(Walk(), (QVector<std::uint32_t>{Initializing, Listening, Uncalibrated, Slave}));
}

void tst_BehaviourClock::ptpWalksToMasterInMasterMode()
{
    bench->Registers().Write(PtpOperationMode, MasterMode);
    bench->Registers().Write(PtpEnable, 1);
    QCOMPARE(Walk(), (QVector<std::uint32_t>{Initializing, Listening, PreMaster, Master}));
}

void tst_BehaviourClock::switchingPtpOffDisablesIt()
{
    bench->Registers().Write(PtpEnable, 1);
    bench->Steps(StepsToSettle);
    bench->Registers().Write(PtpEnable, 0);
    bench->Step();
    QCOMPARE(Read(PtpStatus), Disabled);
}

void tst_BehaviourClock::newModeStartsTheWalkAgain()
{
    bench->Registers().Write(PtpEnable, 1);
    bench->Steps(StepsToSettle);
    bench->Registers().Write(PtpOperationMode, MasterMode);
    QCOMPARE(Walk(), (QVector<std::uint32_t>{Initializing, Listening, PreMaster, Master}));
}

void tst_BehaviourClock::servoLocksWhenSlave()
{
    bench->Registers().Write(PtpEnable, 1);
    bench->Step();
    QCOMPARE(Read(PtpServoStatus), 0U);
    bench->Steps(StepsToSettle);
    QCOMPARE(Read(PtpServoStatus), 1U);
}

void tst_BehaviourClock::clockIdentityIsThereFromTheStart()
{
    QVERIFY(ReadLong(PtpClockId) != 0);
}

void tst_BehaviourClock::dataSetStaysUntilItIsLatched()
{
    bench->Registers().Write(PtpEnable, 1);
    bench->Steps(StepsToSettle);
    QCOMPARE(ReadLong(PtpParentClockId), 0LL);
    QCOMPARE(ReadLong(PtpGrandmasterClockId), 0LL);
    QCOMPARE(Read(PtpClockAccuracy), UnknownAccuracy);
    QCOMPARE(ReadLong(PtpOffsetFromMaster), 0LL);
}

void tst_BehaviourClock::latchedDataSetOfASlaveNamesItsMaster()
{
    bench->Registers().Write(PtpEnable, 1);
    bench->Steps(StepsToSettle);
    Latch();
    QVERIFY(ReadLong(PtpParentClockId) != 0);
    QVERIFY(ReadLong(PtpParentClockId) != ReadLong(PtpClockId));
    QCOMPARE(ReadLong(PtpGrandmasterClockId), ReadLong(PtpParentClockId));
    QCOMPARE(Read(PtpClockAccuracy), Within1us);
    const std::int64_t offset = ReadLong(PtpOffsetFromMaster);
    QVERIFY(offset != 0 && std::llabs(offset) < 1000);
}

void tst_BehaviourClock::latchedDataSetOfAMasterNamesItself()
{
    bench->Registers().Write(PtpOperationMode, MasterMode);
    bench->Registers().Write(PtpEnable, 1);
    bench->Steps(StepsToSettle);
    Latch();
    QCOMPARE(ReadLong(PtpParentClockId), ReadLong(PtpClockId));
    QCOMPARE(ReadLong(PtpGrandmasterClockId), ReadLong(PtpClockId));
    QCOMPARE(ReadLong(PtpOffsetFromMaster), 0LL);
}

void tst_BehaviourClock::latchedDataSetWithoutPtpIsEmpty()
{
    Latch();
    QCOMPARE(ReadLong(PtpParentClockId), 0LL);
    QCOMPARE(ReadLong(PtpGrandmasterClockId), 0LL);
    QCOMPARE(Read(PtpClockAccuracy), UnknownAccuracy);
}

QTEST_GUILESS_MAIN(tst_BehaviourClock)
#include "tst_BehaviourClock.moc"
