// One way to a camera, whether it is found or simulated.
#include "sdk/cameras/Cameras.h"
#include "sdk/simulator/SimulatedCamera.h"

#include <QtTest>

using Cameras::Source;
using ZalSim::SimulatedCamera;

Q_DECLARE_METATYPE(Source::Kind)

class tst_Cameras : public QObject
{
    Q_OBJECT

    std::string m_error;

private slots:
    void init() { m_error.clear(); }

    void simulatedModelIsStartedAndOpened_data()
    {
        QTest::addColumn<QString>("model");
        for (const std::string& model : SimulatedCamera::models())
            QTest::newRow(model.c_str()) << QString::fromStdString(model);
    }
    void simulatedModelIsStartedAndOpened()
    {
        QFETCH(QString, model);
        const auto camera = Cameras::open({Source::Kind::Simulated, model.toStdString()}, m_error);
        QVERIFY2(camera, m_error.c_str());
        QVERIFY(!camera->IsLost());
        QCOMPARE(camera->Info().serial, std::string("SIM0001"));
        QVERIFY(camera->Features()->size() > 10);
    }

    void simulatedModelIsTheOneThatWasNamed_data()
    {
        QTest::addColumn<QString>("model");
        QTest::addColumn<bool>("hasCounters");
        QTest::newRow("full") << "full" << true;
        QTest::newRow("basic") << "basic" << false;
    }
    void simulatedModelIsTheOneThatWasNamed()
    {
        QFETCH(QString, model);
        const auto camera = Cameras::open({Source::Kind::Simulated, model.toStdString()}, m_error);
        QVERIFY2(camera, m_error.c_str());
        QTEST(camera->FindFeature("CounterSelector") != nullptr, "hasCounters");
    }

    // There is one port for simulated cameras, which the one before has to leave.
    void simulatedCameraEndsWithTheLastCopyOfThePointer()
    {
        auto camera = Cameras::open({}, m_error);
        QVERIFY2(camera, m_error.c_str());
        auto copy = std::exchange(camera, nullptr);
        QVERIFY(!Cameras::open({}, m_error));
        QVERIFY(!copy->IsLost());
        copy.reset();
        QVERIFY2(Cameras::open({}, m_error), m_error.c_str());
    }

    // Closing the camera lets go of its handler, so what the handler held sees that moment.
    void connectionIsClosedBeforeTheSimulatedCameraGoes()
    {
        auto camera = Cameras::open({}, m_error);
        QVERIFY2(camera, m_error.c_str());
        bool closed = false;
        bool isPortFree = false;
        const auto look = [&](std::nullptr_t) {
            closed = true;
            isPortFree = SimulatedCamera::start({}, m_error) != nullptr;
        };
        camera->SetLostHandler([held = std::shared_ptr<void>(nullptr, look)] {});
        QVERIFY(!closed);
        camera.reset();
        QVERIFY(closed);
        QVERIFY2(!isPortFree, "The simulated camera was gone before the connection to it.");
    }

    void cameraThatCannotBeHadGivesASentence_data()
    {
        QTest::addColumn<Source::Kind>("kind");
        QTest::addColumn<QString>("name");
        QTest::newRow("no such model") << Source::Kind::Simulated << "nonexistent";
        QTest::newRow("no such camera") << Source::Kind::Found << "no-such-camera";
    }
    void cameraThatCannotBeHadGivesASentence()
    {
        QFETCH(Source::Kind, kind);
        QFETCH(QString, name);
        QVERIFY(!Cameras::open({kind, name.toStdString()}, m_error));
        const QString sentence = QString::fromStdString(m_error);
        QVERIFY2(sentence.contains(name), m_error.c_str());
        QVERIFY2(sentence.endsWith('.'), m_error.c_str());
    }

    void foundCameraIsOpened_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("by serial number") << "SIM0077";
        QTest::newRow("by address") << "127.0.0.1";
        QTest::newRow("the first one") << "";
    }
    void foundCameraIsOpened()
    {
        QFETCH(QString, name);
        ZalSim::Options options;
        options.serial = "SIM0077";
        const auto simulator = SimulatedCamera::start(options, m_error);
        QVERIFY2(simulator, m_error.c_str());
        const auto camera = Cameras::open({Source::Kind::Found, name.toStdString()}, m_error);
        QVERIFY2(camera, m_error.c_str());
        QCOMPARE(camera->Info().serial, std::string("SIM0077"));
    }
};

QTEST_GUILESS_MAIN(tst_Cameras)
#include "tst_Cameras.moc"
