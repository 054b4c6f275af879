#pragma once

#include "tests/sdk/bridge/BridgeTest.h"
#include "tests/sdk/bridge/NastyCamera.h"

#include <QSemaphore>

namespace BridgeTest {

/// Where the camera keeps what tests look at from its side.
constexpr std::uint32_t ControlPrivilege = 0x0a00;
constexpr std::uint32_t PlainRegister = 0x4000;
constexpr std::uint32_t TemperatureRegister = 0x4700;

/// What a caller's thread may be blocked for, in milliseconds.
constexpr qint64 LongestBlock = 650;

/// Keeps the notification thread inside a call until released.
class Gate
{
public:
    void pass()
    {
        m_entered.release();
        m_opened.acquire();
    }
    bool waitUntilEntered() { return m_entered.tryAcquire(1, 5000); }
    void open() { m_opened.release(); }

private:
    QSemaphore m_entered;
    QSemaphore m_opened;
};

/// A second base of test classes: the awkward camera, served to all tests of the class and open in
/// each.
class OnNastyCamera
{
protected:
    OnNastyCamera() = default;
    ~OnNastyCamera() = default;

    /// For initTestCase() and cleanupTestCase().
    void serve() { m_server = std::make_unique<NastyCamera>(); }
    void endServing() { m_server.reset(); }

    /// For init(): nothing of the test before is left.
    void openAnew(const char* address = NastyCamera::Address)
    {
        m_server->reset();
        m_camera = openCamera(address);
        m_recorder = std::make_shared<Recorder>();
        m_sentinel = std::make_shared<Recorder>();
        m_rounds = 0;
    }

    FeaturePtr find(const std::string& name) const { return m_camera->FindFeature(name); }

    /// Waits for the notifier. It looks at features in the description's order: when the last one,
    /// which costs no traffic, has been reported, the others have been dealt with.
    void settle()
    {
        const auto feature = find(Sentinel);
        QCOMPARE(feature->RegisterObserver(m_sentinel), ZalErrorSuccess);
        m_sentinel->clear();
        QCOMPARE(feature->SetIntegerValue(1000 + ++m_rounds), ZalErrorSuccess);
        QTRY_COMPARE(m_sentinel->count(Sentinel), 1);
    }

    /// Registers the recorder and waits until everything is known.
    void observe(const std::vector<std::string>& features)
    {
        for (const auto& name : features)
            QCOMPARE(find(name)->RegisterObserver(m_recorder), ZalErrorSuccess);
        settle();
    }

    void set(const std::string& name, long long value)
    {
        QCOMPARE(find(name)->SetIntegerValue(value), ZalErrorSuccess);
    }

    static constexpr const char* Sentinel = "Constant";

    std::unique_ptr<NastyCamera> m_server;
    std::unique_ptr<ZalCPP::Camera> m_camera;
    std::shared_ptr<Recorder> m_recorder; ///< A new one for each test.

private:
    std::shared_ptr<Recorder> m_sentinel;
    int m_rounds = 0;
};

} // namespace BridgeTest
