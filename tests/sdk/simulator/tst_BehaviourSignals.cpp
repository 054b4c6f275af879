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
    std::unique_ptr<BenchOf<BehaviourSignals>> m_bench;
};

void tst_BehaviourSignals::init()
{
    m_bench = std::make_unique<BenchOf<BehaviourSignals>>();
    m_bench->registers().write(ControlPrivilege, 2);
}

void tst_BehaviourSignals::softwareSignalPulsesOncePerCommand()
{
    m_bench->registers().write(SoftwareSignalPulse, 1);
    m_bench->step();
    QCOMPARE(m_bench->allSignals().pulses(SignalSoftwareSignal0), 1U);
    m_bench->step();
    QCOMPARE(m_bench->allSignals().pulses(SignalSoftwareSignal0), 0U);
}

void tst_BehaviourSignals::softwareSignalsAreIndependent()
{
    m_bench->registers().write(SoftwareSignalPulse + 4, 1);
    m_bench->step();
    QCOMPARE(m_bench->allSignals().pulses(SignalSoftwareSignal0), 0U);
    QCOMPARE(m_bench->allSignals().pulses(SignalSoftwareSignal0 + 1), 1U);
}

void tst_BehaviourSignals::userOutputFollowsItsValue()
{
    m_bench->registers().write(UserOutputValue + 4, 1);
    m_bench->step();
    QVERIFY(!m_bench->level(SignalUserOutput0));
    QVERIFY(m_bench->level(SignalUserOutput0 + 1));
    m_bench->registers().write(UserOutputValue + 4, 0);
    m_bench->step();
    QVERIFY(!m_bench->level(SignalUserOutput0 + 1));
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
    m_bench->registers().write(ActionDeviceKey, 7);
    for (unsigned action = 0; action < 2; ++action) {
        m_bench->registers().write(ActionGroupKey + action * ActionStride, 9);
        m_bench->registers().write(ActionGroupMask + action * ActionStride, 1U << action);
    }
    m_bench->subject.command(deviceKey, groupKey, groupMask);
    m_bench->step();
    QTEST(m_bench->allSignals().pulses(SignalAction0), "first");
    QTEST(m_bench->allSignals().pulses(SignalAction0 + 1), "second");
}

void tst_BehaviourSignals::actionFiresOnce()
{
    m_bench->registers().write(ActionGroupMask, 1);
    m_bench->subject.command(0, 0, 1);
    m_bench->step();
    QCOMPARE(m_bench->allSignals().pulses(SignalAction0), 1U);
    m_bench->step();
    QCOMPARE(m_bench->allSignals().pulses(SignalAction0), 0U);
}

void tst_BehaviourSignals::actionNeedsAControllingHostUnlessUnconditional()
{
    m_bench->registers().write(ActionGroupMask, 1);
    m_bench->registers().write(ControlPrivilege, 0);
    m_bench->subject.command(0, 0, 1);
    m_bench->step();
    QCOMPARE(m_bench->allSignals().pulses(SignalAction0), 0U);
    m_bench->registers().write(ActionUnconditionalMode, 1);
    m_bench->subject.command(0, 0, 1);
    m_bench->step();
    QCOMPARE(m_bench->allSignals().pulses(SignalAction0), 1U);
}

void tst_BehaviourSignals::queueHasOnePlace()
{
    QCOMPARE(m_bench->registers().read(ActionQueueSize), 1U);
}

QTEST_GUILESS_MAIN(tst_BehaviourSignals)
#include "tst_BehaviourSignals.moc"
