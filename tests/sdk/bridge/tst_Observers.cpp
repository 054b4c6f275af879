// What observers may do in the calls that they get on the camera's thread, and that what an
// application throws there ends there.
#include "tests/sdk/bridge/OnNastyCamera.h"

#include <stdexcept>
#include <thread>

using namespace BridgeTest;

class tst_Observers : public QObject, protected OnNastyCamera
{
    Q_OBJECT

private slots:
    void initTestCase() { serve(); }
    void init() { openAnew(); }
    void cleanup() { m_camera.reset(); }
    void cleanupTestCase() { endServing(); }

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
    void observerThatThrowsKeepsNobodyFromBeingCalled();
    void frameHandlerThatThrowsGetsTheNextFrame();
};

void tst_Observers::observerReadsTheNewValueOnAnotherThread()
{
    long long seen = 0;
    std::thread::id thread;
    m_recorder->onCall = [&](const FeaturePtr& feature) {
        seen = integer(feature);
        thread = std::this_thread::get_id();
    };
    observe({"Plain"});
    set("Plain", 5);
    QTRY_COMPARE(m_recorder->count("Plain"), 1);
    QCOMPARE(seen, 5LL);
    QVERIFY(thread != std::this_thread::get_id());
}

void tst_Observers::observerMayWriteInItsCall()
{
    m_recorder->onCall = [this](const FeaturePtr& feature) {
        if (text(feature, &Feature::GetName) == "Plain")
            find("Lock")->SetIntegerValue(1);
    };
    observe({"Plain", "Lockable"});
    set("Plain", 5);
    QTRY_COMPARE(m_recorder->count("Lockable"), 1);
}

void tst_Observers::observerMayUnregisterInItsCall()
{
    m_recorder->onCall = [this](const FeaturePtr& feature) {
        feature->UnregisterObserver(m_recorder);
    };
    observe({"Plain"});
    set("Plain", 5);
    QTRY_COMPARE(m_recorder->count("Plain"), 1);
    set("Plain", 6);
    settle();
    QCOMPARE(m_recorder->count("Plain"), 1);
    m_recorder->onCall = nullptr;
}

void tst_Observers::secondRegistrationChangesNothing()
{
    observe({"Plain", "Plain"});
    set("Plain", 5);
    settle();
    QCOMPARE(m_recorder->count("Plain"), 1);
    QCOMPARE(find("Plain")->UnregisterObserver(m_recorder), ZalErrorSuccess);
    set("Plain", 6);
    settle();
    QCOMPARE(m_recorder->count("Plain"), 1);
}

void tst_Observers::everyObserverIsCalled()
{
    const auto other = std::make_shared<Recorder>();
    QCOMPARE(find("Plain")->RegisterObserver(other), ZalErrorSuccess);
    observe({"Plain"});
    set("Plain", 5);
    settle();
    QCOMPARE(m_recorder->count("Plain"), 1);
    QCOMPARE(other->count("Plain"), 1);
}

void tst_Observers::unregisteredObserverIsNotCalledAndLetGo()
{
    observe({"Plain", "Stepped"});
    QCOMPARE(find("Plain")->UnregisterObserver(m_recorder), ZalErrorSuccess);
    set("Plain", 5);
    set("Stepped", 2);
    settle();
    QCOMPARE(m_recorder->calls(), std::vector<std::string>{"Stepped"});
    QCOMPARE(find("Stepped")->UnregisterObserver(m_recorder), ZalErrorSuccess);
    settle();
    QCOMPARE(m_recorder.use_count(), 1L);
}

void tst_Observers::observerUnregisteredWhileAnotherIsCalledIsNotCalled()
{
    Gate gate;
    const auto blocker = std::make_shared<Recorder>();
    blocker->onCall = [&](const FeaturePtr&) { gate.pass(); };
    QCOMPARE(find("Plain")->RegisterObserver(blocker), ZalErrorSuccess);
    observe({"Plain"});
    set("Plain", 5);
    QVERIFY(gate.waitUntilEntered());
    QCOMPARE(find("Plain")->UnregisterObserver(m_recorder), ZalErrorSuccess);
    gate.open();
    settle();
    QCOMPARE(blocker->count("Plain"), 1);
    QCOMPARE(m_recorder->count(), 0);
}

void tst_Observers::observerMayUnregisterElsewhereWhenItDies()
{
    std::atomic<bool> dead{false};
    const auto die = [&](Recorder* dying) {
        delete dying;
        find("Stepped")->UnregisterObserver(m_recorder);
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
    QCOMPARE(m_recorder->count(), 0);
}

void tst_Observers::nullObserverIsABadParameter()
{
    QCOMPARE(find("Plain")->RegisterObserver(nullptr), ZalErrorBadParameter);
    QCOMPARE(find("Plain")->UnregisterObserver(nullptr), ZalErrorBadParameter);
}

void tst_Observers::cameraMayBeDestroyedInACall()
{
    const auto plain = find("Plain");
    std::atomic<bool> destroyed{false};
    m_recorder->onCall = [&](const FeaturePtr&) {
        m_camera.reset();
        destroyed = true;
    };
    observe({"Plain"});
    QCOMPARE(plain->SetIntegerValue(5), ZalErrorSuccess);
    QTRY_VERIFY(destroyed);
    QTRY_COMPARE(m_recorder->count("Plain"), 1);
    m_recorder->onCall = nullptr;
    long long value = 0;
    QCOMPARE(plain->GetIntegerValue(value), ZalErrorNotOpen);
}

void tst_Observers::observerThatThrowsKeepsNobodyFromBeingCalled()
{
    const auto plain = m_camera->FindFeature("Plain");
    const auto throwing = std::make_shared<Recorder>();
    throwing->onCall = [](const FeaturePtr&) { throw std::runtime_error("The application's"); };
    QCOMPARE(plain->RegisterObserver(throwing), ZalErrorSuccess);
    QCOMPARE(plain->RegisterObserver(m_recorder), ZalErrorSuccess);
    for (const int value : {1, 2}) {
        QCOMPARE(plain->SetIntegerValue(value), ZalErrorSuccess);
        QTRY_COMPARE(m_recorder->count("Plain"), value);
    }
}

void tst_Observers::frameHandlerThatThrowsGetsTheNextFrame()
{
    std::atomic<int> frames{0};
    const auto handler = [&frames](const ZalCPP::Frame&) {
        ++frames;
        throw std::runtime_error("The application's");
    };
    QCOMPARE(m_camera->StartAcquisition(handler), ZalErrorSuccess);
    // More than there are buffers: none of them is lost.
    QTRY_VERIFY(frames >= 20);
    QCOMPARE(m_camera->StopAcquisition(), ZalErrorSuccess);
}

QTEST_GUILESS_MAIN(tst_Observers)
#include "tst_Observers.moc"
