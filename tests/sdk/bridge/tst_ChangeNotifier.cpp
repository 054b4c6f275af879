// Which changes observers are told of, and which they are spared.
#include "tests/sdk/bridge/OnNastyCamera.h"

#include <thread>

using namespace BridgeTest;

namespace {

/// Keeps the notification thread inside a call until released.
class Gate
{
public:
    void pass()
    {
        entered.release();
        opened.acquire();
    }
    bool waitUntilEntered() { return entered.tryAcquire(1, 5000); }
    void open() { opened.release(); }

private:
    QSemaphore entered;
    QSemaphore opened;
};

} // namespace

class tst_ChangeNotifier : public QObject, protected OnNastyCamera
{
    Q_OBJECT

private slots:
    void initTestCase() { serve(); }
    void init();
    void cleanup();
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
    void observerReadsTheNewValueOnAnotherThread();
    void observerMayWriteInItsCall();
    void observerMayUnregisterInItsCall();
    void secondRegistrationChangesNothing();
    void everyObserverIsCalled();
    void unregisteredObserverIsNotCalledAndLetGo();
    void observerUnregisteredWhileAnotherIsCalledIsNotCalled();
    void observerMayUnregisterElsewhereWhenItDies();
    void nullObserverIsABadParameter();
    void cameraMayBeDestroyedInACall();

private:
    void observe(const std::vector<std::string>& features);
    void set(const std::string& name, long long value);
    void stepChannels(const std::vector<int>& channels);

    std::shared_ptr<Recorder> recorder;
};

void tst_ChangeNotifier::init()
{
    openAnew();
    recorder = std::make_shared<Recorder>();
}

void tst_ChangeNotifier::cleanup()
{
    camera.reset();
}

// Registers the recorder and waits until everything is known.
void tst_ChangeNotifier::observe(const std::vector<std::string>& features)
{
    for (const auto& name : features)
        QCOMPARE(find(name)->RegisterObserver(recorder), ZalErrorSuccess);
    settle();
}

void tst_ChangeNotifier::set(const std::string& name, long long value)
{
    QCOMPARE(find(name)->SetIntegerValue(value), ZalErrorSuccess);
}

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
    QTRY_COMPARE(recorder->count("Plain"), 1);
    settle();
    QCOMPARE(recorder->count(), 1);
}

void tst_ChangeNotifier::writeOfTheSameValueIsNotReported()
{
    observe({"Plain"});
    set("Plain", 0);
    settle();
    QCOMPARE(recorder->count(), 0);
}

void tst_ChangeNotifier::writesInQuickSuccessionAreReportedOnce()
{
    observe({"Plain"});
    for (int value = 1; value <= 10; ++value)
        set("Plain", value);
    settle();
    QCOMPARE(recorder->count("Plain"), 1);
}

void tst_ChangeNotifier::valueThatIsPutBackIsNotReported()
{
    observe({"Plain"});
    set("Plain", 1);
    set("Plain", 0);
    settle();
    QCOMPARE(recorder->count(), 0);
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
    QCOMPARE(recorder->calls(), names);
}

void tst_ChangeNotifier::commandReportsWhatItInvalidates()
{
    observe({"Invalidated", "Ticks"});
    server->setReg(0x4600, 1);
    server->setReg(0x4704, 1);
    QCOMPARE(find("Latch")->RunCommand(), ZalErrorSuccess);
    settle();
    QCOMPARE(recorder->calls(), std::vector<std::string>{"Invalidated"});
}

void tst_ChangeNotifier::steppingASelectorAndPuttingItBackCausesNoCall()
{
    for (std::uint32_t channel = 0; channel < 4; ++channel)
        server->setReg(0x4440 + 4 * channel, 10 + channel);
    observe({"BankSelector", "ChannelSelector", "ChannelLevel", "ChannelMode", "BankName"});
    stepChannels({1, 2, 3, 0});
    settle();
    QCOMPARE(recorder->count(), 0);
}

void tst_ChangeNotifier::movingASelectorReportsWhatDiffersUnderIt()
{
    server->setReg(0x4440 + 4, 10);
    observe({"ChannelSelector", "ChannelLevel", "ChannelMode", "BankName"});
    set("ChannelSelector", 1);
    settle();
    // The mode's value is the same, but one more of its entries is available.
    QCOMPARE(recorder->calls(),
             (std::vector<std::string>{"ChannelSelector", "ChannelLevel", "ChannelMode"}));
    recorder->clear();
    set("ChannelSelector", 2);
    settle();
    QCOMPARE(recorder->calls(), (std::vector<std::string>{"ChannelSelector", "ChannelLevel"}));
}

void tst_ChangeNotifier::outerSelectorReportsWhatTheInnerOneSelects()
{
    server->setReg(0x4440 + 0x40, 10);
    observe({"ChannelSelector", "ChannelLevel", "BankName"});
    QCOMPARE(find("BankSelector")->SetStringValue("Bank1"), ZalErrorSuccess);
    settle();
    QCOMPARE(recorder->calls(), std::vector<std::string>{"ChannelLevel"});
}

