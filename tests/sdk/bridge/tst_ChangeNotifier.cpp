// Which changes observers are told of, and which they are spared.
#include "tests/sdk/bridge/OnNastyCamera.h"

using namespace BridgeTest;

class tst_ChangeNotifier : public QObject, protected OnNastyCamera
{
    Q_OBJECT

private slots:
    void initTestCase() { serve(); }
    void init() { openAnew(); }
    void cleanup() { m_camera.reset(); }
    void cleanupTestCase() { endServing(); }

    void writeIsReportedOnce();
    void writeOfTheSameValueIsNotReported();
    void writesInQuickSuccessionAreReportedOnce();
    void valueThatIsPutBackIsNotReported();
    void changesOfDependentFeaturesAreReported_data();
    void changesOfDependentFeaturesAreReported();
    void commandReportsWhatItInvalidates();
    void steppingASelectorAndPuttingItBackCausesNoCall();
    void movingASelectorReportsWhatDiffersUnderIt();
    void outerSelectorReportsWhatTheInnerOneSelects();
    void refusedWriteIsNotReported();
    void featureWrittenBeforeItWasKnownIsReportedOnce();
    void unobservedFeaturesCauseNoTraffic();
    void onlyFeaturesThatMayHaveChangedAreReadAgain();
    void idleCameraCausesNoTraffic();
    void unpolledChangeAtTheCameraIsNotSeen();
    void polledChangeAtTheCameraIsReported();
    void polledFeatureIsNotReadWhenNobodyObservesIt();
    void pollingCostsOneTransaction();
    void pollingDoesNotLookWhileASelectorIsStepped();

private:
    void stepChannels(const std::vector<int>& channels);
};

void tst_ChangeNotifier::stepChannels(const std::vector<int>& channels)
{
    for (const int channel : channels) {
        set("ChannelSelector", channel);
        QVERIFY(integer(find("ChannelLevel")) >= 0);
    }
}

void tst_ChangeNotifier::writeIsReportedOnce()
{
    observe({"Plain"});
    set("Plain", 5);
    QTRY_COMPARE(m_recorder->count("Plain"), 1);
    settle();
    QCOMPARE(m_recorder->count(), 1);
}

void tst_ChangeNotifier::writeOfTheSameValueIsNotReported()
{
    observe({"Plain"});
    set("Plain", 0);
    settle();
    QCOMPARE(m_recorder->count(), 0);
}

void tst_ChangeNotifier::writesInQuickSuccessionAreReportedOnce()
{
    observe({"Plain"});
    for (int value = 1; value <= 10; ++value)
        set("Plain", value);
    settle();
    QCOMPARE(m_recorder->count("Plain"), 1);
}

void tst_ChangeNotifier::valueThatIsPutBackIsNotReported()
{
    observe({"Plain"});
    set("Plain", 1);
    set("Plain", 0);
    settle();
    QCOMPARE(m_recorder->count(), 0);
}

void tst_ChangeNotifier::changesOfDependentFeaturesAreReported_data()
{
    QTest::addColumn<QString>("written");
    QTest::addColumn<QStringList>("changed");
    QTest::newRow("value, through formulas") << "Plain" << QStringList{"Doubled", "Halved"};
    QTest::newRow("minimum") << "LimitLow" << QStringList{"Limited"};
    QTest::newRow("maximum") << "LimitHigh" << QStringList{"Limited"};
    QTest::newRow("increment") << "LimitStep" << QStringList{"Limited"};
    QTest::newRow("lock, of a value and of a command")
        << "Lock" << QStringList{"Lockable", "Latch"};
    QTest::newRow("lock of the transport layer") << "TLParamsLocked" << QStringList{"Width"};
}

void tst_ChangeNotifier::changesOfDependentFeaturesAreReported()
{
    QFETCH(QString, written);
    QFETCH(QStringList, changed);
    std::vector<std::string> names;
    for (const auto& name : changed)
        names.push_back(name.toStdString());
    observe(names);
    set(written.toStdString(), 1);
    settle();
    QCOMPARE(m_recorder->calls(), names);
}

void tst_ChangeNotifier::commandReportsWhatItInvalidates()
{
    observe({"Invalidated", "Ticks"});
    m_server->setReg(0x4600, 1);
    m_server->setReg(0x4704, 1);
    QCOMPARE(find("Latch")->RunCommand(), ZalErrorSuccess);
    settle();
    QCOMPARE(m_recorder->calls(), std::vector<std::string>{"Invalidated"});
}

void tst_ChangeNotifier::steppingASelectorAndPuttingItBackCausesNoCall()
{
    for (std::uint32_t channel = 0; channel < 4; ++channel)
        m_server->setReg(0x4440 + 4 * channel, 10 + channel);
    observe({"BankSelector", "ChannelSelector", "ChannelLevel", "ChannelMode", "BankName"});
    stepChannels({1, 2, 3, 0});
    settle();
    QCOMPARE(m_recorder->count(), 0);
}

void tst_ChangeNotifier::movingASelectorReportsWhatDiffersUnderIt()
{
    m_server->setReg(0x4440 + 4, 10);
    observe({"ChannelSelector", "ChannelLevel", "ChannelMode", "BankName"});
    set("ChannelSelector", 1);
    settle();
    // The mode's value is the same, but one more of its entries is available.
    QCOMPARE(m_recorder->calls(),
             (std::vector<std::string>{"ChannelSelector", "ChannelLevel", "ChannelMode"}));
    m_recorder->clear();
    set("ChannelSelector", 2);
    settle();
    QCOMPARE(m_recorder->calls(), (std::vector<std::string>{"ChannelSelector", "ChannelLevel"}));
}

