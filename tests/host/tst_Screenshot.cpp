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

    std::shared_ptr<FakeCameraState> m_camera;
    std::unique_ptr<CameraSession> m_session;
    std::unique_ptr<QLabel> m_window;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;

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
        m_camera = std::make_shared<FakeCameraState>();
        m_session = std::make_unique<CameraSession>(std::make_unique<FakeDevice>(m_camera));
        m_window = std::make_unique<QLabel>("Window");
        m_window->resize(320, 200);
        m_window->show();
        m_folder = std::make_unique<QTemporaryDir>();
        m_file = m_folder->filePath("shot.png");
    }

    void cleanup() { m_session.reset(); }

    void stoppedCameraIsShownAfterTheDelay()
    {
        Screenshot screenshot(*m_window, *m_session, m_file, 0);
        QSignalSpy finished(&screenshot, &Screenshot::finished);
        QVERIFY(finished.wait());
        QCOMPARE(finished.at(0).at(0).toBool(), true);
        const QImage image(m_file, "PNG");
        QCOMPARE(image.size(), QSize(320, 200));
    }

    void acquiringCameraIsShownAfterThreeFrames()
    {
        m_session->setAcquiring(true);
        Screenshot screenshot(*m_window, *m_session, m_file, 0);
        const QSignalSpy finished(&screenshot, &Screenshot::finished);
        waitForTheDelay();
        m_camera->sendFrame(1);
        m_camera->sendFrame(2);
        QTRY_COMPARE(m_session->frameCount(), 2ULL);
        QCOMPARE(finished.count(), 0);
        m_camera->sendFrame(3);
        QTRY_COMPARE(m_session->frameCount(), 3ULL);
        QCOMPARE(finished.count(), 1);
        QVERIFY(QFile::exists(m_file));
    }

    void framesBeforeTheDelayIsOverAreNotEnough()
    {
        constexpr int hour = 3600 * 1000;
        m_session->setAcquiring(true);
        Screenshot screenshot(*m_window, *m_session, m_file, hour);
        const QSignalSpy finished(&screenshot, &Screenshot::finished);
        for (unsigned char shade = 1; shade <= 5; ++shade)
            m_camera->sendFrame(shade);
        QTRY_COMPARE(m_session->frameCount(), 5ULL);
        waitForTheDelay();
        QCOMPARE(finished.count(), 0);
    }

    void framesBeforeTheDelayIsOverCountWhenItIs()
    {
        m_session->setAcquiring(true);
        Screenshot screenshot(*m_window, *m_session, m_file, 1);
        const QSignalSpy finished(&screenshot, &Screenshot::finished);
        for (unsigned char shade = 1; shade <= 3; ++shade)
            m_camera->sendFrame(shade);
        QCoreApplication::sendPostedEvents(); // No timers.
        QCOMPARE(m_session->frameCount(), 3ULL);
        QCOMPARE(finished.count(), 0);
        waitForTheDelay();
        QCOMPARE(finished.count(), 1);
    }

    void cameraWithoutFramesIsShownInTheEnd()
    {
        m_session->setAcquiring(true);
        Screenshot screenshot(*m_window, *m_session, m_file, 0);
        QSignalSpy finished(&screenshot, &Screenshot::finished);
        waitForTheDelay();
        QCOMPARE(finished.count(), 0);
        QVERIFY(finished.wait(20000));
        QCOMPARE(finished.at(0).at(0).toBool(), true);
        QVERIFY(QFile::exists(m_file));
    }

    void lostCameraIsShownAtOnce()
    {
        m_session->setAcquiring(true);
        Screenshot screenshot(*m_window, *m_session, m_file, 0);
        const QSignalSpy finished(&screenshot, &Screenshot::finished);
        const QSignalSpy lost(m_session.get(), &CameraSession::lost);
        waitForTheDelay();
        QCOMPARE(finished.count(), 0);
        m_camera->lose();
        QTRY_COMPARE(lost.count(), 1);
        QCOMPARE(finished.count(), 1);
    }

    void cameraThatIsLostBeforeTheDelayIsOverIsShownThen()
    {
        m_session->setAcquiring(true);
        Screenshot screenshot(*m_window, *m_session, m_file, 1);
        const QSignalSpy finished(&screenshot, &Screenshot::finished);
        m_camera->lose();
        QCoreApplication::sendPostedEvents(); // No timers.
        QVERIFY(m_session->isLost());
        QCOMPARE(finished.count(), 0);
        waitForTheDelay();
        QCOMPARE(finished.count(), 1);
    }

    void isTakenOnce()
    {
        m_session->setAcquiring(true);
        Screenshot screenshot(*m_window, *m_session, m_file, 0);
        QSignalSpy finished(&screenshot, &Screenshot::finished);
        for (unsigned char shade = 1; shade <= 3; ++shade)
            m_camera->sendFrame(shade);
        QTRY_COMPARE(finished.count(), 1);
        m_camera->sendFrame(4);
        QTRY_COMPARE(m_session->frameCount(), 4ULL);
        QCOMPARE(finished.count(), 1);
    }

    void unwritableFileIsReported()
    {
        Screenshot screenshot(*m_window, *m_session, m_folder->filePath("missing/shot.png"), 0);
        QSignalSpy finished(&screenshot, &Screenshot::finished);
        QVERIFY(finished.wait());
        QCOMPARE(finished.at(0).at(0).toBool(), false);
    }
};

QTEST_MAIN(tst_Screenshot)
#include "tst_Screenshot.moc"
