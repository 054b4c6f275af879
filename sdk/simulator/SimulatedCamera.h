#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace ZalSim {

/// How to start a simulated camera.
struct Options
{
    std::string model = "full";          ///< One of SimulatedCamera::models().
    std::string descriptionFile;         ///< Serves this GenICam file instead of the model's own.
    std::string interface = "127.0.0.1"; ///< Address that the camera listens on.
    std::string serial = "SIM0001";
};

/// A GigE Vision camera that exists in software only: it answers on the loopback interface with the
/// real protocol and behaves like the device that its GenICam description promises. One per
/// interface address at a time, because the protocol's port is fixed.
///
/// Lives until destroyed; its behaviour runs on threads of its own.
class SimulatedCamera
{
public:
    /// Null, and a sentence for the user in `error`, when the model is unknown, its description is
    /// missing, the port is taken or the address is none of this machine. Not from two threads at
    /// once: both might find the same port free and start a camera on it.
    static std::unique_ptr<SimulatedCamera> start(const Options& options, std::string& error);
    static std::vector<std::string> models();

    ~SimulatedCamera();
    SimulatedCamera(const SimulatedCamera&) = delete;
    SimulatedCamera& operator=(const SimulatedCamera&) = delete;

    /// Opens this camera when given to the SDK.
    std::string cameraId() const;

    /// A register of the camera as a number, whatever its order of bytes in memory and on the wire;
    /// for tests that play the outside world.
    std::uint32_t readRegister(std::uint32_t address) const;
    void writeRegister(std::uint32_t address, std::uint32_t value);

    /// Drives an input line from outside (line index as in "Line0"); the line stops toggling by
    /// itself from then on. Returns after the camera has seen the level.
    void setInputLine(unsigned line, bool high);

    /// Sends the camera an action command, as a host on the network would. Returns after the camera
    /// has seen it.
    void sendAction(std::uint32_t deviceKey, std::uint32_t groupKey, std::uint32_t groupMask);

private:
    class Private;
    explicit SimulatedCamera(std::unique_ptr<Private> d);
    std::unique_ptr<Private> m_d;
};

} // namespace ZalSim
