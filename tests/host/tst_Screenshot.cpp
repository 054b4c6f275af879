#include "host/CameraSession.h"
#include "host/Screenshot.h"
#include "tests/host/FakeDevice.h"

#include <QImage>
#include <QLabel>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

class tst_Screenshot : public QObject
{
    Q_OBJECT

    std::shared_ptr<FakeCameraState> camera;
    std::unique_ptr<CameraSession> session;
    std::unique_ptr<QLabel> window;
    std::unique_ptr<QTemporaryDir> folder;
    QString file;

    /// Waits until a delay of 0 or 1 ms that has begun is over: timers of one length run out in the
    /// order in which they were started.
    static void waitForTheDelay()
    {
        QTimer timer;
        timer.setSingleShot(true);
        const QSignalSpy over(&timer, &QTimer::timeout);
        timer.start(1);
        QTRY_COMPARE(over.count(), 1);
    }

private slots:
    void init()
    {
        camera = std::make_shared<FakeCameraState>();
        session = std::make_unique<CameraSession>(std::make_unique<FakeDevice>(camera));
        window = std::make_unique<QLabel>("Window");
        window->resize(320, 200);
        window->show();
        folder = std::make_unique<QTemporaryDir>();
        file = folder->filePath("shot.png");
    }

    void cleanup() { session.reset(); }

    void stoppedCameraIsShownAfterTheDelay()
    {
        Screenshot screenshot(*window, *session, file, 0);
        QSignalSpy finished(&screenshot, &Screenshot::finished);
        QVERIFY(finished.wait());
        QCOMPARE(finished.at(0).at(0).toBool(), true);
        const QImage image(file, "PNG");
        QCOMPARE(image.size(), QSize(320, 200));
    }

    void acquiringCameraIsShownAfterThreeFrames()
    {
        session->setAcquiring(true);
        Screenshot screenshot(*window, *session, file, 0);
        const QSignalSpy finished(&screenshot, &Screenshot::finished);
        waitForTheDelay();
        camera->sendFrame(1);
        camera->sendFrame(2);
        QTRY_COMPARE(session->frameCount(), 2ULL);
        QCOMPARE(finished.count(), 0);
        camera->sendFrame(3);
        QTRY_COMPARE(session->frameCount(), 3ULL);
        QCOMPARE(finished.count(), 1);
        QVERIFY(QFile::exists(file));
    }

    void framesBeforeTheDelayIsOverAreNotEnough()
    {
        constexpr int hour = 3600 * 1000;
        session->setAcquiring(true);
        Screenshot screenshot(*window, *session, file, hour);
        const QSignalSpy finished(&screenshot, &Screenshot::finished);
        for (unsigned char shade = 1; shade <= 5; ++shade)
            camera->sendFrame(shade);
        QTRY_COMPARE(session->frameCount(), 5ULL);
        waitForTheDelay();
        QCOMPARE(finished.count(), 0);
    }

    void framesBeforeTheDelayIsOverCountWhenItIs()
    {
        session->setAcquiring(true);
        Screenshot screenshot(*window, *session, file, 1);
        const QSignalSpy finished(&screenshot, &Screenshot::finished);
        for (unsigned char shade = 1; shade <= 3; ++shade)
            camera->sendFrame(shade);
        QCoreApplication::sendPostedEvents(); // No timers.
        QCOMPARE(session->frameCount(), 3ULL);
        QCOMPARE(finished.count(), 0);
        waitForTheDelay();
        QCOMPARE(finished.count(), 1);
    }

    void cameraWithoutFramesIsShownInTheEnd()
    {
        session->setAcquiring(true);
        Screenshot screenshot(*window, *session, file, 0);
        QSignalSpy finished(&screenshot, &Screenshot::finished);
        waitForTheDelay();
        QCOMPARE(finished.count(), 0);
        QVERIFY(finished.wait(20000));
        QCOMPARE(finished.at(0).at(0).toBool(), true);
        QVERIFY(QFile::exists(file));
    }

    void lostCameraIsShownAtOnce()
    {
        session->setAcquiring(true);
        Screenshot screenshot(*window, *session, file, 0);
        const QSignalSpy finished(&screenshot, &Screenshot::finished);
        const QSignalSpy lost(session.get(), &CameraSession::lost);
        waitForTheDelay();
        QCOMPARE(finished.count(), 0);
        camera->lose();
        QTRY_COMPARE(lost.count(), 1);
        QCOMPARE(finished.count(), 1);
    }

    void cameraThatIsLostBeforeTheDelayIsOverIsShownThen()
    {
        session->setAcquiring(true);
        Screenshot screenshot(*window, *session, file, 1);
        const QSignalSpy finished(&screenshot, &Screenshot::finished);
        camera->lose();
        QCoreApplication::sendPostedEvents(); // No timers.
        QVERIFY(session->isLost());
        QCOMPARE(finished.count(), 0);
        waitForTheDelay();
        QCOMPARE(finished.count(), 1);
    }

    void isTakenOnce()
    {
        session->setAcquiring(true);
        Screenshot screenshot(*window, *session, file, 0);
        QSignalSpy finished(&screenshot, &Screenshot::finished);
        for (unsigned char shade = 1; shade <= 3; ++shade)
            camera->sendFrame(shade);
        QTRY_COMPARE(finished.count(), 1);
        camera->sendFrame(4);
        QTRY_COMPARE(session->frameCount(), 4ULL);
        QCOMPARE(finished.count(), 1);
    }

    void unwritableFileIsReported()
    {
        Screenshot screenshot(*window, *session, folder->filePath("missing/shot.png"), 0);
        QSignalSpy finished(&screenshot, &Screenshot::finished);
        QVERIFY(finished.wait());
        QCOMPARE(finished.at(0).at(0).toBool(), false);
    }
};

QTEST_MAIN(tst_Screenshot)
#include "tst_Screenshot.moc"
