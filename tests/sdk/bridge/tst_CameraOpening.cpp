// What goes wrong while a camera is being opened.
// GLib uses Qt's keywords as names, so it comes first.
#include <arv.h>

#include "tests/sdk/bridge/BridgeTest.h"
#include "tests/sdk/bridge/NastyCamera.h"
#include "tests/sdk/bridge/WireTap.h"

using namespace BridgeTest;
using ZalCPP::CameraSystem;

namespace {

// Says whether a feature is implemented; only read while the camera is opened.
constexpr std::uint64_t ImplementedRegister = 0x411c;

} // namespace

Q_DECLARE_METATYPE(WireTap::Answer)

class tst_CameraOpening : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { m_server->reset(); }
    void cleanup() { m_tap->onRead(nullptr); }
    void cleanupTestCase() { m_server.reset(); }

    void unreadableImplementationIsRefusedWithASentence_data();
    void unreadableImplementationIsRefusedWithASentence();
    void refusedCameraCanBeOpenedLater();
    void controlLostWhileOpeningIsALoss();

private:
    std::unique_ptr<WireTap> m_tap;
    std::unique_ptr<NastyCamera> m_server;
};

void tst_CameraOpening::initTestCase()
{
    m_tap = std::make_unique<WireTap>();
    m_server = std::make_unique<NastyCamera>();
}

void tst_CameraOpening::unreadableImplementationIsRefusedWithASentence_data()
{
    QTest::addColumn<WireTap::Answer>("answer");
    QTest::addColumn<QString>("reason");
    QTest::newRow("no answer") << WireTap::Answer::TimeOut << "The camera did not answer in time.";
    QTest::newRow("connection closed")
        << WireTap::Answer::NotConnected
        << "The camera is not open, or the connection to it is lost.";
    QTest::newRow("refused by the camera")
        << WireTap::Answer::Busy << "The connection to the camera reported a failure.";
    QTest::newRow("unknown failure") << WireTap::Answer::Unknown << "The operation failed.";
}

void tst_CameraOpening::unreadableImplementationIsRefusedWithASentence()
{
    QFETCH(WireTap::Answer, answer);
    QFETCH(QString, reason);
    m_tap->onRead([answer](ArvDevice*, std::uint64_t address) {
        return address == ImplementedRegister ? answer : WireTap::Answer::TheCameras;
    });
    std::string error;
    QVERIFY(!CameraSystem::Open(NastyCamera::Address, error));
    QCOMPARE(QString::fromStdString(error),
             "The camera \"127.0.0.1\" does not tell which features it has. " + reason);
}

void tst_CameraOpening::refusedCameraCanBeOpenedLater()
{
    m_tap->onRead([](ArvDevice*, std::uint64_t) { return WireTap::Answer::TimeOut; });
    std::string error;
    QVERIFY(!CameraSystem::Open(NastyCamera::Address, error));
    m_tap->onRead(nullptr);
    const auto camera = openCamera();
    QVERIFY(!camera->FindFeature("AbsentByRegister"));
    QCOMPARE(integer(camera->FindFeature("PresentByRegister")), 1LL);
}

// Another host takes the camera over. Aravis notices before anybody listens.
void tst_CameraOpening::controlLostWhileOpeningIsALoss()
{
    constexpr std::uint32_t controlPrivilege = 0xa00;
    bool noticed = false;
    m_tap->onRead([&](ArvDevice* device, std::uint64_t address) {
        if (address == ImplementedRegister) {
            m_server->setReg(controlPrivilege, 0);
            noticed = QTest::qWaitFor(
                [&] { return !arv_gv_device_is_controller(ARV_GV_DEVICE(device)); }, 10000);
        }
        return WireTap::Answer::TheCameras;
    });
    const auto camera = openCamera();
    QVERIFY(noticed);
    std::atomic<int> losses{0};
    camera->SetLostHandler([&losses] { ++losses; });
    QTRY_COMPARE(losses, 1);
    QVERIFY(camera->IsLost());
    long long value = 0;
    QCOMPARE(camera->FindFeature("Plain")->GetIntegerValue(value), ZalErrorNotOpen);
}

QTEST_GUILESS_MAIN(tst_CameraOpening)
#include "tst_CameraOpening.moc"
