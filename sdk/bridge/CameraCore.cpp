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

/// Whom to tell of a loss. Aravis tells it on a thread that was running before there was anybody to
/// tell, so the reference is handed over under a lock.
class LossListener
{
public:
    explicit LossListener(const std::shared_ptr<CameraWorker>& listening)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_worker = listening;
    }

    void tell()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        const auto listening = m_worker.lock();
        lock.unlock();
        if (listening)
            listening->declareLost();
    }

private:
    std::mutex m_mutex;
    std::weak_ptr<CameraWorker> m_worker;
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
    core->m_ownedDevice = std::move(device);
    core->m_device = core->m_ownedDevice.get();
    core->m_description = std::make_shared<const CameraDescription>(std::move(description));
    core->m_handles.resize(core->m_description->features.size());
    core->m_tap = RegisterTap::attach(core->m_device);
    core->m_guard = std::make_shared<AccessGuard>(core->m_description, core->m_tap);
    const std::weak_ptr<CameraCore> weak = core;
    const auto provider = [weak](std::size_t position) {
        const auto alive = weak.lock();
        return alive ? alive->feature(position) : nullptr;
    };
    core->m_notifier =
        std::make_shared<ChangeNotifier>(core->m_description, core->m_guard, provider);
    core->m_worker =
        std::make_shared<CameraWorker>(makeHooks(core->m_device, core->m_guard, core->m_notifier));
    ChangeNotifier::start(core->m_notifier, core->m_worker);
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
    g_signal_connect_data(m_device, "control-lost", G_CALLBACK(onControlLost),
                          new LossListener(m_worker), deleteListener, GConnectFlags(0));
    if (ARV_IS_GV_DEVICE(m_device) && !arv_gv_device_is_controller(ARV_GV_DEVICE(m_device)))
        m_worker->declareLost();
}

void CameraCore::close()
{
    if (!m_ownedDevice)
        return;
    // Releasing the device talks to the camera, so this is work for the worker, too.
    m_worker->close([device = std::exchange(m_ownedDevice, nullptr)]() mutable {
        device.reset();
        return ZalErrorSuccess;
    });
    m_notifier->stop();
}

FeaturePtr CameraCore::feature(std::size_t position)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    FeaturePtr handle = m_handles[position].lock();
    if (!handle) {
        handle = std::make_shared<AravisFeature>(shared_from_this(), position);
        m_handles[position] = handle;
    }
    return handle;
}

const FeatureDescription& CameraCore::facts(std::size_t position) const
{
    return m_description->features[position];
}

// A refused write did not reach the camera; one that timed out may have.
bool CameraCore::mayHaveWritten(ZalErrorType status)
{
    return status == ZalErrorSuccess || status == ZalErrorTimeout || status == ZalErrorTransport ||
           status == ZalErrorUnknown;
}

} // namespace ZalCPP
