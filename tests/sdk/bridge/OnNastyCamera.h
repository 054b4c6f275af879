#pragma once

#include "tests/sdk/bridge/BridgeTest.h"
#include "tests/sdk/bridge/NastyCamera.h"

namespace BridgeTest {

/// Where the camera keeps what tests look at from its side.
constexpr std::uint32_t ControlPrivilege = 0x0a00;
constexpr std::uint32_t PlainRegister = 0x4000;
constexpr std::uint32_t TemperatureRegister = 0x4700;

/// What a caller's thread may be blocked for, in milliseconds.
constexpr qint64 LongestBlock = 650;

/// A second base of test classes: the awkward camera, served to all tests of the class and open in
/// each.
class OnNastyCamera
{
protected:
    OnNastyCamera() = default;
    ~OnNastyCamera() = default;

    /// For initTestCase() and cleanupTestCase().
    void serve() { server = std::make_unique<NastyCamera>(); }
    void endServing() { server.reset(); }

    /// For init(): nothing of the test before is left.
    void openAnew(const char* address = NastyCamera::Address)
    {
        server->reset();
        camera = openCamera(address);
        sentinel = std::make_shared<Recorder>();
        rounds = 0;
    }

    FeaturePtr find(const std::string& name) const { return camera->FindFeature(name); }

    /// Waits for the notifier. It looks at features in the description's order: when the last one,
    /// which costs no traffic, has been reported, the others have been dealt with.
    void settle()
    {
        const auto feature = find(Sentinel);
        QCOMPARE(feature->RegisterObserver(sentinel), ZalErrorSuccess);
        sentinel->clear();
        QCOMPARE(feature->SetIntegerValue(1000 + ++rounds), ZalErrorSuccess);
        QTRY_COMPARE(sentinel->count(Sentinel), 1);
    }

    static constexpr const char* Sentinel = "Constant";

    std::unique_ptr<NastyCamera> server;
    std::unique_ptr<ZalCPP::Camera> camera;

private:
    std::shared_ptr<Recorder> sentinel;
    int rounds = 0;
};

} // namespace BridgeTest
