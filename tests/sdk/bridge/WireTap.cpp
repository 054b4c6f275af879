#include "tests/sdk/bridge/WireTap.h"

#include <arv.h>

#include <map>
#include <mutex>
#include <utility>

namespace {

struct State
{
    std::mutex mutex;
    bool active = false;
    WireTap::ReadHook hook;
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

// False when the read shall not be answered.
bool passes(ArvDevice* device, guint64 address, guint32 size, GError** error)
{
    record({false, address, {}, size, std::chrono::steady_clock::now()});
    WireTap::ReadHook hook;
    {
        const std::lock_guard<std::mutex> lock(state().mutex);
        hook = state().hook;
    }
    const auto answer = hook ? hook(device, address) : WireTap::Answer::TheCameras;
    if (answer == WireTap::Answer::TheCameras)
        return true;
    const std::map<WireTap::Answer, ArvDeviceError> codes = {
        {WireTap::Answer::TimeOut, ARV_DEVICE_ERROR_TIMEOUT},
        {WireTap::Answer::NotConnected, ARV_DEVICE_ERROR_NOT_CONNECTED},
        {WireTap::Answer::Refusal, ARV_DEVICE_ERROR_PROTOCOL_ERROR_BUSY}};
    g_set_error(error, ARV_DEVICE_ERROR, codes.at(answer), "The tap gives no answer");
    return false;
}

void recordWrite(guint64 address, const void* data, guint32 size)
{
    const auto* bytes = static_cast<const unsigned char*>(data);
    record({true, address, {bytes, bytes + size}, size, std::chrono::steady_clock::now()});
}

gboolean readMemory(ArvDevice* device, guint64 address, guint32 size, void* buffer, GError** error)
{
    return passes(device, address, size, error) &&
           original().read_memory(device, address, size, buffer, error);
}

gboolean writeMemory(ArvDevice* device, guint64 address, guint32 size, void* buffer, GError** error)
{
    recordWrite(address, buffer, size);
    return original().write_memory(device, address, size, buffer, error);
}

gboolean readRegister(ArvDevice* device, guint64 address, guint32* value, GError** error)
{
    return passes(device, address, sizeof *value, error) &&
           original().read_register(device, address, value, error);
}

gboolean writeRegister(ArvDevice* device, guint64 address, guint32 value, GError** error)
{
    const guint32 onTheWire = GUINT32_TO_BE(value);
    recordWrite(address, &onTheWire, sizeof onTheWire);
    return original().write_register(device, address, value, error);
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
    state().hook = nullptr;
    state().accesses.clear();
}

void WireTap::onRead(ReadHook hook)
{
    const std::lock_guard<std::mutex> lock(state().mutex);
    state().hook = std::move(hook);
}

std::vector<WireTap::Access> WireTap::takeAccesses()
{
    const std::lock_guard<std::mutex> lock(state().mutex);
    return std::exchange(state().accesses, {});
}
