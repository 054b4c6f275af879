// What an application throws on the camera's threads ends there.
#include "tests/sdk/bridge/BridgeTest.h"
#include "tests/sdk/bridge/NastyCamera.h"

#include <stdexcept>

using namespace BridgeTest;

class tst_ThrowingApplication : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { camera.reset(); }

    void observerKeepsNobodyFromBeingCalled();
    void frameHandlerGetsTheNextFrame();

private:
    NastyCamera server;
    std::unique_ptr<ZalCPP::Camera> camera;
};

void tst_ThrowingApplication::init()
{
    server.reset();
    camera = openCamera();
}

void tst_ThrowingApplication::observerKeepsNobodyFromBeingCalled()
{
    const auto plain = camera->FindFeature("Plain");
    const auto throwing = std::make_shared<Recorder>();
    throwing->onCall = [](const FeaturePtr&) { throw std::runtime_error("The application's"); };
    const auto recorder = std::make_shared<Recorder>();
    QCOMPARE(plain->RegisterObserver(throwing), ZalErrorSuccess);
    QCOMPARE(plain->RegisterObserver(recorder), ZalErrorSuccess);
    for (const int value : {1, 2}) {
        QCOMPARE(plain->SetIntegerValue(value), ZalErrorSuccess);
        QTRY_COMPARE(recorder->count("Plain"), value);
    }
}

void tst_ThrowingApplication::frameHandlerGetsTheNextFrame()
{
    std::atomic<int> frames{0};
    const auto handler = [&frames](const ZalCPP::Frame&) {
        ++frames;
        throw std::runtime_error("The application's");
    };
    QCOMPARE(camera->StartAcquisition(handler), ZalErrorSuccess);
    // More than there are buffers: none of them is lost.
    QTRY_VERIFY(frames >= 20);
    QCOMPARE(camera->StopAcquisition(), ZalErrorSuccess);
}

QTEST_GUILESS_MAIN(tst_ThrowingApplication)
#include "tst_ThrowingApplication.moc"