void tst_ChangeNotifier::refusedWriteIsNotReported()
{
    observe({"Plain", "Doubled"});
    const auto before = camera->Counts();
    QCOMPARE(find("Plain")->SetIntegerValue(5000), ZalErrorOutOfRange);
    settle();
    QCOMPARE(recorder->count(), 0);
    QCOMPARE(camera->Counts().reads, before.reads);
}

void tst_ChangeNotifier::featureWrittenBeforeItWasKnownIsReportedOnce()
{
    Gate gate;
    const auto blocker = std::make_shared<Recorder>();
    blocker->onCall = [&](const FeaturePtr&) { gate.pass(); };
    QCOMPARE(find("Lock")->RegisterObserver(blocker), ZalErrorSuccess);
    set("Lock", 1);
    QVERIFY(gate.waitUntilEntered());
    QCOMPARE(find("Plain")->RegisterObserver(recorder), ZalErrorSuccess);
    set("Plain", 0);
    gate.open();
    QTRY_COMPARE(recorder->count("Plain"), 1);
    settle();
    QCOMPARE(recorder->count("Plain"), 1);
}

void tst_ChangeNotifier::unobservedFeaturesCauseNoTraffic()
{
    settle();
    const auto before = camera->Counts();
    set("Plain", 5);
    settle();
    QCOMPARE(camera->Counts().reads, before.reads);
    QCOMPARE(camera->Counts().writes, before.writes + 1);
}

void tst_ChangeNotifier::onlyFeaturesThatMayHaveChangedAreReadAgain()
{
    observe({"Plain", "Stepped", "Hexadecimal", "Note"});
    const auto before = camera->Counts();
    set("Plain", 5);
    settle();
    QCOMPARE(camera->Counts().reads, before.reads + 1);
}

void tst_ChangeNotifier::idleCameraCausesNoTraffic()
{
    std::vector<std::string> unpolled;
    for (const auto& name : names(*camera->Features())) {
        if (name != "Temperature" && name != "ChannelStatus" && name != Sentinel)
            unpolled.push_back(name);
    }
    observe(unpolled);
    const auto before = camera->Counts();
    // Nothing shall happen, so that there is nothing to wait for but time.
    QTest::qWait(300);
    QCOMPARE(camera->Counts().reads, before.reads);
    QCOMPARE(camera->Counts().writes, before.writes);
    QCOMPARE(recorder->count(), 0);
}

void tst_ChangeNotifier::unpolledChangeAtTheCameraIsNotSeen()
{
    observe({"Ticks", "Temperature"});
    server->setReg(0x4704, 5);
    server->setReg(0x4700, 20);
    QTRY_COMPARE(recorder->count("Temperature"), 1);
    settle();
    QCOMPARE(recorder->count("Ticks"), 0);
}

void tst_ChangeNotifier::polledChangeAtTheCameraIsReported()
{
    observe({"Temperature"});
    for (std::uint32_t degrees = 1; degrees <= 3; ++degrees) {
        server->setReg(0x4700, degrees);
        QTRY_COMPARE(recorder->count("Temperature"), static_cast<int>(degrees));
    }
}

void tst_ChangeNotifier::polledFeatureIsNotReadWhenNobodyObservesIt()
{
    observe({"Temperature"});
    server->setReg(0x4700, 1);
    QTRY_COMPARE(recorder->count("Temperature"), 1);
    QCOMPARE(find("Temperature")->UnregisterObserver(recorder), ZalErrorSuccess);
    settle();
    const auto before = camera->Counts();
    QTest::qWait(300);
    QCOMPARE(camera->Counts().reads, before.reads);
}

void tst_ChangeNotifier::pollingCostsOneTransaction()
{
    // Polled every 100 ms: in any stretch of time there are at most this many reads.
    observe({"Temperature"});
    const auto before = camera->Counts();
    QElapsedTimer timer;
    timer.start();
    QTRY_VERIFY(camera->Counts().reads >= before.reads + 5);
    QVERIFY(camera->Counts().reads - before.reads <=
            static_cast<std::uint64_t>(timer.elapsed() / 100 + 1));
    QCOMPARE(recorder->count(), 0);
}

void tst_ChangeNotifier::pollingDoesNotLookWhileASelectorIsStepped()
{
    server->setReg(0x4710 + 4, 1);
    observe({"ChannelStatus"});
    for (int round = 0; round < 20; ++round)
        stepChannels({1, 2, 3, 0});
    settle();
    QCOMPARE(recorder->count(), 0);
    set("ChannelSelector", 1);
    QTRY_COMPARE(recorder->count("ChannelStatus"), 1);
}

void tst_ChangeNotifier::observerReadsTheNewValueOnAnotherThread()
{
    long long seen = 0;
    std::thread::id thread;
    recorder->onCall = [&](const FeaturePtr& feature) {
        seen = integer(feature);
        thread = std::this_thread::get_id();
    };
    observe({"Plain"});
    set("Plain", 5);
    QTRY_COMPARE(recorder->count("Plain"), 1);
    QCOMPARE(seen, 5LL);
    QVERIFY(thread != std::this_thread::get_id());
}

