// A camera that stalls or vanishes. It runs in a process of its own, which is stopped or killed.
#include "tests/sdk/bridge/BridgeTest.h"
#include "tests/support/ChildProcess.h"

using namespace BridgeTest;

namespace {

// What a caller's thread may be blocked for: per stall, and in total by a camera that vanished.
constexpr qint64 LongestBlock = 650;
// Long enough for Aravis to notice by itself that nobody is there any more.
constexpr int UntilLost = 30000;

qint64 duration(const std::function<void()>& action)
{
    QElapsedTimer timer;
    timer.start();
    action();
    return timer.elapsed();
}

} // namespace

class tst_CameraLoss : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void stalledCameraBlocksOnceAndThenAnswersRightAgain();
    void everyStallBlocksAtMostOnce();
    void stallThatOutlastsOneOperationIsSurvived();
    void writeInProgressIsDoneButRefusedOnesAreNot();
    void observersAreToldAfterAStall();
    void stallIsNotALoss();
    void killedCameraBlocksOnceInTotalAndIsLost();
    void lossIsNoticedWithoutACall();
    void lateLostHandlerIsCalledToo();
    void cameraMayBeDestroyedInItsLostHandler();
    void lostCameraAnswersNotOpenButKeepsItsFacts();
    void killedCameraIsClosedInTime_data();
    void killedCameraIsClosedInTime();
    void acquisitionOfAKilledCameraIsStoppedInTime();
    void stalledCameraIsNotAcquiringUnlessItAnswered();
    void acquiringCameraIsStoppedAndClosedInTime_data();
    void acquiringCameraIsStoppedAndClosedInTime();
    void stalledCameraIsStartedAndClosedInTime();

private:
    FeaturePtr find(const std::string& name) const { return m_camera->FindFeature(name); }
    void stall() { QVERIFY(m_process.stall()); }
    void goOn() { m_process.resume(); }
    void kill();
    ZalErrorType read() const;
    void awaitAnswer();

    ChildProcess m_process;
    std::unique_ptr<ZalCPP::Camera> m_camera;
    std::atomic<int> m_losses{0};
};

void tst_CameraLoss::init()
{
    m_losses = 0;
    m_process.start(NASTY_PROCESS, QStringList());
    QVERIFY(m_process.waitForReadyRead(10000));
    QCOMPARE(m_process.readLine(), QByteArray("ready\n"));
    m_camera = openCamera();
    m_camera->SetLostHandler([this] { ++m_losses; });
}

void tst_CameraLoss::cleanup()
{
    goOn();
    m_camera.reset();
    m_process.kill();
    m_process.waitForFinished();
}

void tst_CameraLoss::kill()
{
    m_process.kill();
    QVERIFY(m_process.waitForFinished());
}

ZalErrorType tst_CameraLoss::read() const
{
    long long value = 0;
    return find("Plain")->GetIntegerValue(value);
}

void tst_CameraLoss::awaitAnswer()
{
    QTRY_COMPARE(read(), ZalErrorSuccess);
}

void tst_CameraLoss::stalledCameraBlocksOnceAndThenAnswersRightAgain()
{
    QCOMPARE(find("Plain")->SetIntegerValue(5), ZalErrorSuccess);
    stall();
    const auto blocked = duration([this] {
        for (int i = 0; i < 100; ++i)
            QCOMPARE(read(), ZalErrorTimeout);
    });
    QVERIFY2(blocked <= LongestBlock, qPrintable(QString::number(blocked)));
    goOn();
    awaitAnswer();
    QCOMPARE(integer(find("Plain")), 5LL);
}

void tst_CameraLoss::everyStallBlocksAtMostOnce()
{
    for (int round = 0; round < 3; ++round) {
        stall();
        // A write, because the answer to a read may be known from a moment before.
        const auto blocked = duration([this] {
            QCOMPARE(find("Note")->SetStringValue("x"), ZalErrorTimeout);
            QCOMPARE(read(), ZalErrorTimeout);
        });
        QVERIFY2(blocked <= LongestBlock, qPrintable(QString::number(blocked)));
        goOn();
        awaitAnswer();
    }
    QVERIFY(!m_camera->IsLost());
}

