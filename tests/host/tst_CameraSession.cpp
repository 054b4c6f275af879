#include "host/CameraSession.h"
#include "tests/host/FakeDevice.h"

#include <QSignalSpy>
#include <QTest>
#include <QThread>

class tst_CameraSession : public QObject
{
    Q_OBJECT

    std::shared_ptr<FakeCameraState> m_camera;
    std::unique_ptr<CameraSession> m_session;

private slots:
    void init()
    {
        m_camera = std::make_shared<FakeCameraState>();
        m_session = std::make_unique<CameraSession>(std::make_unique<FakeDevice>(m_camera));
    }

    void cleanup() { m_session.reset(); }

    void beginsStoppedAndPassesTheCameraOn()
    {
        QVERIFY(!m_session->isAcquiring());
        QVERIFY(!m_session->isLost());
        QCOMPARE(m_session->frameCount(), 0ULL);
        QCOMPARE(m_session->cameraName(), QString("Tarsel Imaging Fake (F001)"));
        QCOMPARE(m_session->features()->size(), std::size_t{3});
        QVERIFY(m_camera->calls.isEmpty());
    }

    void startAndStopReachTheCameraOnceAndAreAnnounced()
    {
        QSignalSpy changes(m_session.get(), &CameraSession::acquisitionChanged);
        m_session->setAcquiring(true);
        m_session->setAcquiring(true);
        QVERIFY(m_session->isAcquiring());
        m_session->setAcquiring(false);
        m_session->setAcquiring(false);
        QVERIFY(!m_session->isAcquiring());
        QCOMPARE(m_camera->calls, QStringList({"start", "stop"}));
        QCOMPARE(changes.count(), 2);
        QCOMPARE(changes.at(0).at(0).toBool(), true);
        QCOMPARE(changes.at(1).at(0).toBool(), false);
    }

    void failedStartIsToldAndLeavesTheCameraStopped()
    {
        m_camera->startStatus = ZalErrorTimeout;
        QSignalSpy changes(m_session.get(), &CameraSession::acquisitionChanged);
        QSignalSpy failures(m_session.get(), &CameraSession::failed);
        m_session->setAcquiring(true);
        QVERIFY(!m_session->isAcquiring());
        QCOMPARE(changes.count(), 0);
        QCOMPARE(failures.count(), 1);
        QCOMPARE(failures.at(0).at(0).toString(), QString("The acquisition could not be started. "
                                                          "The camera did not answer in time."));
    }

    void failedStopIsToldAndCountsAsStopped()
    {
        m_camera->stopStatus = ZalErrorTransport;
        QSignalSpy changes(m_session.get(), &CameraSession::acquisitionChanged);
        QSignalSpy failures(m_session.get(), &CameraSession::failed);
        m_session->setAcquiring(true);
        m_session->setAcquiring(false);
        QVERIFY(!m_session->isAcquiring());
        QCOMPARE(changes.count(), 2);
        QCOMPARE(failures.count(), 1);
        QCOMPARE(failures.at(0).at(0).toString(),
                 QString("The acquisition did not stop cleanly. "
                         "The connection to the camera reported a failure."));
    }

    void frameReachesTheGuiThread()
    {
        m_session->setAcquiring(true);
        unsigned char shade = 0;
        QThread* thread = nullptr;
        connect(m_session.get(), &CameraSession::frameArrived, this,
                [&](const ZalCPP::Frame& frame) {
                    shade = frame.pixels.at(0);
                    thread = QThread::currentThread();
                });
        m_camera->sendFrame(77);
        QTRY_COMPARE(m_session->frameCount(), 1ULL);
        QCOMPARE(shade, static_cast<unsigned char>(77));
        QCOMPARE(thread, QThread::currentThread());
    }

