#include "sdk/simulator/SimulatedCamera.h"

#include "sdk/simulator/Engine.h"
#include "sdk/simulator/Models.h"
#include "sdk/simulator/TestPicture.h"

#include <arv.h>

#include <filesystem>

namespace ZalSim {

namespace {

constexpr guint16 ControlPort = 3956;

// How often Aravis' camera looks for a frame to send. It spins through the last millisecond before
// each look, so looking more often costs more processor time.
constexpr double FrameLooksPerSecond = 100;

struct Unref
{
    void operator()(void* object) const { g_object_unref(object); }
};
template <typename T> using Owned = std::unique_ptr<T, Unref>;

// Aravis binds its socket as shareable and would not notice a second camera on the port.
bool isPortTaken(const std::string& address)
{
    const Owned<GInetAddress> host(g_inet_address_new_from_string(address.c_str()));
    if (!host)
        return false;
    const Owned<GSocketAddress> where(g_inet_socket_address_new(host.get(), ControlPort));
    const Owned<GSocket> socket(g_socket_new(g_inet_address_get_family(host.get()),
                                             G_SOCKET_TYPE_DATAGRAM, G_SOCKET_PROTOCOL_UDP,
                                             nullptr));
    GError* error = nullptr;
    if (socket)
        g_socket_bind(socket.get(), where.get(), FALSE, &error);
    const bool taken = g_error_matches(error, G_IO_ERROR, G_IO_ERROR_ADDRESS_IN_USE);
    g_clear_error(&error);
    return taken;
}

std::string chooseDescription(const Options& options, const Model& model, std::string& error)
{
    std::string searched = options.descriptionFile;
    if (options.descriptionFile.empty()) {
        std::string file = descriptionFile(model, searched);
        if (!file.empty())
            return file;
    } else if (std::filesystem::is_regular_file(options.descriptionFile)) {
        return options.descriptionFile;
    }
    error = "The camera description " + searched + " does not exist.";
    return {};
}

} // namespace

class SimulatedCamera::Private
{
public:
    Private(Owned<ArvGvFakeCamera> running, const Model& model, const Options& options)
        : server(std::move(running)), device(arv_gv_fake_camera_get_fake_camera(server.get())),
          memory(device), address(options.interface), engine(memory, model)
    {
        arv_fake_camera_set_trigger_frequency(device, FrameLooksPerSecond);
        showTestPicture(device);
    }

    Owned<ArvGvFakeCamera> server;
    ArvFakeCamera* device;
    Memory memory;
    std::string address;
    Engine engine;
};

std::unique_ptr<SimulatedCamera> SimulatedCamera::start(const Options& options, std::string& error)
{
    const Model* model = findModel(options.model);
    if (!model) {
        error = "There is no camera model \"" + options.model +
                "\". Known models: " + modelNames() + ".";
        return nullptr;
    }
    const std::string description = chooseDescription(options, *model, error);
    if (description.empty())
        return nullptr;
    if (isPortTaken(options.interface)) {
        error = "Another camera already listens on " + options.interface + ", UDP port 3956.";
        return nullptr;
    }
    Owned<ArvGvFakeCamera> server(arv_gv_fake_camera_new_full(
        options.interface.c_str(), options.serial.c_str(), description.c_str()));
    if (!server || !arv_gv_fake_camera_is_running(server.get())) {
        error = "A camera cannot listen on the address " + options.interface + ".";
        return nullptr;
    }
    return std::unique_ptr<SimulatedCamera>(
        new SimulatedCamera(std::make_unique<Private>(std::move(server), *model, options)));
}

std::vector<std::string> SimulatedCamera::models()
{
    std::vector<std::string> names;
    for (const Model& model : allModels())
        names.push_back(model.name);
    return names;
}

SimulatedCamera::SimulatedCamera(std::unique_ptr<Private> d) : m_d(std::move(d)) {}

SimulatedCamera::~SimulatedCamera() = default;

std::string SimulatedCamera::cameraId() const
{
    return m_d->address;
}

std::uint32_t SimulatedCamera::readRegister(std::uint32_t address) const
{
    return m_d->memory.read(address);
}

void SimulatedCamera::writeRegister(std::uint32_t address, std::uint32_t value)
{
    m_d->memory.write(address, value);
}

void SimulatedCamera::setInputLine(unsigned line, bool high)
{
    m_d->engine.driveLine(line, high);
}

void SimulatedCamera::sendAction(std::uint32_t deviceKey, std::uint32_t groupKey,
                                 std::uint32_t groupMask)
{
    m_d->engine.commandAction(deviceKey, groupKey, groupMask);
}

} // namespace ZalSim