void tst_CameraLoss::stallThatOutlastsOneOperationIsSurvived()
{
    stall();
    QCOMPARE(read(), ZalErrorTimeout);
    // Aravis gives an operation up after two and a half seconds; the camera itself gives its
    // controller up after three.
    QTest::qWait(2200);
    goOn();
    awaitAnswer();
    QVERIFY(!m_camera->IsLost());
    QCOMPARE(m_losses, 0);
}

void tst_CameraLoss::writeInProgressIsDoneButRefusedOnesAreNot()
{
    stall();
    QCOMPARE(find("Plain")->SetIntegerValue(5), ZalErrorTimeout);
    QCOMPARE(find("Plain")->SetIntegerValue(6), ZalErrorTimeout);
    QCOMPARE(find("Hexadecimal")->SetIntegerValue(7), ZalErrorTimeout);
    goOn();
    awaitAnswer();
    QCOMPARE(integer(find("Plain")), 5LL);
    QCOMPARE(integer(find("Hexadecimal")), 0LL);
}

void tst_CameraLoss::observersAreToldAfterAStall()
{
    const auto recorder = std::make_shared<Recorder>();
    QCOMPARE(find("Plain")->RegisterObserver(recorder), ZalErrorSuccess);
    QCOMPARE(find("Note")->RegisterObserver(recorder), ZalErrorSuccess);
    stall();
    // A write, because the notifier may have read the others a moment before.
    QCOMPARE(find("Hexadecimal")->SetIntegerValue(1), ZalErrorTimeout);
    goOn();
    QTRY_COMPARE(recorder->count(), 2);
    QCOMPARE(recorder->count("Plain"), 1);
    QCOMPARE(recorder->count("Note"), 1);
}

void tst_CameraLoss::stallIsNotALoss()
{
    stall();
    QCOMPARE(read(), ZalErrorTimeout);
    QVERIFY(!m_camera->IsLost());
    goOn();
    awaitAnswer();
    QCOMPARE(m_losses, 0);
}

void tst_CameraLoss::killedCameraBlocksOnceInTotalAndIsLost()
{
    const auto recorder = std::make_shared<Recorder>();
    QCOMPARE(find("Temperature")->RegisterObserver(recorder), ZalErrorSuccess);
    kill();
    qint64 blocked = 0;
    const auto readUntilLost = [&] {
        blocked += duration([this] { read(); });
        return m_losses > 0;
    };
    QVERIFY(QTest::qWaitFor(readUntilLost, UntilLost));
    QCOMPARE(m_losses, 1);
    QVERIFY2(blocked <= LongestBlock, qPrintable(QString::number(blocked)));
    QVERIFY(m_camera->IsLost());
    QCOMPARE(m_camera->Loss(), ZalCPP::CameraLoss::NoAnswer);
    QCOMPARE(read(), ZalErrorNotOpen);
}

void tst_CameraLoss::lossIsNoticedWithoutACall()
{
    kill();
    QTRY_COMPARE_WITH_TIMEOUT(m_losses, 1, UntilLost);
    QVERIFY(m_camera->IsLost());
}

void tst_CameraLoss::lateLostHandlerIsCalledToo()
{
    m_camera->SetLostHandler(nullptr);
    kill();
    QTRY_VERIFY_WITH_TIMEOUT(m_camera->IsLost(), UntilLost);
    m_camera->SetLostHandler([this] { ++m_losses; });
    QTRY_COMPARE(m_losses, 1);
}

void tst_CameraLoss::cameraMayBeDestroyedInItsLostHandler()
{
    const auto plain = find("Plain");
    m_camera->SetLostHandler([this] {
        m_camera.reset();
        ++m_losses;
    });
    kill();
    QTRY_COMPARE_WITH_TIMEOUT(m_losses, 1, UntilLost);
    QCOMPARE(plain->SetIntegerValue(1), ZalErrorNotOpen);
}

