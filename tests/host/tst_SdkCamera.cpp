#include "host/CameraSession.h"
#include "host/MainWindow.h"
#include "host/SdkCamera.h"
#include "sdk/simulator/SimulatedCamera.h"

#include <QAction>
#include <QLabel>
#include <QTest>

using Cameras::Source;

class tst_SdkCamera : public QObject
{
    Q_OBJECT

    QString m_error;

private slots:
    void init() { m_error.clear(); }

    void featuresAreThoseOfTheCamera()
    {
        const std::unique_ptr<CameraDevice> camera = openCamera({}, m_error);
        QVERIFY2(camera, qPrintable(m_error));
        QVERIFY(camera->features()->size() > 10);
    }

    void failureGivesItsSentence()
    {
        QVERIFY(!openCamera({Source::Kind::Simulated, "nonexistent"}, m_error));
        QVERIFY2(m_error.contains("nonexistent"), qPrintable(m_error));
        QVERIFY2(m_error.endsWith('.'), qPrintable(m_error));
    }

    void windowShowsAndCountsTheCamerasFrames()
    {
        CameraSession session(openCamera({}, m_error));
        MainWindow window(session);
        window.show();
        auto* acquire = window.findChild<QAction*>("actionAcquire");
        auto* counter = window.findChild<QLabel*>("frameCounter");
        acquire->trigger();
        QVERIFY2(session.isAcquiring(), qPrintable(window.findChild<QLabel*>("notice")->text()));
        QTRY_VERIFY(session.frameCount() >= 3);
        QCOMPARE(counter->text(), QString("Frames: %1").arg(session.frameCount()));
        acquire->trigger();
        QVERIFY(!session.isAcquiring());
        QCoreApplication::processEvents(); // Delivers what came in before the stop.
        const quint64 count = session.frameCount();
        acquire->trigger();
        QTRY_VERIFY(session.frameCount() >= 2);
        QVERIFY(count >= 3);
    }

    void nameIsMakerModelAndSerialNumber()
    {
        const std::unique_ptr<CameraDevice> camera = openCamera({}, m_error);
        QVERIFY2(camera, qPrintable(m_error));
        const QStringList words = camera->name().split(' ');
        QVERIFY2(camera->name().startsWith("Tarsel Imaging GmbH "), qPrintable(camera->name()));
        QVERIFY2(camera->name().endsWith(" (SIM0001)"), qPrintable(camera->name()));
        QVERIFY2(words.size() > 4 && !words.contains(QString()), qPrintable(camera->name()));
    }

    void lostCameraSaysSo()
    {
        std::string reason;
        auto simulator = ZalSim::SimulatedCamera::start({}, reason);
        QVERIFY2(simulator, reason.c_str());
        const std::unique_ptr<CameraDevice> camera =
            openCamera({Source::Kind::Found, simulator->cameraId()}, m_error);
        QVERIFY2(camera, qPrintable(m_error));
        QVERIFY(!camera->isLost());
        simulator.reset();
        QTRY_VERIFY_WITH_TIMEOUT(camera->isLost(), 30000);
    }

    void windowSaysThatTheCameraIsLostAndStillCloses()
    {
        ZalSim::Options options;
        std::string reason;
        auto simulator = ZalSim::SimulatedCamera::start(options, reason);
        QVERIFY2(simulator, reason.c_str());
        CameraSession session(openCamera({Source::Kind::Found, simulator->cameraId()}, m_error));
        MainWindow window(session);
        window.show();
        session.setAcquiring(true);
        QTRY_VERIFY(session.frameCount() >= 1);

        simulator.reset();
        QTRY_VERIFY_WITH_TIMEOUT(session.isLost(), 30000);
        QVERIFY(!session.isAcquiring());
        QVERIFY(window.findChild<QLabel*>("notice")->text().contains("is lost"));
        QVERIFY(window.close());
    }
};

QTEST_MAIN(tst_SdkCamera)
#include "tst_SdkCamera.moc"
