#include "host/CameraSession.h"
#include "host/MainWindow.h"
#include "host/SdkCamera.h"
#include "sdk/simulator/SimulatedCamera.h"

#include <QAction>
#include <QLabel>
#include <QTest>

Q_DECLARE_METATYPE(CameraChoice)

namespace {

CameraChoice byId(const QString& id)
{
    CameraChoice choice;
    choice.kind = CameraChoice::Kind::ById;
    choice.id = id;
    return choice;
}

} // namespace

class tst_SdkCamera : public QObject
{
    Q_OBJECT

    QString m_error;

private slots:
    void init() { m_error.clear(); }

    void simulatedModelIsStartedAndOpened_data()
    {
        QTest::addColumn<QString>("model");
        for (const std::string& model : ZalSim::SimulatedCamera::models())
            QTest::newRow(model.c_str()) << QString::fromStdString(model);
    }
    void simulatedModelIsStartedAndOpened()
    {
        CameraChoice choice;
        QFETCH(QString, model);
        choice.model = model;
        const std::unique_ptr<CameraDevice> camera = openCamera(choice, m_error);
        QVERIFY2(camera, qPrintable(m_error));
        QVERIFY(!camera->isLost());
        QVERIFY2(camera->name().endsWith("(SIM0001)"), qPrintable(camera->name()));
        QVERIFY(camera->features()->size() > 10);
    }

    void unknownModelGivesASentence()
    {
        CameraChoice choice;
        choice.model = "nonexistent";
        QVERIFY(!openCamera(choice, m_error));
        QVERIFY2(m_error.contains("nonexistent"), qPrintable(m_error));
        QVERIFY2(m_error.endsWith('.'), qPrintable(m_error));
    }

    void cameraThatIsNotThereGivesASentence()
    {
        QVERIFY(!openCamera(byId("no-such-camera"), m_error));
        QVERIFY2(m_error.endsWith('.'), qPrintable(m_error));
    }

    void foundCameraIsOpened_data()
    {
        QTest::addColumn<CameraChoice>("choice");
        QTest::newRow("by serial number") << byId("SIM0077");
        CameraChoice first;
        first.kind = CameraChoice::Kind::FirstFound;
        QTest::newRow("first found") << first;
    }
    void foundCameraIsOpened()
    {
        QFETCH(CameraChoice, choice);
        ZalSim::Options options;
        options.serial = "SIM0077";
        std::string reason;
        const auto simulator = ZalSim::SimulatedCamera::start(options, reason);
        QVERIFY2(simulator, reason.c_str());
        const std::unique_ptr<CameraDevice> camera = openCamera(choice, m_error);
        QVERIFY2(camera, qPrintable(m_error));
        QVERIFY2(camera->name().endsWith("(SIM0077)"), qPrintable(camera->name()));
    }

    void windowShowsAndCountsTheCamerasFrames()
    {
        CameraSession session(openCamera(CameraChoice(), m_error));
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
        const std::unique_ptr<CameraDevice> camera = openCamera(CameraChoice(), m_error);
        QVERIFY2(camera, qPrintable(m_error));
        const QStringList words = camera->name().split(' ');
        QVERIFY2(camera->name().startsWith("Tarsel Imaging GmbH "), qPrintable(camera->name()));
        QVERIFY2(words.size() > 4 && !words.contains(QString()), qPrintable(camera->name()));
    }

    void lostCameraSaysSo()
    {
        std::string reason;
        auto simulator = ZalSim::SimulatedCamera::start({}, reason);
        QVERIFY2(simulator, reason.c_str());
        const std::unique_ptr<CameraDevice> camera =
            openCamera(byId(QString::fromStdString(simulator->cameraId())), m_error);
        QVERIFY2(camera, qPrintable(m_error));
        simulator.reset();
        QTRY_VERIFY_WITH_TIMEOUT(camera->isLost(), 30000);
    }

    void windowSaysThatTheCameraIsLostAndStillCloses()
    {
        ZalSim::Options options;
        std::string reason;
        auto simulator = ZalSim::SimulatedCamera::start(options, reason);
        QVERIFY2(simulator, reason.c_str());
        const QString id = QString::fromStdString(simulator->cameraId());
        CameraSession session(openCamera(byId(id), m_error));
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
