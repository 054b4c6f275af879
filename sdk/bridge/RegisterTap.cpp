#include "sdk/bridge/RegisterTap.h"

#include "sdk/bridge/AravisStatus.h"

#include <ZalCPP/Camera.h>

#include <mutex>

namespace ZalCPP {
namespace {

using TapPtr = std::shared_ptr<RegisterTap>;

// GigE Vision's register of who controls the camera.
constexpr guint64 ControlPrivilege = 0x0a00;

/// A class's own access functions, kept with its type for the life of the process.
struct Originals
{
    decltype(ArvDeviceClass::read_memory) readMemory;
    decltype(ArvDeviceClass::write_memory) writeMemory;
    decltype(ArvDeviceClass::read_register) readRegister;
    decltype(ArvDeviceClass::write_register) writeRegister;
};

GQuark key()
{
    static const GQuark quark = g_quark_from_static_string("zalcpp-register-tap");
    return quark;
}

const Originals& originals(ArvDevice* device)
{
    return *static_cast<const Originals*>(g_type_get_qdata(G_OBJECT_TYPE(device), key()));
}

RegisterTap* tapOf(ArvDevice* device)
{
    const auto* held = static_cast<TapPtr*>(g_object_get_qdata(G_OBJECT(device), key()));
    return held ? held->get() : nullptr;
}

// Runs `read` unless the cache has the answer.
template <typename Read>
gboolean readThrough(ArvDevice* device, const ReadCache::Key& question, void* buffer, Read read)
{
    RegisterTap* tap = tapOf(device);
    if (!tap)
        return read();
    const auto asked = ReadCache::Clock::now();
    if (tap->cache.find(question, asked, buffer))
        return TRUE;
    ++tap->reads;
    const gboolean answered = read();
    if (answered)
        tap->cache.keep(question, asked, buffer);
    return answered;
}

bool isRefused(const GError* error)
{
    return g_error_matches(error, ARV_DEVICE_ERROR, ARV_DEVICE_ERROR_TIMEOUT) ||
           g_error_matches(error, ARV_DEVICE_ERROR, ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED);
}

// Whether somebody controls the camera; false also when it does not answer.
bool isControlled(ArvDevice* device, guint32& privilege)
{
    constexpr guint32 controlOrExclusive = 3;
    return originals(device).readRegister(device, ControlPrivilege, &privilege, nullptr) &&
           (privilege & controlOrExclusive) != 0;
}

// The register says that somebody has control, but not who. A camera does not refuse its owner a
// write to it, and writing what it already holds changes nothing.
bool isControlledBySomebodyElse(ArvDevice* device)
{
    guint32 privilege = 0;
    if (!ARV_IS_GV_DEVICE(device) || !isControlled(device, privilege))
        return false;
    AravisError error;
    originals(device).writeRegister(device, ControlPrivilege, privilege, error.out());
    // The camera may have stopped answering at just that moment.
    return isRefused(error.get()) && isControlled(device, privilege);
}

gboolean failForTakenOver(GError** error)
{
    g_set_error_literal(error, ARV_DEVICE_ERROR, ARV_DEVICE_ERROR_NOT_CONNECTED,
                        LossText(CameraLoss::ControlTaken));
    return FALSE;
}

// Runs `write`. Nothing that was read before is known any more, whether it succeeds or not.
template <typename Write> gboolean writeThrough(ArvDevice* device, GError** error, Write write)
{
    RegisterTap* tap = tapOf(device);
    if (!tap)
        return write(error);
    if (tap->isTakenOver)
        return failForTakenOver(error);
    ++tap->writes;
    tap->cache.clear();
    AravisError failure;
    if (write(failure.out()))
        return TRUE;
    tap->isTakenOver = isRefused(failure.get()) && isControlledBySomebodyElse(device);
    if (tap->isTakenOver)
        return failForTakenOver(error);
    if (failure.get())
        g_propagate_error(error, failure.release());
    return FALSE;
}

gboolean readMemory(ArvDevice* device, guint64 address, guint32 size, void* buffer, GError** error)
{
    return readThrough(device, {address, size, false}, buffer, [&] {
        return originals(device).readMemory(device, address, size, buffer, error);
    });
}

gboolean writeMemory(ArvDevice* device, guint64 address, guint32 size, void* buffer, GError** error)
{
    return writeThrough(device, error, [&](GError** failure) {
        return originals(device).writeMemory(device, address, size, buffer, failure);
    });
}

gboolean readRegister(ArvDevice* device, guint64 address, guint32* value, GError** error)
{
    return readThrough(device, {address, sizeof *value, true}, value, [&] {
        return originals(device).readRegister(device, address, value, error);
    });
}

gboolean writeRegister(ArvDevice* device, guint64 address, guint32 value, GError** error)
{
    return writeThrough(device, error, [&](GError** failure) {
        return originals(device).writeRegister(device, address, value, failure);
    });
}

void wrapClass(ArvDeviceClass* klass)
{
    static std::mutex mutex;
    const std::lock_guard<std::mutex> lock(mutex);
    const GType type = G_TYPE_FROM_CLASS(klass);
    if (g_type_get_qdata(type, key()))
        return;
    g_type_set_qdata(type, key(),
                     new Originals{klass->read_memory, klass->write_memory, klass->read_register,
                                   klass->write_register});
    klass->read_memory = readMemory;
    klass->write_memory = writeMemory;
    klass->read_register = readRegister;
    klass->write_register = writeRegister;
}

} // namespace

TapPtr RegisterTap::attach(ArvDevice* device)
{
    wrapClass(ARV_DEVICE_GET_CLASS(device));
    auto tap = std::make_shared<RegisterTap>();
    g_object_set_qdata_full(G_OBJECT(device), key(), new TapPtr(tap),
                            [](gpointer held) { delete static_cast<TapPtr*>(held); });
    return tap;
}

} // namespace ZalCPP
