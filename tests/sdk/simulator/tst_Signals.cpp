#include "sdk/simulator/Signals.h"

#include <QtTest>

using namespace ZalSim;

class tst_Signals : public QObject
{
    Q_OBJECT

private slots:
    void edgesAreCountedByActivation_data();
    void edgesAreCountedByActivation();
    void whatIsSetIsSeenOnlyAfterPublishing();
    void edgesAreSeenOnceAndLevelsStay();
    void settingTheSameLevelIsNoEdge();
    void pulsesLeaveTheLevelAsItIs();
    void signalsOutsideTheListAreLowAndQuiet();
};

void tst_Signals::edgesAreCountedByActivation_data()
{
    QTest::addColumn<unsigned>("activation");
    QTest::addColumn<unsigned>("expected");
    QTest::newRow("rising") << unsigned(RisingEdge) << 2U;
    QTest::newRow("falling") << unsigned(FallingEdge) << 1U;
    QTest::newRow("any") << unsigned(AnyEdge) << 3U;
    QTest::newRow("level high has no edges") << unsigned(LevelHigh) << 0U;
    QTest::newRow("level low has no edges") << unsigned(LevelLow) << 0U;
    QTest::newRow("unknown") << 77U << 0U;
}

void tst_Signals::edgesAreCountedByActivation()
{
    QFETCH(unsigned, activation);
    QFETCH(unsigned, expected);
    Signals bus;
    bus.setLevel(SignalLine0, true);
    bus.setLevel(SignalLine0, false);
    bus.setLevel(SignalLine0, true);
    bus.publish();
    QCOMPARE(bus.edges(SignalLine0, activation), expected);
    QCOMPARE(bus.edges(SignalLine0 + 1, activation), 0U);
}

void tst_Signals::whatIsSetIsSeenOnlyAfterPublishing()
{
    Signals bus;
    bus.setLevel(SignalLine0, true);
    QVERIFY(!bus.level(SignalLine0));
    QCOMPARE(bus.edges(SignalLine0, RisingEdge), 0U);
    bus.publish();
    QVERIFY(bus.level(SignalLine0));
    QCOMPARE(bus.edges(SignalLine0, RisingEdge), 1U);
}

void tst_Signals::edgesAreSeenOnceAndLevelsStay()
{
    Signals bus;
    bus.setLevel(SignalLine0, true);
    bus.publish();
    bus.publish();
    QVERIFY(bus.level(SignalLine0));
    QCOMPARE(bus.edges(SignalLine0, AnyEdge), 0U);
}

void tst_Signals::settingTheSameLevelIsNoEdge()
{
    Signals bus;
    bus.setLevel(SignalLine0, true);
    bus.publish();
    bus.setLevel(SignalLine0, true);
    bus.publish();
    QCOMPARE(bus.edges(SignalLine0, AnyEdge), 0U);
}

void tst_Signals::pulsesLeaveTheLevelAsItIs()
{
    Signals bus;
    bus.pulse(SignalFrameStart, 3);
    bus.publish();
    QVERIFY(!bus.level(SignalFrameStart));
    QCOMPARE(bus.edges(SignalFrameStart, RisingEdge), 3U);
    QCOMPARE(bus.edges(SignalFrameStart, FallingEdge), 3U);
    QCOMPARE(bus.pulses(SignalFrameStart), 3U);
}

void tst_Signals::signalsOutsideTheListAreLowAndQuiet()
{
    const Signals bus;
    QVERIFY(!bus.level(SignalCount));
    QVERIFY(!bus.level(0xffffffff));
    QCOMPARE(bus.edges(0xffffffff, AnyEdge), 0U);
}

QTEST_GUILESS_MAIN(tst_Signals)
#include "tst_Signals.moc"
