#include "sdk/bridge/WireCounter.h"

#include <mutex>

namespace ZalCPP {
namespace {

using CounterPtr = std::shared_ptr<WireCounter>;

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
    static const GQuark quark = g_quark_from_static_string("zalcpp-wire-counter");
    return quark;
}

const Originals& originals(ArvDevice* device)
{
    return *static_cast<const Originals*>(g_type_get_qdata(G_OBJECT_TYPE(device), key()));
}

WireCounter* counter(ArvDevice* device)
{
    const auto* held = static_cast<CounterPtr*>(g_object_get_qdata(G_OBJECT(device), key()));
    return held ? held->get() : nullptr;
}

void countRead(ArvDevice* device)
{
    if (auto* c = counter(device))
        ++c->reads;
}

void countWrite(ArvDevice* device)
{
    if (auto* c = counter(device))
        ++c->writes;
}

gboolean readMemory(ArvDevice* device, guint64 address, guint32 size, void* buffer, GError** error)
{
    countRead(device);
    return originals(device).readMemory(device, address, size, buffer, error);
}

gboolean writeMemory(ArvDevice* device, guint64 address, guint32 size, void* buffer, GError** error)
{
    countWrite(device);
    return originals(device).writeMemory(device, address, size, buffer, error);
}

gboolean readRegister(ArvDevice* device, guint64 address, guint32* value, GError** error)
{
    countRead(device);
    return originals(device).readRegister(device, address, value, error);
}

gboolean writeRegister(ArvDevice* device, guint64 address, guint32 value, GError** error)
{
    countWrite(device);
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

CounterPtr WireCounter::attach(ArvDevice* device)
{
    wrapClass(ARV_DEVICE_GET_CLASS(device));
    auto counter = std::make_shared<WireCounter>();
    g_object_set_qdata_full(G_OBJECT(device), key(), new CounterPtr(counter),
                            [](gpointer held) { delete static_cast<CounterPtr*>(held); });
    return counter;
}

} // namespace ZalCPP
