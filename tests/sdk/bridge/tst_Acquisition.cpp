// Starting and stopping the stream of images.
#include "tests/sdk/bridge/BridgeTest.h"
#include "tests/sdk/bridge/NastyCamera.h"
#include "tests/sdk/bridge/WireTap.h"

#include <cerrno>
#include <dlfcn.h>
#include <pthread.h>
#include <thread>

using namespace BridgeTest;
using ZalCPP::Frame;

namespace {

constexpr std::uint32_t AcquisitionRegister = 0x124;
thread_local bool noMoreThreads = false; // For the calls of this thread.

} // namespace

// In place of the function of the library.
extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes,
                              void* (*start)(void*), void* argument) noexcept
{
    using Create = decltype(&pthread_create);
    static const auto create = reinterpret_cast<Create>(dlsym(RTLD_NEXT, "pthread_create"));
    return noMoreThreads ? EAGAIN : create(thread, attributes, start, argument);
}

class tst_Acquisition : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        m_tap = std::make_unique<WireTap>();
        m_server = std::make_unique<NastyCamera>();
    }
    void init();
    void cleanup()
    {
        m_camera.reset();
        m_tap->onRead(nullptr);
        m_tap->onWrite(nullptr);
    }
    void cleanupTestCase() { m_server.reset(); }

    void framesArriveOnAnotherThread();
    void frameCarriesTheCamerasImage();
    void noFrameArrivesAfterStopping();
    void parametersAreLockedWhileAcquiring();
    void lockedFeaturesAreReported();
    void canBeStartedAgain();
    void secondStartIsRefused();
    void startNeedsAHandler();
    void stoppingAnIdleCameraChangesNothing();
    void destroyingAnAcquiringCameraStopsIt();
    void imageSizeIsTakenAtTheStart();
    void imageSizeIsReadFromTheCamera();
    void cameraIsStoppedOnce();
    void unansweredStopIsDoneLater();
    void refusedStopUnlocksTheParametersAllTheSame();
    void slowStartTakesNoLongerThanOneCall();
    void startWithoutAThreadIsTakenBack();

private:
    FeaturePtr find(const std::string& name) const { return m_camera->FindFeature(name); }
    ZalErrorType start();
    int commands() const;

    std::unique_ptr<WireTap> m_tap;
    std::unique_ptr<NastyCamera> m_server;
    std::unique_ptr<ZalCPP::Camera> m_camera;
    std::atomic<int> m_frames{0};
    std::mutex m_mutex;
    Frame m_last;
    std::thread::id m_thread;
};

void tst_Acquisition::init()
{
    m_server->reset();
    m_camera = openCamera();
    m_frames = 0;
}

ZalErrorType tst_Acquisition::start()
{
    return m_camera->StartAcquisition([this](const Frame& frame) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_last = frame;
        m_thread = std::this_thread::get_id();
        ++m_frames;
    });
}

// Starts and stops that went over the wire since the last call.
int tst_Acquisition::commands() const
{
    const auto accesses = m_tap->takeAccesses();
    return static_cast<int>(
        std::count_if(accesses.begin(), accesses.end(), [](const WireTap::Access& access) {
            return access.isWrite && access.address == AcquisitionRegister;
        }));
}

void tst_Acquisition::framesArriveOnAnotherThread()
{
    QVERIFY(!m_camera->IsAcquiring());
    QCOMPARE(start(), ZalErrorSuccess);
    QVERIFY(m_camera->IsAcquiring());
    QTRY_VERIFY(m_frames >= 3);
    QCOMPARE(m_camera->StopAcquisition(), ZalErrorSuccess);
    QVERIFY(m_thread != std::this_thread::get_id());
}

void tst_Acquisition::frameCarriesTheCamerasImage()
{
    QCOMPARE(start(), ZalErrorSuccess);
    QTRY_VERIFY(m_frames >= 1);
    QCOMPARE(m_camera->StopAcquisition(), ZalErrorSuccess);
    QCOMPARE(m_last.width, 64U);
    QCOMPARE(m_last.height, 32U);
    QCOMPARE(m_last.pixelFormat, 0x01080001U);
    QCOMPARE(m_last.pixels.size(), std::size_t(64 * 32));
    QVERIFY(m_last.id > 0);
}

