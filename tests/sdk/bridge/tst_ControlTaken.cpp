// Another program gets control of a camera that this one has open: reads go on, writes do not.
#include "tests/sdk/bridge/OnNastyCamera.h"
#include "tests/sdk/bridge/WireTap.h"
#include "tests/support/ChildProcess.h"

#include <iostream>
#include <string>

using namespace BridgeTest;
using ZalCPP::CameraLoss;

namespace {

// Long enough for a write that is never answered, and for asking who has control.
constexpr int UntilLost = 30000;

WireTap::Hook refuseAll(WireTap::Answer answer)
{
    return [answer](ArvDevice*, std::uint64_t) { return answer; };
}

WireTap::Hook refuseOne(std::uint64_t refused, WireTap::Answer answer)
{
    return [=](ArvDevice*, std::uint64_t address) {
        return address == refused ? answer : WireTap::Answer::TheCameras;
    };
}

/// The program that is stopped: holds the camera, and writes to it when it is told to until it is
/// told why the camera is lost.
int holdCamera()
{
    const auto camera = openCamera();
    QSemaphore lost;
    camera->SetLostHandler([&lost] { lost.release(); });
    std::cout << "ready" << std::endl;
    std::string line;
    std::getline(std::cin, line);
    camera->FindFeature("Plain")->SetIntegerValue(5);
    const bool noticed = lost.tryAcquire(1, UntilLost);
    std::cout << (noticed ? LossText(camera->Loss()) : "nothing noticed") << std::endl;
    return 0;
}

} // namespace

class tst_ControlTaken : public QObject, protected OnNastyCamera
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase() { endServing(); }

    void stoppedProgramIsToldThatAnotherOneTookControl();
    void everyWriteRefusedIsALoss_data();
    void everyWriteRefusedIsALoss();
    void lostCameraIsNotWrittenAnyMore();
    void oneRegisterRefusedIsNoLoss_data();
    void oneRegisterRefusedIsNoLoss();
    void controlThatNobodyHasIsLostWithoutAnotherProgram();
    void openCameraHasNoReason();

private:
    std::unique_ptr<WireTap> m_tap;
    std::atomic<int> m_losses{0};
};

void tst_ControlTaken::initTestCase()
{
    m_tap = std::make_unique<WireTap>();
    serve();
}

void tst_ControlTaken::init()
{
    m_losses = 0;
    openAnew();
    m_camera->SetLostHandler([this] { ++m_losses; });
    m_tap->takeAccesses();
}

void tst_ControlTaken::cleanup()
{
    m_tap->onWrite(nullptr);
    m_camera.reset();
    // A controller that was cut off from writing cannot give control back.
    m_server->setReg(ControlPrivilege, 0);
}

void tst_ControlTaken::stoppedProgramIsToldThatAnotherOneTookControl()
{
    m_camera.reset();
    QTRY_COMPARE(m_server->reg(ControlPrivilege), 0U);
    ChildProcess program;
    program.start(QCoreApplication::applicationFilePath(), {"--hold"});
    QVERIFY(program.waitForReadyRead(20000));
    QCOMPARE(program.readLine(), QByteArray("ready\n"));
    QVERIFY(program.stall());
    // The camera gives a controller up after three seconds without a word from it.
    std::string error;
    QTRY_VERIFY_WITH_TIMEOUT(m_camera = ZalCPP::CameraSystem::Open(NastyCamera::Address, error),
                             20000);
    program.resume();
    program.write("go\n");
    QVERIFY(program.waitForReadyRead(UntilLost + 5000));
    QCOMPARE(program.readLine(), QByteArray("Another program controls the camera.\n"));
    program.waitForFinished();
    QCOMPARE(m_server->reg(PlainRegister), 0U);
    QCOMPARE(find("Plain")->SetIntegerValue(6), ZalErrorSuccess);
    QVERIFY(!m_camera->IsLost());
}

void tst_ControlTaken::everyWriteRefusedIsALoss_data()
{
    QTest::addColumn<int>("answer");
    QTest::newRow("refused") << int(WireTap::Answer::Denied);
    QTest::newRow("unanswered") << int(WireTap::Answer::TimeOut);
}

void tst_ControlTaken::everyWriteRefusedIsALoss()
{
    QFETCH(int, answer);
    m_tap->onWrite(refuseAll(static_cast<WireTap::Answer>(answer)));
    QCOMPARE(find("Plain")->SetIntegerValue(5), ZalErrorNotOpen);
    QTRY_COMPARE(m_losses, 1);
    QVERIFY(m_camera->IsLost());
    QCOMPARE(m_camera->Loss(), CameraLoss::ControlTaken);
    QCOMPARE(integer(find("Plain")), -999LL);
}

void tst_ControlTaken::lostCameraIsNotWrittenAnyMore()
{
    m_tap->onWrite(refuseAll(WireTap::Answer::Denied));
    QCOMPARE(find("Plain")->SetIntegerValue(5), ZalErrorNotOpen);
    QTRY_COMPARE(m_losses, 1);
    m_tap->takeAccesses();
    QCOMPARE(find("Plain")->SetIntegerValue(6), ZalErrorNotOpen);
    m_camera.reset();
    for (const auto& access : m_tap->takeAccesses())
        QVERIFY(!access.isWrite);
}

void tst_ControlTaken::oneRegisterRefusedIsNoLoss_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<ZalErrorType>("status");
    QTest::newRow("refused") << int(WireTap::Answer::Denied) << ZalErrorNotWritable;
    QTest::newRow("unanswered") << int(WireTap::Answer::TimeOut) << ZalErrorTimeout;
}

void tst_ControlTaken::oneRegisterRefusedIsNoLoss()
{
    QFETCH(int, answer);
    m_tap->onWrite(refuseOne(PlainRegister, static_cast<WireTap::Answer>(answer)));
    QTEST(find("Plain")->SetIntegerValue(5), "status");
    QTRY_COMPARE(find("Note")->SetStringValue("x"), ZalErrorSuccess);
    QVERIFY(!m_camera->IsLost());
    QCOMPARE(m_losses, 0);
}

void tst_ControlTaken::controlThatNobodyHasIsLostWithoutAnotherProgram()
{
    m_tap->onWrite(refuseAll(WireTap::Answer::Denied));
    m_server->setReg(ControlPrivilege, 0);
    QCOMPARE(find("Plain")->SetIntegerValue(5), ZalErrorNotWritable);
    QTRY_COMPARE_WITH_TIMEOUT(m_losses, 1, UntilLost);
    QCOMPARE(m_camera->Loss(), CameraLoss::NoAnswer);
}

void tst_ControlTaken::openCameraHasNoReason()
{
    QCOMPARE(m_camera->Loss(), CameraLoss::None);
    QCOMPARE(LossText(m_camera->Loss()), "");
}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (application.arguments().contains("--hold"))
        return holdCamera();
    tst_ControlTaken test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_ControlTaken.moc"
