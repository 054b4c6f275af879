// Finding and opening cameras, and what is known of an open one.
#include "tests/sdk/bridge/BridgeTest.h"
#include "tests/sdk/bridge/NastyCamera.h"

#include <thread>

using namespace BridgeTest;
using ZalCPP::CameraSystem;

class tst_CameraSystem : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_server = std::make_unique<NastyCamera>(); }
    void cleanupTestCase() { m_server.reset(); }

    void listsTheCamera();
    void opensBy_data();
    void opensBy();
    void opensTheFirstCameraWithoutAnId();
    void knowsACameraThatWasOpenedByAddress();
    void unknownCameraIsRefusedWithASentence_data();
    void unknownCameraIsRefusedWithASentence();
    void cameraInUseIsRefusedWithASentence();
    void cameraCanBeOpenedAgainAfterClosing();
    void countsEveryAccess();
    void countsEachCameraByItself();
    void heartbeatIsNotCounted();
    void findsFeaturesByName();
    void featuresKeepNothingOpen();
    void camerasMayBeListedAndOpenedFromSeveralThreads();

private:
    std::unique_ptr<NastyCamera> m_server;
};

void tst_CameraSystem::listsTheCamera()
{
    const auto cameras = CameraSystem::List();
    const auto found = std::find_if(cameras.begin(), cameras.end(), [](const auto& info) {
        return info.serial == NastyCamera::Serial;
    });
    QVERIFY(found != cameras.end());
    QCOMPARE(found->address, std::string(NastyCamera::Address));
    QVERIFY(!found->id.empty());
    QVERIFY(!found->vendor.empty());
    QVERIFY(!found->model.empty());
}

void tst_CameraSystem::opensBy_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"id", "serial", "address"})
        QTest::newRow(kind) << kind;
}

void tst_CameraSystem::opensBy()
{
    QFETCH(QString, kind);
    const auto listed = CameraSystem::List().at(0);
    const std::string id = kind == "id"       ? listed.id
                           : kind == "serial" ? listed.serial
                                              : listed.address;
    std::string error;
    const auto camera = CameraSystem::Open(id, error);
    QVERIFY2(camera, error.c_str());
    QCOMPARE(camera->Info().id, id);
    QCOMPARE(camera->Info().serial, listed.serial);
    QCOMPARE(camera->Info().vendor, listed.vendor);
    QCOMPARE(camera->Info().model, listed.model);
    QCOMPARE(camera->Info().address, listed.address);
}

void tst_CameraSystem::opensTheFirstCameraWithoutAnId()
{
    std::string error;
    const auto camera = CameraSystem::Open("", error);
    QVERIFY2(camera, error.c_str());
    QCOMPARE(camera->Info().serial, std::string(NastyCamera::Serial));
    QCOMPARE(camera->Info().id, std::string(NastyCamera::Address));
}

void tst_CameraSystem::knowsACameraThatWasOpenedByAddress()
{
    m_server->setText(0x48, "A Maker");
    const auto camera = openCamera();
    QCOMPARE(camera->Info().id, std::string(NastyCamera::Address));
    QCOMPARE(camera->Info().vendor, std::string("A Maker"));
    QCOMPARE(camera->Info().serial, std::string(NastyCamera::Serial));
    QVERIFY(!camera->IsLost());
}

void tst_CameraSystem::unknownCameraIsRefusedWithASentence_data()
{
    QTest::addColumn<QString>("id");
    QTest::newRow("name") << "no-such-camera";
    QTest::newRow("address") << "127.0.0.77";
}

void tst_CameraSystem::unknownCameraIsRefusedWithASentence()
{
    QFETCH(QString, id);
    std::string error;
    QVERIFY(!CameraSystem::Open(id.toStdString(), error));
    QCOMPARE(QString::fromStdString(error), "No camera \"" + id + "\" was found.");
}

void tst_CameraSystem::cameraInUseIsRefusedWithASentence()
{
    const auto camera = openCamera();
    std::string error;
    QVERIFY(!CameraSystem::Open(NastyCamera::Address, error));
    QCOMPARE(error, std::string("The camera \"127.0.0.1\" is in use by another program."));
    QCOMPARE(camera->FindFeature("Plain")->SetIntegerValue(3), ZalErrorSuccess);
}

void tst_CameraSystem::cameraCanBeOpenedAgainAfterClosing()
{
    for (int round = 0; round < 3; ++round)
        QCOMPARE(openCamera()->FindFeature("Plain")->SetIntegerValue(round), ZalErrorSuccess);
}

void tst_CameraSystem::countsEveryAccess()
{
    const auto camera = openCamera();
    QCOMPARE(camera->Counts().reads, std::uint64_t(0));
    QCOMPARE(camera->Counts().writes, std::uint64_t(0));
    const auto plain = camera->FindFeature("Plain");
    QCOMPARE(plain->SetIntegerValue(3), ZalErrorSuccess);
    QCOMPARE(camera->Counts().writes, std::uint64_t(1));
    QCOMPARE(integer(plain), 3LL);
    QCOMPARE(camera->Counts().reads, std::uint64_t(1));
    QCOMPARE(integer(camera->FindFeature("Constant")), 42LL);
    QCOMPARE(camera->Counts().reads, std::uint64_t(1));
}

void tst_CameraSystem::countsEachCameraByItself()
{
    auto first = openCamera();
    integer(first->FindFeature("Plain"));
    first.reset();
    const auto second = openCamera();
    QCOMPARE(second->Counts().reads, std::uint64_t(0));
}

void tst_CameraSystem::heartbeatIsNotCounted()
{
    const auto camera = openCamera();
    // The heartbeat beats about once a second.
    QTest::qWait(1500);
    QCOMPARE(camera->Counts().reads, std::uint64_t(0));
    QCOMPARE(camera->Counts().writes, std::uint64_t(0));
}

void tst_CameraSystem::findsFeaturesByName()
{
    const auto camera = openCamera();
    for (const auto& feature : *camera->Features())
        QCOMPARE(camera->FindFeature(text(feature, &Feature::GetName)), feature);
    QVERIFY(!camera->FindFeature("plain"));
}

void tst_CameraSystem::featuresKeepNothingOpen()
{
    auto camera = openCamera();
    const auto features = camera->Features();
    camera.reset();
    camera = openCamera();
    QCOMPARE(integer(camera->FindFeature("Constant")), 42LL);
    long long value = 0;
    QCOMPARE(features->front()->GetIntegerValue(value), ZalErrorWrongType);
    QCOMPARE(features->at(1)->GetIntegerValue(value), ZalErrorNotOpen);
}

void tst_CameraSystem::camerasMayBeListedAndOpenedFromSeveralThreads()
{
    std::atomic<int> complete{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 3; ++i) {
        threads.emplace_back([&complete] {
            for (const auto& info : CameraSystem::List())
                complete += info.serial == NastyCamera::Serial && !info.id.empty();
        });
    }
    std::string error;
    const auto camera = CameraSystem::Open(NastyCamera::Serial, error);
    for (std::thread& thread : threads)
        thread.join();
    QVERIFY2(camera, error.c_str());
    QCOMPARE(complete, 3);
}

QTEST_GUILESS_MAIN(tst_CameraSystem)
#include "tst_CameraSystem.moc"
