#include "tests/sdk/bridge/mutations/Runs.h"

#include <arv.h>

#include <cstring>
#include <mutex>

namespace {

struct Memory
{
    std::mutex mutex;
    unsigned char bytes[0x10000] = {};
};

Memory& memory()
{
    static Memory shared;
    return shared;
}

bool isInside(guint64 address, guint32 size, GError** error)
{
    if (address <= sizeof(Memory::bytes) && size <= sizeof(Memory::bytes) - address)
        return true;
    g_set_error(error, ARV_DEVICE_ERROR, ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_ADDRESS,
                "There is no memory");
    return false;
}

gboolean readMemory(ArvDevice*, guint64 address, guint32 size, void* buffer, GError** error)
{
    const std::lock_guard<std::mutex> lock(memory().mutex);
    if (!isInside(address, size, error))
        return FALSE;
    std::memcpy(buffer, memory().bytes + address, size);
    return TRUE;
}

gboolean writeMemory(ArvDevice*, guint64 address, guint32 size, void* buffer, GError** error)
{
    const std::lock_guard<std::mutex> lock(memory().mutex);
    if (!isInside(address, size, error))
        return FALSE;
    std::memcpy(memory().bytes + address, buffer, size);
    return TRUE;
}

gboolean readRegister(ArvDevice* device, guint64 address, guint32* value, GError** error)
{
    return readMemory(device, address, sizeof *value, value, error);
}

gboolean writeRegister(ArvDevice* device, guint64 address, guint32 value, GError** error)
{
    return writeMemory(device, address, sizeof value, &value, error);
}

void useValue(ArvGcNode* node)
{
    if (ARV_IS_GC_INTEGER(node)) {
        const gint64 value = arv_gc_integer_get_value(ARV_GC_INTEGER(node), nullptr);
        arv_gc_integer_get_min(ARV_GC_INTEGER(node), nullptr);
        arv_gc_integer_get_max(ARV_GC_INTEGER(node), nullptr);
        arv_gc_integer_get_inc(ARV_GC_INTEGER(node), nullptr);
        arv_gc_integer_set_value(ARV_GC_INTEGER(node), value, nullptr);
    }
    if (ARV_IS_GC_FLOAT(node)) {
        const double value = arv_gc_float_get_value(ARV_GC_FLOAT(node), nullptr);
        arv_gc_float_get_min(ARV_GC_FLOAT(node), nullptr);
        arv_gc_float_get_max(ARV_GC_FLOAT(node), nullptr);
        arv_gc_float_get_inc(ARV_GC_FLOAT(node), nullptr);
        arv_gc_float_set_value(ARV_GC_FLOAT(node), value, nullptr);
    }
    if (ARV_IS_GC_STRING(node))
        arv_gc_string_get_value(ARV_GC_STRING(node), nullptr);
    if (ARV_IS_GC_ENUMERATION(node))
        arv_gc_enumeration_get_string_value(ARV_GC_ENUMERATION(node), nullptr);
    if (ARV_IS_GC_BOOLEAN(node))
        arv_gc_boolean_set_value(ARV_GC_BOOLEAN(node),
                                 arv_gc_boolean_get_value(ARV_GC_BOOLEAN(node), nullptr), nullptr);
    if (ARV_IS_GC_COMMAND(node))
        arv_gc_command_execute(ARV_GC_COMMAND(node), nullptr);
}

void useNode(ArvDomNode* node)
{
    if (ARV_IS_GC_FEATURE_NODE(node)) {
        auto* feature = ARV_GC_FEATURE_NODE(node);
        arv_gc_feature_node_is_implemented(feature, nullptr);
        arv_gc_feature_node_is_available(feature, nullptr);
        arv_gc_feature_node_is_locked(feature, nullptr);
        arv_gc_feature_node_get_actual_access_mode(feature);
        useValue(ARV_GC_NODE(node));
    }
    for (auto* child = arv_dom_node_get_first_child(node); child;
         child = arv_dom_node_get_next_sibling(child))
        useNode(child);
}

} // namespace

void Runs::limitMemory()
{
    auto* klass = ARV_DEVICE_CLASS(g_type_class_ref(ARV_TYPE_FAKE_DEVICE));
    klass->read_memory = readMemory;
    klass->write_memory = writeMemory;
    klass->read_register = readRegister;
    klass->write_register = writeRegister;
    arv_disable_interface("GigEVision");
    arv_disable_interface("USB3Vision");
    arv_enable_interface("Fake");
}

Runs::Outcome Runs::throughAravisAlone(const std::string& descriptionFile)
{
    arv_set_fake_camera_genicam_filename(descriptionFile.c_str());
    ArvDevice* device = arv_open_device("Fake_1", nullptr);
    ArvGc* genicam = device ? arv_device_get_genicam(device) : nullptr;
    if (!genicam)
        return Refused;
    arv_gc_set_range_check_policy(genicam, ARV_RANGE_CHECK_POLICY_ENABLE);
    arv_gc_set_access_check_policy(genicam, ARV_ACCESS_CHECK_POLICY_ENABLE);
    if (auto* root = arv_dom_document_get_document_element(ARV_DOM_DOCUMENT(genicam)))
        useNode(ARV_DOM_NODE(root));
    g_object_unref(device);
    return Opened;
}
