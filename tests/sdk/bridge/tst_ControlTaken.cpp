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
    std::unique_ptr<WireTap> tap;
    std::atomic<int> losses{0};
};

void tst_ControlTaken::initTestCase()
{
    tap = std::make_unique<WireTap>();
    serve();
}

void tst_ControlTaken::init()
{
    losses = 0;
    openAnew();
    camera->SetLostHandler([this] { ++losses; });
    tap->takeAccesses();
}

void tst_ControlTaken::cleanup()
{
    tap->onWrite(nullptr);
    camera.reset();
    // A controller that was cut off from writing cannot give control back.
    server->setReg(ControlPrivilege, 0);
}

void tst_ControlTaken::stoppedProgramIsToldThatAnotherOneTookControl()
{
    camera.reset();
    QTRY_COMPARE(server->reg(ControlPrivilege), 0U);
    ChildProcess program;
    program.start(QCoreApplication::applicationFilePath(), {"--hold"});
    QVERIFY(program.waitForReadyRead(20000));
    QCOMPARE(program.readLine(), QByteArray("ready\n"));
    QVERIFY(program.stall());
    // The camera gives a controller up after three seconds without a word from it.
    std::string error;
    QTRY_VERIFY_WITH_TIMEOUT(camera = ZalCPP::CameraSystem::Open(NastyCamera::Address, error),
                             20000);
    program.resume();
    program.write("go\n");
    QVERIFY(program.waitForReadyRead(UntilLost + 5000));
    QCOMPARE(program.readLine(), QByteArray("Another program controls the camera.\n"));
    program.waitForFinished();
    QCOMPARE(server->reg(PlainRegister), 0U);
    QCOMPARE(find("Plain")->SetIntegerValue(6), ZalErrorSuccess);
    QVERIFY(!camera->IsLost());
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
    tap->onWrite(refuseAll(static_cast<WireTap::Answer>(answer)));
    QCOMPARE(find("Plain")->SetIntegerValue(5), ZalErrorNotOpen);
    QTRY_COMPARE(losses, 1);
    QVERIFY(camera->IsLost());
    QCOMPARE(camera->Loss(), CameraLoss::ControlTaken);
    QCOMPARE(integer(find("Plain")), -999LL);
}

void tst_ControlTaken::lostCameraIsNotWrittenAnyMore()
{
    tap->onWrite(refuseAll(WireTap::Answer::Denied));
    QCOMPARE(find("Plain")->SetIntegerValue(5), ZalErrorNotOpen);
    QTRY_COMPARE(losses, 1);
    tap->takeAccesses();
    QCOMPARE(find("Plain")->SetIntegerValue(6), ZalErrorNotOpen);
    camera.reset();
    for (const auto& access : tap->takeAccesses())
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
    tap->onWrite(refuseOne(PlainRegister, static_cast<WireTap::Answer>(answer)));
    QTEST(find("Plain")->SetIntegerValue(5), "status");
    QTRY_COMPARE(find("Note")->SetStringValue("x"), ZalErrorSuccess);
    QVERIFY(!camera->IsLost());
    QCOMPARE(losses, 0);
}

void tst_ControlTaken::controlThatNobodyHasIsLostWithoutAnotherProgram()
{
    tap->onWrite(refuseAll(WireTap::Answer::Denied));
    server->setReg(ControlPrivilege, 0);
    QCOMPARE(find("Plain")->SetIntegerValue(5), ZalErrorNotWritable);
    QTRY_COMPARE_WITH_TIMEOUT(losses, 1, UntilLost);
    QCOMPARE(camera->Loss(), CameraLoss::NoAnswer);
}

void tst_ControlTaken::openCameraHasNoReason()
{
    QCOMPARE(camera->Loss(), CameraLoss::None);
    QCOMPARE(LossText(camera->Loss()), "");
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
