#include <ZalCPP/CameraSystem.h>

#include "sdk/bridge/AravisStatus.h"
#include "sdk/bridge/CameraPrivate.h"
#include "sdk/bridge/DescriptionReader.h"
#include "sdk/bridge/DescriptionText.h"
#include "sdk/bridge/GObjectPtr.h"

#include <arv.h>

#include <array>
#include <mutex>
#include <utility>

namespace ZalCPP {
namespace {

// Where every GigE Vision camera keeps its names.
struct TextRegister
{
    guint64 address;
    guint32 length;
};
constexpr TextRegister VendorName{0x48, 32};
constexpr TextRegister ModelName{0x68, 32};
constexpr TextRegister SerialNumber{0xd8, 16};

using DevicePtr = std::shared_ptr<ArvDevice>;

// Aravis has one list of devices, which a discovery replaces while others may be reading it. To be
// held around every call that discovers or asks by position.
std::mutex& deviceList()
{
    static std::mutex mutex;
    return mutex;
}

std::string text(const char* string)
{
    return string ? string : "";
}

CameraInfo listedInfo(unsigned index)
{
    CameraInfo info;
    info.id = text(arv_get_device_id(index));
    info.vendor = text(arv_get_device_vendor(index));
    info.model = text(arv_get_device_model(index));
    info.serial = text(arv_get_device_serial_nbr(index));
    info.address = text(arv_get_device_address(index));
    return info;
}

std::vector<CameraInfo> listedCameras()
{
    std::vector<CameraInfo> cameras;
    for (unsigned index = 0; index < arv_get_n_devices(); ++index)
        cameras.push_back(listedInfo(index));
    return cameras;
}

// What is known from the last discovery, without a new one.
std::vector<CameraInfo> known()
{
    const std::lock_guard<std::mutex> lock(deviceList());
    return listedCameras();
}

// May discover, where nothing is known under that name.
DevicePtr openByName(const char* name, AravisError& failure)
{
    const std::lock_guard<std::mutex> lock(deviceList());
    return adoptObject(arv_open_device(name, failure.out()));
}

std::string readText(ArvDevice* device, TextRegister location)
{
    std::array<char, 33> buffer{};
    AravisError error;
    arv_device_read_memory(device, location.address, location.length, buffer.data(), error.out());
    return error.status() == ZalErrorSuccess ? std::string(buffer.data()) : std::string();
}

std::string addressOf(ArvGvDevice* device)
{
    GSocketAddress* address = arv_gv_device_get_device_address(device);
    if (!G_IS_INET_SOCKET_ADDRESS(address))
        return {};
    GInetAddress* host = g_inet_socket_address_get_address(G_INET_SOCKET_ADDRESS(address));
    char* string = g_inet_address_to_string(host);
    std::string result = text(string);
    g_free(string);
    return result;
}

// A GigE camera that was opened by its address has not been discovered: ask it.
CameraInfo networkInfo(ArvDevice* device, const std::string& id)
{
    CameraInfo info;
    info.vendor = readText(device, VendorName);
    info.model = readText(device, ModelName);
    info.serial = readText(device, SerialNumber);
    info.address = addressOf(ARV_GV_DEVICE(device));
    info.id = id.empty() ? info.address : id;
    return info;
}

CameraInfo infoOf(ArvDevice* device, const std::string& id)
{
    if (ARV_IS_GV_DEVICE(device))
        return networkInfo(device, id);
    for (const CameraInfo& info : known()) {
        if (id.empty() || info.id == id || info.serial == id)
            return info;
    }
    CameraInfo info;
    info.id = id;
    return info;
}

std::string quoted(const std::string& id)
{
    return id.empty() ? std::string("The camera") : "The camera \"" + id + "\"";
}

std::string notFound(const std::string& id)
{
    return id.empty() ? "No camera was found." : "No camera \"" + id + "\" was found.";
}

std::string notDescribed(const std::string& id)
{
    return quoted(id) + " was found, but its description cannot be read.";
}

std::string notOpened(const std::string& id, const AravisError& error)
{
    if (error.isUnreadableDescription())
        return notDescribed(id);
    if (error.status() == ZalErrorNotFound || error.status() == ZalErrorSuccess)
        return notFound(id);
    return quoted(id) + " cannot be opened: " + error.message() + ".";
}

bool isAddress(const std::string& id)
{
    return g_hostname_is_ip_address(id.c_str());
}

std::string idOf(const std::vector<CameraInfo>& cameras, const std::string& wanted)
{
    for (const CameraInfo& info : cameras) {
        if (info.id == wanted || info.serial == wanted)
            return info.id;
    }
    return {};
}

// Aravis opens by id or address, but not by serial number. Only an address needs no discovery.
std::string resolve(const std::string& id)
{
    if (id.empty() || isAddress(id))
        return id;
    const std::string found = idOf(known(), id);
    return found.empty() ? idOf(CameraSystem::List(), id) : found;
}

DevicePtr openNamed(const std::string& name, const std::string& id, std::string& error)
{
    AravisError failure;
    DevicePtr device = openByName(name.empty() ? nullptr : name.c_str(), failure);
    if (!device)
        error = notOpened(id, failure);
    return device;
}

// Opening by address, Aravis only says that it failed. Opening by the id of the camera found there,
// it says why.
DevicePtr openFoundAt(const std::string& address, std::string& error)
{
    for (const CameraInfo& info : CameraSystem::List()) {
        if (info.address == address)
            return openNamed(info.id, address, error);
    }
    return nullptr;
}

DevicePtr openDevice(const std::string& id, std::string& error)
{
    const std::string resolved = resolve(id);
    if (resolved.empty() && !id.empty()) {
        error = notFound(id);
        return nullptr;
    }
    DevicePtr device = openNamed(resolved, id, error);
    if (!device && isAddress(id))
        device = openFoundAt(id, error);
    if (!device)
        return nullptr;
    const bool inUse =
        ARV_IS_GV_DEVICE(device.get()) && !arv_gv_device_is_controller(ARV_GV_DEVICE(device.get()));
    if (inUse) {
        error = quoted(id) + " is in use by another program.";
        return nullptr;
    }
    return device;
}

// Aravis gives a description even where it stopped reading in the middle of the text.
ArvGc* descriptionOf(ArvDevice* device)
{
    std::size_t size = 0;
    const char* text = arv_device_get_genicam_xml(device, &size);
    return isWholeDescription(text, size) ? arv_device_get_genicam(device) : nullptr;
}

// Aravis accepts any value and any access unless told otherwise.
void enableChecks(ArvGc* genicam)
{
    arv_gc_set_range_check_policy(genicam, ARV_RANGE_CHECK_POLICY_ENABLE);
    arv_gc_set_access_check_policy(genicam, ARV_ACCESS_CHECK_POLICY_ENABLE);
}

} // namespace

std::vector<CameraInfo> CameraSystem::List()
{
    const std::lock_guard<std::mutex> lock(deviceList());
    arv_update_device_list();
    return listedCameras();
}

std::unique_ptr<Camera> CameraSystem::Open(const std::string& id, std::string& error)
{
    DevicePtr device = openDevice(id, error);
    if (!device)
        return nullptr;
    ArvGc* genicam = descriptionOf(device.get());
    if (!genicam) {
        error = notDescribed(id);
        return nullptr;
    }
    enableChecks(genicam);
    CameraDescription description;
    const ZalErrorType status = readDescription(genicam, description);
    if (status != ZalErrorSuccess) {
        error = quoted(id) + " does not tell which features it has. " + ErrorText(status);
        return nullptr;
    }
    CameraInfo info = infoOf(device.get(), id);
    auto core = CameraCore::open(std::move(device), std::move(description));
    auto d = std::make_unique<Camera::Private>(std::move(info), std::move(core));
    return std::unique_ptr<Camera>(new Camera(std::move(d)));
}

} // namespace ZalCPP
