#pragma once

#include <ZalCPP/Camera.h>

#include <memory>
#include <string>

namespace Cameras {

/// Which camera a program works on.
struct Source
{
    enum class Kind
    {
        Found,    ///< One that the SDK finds.
        Simulated ///< One that is started in this process.
    };

    Kind kind = Kind::Simulated;
    /// Of a camera that is found: its id, serial number or network address, or empty for the first
    /// one. Of a simulated one: its model.
    std::string name = "full";
};

/// Opens the camera through the SDK, after starting it when it is a simulated one. That one ends
/// when the last copy of the pointer goes, after the connection to it has been closed. On failure
/// returns null and sets `error` to a sentence for the user. Any thread, but simulated ones from
/// one at a time, as ZalSim::SimulatedCamera::start() says. Blocks for the time that discovering
/// and opening take.
std::shared_ptr<ZalCPP::Camera> open(const Source& source, std::string& error);

} // namespace Cameras
