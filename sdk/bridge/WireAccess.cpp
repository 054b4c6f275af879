#include "sdk/bridge/WireAccess.h"

#include <mutex>

namespace ZalCPP {
namespace {

using WirePtr = std::shared_ptr<WireAccess>;

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
    static const GQuark quark = g_quark_from_static_string("zalcpp-wire-access");
    return quark;
}

const Originals& originals(ArvDevice* device)
{
    return *static_cast<const Originals*>(g_type_get_qdata(G_OBJECT_TYPE(device), key()));
}

WireAccess* wireOf(ArvDevice* device)
{
    const auto* held = static_cast<WirePtr*>(g_object_get_qdata(G_OBJECT(device), key()));
    return held ? held->get() : nullptr;
}

// Runs `read` unless the cache has the answer.
template <typename Read>
gboolean readThrough(ArvDevice* device, const ReadCache::Key& question, void* buffer, Read read)
{
    WireAccess* wire = wireOf(device);
    if (!wire)
        return read();
    const auto asked = ReadCache::Clock::now();
    if (wire->cache.find(question, asked, buffer))
        return TRUE;
    ++wire->reads;
    const gboolean answered = read();
    if (answered)
        wire->cache.keep(question, asked, buffer);
    return answered;
}

// Nothing that was read before a write is known any more, whether the write succeeds or not.
void aboutToWrite(ArvDevice* device)
{
    if (WireAccess* wire = wireOf(device)) {
        ++wire->writes;
        wire->cache.clear();
    }
}

gboolean readMemory(ArvDevice* device, guint64 address, guint32 size, void* buffer, GError** error)
{
    return readThrough(device, {address, size, false}, buffer, [&] {
        return originals(device).readMemory(device, address, size, buffer, error);
    });
}

gboolean writeMemory(ArvDevice* device, guint64 address, guint32 size, void* buffer, GError** error)
{
    aboutToWrite(device);
    return originals(device).writeMemory(device, address, size, buffer, error);
}

gboolean readRegister(ArvDevice* device, guint64 address, guint32* value, GError** error)
{
    return readThrough(device, {address, sizeof *value, true}, value, [&] {
        return originals(device).readRegister(device, address, value, error);
    });
}

gboolean writeRegister(ArvDevice* device, guint64 address, guint32 value, GError** error)
{
    aboutToWrite(device);
    return originals(device).writeRegister(device, address, value, error);
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

WirePtr WireAccess::attach(ArvDevice* device)
{
    wrapClass(ARV_DEVICE_GET_CLASS(device));
    auto wire = std::make_shared<WireAccess>();
    g_object_set_qdata_full(G_OBJECT(device), key(), new WirePtr(wire),
                            [](gpointer held) { delete static_cast<WirePtr*>(held); });
    return wire;
}

} // namespace ZalCPP
