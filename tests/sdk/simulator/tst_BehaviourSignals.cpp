#include "sdk/simulator/BehaviourSignals.h"
#include "tests/sdk/simulator/Bench.h"

#include <QtTest>

using namespace ZalSim;
using namespace ZalSim::Registers;

class tst_BehaviourSignals : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void softwareSignalPulsesOncePerCommand();
    void softwareSignalsAreIndependent();
    void userOutputFollowsItsValue();
    void actionFiresWhenItIsMeant_data();
    void actionFiresWhenItIsMeant();
    void actionFiresOnce();
    void actionNeedsAControllingHostUnlessUnconditional();
    void queueHasOnePlace();

private:
    std::unique_ptr<BenchOf<BehaviourSignals>> bench;
};

void tst_BehaviourSignals::init()
{
    bench = std::make_unique<BenchOf<BehaviourSignals>>();
    bench->Registers().Write(ControlPrivilege, 2);
}

void tst_BehaviourSignals::softwareSignalPulsesOncePerCommand()
{
    bench->Registers().Write(SoftwareSignalPulse, 1);
    bench->Step();
    QCOMPARE(bench->AllSignals().Pulses(SignalSoftwareSignal0), 1U);
    bench->Step();
    QCOMPARE(bench->AllSignals().Pulses(SignalSoftwareSignal0), 0U);
}

void tst_BehaviourSignals::softwareSignalsAreIndependent()
{
    bench->Registers().Write(SoftwareSignalPulse + 4, 1);
    bench->Step();
    QCOMPARE(bench->AllSignals().Pulses(SignalSoftwareSignal0), 0U);
    QCOMPARE(bench->AllSignals().Pulses(SignalSoftwareSignal0 + 1), 1U);
}

void tst_BehaviourSignals::userOutputFollowsItsValue()
{
    bench->Registers().Write(UserOutputValue + 4, 1);
    bench->Step();
    QVERIFY(!bench->Level(SignalUserOutput0));
    QVERIFY(bench->Level(SignalUserOutput0 + 1));
    bench->Registers().Write(UserOutputValue + 4, 0);
    bench->Step();
    QVERIFY(!bench->Level(SignalUserOutput0 + 1));
}

void tst_BehaviourSignals::actionFiresWhenItIsMeant_data()
{
    QTest::addColumn<unsigned>("deviceKey");
    QTest::addColumn<unsigned>("groupKey");
    QTest::addColumn<unsigned>("groupMask");
    QTest::addColumn<unsigned>("first");
    QTest::addColumn<unsigned>("second");
    QTest::newRow("both keys, first mask") << 7U << 9U << 1U << 1U << 0U;
    QTest::newRow("both keys, second mask") << 7U << 9U << 2U << 0U << 1U;
    QTest::newRow("both keys, both masks") << 7U << 9U << 0xffU << 1U << 1U;
    QTest::newRow("other device key") << 8U << 9U << 0xffU << 0U << 0U;
    QTest::newRow("other group key") << 7U << 8U << 0xffU << 0U << 0U;
    QTest::newRow("no common bit in the masks") << 7U << 9U << 0xf0U << 0U << 0U;
}

void tst_BehaviourSignals::actionFiresWhenItIsMeant()
{
    QFETCH(unsigned, deviceKey);
    QFETCH(unsigned, groupKey);
    QFETCH(unsigned, groupMask);
    bench->Registers().Write(ActionDeviceKey, 7);
    for (unsigned action = 0; action < 2; ++action) {
        bench->Registers().Write(ActionGroupKey + action * ActionStride, 9);
        bench->Registers().Write(ActionGroupMask + action * ActionStride, 1U << action);
    }
    bench->subject.Command(deviceKey, groupKey, groupMask);
    bench->Step();
    QTEST(bench->AllSignals().Pulses(SignalAction0), "first");
    QTEST(bench->AllSignals().Pulses(SignalAction0 + 1), "second");
}

void tst_BehaviourSignals::actionFiresOnce()
{
    bench->Registers().Write(ActionGroupMask, 1);
    bench->subject.Command(0, 0, 1);
    bench->Step();
    QCOMPARE(bench->AllSignals().Pulses(SignalAction0), 1U);
    bench->Step();
    QCOMPARE(bench->AllSignals().Pulses(SignalAction0), 0U);
}

void tst_BehaviourSignals::actionNeedsAControllingHostUnlessUnconditional()
{
    bench->Registers().Write(ActionGroupMask, 1);
    bench->Registers().Write(ControlPrivilege, 0);
    bench->subject.Command(0, 0, 1);
    bench->Step();
    QCOMPARE(bench->AllSignals().Pulses(SignalAction0), 0U);
    bench->Registers().Write(ActionUnconditionalMode, 1);
    bench->subject.Command(0, 0, 1);
    bench->Step();
    QCOMPARE(bench->AllSignals().Pulses(SignalAction0), 1U);
}

void tst_BehaviourSignals::queueHasOnePlace()
{
    QCOMPARE(bench->Registers().Read(ActionQueueSize), 1U);
}

QTEST_GUILESS_MAIN(tst_BehaviourSignals)
#include "tst_BehaviourSignals.moc"
