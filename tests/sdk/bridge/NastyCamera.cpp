#include "tests/sdk/bridge/NastyCamera.h"

#include <QtGlobal>

#include <arv.h>

#include <vector>

namespace {

constexpr guint32 FirstRegister = 0x4000;
constexpr guint32 RegisterBytes = 0x1000;

} // namespace

class NastyCamera::Server
{
public:
    explicit Server(const std::string& description)
        : m_camera(arv_gv_fake_camera_new_full(Address, Serial, description.c_str()))
    {
        if (!arv_gv_fake_camera_is_running(m_camera))
            qFatal("The camera cannot listen on %s", Address);
    }
    ~Server() { g_object_unref(m_camera); }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    ArvFakeCamera* memory() const { return arv_gv_fake_camera_get_fake_camera(m_camera); }

private:
    ArvGvFakeCamera* m_camera;
};

NastyCamera::NastyCamera() : NastyCamera(NASTY_DESCRIPTION) {}

NastyCamera::NastyCamera(const std::string& description)
    : m_server(std::make_unique<Server>(description))
{
}

NastyCamera::~NastyCamera() = default;

void NastyCamera::reset()
{
    const std::vector<unsigned char> zeros(RegisterBytes);
    arv_fake_camera_write_memory(m_server->memory(), FirstRegister, RegisterBytes, zeros.data());
    setReg(ARV_FAKE_CAMERA_REGISTER_WIDTH, 64);
    setReg(ARV_FAKE_CAMERA_REGISTER_HEIGHT, 32);
}

std::uint32_t NastyCamera::reg(std::uint32_t address) const
{
    guint32 value = 0;
    arv_fake_camera_read_register(m_server->memory(), address, &value);
    return value;
}

void NastyCamera::setReg(std::uint32_t address, std::uint32_t value)
{
    arv_fake_camera_write_register(m_server->memory(), address, value);
}

void NastyCamera::setText(std::uint32_t address, const std::string& text)
{
    arv_fake_camera_write_memory(m_server->memory(), address, static_cast<guint32>(text.size() + 1),
                                 text.c_str());
}
