// A camera that answers, but for one register.
#include "tests/sdk/bridge/OnNastyCamera.h"
#include "tests/sdk/bridge/WireTap.h"

using namespace BridgeTest;

namespace {

constexpr std::uint64_t LockRegister = 0x4100;
constexpr int Patience = 3;

} // namespace

class tst_UnansweredFeature : public QObject, protected OnNastyCamera
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase() { endServing(); }

    void isGivenUpAfterThreeTimes();
    void isGivenUpWhenItAlwaysAnswersTooLate();
    void answerInBetweenStartsTheCountAnew();
    void doesNotAffectOtherFeatures();
    void canStillBeWritten();
    void isGivenUpForWritingAlone();
    void isAskedAgainWhenTheCameraIsOpenedAgain();
    void doesNotHaveEverythingReportedForEver_data();
    void doesNotHaveEverythingReportedForEver();

private:
    ZalErrorType read(const char* name = "Plain") const;
    void awaitRecovery() const;
    void mute(std::uint64_t address);
    void giveUpReading();

    std::unique_ptr<WireTap> m_tap;
    std::atomic<int> m_unanswered{0};
};

void tst_UnansweredFeature::initTestCase()
{
    m_tap = std::make_unique<WireTap>();
    serve();
}

void tst_UnansweredFeature::init()
{
    openAnew();
    m_unanswered = 0;
}

void tst_UnansweredFeature::cleanup()
{
    m_camera.reset();
    m_tap->onRead(nullptr);
}

ZalErrorType tst_UnansweredFeature::read(const char* name) const
{
    long long value = 0;
    return find(name)->GetIntegerValue(value);
}

// The breaker is open for a moment after each time-out.
void tst_UnansweredFeature::awaitRecovery() const
{
    QTRY_COMPARE(read("Masked"), ZalErrorSuccess);
}

void tst_UnansweredFeature::mute(std::uint64_t address)
{
    m_tap->onRead([this, address](ArvDevice*, std::uint64_t asked) {
        if (asked != address)
            return WireTap::Answer::TheCameras;
        ++m_unanswered;
        return WireTap::Answer::TimeOut;
    });
}

void tst_UnansweredFeature::giveUpReading()
{
    for (int i = 0; i < Patience; ++i) {
        QCOMPARE(read(), ZalErrorTimeout);
        awaitRecovery();
    }
}

void tst_UnansweredFeature::isGivenUpAfterThreeTimes()
{
    mute(PlainRegister);
    giveUpReading();
    QCOMPARE(m_unanswered, Patience);
    for (int i = 0; i < 10; ++i)
        QCOMPARE(read(), ZalErrorTimeout);
    QCOMPARE(m_unanswered, Patience);
    QVERIFY(!m_camera->IsLost());
}

void tst_UnansweredFeature::isGivenUpWhenItAlwaysAnswersTooLate()
{
    QSemaphore never;
    m_tap->onRead([&](ArvDevice*, std::uint64_t address) {
        if (address == PlainRegister) {
            ++m_unanswered;
            never.tryAcquire(1, 650);
        }
        return WireTap::Answer::TheCameras;
    });
    giveUpReading();
    QCOMPARE(read(), ZalErrorTimeout);
    QCOMPARE(m_unanswered, Patience);
    QVERIFY(!m_camera->IsLost());
}

void tst_UnansweredFeature::answerInBetweenStartsTheCountAnew()
{
    for (int round = 0; round < 3; ++round) {
        mute(PlainRegister);
        for (int i = 1; i < Patience; ++i) {
            QCOMPARE(read(), ZalErrorTimeout);
            awaitRecovery();
        }
        m_tap->onRead(nullptr);
        QCOMPARE(read(), ZalErrorSuccess);
        // A write has everything read again.
        QCOMPARE(find("Lock")->SetIntegerValue(0), ZalErrorSuccess);
    }
}

void tst_UnansweredFeature::doesNotAffectOtherFeatures()
{
    mute(PlainRegister);
    giveUpReading();
    QCOMPARE(find("Stepped")->SetIntegerValue(6), ZalErrorSuccess);
    QCOMPARE(integer(find("Stepped")), 6LL);
    // It shares the register, but is a feature of its own, with a patience of its own.
    m_tap->onRead(nullptr);
    QCOMPARE(integer(find("Doubled")), 0LL);
    QCOMPARE(read(), ZalErrorTimeout);
}

void tst_UnansweredFeature::canStillBeWritten()
{
    mute(PlainRegister);
    giveUpReading();
    QCOMPARE(find("Plain")->SetIntegerValue(5), ZalErrorSuccess);
    QCOMPARE(m_server->reg(PlainRegister), 5U);
}

// Before each write the camera is asked whether the feature is locked.
void tst_UnansweredFeature::isGivenUpForWritingAlone()
{
    mute(LockRegister);
    for (int i = 0; i < Patience; ++i) {
        QCOMPARE(find("Lockable")->SetIntegerValue(5), ZalErrorTimeout);
        awaitRecovery();
    }
    m_tap->onRead(nullptr);
    QCOMPARE(find("Lockable")->SetIntegerValue(5), ZalErrorTimeout);
    QCOMPARE(m_server->reg(0x4104), 0U);
    QCOMPARE(integer(find("Lockable")), 0LL);
}

void tst_UnansweredFeature::isAskedAgainWhenTheCameraIsOpenedAgain()
{
    mute(PlainRegister);
    giveUpReading();
    m_tap->onRead(nullptr);
    QCOMPARE(read(), ZalErrorTimeout);
    m_camera.reset();
    m_camera = openCamera();
    QCOMPARE(read(), ZalErrorSuccess);
}

void tst_UnansweredFeature::doesNotHaveEverythingReportedForEver_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<unsigned>("address");
    QTest::newRow("read once") << "Plain" << unsigned(PlainRegister);
    QTest::newRow("polled") << "Temperature" << unsigned(TemperatureRegister);
}

void tst_UnansweredFeature::doesNotHaveEverythingReportedForEver()
{
    QFETCH(QString, name);
    QFETCH(unsigned, address);
    QCOMPARE(find("Note")->RegisterObserver(m_recorder), ZalErrorSuccess);
    mute(address);
    QCOMPARE(find(name.toStdString())->RegisterObserver(m_recorder), ZalErrorSuccess);
    // Each recovery has the note reported, and the mute feature once it is given up.
    QTRY_VERIFY(m_recorder->count(name.toStdString()) >= 1);
    awaitRecovery();
    settle();
    QVERIFY(m_recorder->count("Note") >= 1);
    QVERIFY(m_recorder->count("Note") <= Patience);
    QCOMPARE(m_unanswered, Patience);
    m_recorder->clear();
    const auto before = m_camera->Counts();
    // Nothing is to happen, so there is nothing to wait for but time.
    QTest::qWait(300);
    QCOMPARE(m_recorder->count(), 0);
    QCOMPARE(m_unanswered, Patience);
    QCOMPARE(m_camera->Counts().reads, before.reads);
}

QTEST_GUILESS_MAIN(tst_UnansweredFeature)
#include "tst_UnansweredFeature.moc"