void tst_Acquisition::noFrameArrivesAfterStopping()
{
    QCOMPARE(start(), ZalErrorSuccess);
    QTRY_VERIFY(m_frames >= 1);
    QCOMPARE(m_camera->StopAcquisition(), ZalErrorSuccess);
    QVERIFY(!m_camera->IsAcquiring());
    const int before = m_frames;
    // Nothing is to happen, so there is nothing to wait for but time.
    QTest::qWait(200);
    QCOMPARE(m_frames, before);
    QCOMPARE(m_server->reg(0x124), 0U);
}

void tst_Acquisition::parametersAreLockedWhileAcquiring()
{
    QCOMPARE(start(), ZalErrorSuccess);
    QCOMPARE(integer(find("TLParamsLocked")), 1LL);
    QVERIFY(!isWritable(find("Width")));
    QCOMPARE(find("Width")->SetIntegerValue(128), ZalErrorNotWritable);
    QCOMPARE(m_camera->StopAcquisition(), ZalErrorSuccess);
    QCOMPARE(integer(find("TLParamsLocked")), 0LL);
    QVERIFY(isWritable(find("Width")));
}

void tst_Acquisition::lockedFeaturesAreReported()
{
    const auto recorder = std::make_shared<Recorder>();
    for (const char* name : {"Width", "Plain"})
        QCOMPARE(find(name)->RegisterObserver(recorder), ZalErrorSuccess);
    // The last feature is reported when all others are known.
    QCOMPARE(find("Constant")->RegisterObserver(recorder), ZalErrorSuccess);
    QCOMPARE(find("Constant")->SetIntegerValue(1), ZalErrorSuccess);
    QTRY_COMPARE(recorder->calls(), std::vector<std::string>{"Constant"});
    QCOMPARE(start(), ZalErrorSuccess);
    QTRY_COMPARE(recorder->count("Width"), 1);
    QCOMPARE(m_camera->StopAcquisition(), ZalErrorSuccess);
    QTRY_COMPARE(recorder->count("Width"), 2);
    QCOMPARE(recorder->count("Plain"), 0);
}

void tst_Acquisition::canBeStartedAgain()
{
    for (int round = 0; round < 3; ++round) {
        m_frames = 0;
        QCOMPARE(start(), ZalErrorSuccess);
        QTRY_VERIFY(m_frames >= 1);
        QCOMPARE(m_camera->StopAcquisition(), ZalErrorSuccess);
    }
}

void tst_Acquisition::secondStartIsRefused()
{
    QCOMPARE(start(), ZalErrorSuccess);
    QCOMPARE(start(), ZalErrorNotAvailable);
    QVERIFY(m_camera->IsAcquiring());
}

void tst_Acquisition::startNeedsAHandler()
{
    QCOMPARE(m_camera->StartAcquisition(nullptr), ZalErrorBadParameter);
    QVERIFY(!m_camera->IsAcquiring());
}

void tst_Acquisition::stoppingAnIdleCameraChangesNothing()
{
    const auto before = m_camera->Counts();
    QCOMPARE(m_camera->StopAcquisition(), ZalErrorSuccess);
    QCOMPARE(m_camera->Counts().writes, before.writes);
}

void tst_Acquisition::destroyingAnAcquiringCameraStopsIt()
{
    QCOMPARE(start(), ZalErrorSuccess);
    QTRY_VERIFY(m_frames >= 1);
    m_camera.reset();
    QCOMPARE(m_server->reg(0x124), 0U);
    m_camera = openCamera();
    QVERIFY(isWritable(find("Width")));
}

void tst_Acquisition::imageSizeIsTakenAtTheStart()
{
    QCOMPARE(find("Width")->SetIntegerValue(256), ZalErrorSuccess);
    QCOMPARE(start(), ZalErrorSuccess);
    QTRY_VERIFY(m_frames >= 1);
    QCOMPARE(m_camera->StopAcquisition(), ZalErrorSuccess);
    QCOMPARE(m_last.width, 256U);
    QCOMPARE(m_last.pixels.size(), std::size_t(256 * 32));
}

