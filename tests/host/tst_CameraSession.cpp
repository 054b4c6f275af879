#include "host/CameraSession.h"
#include "tests/host/FakeDevice.h"

#include <QSignalSpy>
#include <QTest>
#include <QThread>

class tst_CameraSession : public QObject
{
    Q_OBJECT

    std::shared_ptr<FakeCameraState> camera;
    std::unique_ptr<CameraSession> session;

private slots:
    void init()
    {
        camera = std::make_shared<FakeCameraState>();
        session = std::make_unique<CameraSession>(std::make_unique<FakeDevice>(camera));
    }

    void cleanup() { session.reset(); }

    void beginsStoppedAndPassesTheCameraOn()
    {
        QVERIFY(!session->isAcquiring());
        QVERIFY(!session->isLost());
        QCOMPARE(session->frameCount(), 0ULL);
        QCOMPARE(session->cameraName(), QString("Tarsel Imaging Fake (F001)"));
        QCOMPARE(session->features()->size(), std::size_t{3});
        QVERIFY(camera->calls.isEmpty());
    }

    void startAndStopReachTheCameraOnceAndAreAnnounced()
    {
        QSignalSpy changes(session.get(), &CameraSession::acquisitionChanged);
        session->setAcquiring(true);
        session->setAcquiring(true);
        QVERIFY(session->isAcquiring());
        session->setAcquiring(false);
        session->setAcquiring(false);
        QVERIFY(!session->isAcquiring());
        QCOMPARE(camera->calls, QStringList({"start", "stop"}));
        QCOMPARE(changes.count(), 2);
        QCOMPARE(changes.at(0).at(0).toBool(), true);
        QCOMPARE(changes.at(1).at(0).toBool(), false);
    }

    void failedStartIsToldAndLeavesTheCameraStopped()
    {
        camera->startStatus = ZalErrorTimeout;
        QSignalSpy changes(session.get(), &CameraSession::acquisitionChanged);
        QSignalSpy failures(session.get(), &CameraSession::failed);
        session->setAcquiring(true);
        QVERIFY(!session->isAcquiring());
        QCOMPARE(changes.count(), 0);
        QCOMPARE(failures.count(), 1);
        QCOMPARE(failures.at(0).at(0).toString(), QString("The acquisition could not be started. "
                                                          "The camera did not answer in time."));
    }

    void failedStopIsToldAndCountsAsStopped()
    {
        camera->stopStatus = ZalErrorTransport;
        QSignalSpy changes(session.get(), &CameraSession::acquisitionChanged);
        QSignalSpy failures(session.get(), &CameraSession::failed);
        session->setAcquiring(true);
        session->setAcquiring(false);
        QVERIFY(!session->isAcquiring());
        QCOMPARE(changes.count(), 2);
        QCOMPARE(failures.count(), 1);
        QCOMPARE(failures.at(0).at(0).toString(),
                 QString("The acquisition did not stop cleanly. "
                         "The connection to the camera reported a failure."));
    }

    void frameReachesTheGuiThread()
    {
        session->setAcquiring(true);
        unsigned char shade = 0;
        QThread* thread = nullptr;
        connect(session.get(), &CameraSession::frameArrived, this, [&](const ZalCPP::Frame& frame) {
            shade = frame.pixels.at(0);
            thread = QThread::currentThread();
        });
        camera->sendFrame(77);
        QTRY_COMPARE(session->frameCount(), 1ULL);
        QCOMPARE(shade, static_cast<unsigned char>(77));
        QCOMPARE(thread, QThread::currentThread());
    }

    void newestFrameWinsAndEveryFrameCounts()
    {
        session->setAcquiring(true);
        std::vector<int> shades;
        connect(session.get(), &CameraSession::frameArrived, this,
                [&](const ZalCPP::Frame& frame) { shades.push_back(frame.pixels.at(0)); });
        std::vector<ZalCPP::Frame> burst;
        for (unsigned char shade = 1; shade <= 100; ++shade)
            burst.push_back(FakeCameraState::greyFrame(shade));
        camera->sendFrames(burst);
        QTRY_COMPARE(session->frameCount(), 100ULL);
        QCOMPARE(shades, std::vector<int>{100});

        camera->sendFrame(5);
        QTRY_COMPARE(session->frameCount(), 101ULL);
        QCOMPARE(shades, (std::vector<int>{100, 5}));
    }

    void countBeginsAnewWithEachStart()
    {
        session->setAcquiring(true);
        camera->sendFrame(1);
        QTRY_COMPARE(session->frameCount(), 1ULL);
        session->setAcquiring(false);
        QCOMPARE(session->frameCount(), 1ULL);
        session->setAcquiring(true);
        QCOMPARE(session->frameCount(), 0ULL);
        camera->sendFrame(1);
        QTRY_COMPARE(session->frameCount(), 1ULL);
    }

    void frameFromBeforeARestartIsNotShown()
    {
        std::vector<int> shades;
        connect(session.get(), &CameraSession::frameArrived, this,
                [&](const ZalCPP::Frame& frame) { shades.push_back(frame.pixels.at(0)); });
        session->setAcquiring(true);
        camera->sendFrame(1);
        session->setAcquiring(false);
        session->setAcquiring(true);
        QCoreApplication::processEvents();
        QVERIFY(shades.empty());
        camera->sendFrame(2);
        QTRY_COMPARE(session->frameCount(), 1ULL);
        QCOMPARE(shades, std::vector<int>{2});
    }

    void lossEndsTheAcquisitionAndIsToldOnce()
    {
        session->setAcquiring(true);
        QStringList events;
        connect(session.get(), &CameraSession::acquisitionChanged, this,
                [&](bool on) { events.append(on ? "on" : "off"); });
        connect(session.get(), &CameraSession::lost, this, [&] { events.append("lost"); });
        camera->lose();
        camera->lose();
        QTRY_VERIFY(session->isLost());
        QCoreApplication::processEvents();
        QCOMPARE(events, QStringList({"off", "lost"}));
        QVERIFY(!session->isAcquiring());
    }

    void lossOfAnIdleCameraIsNoChangeOfTheAcquisition()
    {
        const QSignalSpy changes(session.get(), &CameraSession::acquisitionChanged);
        camera->lose();
        QTRY_VERIFY(session->isLost());
        QCOMPARE(changes.count(), 0);
    }

    void lostCameraIsNotAskedToStartOrStop()
    {
        session->setAcquiring(true);
        camera->lose();
        QTRY_VERIFY(session->isLost());
        session->setAcquiring(true);
        session->setAcquiring(false);
        QCOMPARE(camera->calls, QStringList{"start"});
    }

    void lossBeforeTheSessionExistedIsTold()
    {
        camera->alreadyLost = true;
        session = std::make_unique<CameraSession>(std::make_unique<FakeDevice>(camera));
        QSignalSpy lost(session.get(), &CameraSession::lost);
        QTRY_COMPARE(lost.count(), 1);
    }

    void framesOnTheirWayAreDroppedWithTheSession()
    {
        session->setAcquiring(true);
        camera->sendFrame(1);
        camera->lose();
        session.reset();
        QCoreApplication::processEvents();
        QCOMPARE(camera->calls.last(), QString("close"));
    }
};

QTEST_GUILESS_MAIN(tst_CameraSession)
#include "tst_CameraSession.moc"