    void newestFrameWinsAndEveryFrameCounts()
    {
        m_session->setAcquiring(true);
        std::vector<int> shades;
        connect(m_session.get(), &CameraSession::frameArrived, this,
                [&](const ZalCPP::Frame& frame) { shades.push_back(frame.pixels.at(0)); });
        std::vector<ZalCPP::Frame> burst;
        for (unsigned char shade = 1; shade <= 100; ++shade)
            burst.push_back(FakeCameraState::greyFrame(shade));
        m_camera->sendFrames(burst);
        QTRY_COMPARE(m_session->frameCount(), 100ULL);
        QCOMPARE(shades, std::vector<int>{100});

        m_camera->sendFrame(5);
        QTRY_COMPARE(m_session->frameCount(), 101ULL);
        QCOMPARE(shades, (std::vector<int>{100, 5}));
    }

    void countBeginsAnewWithEachStart()
    {
        m_session->setAcquiring(true);
        m_camera->sendFrame(1);
        QTRY_COMPARE(m_session->frameCount(), 1ULL);
        m_session->setAcquiring(false);
        QCOMPARE(m_session->frameCount(), 1ULL);
        m_session->setAcquiring(true);
        QCOMPARE(m_session->frameCount(), 0ULL);
        m_camera->sendFrame(1);
        QTRY_COMPARE(m_session->frameCount(), 1ULL);
    }

    void frameFromBeforeARestartIsNotShown()
    {
        std::vector<int> shades;
        connect(m_session.get(), &CameraSession::frameArrived, this,
                [&](const ZalCPP::Frame& frame) { shades.push_back(frame.pixels.at(0)); });
        m_session->setAcquiring(true);
        m_camera->sendFrame(1);
        m_session->setAcquiring(false);
        m_session->setAcquiring(true);
        QCoreApplication::processEvents();
        QVERIFY(shades.empty());
        m_camera->sendFrame(2);
        QTRY_COMPARE(m_session->frameCount(), 1ULL);
        QCOMPARE(shades, std::vector<int>{2});
    }

    void lossEndsTheAcquisitionAndIsToldOnce()
    {
        m_session->setAcquiring(true);
        QStringList events;
        connect(m_session.get(), &CameraSession::acquisitionChanged, this,
                [&](bool on) { events.append(on ? "on" : "off"); });
        connect(m_session.get(), &CameraSession::lost, this, [&] { events.append("lost"); });
        m_camera->lose();
        m_camera->lose();
        QTRY_VERIFY(m_session->isLost());
        QCoreApplication::processEvents();
        QCOMPARE(events, QStringList({"off", "lost"}));
        QVERIFY(!m_session->isAcquiring());
    }

    void lossOfAnIdleCameraIsNoChangeOfTheAcquisition()
    {
        const QSignalSpy changes(m_session.get(), &CameraSession::acquisitionChanged);
        m_camera->lose();
        QTRY_VERIFY(m_session->isLost());
        QCOMPARE(changes.count(), 0);
    }

    void lostCameraIsNotAskedToStartOrStop()
    {
        m_session->setAcquiring(true);
        m_camera->lose();
        QTRY_VERIFY(m_session->isLost());
        m_session->setAcquiring(true);
        m_session->setAcquiring(false);
        QCOMPARE(m_camera->calls, QStringList{"start"});
    }

    void lossBeforeTheSessionExistedIsTold()
    {
        m_camera->alreadyLost = true;
        m_session = std::make_unique<CameraSession>(std::make_unique<FakeDevice>(m_camera));
        QSignalSpy lost(m_session.get(), &CameraSession::lost);
        QTRY_COMPARE(lost.count(), 1);
    }

    void framesOnTheirWayAreDroppedWithTheSession()
    {
        m_session->setAcquiring(true);
        m_camera->sendFrame(1);
        m_camera->lose();
        m_session.reset();
        QCoreApplication::processEvents();
        QCOMPARE(m_camera->calls.last(), QString("close"));
    }
};

QTEST_GUILESS_MAIN(tst_CameraSession)
#include "tst_CameraSession.moc"
