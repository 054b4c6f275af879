#include "tests/sdk/bridge/WireTap.h"

#include <arv.h>

#include <mutex>
#include <utility>

namespace {

struct State
{
    std::mutex mutex;
    bool active = false;
    WireTap::Hook readHook;
    WireTap::Hook writeHook;
    std::vector<WireTap::Access> accesses;
};

State& state()
{
    static State shared;
    return shared;
}

ArvDeviceClass& original()
{
    static ArvDeviceClass functions;
    return functions;
}

void record(WireTap::Access access)
{
    const std::lock_guard<std::mutex> lock(state().mutex);
    if (state().active)
        state().accesses.push_back(std::move(access));
}

int errorOf(WireTap::Answer answer)
{
    switch (answer) {
    case WireTap::Answer::TimeOut:
        return ARV_DEVICE_ERROR_TIMEOUT;
    case WireTap::Answer::Busy:
        return ARV_DEVICE_ERROR_PROTOCOL_ERROR_BUSY;
    case WireTap::Answer::Denied:
        return ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED;
    case WireTap::Answer::Unknown:
        return 1000;
    default:
        return ARV_DEVICE_ERROR_NOT_CONNECTED;
    }
}

// False when the access is not to reach the camera.
bool passes(WireTap::Hook State::*which, ArvDevice* device, guint64 address, GError** error)
{
    WireTap::Hook hook;
    {
        const std::lock_guard<std::mutex> lock(state().mutex);
        hook = state().*which;
    }
    const auto answer = hook ? hook(device, address) : WireTap::Answer::TheCameras;
    if (answer == WireTap::Answer::TheCameras)
        return true;
    g_set_error(error, ARV_DEVICE_ERROR, errorOf(answer), "The tap gives no answer");
    return false;
}

bool passesRead(ArvDevice* device, guint64 address, guint32 size, GError** error)
{
    record({false, address, {}, size, std::chrono::steady_clock::now()});
    return passes(&State::readHook, device, address, error);
}

bool passesWrite(ArvDevice* device, guint64 address, const void* data, guint32 size, GError** error)
{
    const auto* bytes = static_cast<const unsigned char*>(data);
    record({true, address, {bytes, bytes + size}, size, std::chrono::steady_clock::now()});
    return passes(&State::writeHook, device, address, error);
}

gboolean readMemory(ArvDevice* device, guint64 address, guint32 size, void* buffer, GError** error)
{
    return passesRead(device, address, size, error) &&
           original().read_memory(device, address, size, buffer, error);
}

gboolean writeMemory(ArvDevice* device, guint64 address, guint32 size, void* buffer, GError** error)
{
    return passesWrite(device, address, buffer, size, error) &&
           original().write_memory(device, address, size, buffer, error);
}

gboolean readRegister(ArvDevice* device, guint64 address, guint32* value, GError** error)
{
    return passesRead(device, address, sizeof *value, error) &&
           original().read_register(device, address, value, error);
}

gboolean writeRegister(ArvDevice* device, guint64 address, guint32 value, GError** error)
{
    const guint32 onTheWire = GUINT32_TO_BE(value);
    return passesWrite(device, address, &onTheWire, sizeof onTheWire, error) &&
           original().write_register(device, address, value, error);
}

// The class lives as long as the process, and so does the tap in it.
void install()
{
    auto* klass = ARV_DEVICE_CLASS(g_type_class_ref(ARV_TYPE_GV_DEVICE));
    if (original().read_memory)
        return;
    original() = *klass;
    klass->read_memory = readMemory;
    klass->write_memory = writeMemory;
    klass->read_register = readRegister;
    klass->write_register = writeRegister;
}

} // namespace

WireTap::WireTap()
{
    install();
    const std::lock_guard<std::mutex> lock(state().mutex);
    state().active = true;
}

WireTap::~WireTap()
{
    const std::lock_guard<std::mutex> lock(state().mutex);
    state().active = false;
    state().readHook = nullptr;
    state().writeHook = nullptr;
    state().accesses.clear();
}

void WireTap::onRead(Hook hook)
{
    const std::lock_guard<std::mutex> lock(state().mutex);
    state().readHook = std::move(hook);
}

void WireTap::onWrite(Hook hook)
{
    const std::lock_guard<std::mutex> lock(state().mutex);
    state().writeHook = std::move(hook);
}

std::vector<WireTap::Access> WireTap::takeAccesses()
{
    const std::lock_guard<std::mutex> lock(state().mutex);
    return std::exchange(state().accesses, {});
}
