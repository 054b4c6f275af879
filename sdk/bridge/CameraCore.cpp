#include "sdk/bridge/CameraCore.h"

#include "sdk/bridge/AravisFeature.h"
#include "sdk/bridge/AravisStatus.h"

#include <utility>

namespace ZalCPP {
namespace {

// The first register of GigE Vision and USB3 Vision cameras alike holds a version number.
ZalErrorType probe(ArvDevice* device)
{
    AravisError error;
    std::uint32_t version = 0;
    arv_device_read_memory(device, 0, sizeof version, &version, error.out());
    return error.status();
}

/// Whom to tell of a loss. Aravis does so on a thread that was running before there was anybody to
/// tell, so that the reference is handed over under a lock.
class LossListener
{
public:
    explicit LossListener(const std::shared_ptr<CameraWorker>& listening)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        worker = listening;
    }

    void tell()
    {
        std::unique_lock<std::mutex> lock(mutex);
        const auto listening = worker.lock();
        lock.unlock();
        if (listening)
            listening->declareLost();
    }

private:
    std::mutex mutex;
    std::weak_ptr<CameraWorker> worker;
};

void onControlLost(ArvDevice*, gpointer listener)
{
    static_cast<LossListener*>(listener)->tell();
}

void deleteListener(gpointer listener, GClosure*)
{
    delete static_cast<LossListener*>(listener);
}

CameraWorker::Hooks makeHooks(ArvDevice* device, const std::shared_ptr<AccessGuard>& guard,
                              const std::shared_ptr<ChangeNotifier>& notifier)
{
    const std::weak_ptr<ChangeNotifier> weak = notifier;
    CameraWorker::Hooks hooks;
    hooks.probe = [device, guard] { return guard->anew([device] { return probe(device); }); };
    hooks.recovered = [weak] {
        if (const auto alive = weak.lock())
            alive->recovered();
    };
    hooks.lost = [weak] {
        if (const auto alive = weak.lock())
            alive->lost();
    };
    return hooks;
}

} // namespace

std::shared_ptr<CameraCore> CameraCore::open(std::shared_ptr<ArvDevice> device,
                                             CameraDescription description)
{
    std::shared_ptr<CameraCore> core(new CameraCore);
    core->ownedDevice = std::move(device);
    core->rawDevice = core->ownedDevice.get();
    core->cameraDescription = std::make_shared<const CameraDescription>(std::move(description));
    core->handles.resize(core->cameraDescription->features.size());
    core->registerTap = RegisterTap::attach(core->rawDevice);
    core->guard = std::make_shared<AccessGuard>(core->cameraDescription, core->registerTap);
    const std::weak_ptr<CameraCore> weak = core;
    const auto provider = [weak](std::size_t position) {
        const auto alive = weak.lock();
        return alive ? alive->feature(position) : nullptr;
    };
    core->changeNotifier =
        std::make_shared<ChangeNotifier>(core->cameraDescription, core->guard, provider);
    core->cameraWorker = std::make_shared<CameraWorker>(
        makeHooks(core->rawDevice, core->guard, core->changeNotifier));
    ChangeNotifier::start(core->changeNotifier, core->cameraWorker);
    core->watchForLoss();
    return core;
}

CameraCore::~CameraCore()
{
    close();
}

// Control may have been lost while nobody was listening yet.
void CameraCore::watchForLoss()
{
    g_signal_connect_data(rawDevice, "control-lost", G_CALLBACK(onControlLost),
                          new LossListener(cameraWorker), deleteListener, GConnectFlags(0));
    if (ARV_IS_GV_DEVICE(rawDevice) && !arv_gv_device_is_controller(ARV_GV_DEVICE(rawDevice)))
        cameraWorker->declareLost();
}

void CameraCore::close()
{
    if (!ownedDevice)
        return;
    // Giving the device back talks to the camera, so that this, too, is work for the worker.
    cameraWorker->close([device = std::exchange(ownedDevice, nullptr)]() mutable {
        device.reset();
        return ZalErrorSuccess;
    });
    changeNotifier->stop();
}

FeaturePtr CameraCore::feature(std::size_t position)
{
    const std::lock_guard<std::mutex> lock(mutex);
    FeaturePtr handle = handles[position].lock();
    if (!handle) {
        handle = std::make_shared<AravisFeature>(shared_from_this(), position);
        handles[position] = handle;
    }
    return handle;
}

const FeatureDescription& CameraCore::facts(std::size_t position) const
{
    return cameraDescription->features[position];
}

// A refused write did not reach the camera; one that timed out may have.
bool CameraCore::mayHaveWritten(ZalErrorType status)
{
    return status == ZalErrorSuccess || status == ZalErrorTimeout || status == ZalErrorTransport ||
           status == ZalErrorUnknown;
}

} // namespace ZalCPP