void tst_ChangeNotifier::observerMayWriteInItsCall()
{
    recorder->onCall = [this](const FeaturePtr& feature) {
        if (text(feature, &Feature::GetName) == "Plain")
            find("Lock")->SetIntegerValue(1);
    };
    observe({"Plain", "Lockable"});
    set("Plain", 5);
    QTRY_COMPARE(recorder->count("Lockable"), 1);
}

void tst_ChangeNotifier::observerMayUnregisterInItsCall()
{
    recorder->onCall = [this](const FeaturePtr& feature) { feature->UnregisterObserver(recorder); };
    observe({"Plain"});
    set("Plain", 5);
    QTRY_COMPARE(recorder->count("Plain"), 1);
    set("Plain", 6);
    settle();
    QCOMPARE(recorder->count("Plain"), 1);
    recorder->onCall = nullptr;
}

void tst_ChangeNotifier::secondRegistrationChangesNothing()
{
    observe({"Plain", "Plain"});
    set("Plain", 5);
    settle();
    QCOMPARE(recorder->count("Plain"), 1);
    QCOMPARE(find("Plain")->UnregisterObserver(recorder), ZalErrorSuccess);
    set("Plain", 6);
    settle();
    QCOMPARE(recorder->count("Plain"), 1);
}

void tst_ChangeNotifier::everyObserverIsCalled()
{
    const auto other = std::make_shared<Recorder>();
    QCOMPARE(find("Plain")->RegisterObserver(other), ZalErrorSuccess);
    observe({"Plain"});
    set("Plain", 5);
    settle();
    QCOMPARE(recorder->count("Plain"), 1);
    QCOMPARE(other->count("Plain"), 1);
}

void tst_ChangeNotifier::unregisteredObserverIsNotCalledAndLetGo()
{
    observe({"Plain", "Stepped"});
    QCOMPARE(find("Plain")->UnregisterObserver(recorder), ZalErrorSuccess);
    set("Plain", 5);
    set("Stepped", 2);
    settle();
    QCOMPARE(recorder->calls(), std::vector<std::string>{"Stepped"});
    QCOMPARE(find("Stepped")->UnregisterObserver(recorder), ZalErrorSuccess);
    settle();
    QCOMPARE(recorder.use_count(), 1L);
}

void tst_ChangeNotifier::observerUnregisteredWhileAnotherIsCalledIsNotCalled()
{
    Gate gate;
    const auto blocker = std::make_shared<Recorder>();
    blocker->onCall = [&](const FeaturePtr&) { gate.pass(); };
    QCOMPARE(find("Plain")->RegisterObserver(blocker), ZalErrorSuccess);
    observe({"Plain"});
    set("Plain", 5);
    QVERIFY(gate.waitUntilEntered());
    QCOMPARE(find("Plain")->UnregisterObserver(recorder), ZalErrorSuccess);
    gate.open();
    settle();
    QCOMPARE(blocker->count("Plain"), 1);
    QCOMPARE(recorder->count(), 0);
}

void tst_ChangeNotifier::observerMayUnregisterElsewhereWhenItDies()
{
    std::atomic<bool> dead{false};
    const auto die = [&](Recorder* dying) {
        delete dying;
        find("Stepped")->UnregisterObserver(recorder);
        dead = true;
    };
    auto mortal = std::shared_ptr<Recorder>(new Recorder, die);
    mortal->onCall = [&](const FeaturePtr& feature) {
        feature->UnregisterObserver(mortal);
        mortal.reset();
    };
    QCOMPARE(find("Plain")->RegisterObserver(mortal), ZalErrorSuccess);
    observe({"Stepped"});
    set("Plain", 5);
    QTRY_VERIFY(dead);
    set("Stepped", 6);
    settle();
    QCOMPARE(recorder->count(), 0);
}

void tst_ChangeNotifier::nullObserverIsABadParameter()
{
    QCOMPARE(find("Plain")->RegisterObserver(nullptr), ZalErrorBadParameter);
    QCOMPARE(find("Plain")->UnregisterObserver(nullptr), ZalErrorBadParameter);
}

void tst_ChangeNotifier::cameraMayBeDestroyedInACall()
{
    const auto plain = find("Plain");
    std::atomic<bool> destroyed{false};
    recorder->onCall = [&](const FeaturePtr&) {
        camera.reset();
        destroyed = true;
    };
    observe({"Plain"});
    QCOMPARE(plain->SetIntegerValue(5), ZalErrorSuccess);
    QTRY_VERIFY(destroyed);
    QTRY_COMPARE(recorder->count("Plain"), 1);
    recorder->onCall = nullptr;
    long long value = 0;
    QCOMPARE(plain->GetIntegerValue(value), ZalErrorNotOpen);
}

QTEST_GUILESS_MAIN(tst_ChangeNotifier)
#include "tst_ChangeNotifier.moc"