// Somebody asked for it just before it changed.
void tst_Acquisition::imageSizeIsReadFromTheCamera()
{
    QCOMPARE(integer(find("PayloadSize")), 64LL * 32);
    m_server->setReg(0x100, 128);
    QCOMPARE(start(), ZalErrorSuccess);
    QTRY_VERIFY(m_frames >= 1);
    QCOMPARE(m_camera->StopAcquisition(), ZalErrorSuccess);
    QCOMPARE(m_last.width, 128U);
}

void tst_Acquisition::cameraIsStoppedOnce()
{
    m_tap->takeAccesses();
    QCOMPARE(start(), ZalErrorSuccess);
    QCOMPARE(commands(), 1);
    QCOMPARE(m_camera->StopAcquisition(), ZalErrorSuccess);
    m_camera.reset();
    QCOMPARE(commands(), 1);
}

// It neither reached the camera nor unlocked the parameters.
void tst_Acquisition::unansweredStopIsDoneLater()
{
    QCOMPARE(start(), ZalErrorSuccess);
    std::atomic<int> attempts{0};
    m_tap->onWrite([&attempts](ArvDevice*, std::uint64_t address) {
        const bool isFirst = address == AcquisitionRegister && ++attempts == 1;
        return isFirst ? WireTap::Answer::TimeOut : WireTap::Answer::TheCameras;
    });
    QCOMPARE(m_camera->StopAcquisition(), ZalErrorTimeout);
    QTRY_COMPARE(attempts, 2);
    QTRY_COMPARE(integer(find("TLParamsLocked")), 0LL);
    QCOMPARE(m_server->reg(AcquisitionRegister), 0U);
}

void tst_Acquisition::refusedStopUnlocksTheParametersAllTheSame()
{
    QCOMPARE(start(), ZalErrorSuccess);
    m_server->setReg(0x4808, 1);
    QCOMPARE(m_camera->StopAcquisition(), ZalErrorNotWritable);
    QVERIFY(!m_camera->IsAcquiring());
    QCOMPARE(integer(find("TLParamsLocked")), 0LL);
    QVERIFY(isWritable(find("Width")));
    m_server->setReg(0x4808, 0);
    QCOMPARE(find("AcquisitionStop")->RunCommand(), ZalErrorSuccess);
}

// Each of two reads takes most of the time that a caller waits.
void tst_Acquisition::slowStartTakesNoLongerThanOneCall()
{
    QSemaphore never;
    m_tap->onRead([&never](ArvDevice*, std::uint64_t address) {
        if (address == 0x100 || address == 0x104)
            never.tryAcquire(1, 350);
        return WireTap::Answer::TheCameras;
    });
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(start(), ZalErrorTimeout);
    QVERIFY2(timer.elapsed() <= 650, qPrintable(QString::number(timer.elapsed())));
    QVERIFY(!m_camera->IsAcquiring());
    // What was started behind the caller's back is stopped there, too.
    long long locked = 1;
    QTRY_COMPARE(find("TLParamsLocked")->GetIntegerValue(locked), ZalErrorSuccess);
    QTRY_COMPARE(integer(find("TLParamsLocked")), 0LL);
    QCOMPARE(m_server->reg(0x124), 0U);
    QCOMPARE(m_frames, 0);
}

void tst_Acquisition::startWithoutAThreadIsTakenBack()
{
    noMoreThreads = true;
    const ZalErrorType status = start();
    noMoreThreads = false;
    QCOMPARE(status, ZalErrorOutOfResources);
    QVERIFY(!m_camera->IsAcquiring());
    QTRY_COMPARE(integer(find("TLParamsLocked")), 0LL);
    QCOMPARE(m_server->reg(0x124), 0U);
    QCOMPARE(start(), ZalErrorSuccess);
    QTRY_VERIFY(m_frames >= 1);
}

QTEST_GUILESS_MAIN(tst_Acquisition)
#include "tst_Acquisition.moc"