void tst_ChangeNotifier::outerSelectorReportsWhatTheInnerOneSelects()
{
    m_server->setReg(0x4440 + 0x40, 10);
    observe({"ChannelSelector", "ChannelLevel", "BankName"});
    QCOMPARE(find("BankSelector")->SetStringValue("Bank1"), ZalErrorSuccess);
    settle();
    QCOMPARE(m_recorder->calls(), std::vector<std::string>{"ChannelLevel"});
}

void tst_ChangeNotifier::refusedWriteIsNotReported()
{
    observe({"Plain", "Doubled"});
    const auto before = m_camera->Counts();
    QCOMPARE(find("Plain")->SetIntegerValue(5000), ZalErrorOutOfRange);
    settle();
    QCOMPARE(m_recorder->count(), 0);
    QCOMPARE(m_camera->Counts().reads, before.reads);
}

void tst_ChangeNotifier::featureWrittenBeforeItWasKnownIsReportedOnce()
{
    Gate gate;
    const auto blocker = std::make_shared<Recorder>();
    blocker->onCall = [&](const FeaturePtr&) { gate.pass(); };
    QCOMPARE(find("Lock")->RegisterObserver(blocker), ZalErrorSuccess);
    set("Lock", 1);
    QVERIFY(gate.waitUntilEntered());
    QCOMPARE(find("Plain")->RegisterObserver(m_recorder), ZalErrorSuccess);
    set("Plain", 0);
    gate.open();
    QTRY_COMPARE(m_recorder->count("Plain"), 1);
    settle();
    QCOMPARE(m_recorder->count("Plain"), 1);
}

void tst_ChangeNotifier::unobservedFeaturesCauseNoTraffic()
{
    settle();
    const auto before = m_camera->Counts();
    set("Plain", 5);
    settle();
    QCOMPARE(m_camera->Counts().reads, before.reads);
    QCOMPARE(m_camera->Counts().writes, before.writes + 1);
}

void tst_ChangeNotifier::onlyFeaturesThatMayHaveChangedAreReadAgain()
{
    observe({"Plain", "Stepped", "Hexadecimal", "Note"});
    const auto before = m_camera->Counts();
    set("Plain", 5);
    settle();
    QCOMPARE(m_camera->Counts().reads, before.reads + 1);
}

void tst_ChangeNotifier::idleCameraCausesNoTraffic()
{
    std::vector<std::string> unpolled;
    for (const auto& name : names(*m_camera->Features())) {
        if (name != "Temperature" && name != "ChannelStatus" && name != Sentinel)
            unpolled.push_back(name);
    }
    observe(unpolled);
    const auto before = m_camera->Counts();
    // Nothing is to happen, so there is nothing to wait for but time.
    QTest::qWait(300);
    QCOMPARE(m_camera->Counts().reads, before.reads);
    QCOMPARE(m_camera->Counts().writes, before.writes);
    QCOMPARE(m_recorder->count(), 0);
}

void tst_ChangeNotifier::unpolledChangeAtTheCameraIsNotSeen()
{
    observe({"Ticks", "Temperature"});
    m_server->setReg(0x4704, 5);
    m_server->setReg(0x4700, 20);
    QTRY_COMPARE(m_recorder->count("Temperature"), 1);
    settle();
    QCOMPARE(m_recorder->count("Ticks"), 0);
}

void tst_ChangeNotifier::polledChangeAtTheCameraIsReported()
{
    observe({"Temperature"});
    for (std::uint32_t degrees = 1; degrees <= 3; ++degrees) {
        m_server->setReg(0x4700, degrees);
        QTRY_COMPARE(m_recorder->count("Temperature"), static_cast<int>(degrees));
    }
}

void tst_ChangeNotifier::polledFeatureIsNotReadWhenNobodyObservesIt()
{
    observe({"Temperature"});
    m_server->setReg(0x4700, 1);
    QTRY_COMPARE(m_recorder->count("Temperature"), 1);
    QCOMPARE(find("Temperature")->UnregisterObserver(m_recorder), ZalErrorSuccess);
    settle();
    const auto before = m_camera->Counts();
    QTest::qWait(300);
    QCOMPARE(m_camera->Counts().reads, before.reads);
}

void tst_ChangeNotifier::pollingCostsOneTransaction()
{
    // Polled every 100 ms: in any stretch of time there are at most this many reads.
    observe({"Temperature"});
    const auto before = m_camera->Counts();
    QElapsedTimer timer;
    timer.start();
    QTRY_VERIFY(m_camera->Counts().reads >= before.reads + 5);
    QVERIFY(m_camera->Counts().reads - before.reads <=
            static_cast<std::uint64_t>(timer.elapsed() / 100 + 1));
    QCOMPARE(m_recorder->count(), 0);
}

void tst_ChangeNotifier::pollingDoesNotLookWhileASelectorIsStepped()
{
    m_server->setReg(0x4710 + 4, 1);
    observe({"ChannelStatus"});
    for (int round = 0; round < 20; ++round)
        stepChannels({1, 2, 3, 0});
    settle();
    QCOMPARE(m_recorder->count(), 0);
    set("ChannelSelector", 1);
    QTRY_COMPARE(m_recorder->count("ChannelStatus"), 1);
}

QTEST_GUILESS_MAIN(tst_ChangeNotifier)
#include "tst_ChangeNotifier.moc"
