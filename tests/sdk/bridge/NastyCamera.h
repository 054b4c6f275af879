#pragma once

#include <cstdint>
#include <memory>
#include <string>

/// A camera on the loopback interface that serves nasty.xml and has no behaviour: its registers are
/// memory, which the test plays with from the camera's side.
class NastyCamera
{
public:
    NastyCamera();
    /// Serves another description, a file that is read now.
    explicit NastyCamera(const std::string& description);
    ~NastyCamera();

    /// Writes zero to all registers of the description, and the image size to its start value.
    void reset();

    std::uint32_t reg(std::uint32_t address) const;
    void setReg(std::uint32_t address, std::uint32_t value);
    void setText(std::uint32_t address, const std::string& text);

    static constexpr const char* Address = "127.0.0.1";
    static constexpr const char* Serial = "SIM0001";

private:
    class Server;
    std::unique_ptr<Server> m_server;
};