void tst_CameraLoss::lostCameraAnswersNotOpenButKeepsItsFacts()
{
    const auto recorder = std::make_shared<Recorder>();
    QCOMPARE(find("Plain")->RegisterObserver(recorder), ZalErrorSuccess);
    kill();
    QTRY_VERIFY_WITH_TIMEOUT(m_camera->IsLost(), UntilLost);
    bool flag = false;
    QCOMPARE(find("Plain")->SetIntegerValue(1), ZalErrorNotOpen);
    QCOMPARE(find("Plain")->IsWritable(flag), ZalErrorNotOpen);
    QCOMPARE(find("Reset")->RunCommand(), ZalErrorNotOpen);
    QCOMPARE(find("Note")->RegisterObserver(recorder), ZalErrorNotOpen);
    QCOMPARE(find("Plain")->UnregisterObserver(recorder), ZalErrorNotOpen);
    QCOMPARE(recorder.use_count(), 1L);
    QCOMPARE(m_camera->StartAcquisition([](const ZalCPP::Frame&) {}), ZalErrorNotOpen);
    QCOMPARE(text(find("Plain"), &Feature::GetDisplayName), std::string("Plain Number"));
}

void tst_CameraLoss::killedCameraIsClosedInTime_data()
{
    QTest::addColumn<bool>("outstanding");
    QTest::newRow("nothing noticed yet") << false;
    QTest::newRow("operation outstanding") << true;
}

void tst_CameraLoss::killedCameraIsClosedInTime()
{
    QFETCH(bool, outstanding);
    const auto plain = find("Plain");
    kill();
    if (outstanding)
        QCOMPARE(read(), ZalErrorTimeout);
    const auto blocked = duration([this] { m_camera.reset(); });
    QVERIFY2(blocked <= LongestBlock, qPrintable(QString::number(blocked)));
    QCOMPARE(plain->SetIntegerValue(1), ZalErrorNotOpen);
}

void tst_CameraLoss::acquisitionOfAKilledCameraIsStoppedInTime()
{
    QCOMPARE(m_camera->StartAcquisition([](const ZalCPP::Frame&) {}), ZalErrorSuccess);
    kill();
    const auto blocked = duration([this] {
        QCOMPARE(m_camera->StopAcquisition(), ZalErrorTimeout);
        QCOMPARE(read(), ZalErrorTimeout);
    });
    QVERIFY2(blocked <= LongestBlock, qPrintable(QString::number(blocked)));
    QVERIFY(!m_camera->IsAcquiring());
}

void tst_CameraLoss::stalledCameraIsNotAcquiringUnlessItAnswered()
{
    stall();
    const auto blocked = duration([this] {
        QCOMPARE(m_camera->StartAcquisition([](const ZalCPP::Frame&) {}), ZalErrorTimeout);
    });
    QVERIFY2(blocked <= LongestBlock, qPrintable(QString::number(blocked)));
    QVERIFY(!m_camera->IsAcquiring());
    goOn();
    awaitAnswer();
    QCOMPARE(m_camera->StartAcquisition([](const ZalCPP::Frame&) {}), ZalErrorSuccess);
    QCOMPARE(m_camera->StopAcquisition(), ZalErrorSuccess);
}

void tst_CameraLoss::acquiringCameraIsStoppedAndClosedInTime_data()
{
    QTest::addColumn<bool>("killed");
    QTest::newRow("stalled") << false;
    QTest::newRow("killed") << true;
}

void tst_CameraLoss::acquiringCameraIsStoppedAndClosedInTime()
{
    QFETCH(bool, killed);
    QCOMPARE(m_camera->StartAcquisition([](const ZalCPP::Frame&) {}), ZalErrorSuccess);
    killed ? kill() : stall();
    const auto blocked = duration([this] {
        QCOMPARE(m_camera->StopAcquisition(), ZalErrorTimeout);
        m_camera.reset();
    });
    QVERIFY2(blocked <= LongestBlock, qPrintable(QString::number(blocked)));
}

void tst_CameraLoss::stalledCameraIsStartedAndClosedInTime()
{
    stall();
    const auto blocked = duration([this] {
        QCOMPARE(m_camera->StartAcquisition([](const ZalCPP::Frame&) {}), ZalErrorTimeout);
        m_camera.reset();
    });
    QVERIFY2(blocked <= LongestBlock, qPrintable(QString::number(blocked)));
}

QTEST_GUILESS_MAIN(tst_CameraLoss)
#include "tst_CameraLoss.moc"
