// Accesses that failed on their way. The camera may have taken the value of such a write all the
// same, so that observers are told what it holds then.
#include "tests/sdk/bridge/BridgeTest.h"
#include "tests/sdk/bridge/NastyCamera.h"
#include "tests/sdk/bridge/WireTap.h"

using namespace BridgeTest;

class tst_UncertainWrites : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase() { m_server.reset(); }

    void valueThatTheCameraTookIsReported_data();
    void valueThatTheCameraTookIsReported();
    void refusedValueHasNothingReadAgain();
    void writeThatFailsIsNoLoss_data() { valueThatTheCameraTookIsReported_data(); }
    void writeThatFailsIsNoLoss();
    void failedReadIsAskedAgain();
    void unansweredLookAtAChangeIsAStall_data();
    void unansweredLookAtAChangeIsAStall();

private:
    FeaturePtr find(const std::string& name) const { return m_camera->FindFeature(name); }
    void observe();

    std::unique_ptr<WireTap> m_tap;
    std::unique_ptr<NastyCamera> m_server;
    std::unique_ptr<ZalCPP::Camera> m_camera;
    std::shared_ptr<Recorder> m_recorder;
};

namespace {

constexpr std::uint32_t PlainRegister = 0x4000;

} // namespace

void tst_UncertainWrites::initTestCase()
{
    m_tap = std::make_unique<WireTap>();
    m_server = std::make_unique<NastyCamera>();
}

void tst_UncertainWrites::init()
{
    m_server->reset();
    m_camera = openCamera();
    m_recorder = std::make_shared<Recorder>();
}

void tst_UncertainWrites::cleanup()
{
    m_tap->onWrite(nullptr);
    m_tap->onRead(nullptr);
    m_camera.reset();
}

// The last feature is reported when all others are known.
void tst_UncertainWrites::observe()
{
    for (const char* name : {"Plain", "Constant"})
        QCOMPARE(find(name)->RegisterObserver(m_recorder), ZalErrorSuccess);
    QCOMPARE(find("Constant")->SetIntegerValue(1), ZalErrorSuccess);
    QTRY_COMPARE(m_recorder->calls(), std::vector<std::string>{"Constant"});
    m_recorder->clear();
}

void tst_UncertainWrites::valueThatTheCameraTookIsReported_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<ZalErrorType>("status");
    QTest::newRow("no answer") << int(WireTap::Answer::TimeOut) << ZalErrorTimeout;
    QTest::newRow("failure on the way") << int(WireTap::Answer::Busy) << ZalErrorTransport;
    QTest::newRow("unknown failure") << int(WireTap::Answer::Unknown) << ZalErrorUnknown;
}

void tst_UncertainWrites::valueThatTheCameraTookIsReported()
{
    QFETCH(int, answer);
    observe();
    m_tap->onWrite([this, answer](ArvDevice*, std::uint64_t address) {
        if (address != PlainRegister)
            return WireTap::Answer::TheCameras;
        m_server->setReg(PlainRegister, 5);
        return static_cast<WireTap::Answer>(answer);
    });
    QTEST(find("Plain")->SetIntegerValue(5), "status");
    QTRY_COMPARE(m_recorder->count("Plain"), 1);
    QCOMPARE(integer(find("Plain")), 5LL);
}

// It cannot have changed.
void tst_UncertainWrites::refusedValueHasNothingReadAgain()
{
    observe();
    m_tap->takeAccesses();
    QCOMPARE(find("Plain")->SetIntegerValue(5000), ZalErrorOutOfRange);
    QCOMPARE(find("Constant")->SetIntegerValue(2), ZalErrorSuccess);
    QTRY_COMPARE(m_recorder->count("Constant"), 1);
    QVERIFY(m_tap->takeAccesses().empty());
}

void tst_UncertainWrites::writeThatFailsIsNoLoss()
{
    QFETCH(int, answer);
    m_tap->onWrite([answer](ArvDevice*, std::uint64_t address) {
        return address == PlainRegister ? static_cast<WireTap::Answer>(answer)
                                        : WireTap::Answer::TheCameras;
    });
    QTEST(find("Plain")->SetIntegerValue(5), "status");
    QTRY_COMPARE(find("Stepped")->SetIntegerValue(6), ZalErrorSuccess);
    QCOMPARE(m_server->reg(PlainRegister), 0U);
    QVERIFY(!m_camera->IsLost());
}

// Nothing is known of the register then.
void tst_UncertainWrites::failedReadIsAskedAgain()
{
    m_server->setReg(PlainRegister, 5);
    std::atomic<int> reads{0};
    m_tap->onRead([&reads](ArvDevice*, std::uint64_t) {
        return ++reads == 1 ? WireTap::Answer::Busy : WireTap::Answer::TheCameras;
    });
    long long value = 7;
    QCOMPARE(find("Plain")->GetIntegerValue(value), ZalErrorTransport);
    QCOMPARE(value, 7LL);
    QCOMPARE(find("Plain")->GetIntegerValue(value), ZalErrorSuccess);
    QCOMPARE(value, 5LL);
    QCOMPARE(reads, 2);
}

void tst_UncertainWrites::unansweredLookAtAChangeIsAStall_data()
{
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("observed");
    QTest::addColumn<unsigned>("silent");
    QTest::newRow("value") << "LimitHigh"
                           << "Limited" << 0x4008U;
    QTest::newRow("minimum") << "LimitHigh"
                             << "Limited" << 0x400cU;
    QTest::newRow("maximum") << "LimitStep"
                             << "Limited" << 0x4010U;
    QTest::newRow("increment") << "LimitHigh"
                               << "Limited" << 0x4014U;
    QTest::newRow("lock") << "Lock"
                          << "Lockable" << 0x4100U;
    QTest::newRow("entry") << "Switch"
                           << "Mode" << 0x4108U;
}

// Everything is looked at again then, and reported.
void tst_UncertainWrites::unansweredLookAtAChangeIsAStall()
{
    QFETCH(QString, written);
    QFETCH(QString, observed);
    QFETCH(unsigned, silent);
    QCOMPARE(find(observed.toStdString())->RegisterObserver(m_recorder), ZalErrorSuccess);
    observe();
    std::atomic<bool> isWritten{false};
    std::atomic<int> unanswered{0};
    m_tap->onWrite([&](ArvDevice*, std::uint64_t) {
        isWritten = true;
        return WireTap::Answer::TheCameras;
    });
    m_tap->onRead([&](ArvDevice*, std::uint64_t address) {
        const bool isFirst = isWritten && address == silent && ++unanswered == 1;
        return isFirst ? WireTap::Answer::TimeOut : WireTap::Answer::TheCameras;
    });
    const auto feature = find(written.toStdString());
    QCOMPARE(written == "Switch" ? feature->SetBoolValue(true) : feature->SetIntegerValue(1),
             ZalErrorSuccess);
    QTRY_COMPARE(m_recorder->count(observed.toStdString()), 1);
    QTRY_COMPARE(m_recorder->count("Plain"), 1);
    QVERIFY(unanswered > 1);
}

QTEST_GUILESS_MAIN(tst_UncertainWrites)
#include "tst_UncertainWrites.moc"
