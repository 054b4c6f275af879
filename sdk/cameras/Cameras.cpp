#include "sdk/cameras/Cameras.h"

#include "sdk/simulator/SimulatedCamera.h"

#include <ZalCPP/CameraSystem.h>

namespace Cameras {
namespace {

struct SimulatedPair
{
    // In this order: the connection closes before the camera at its other end disappears.
    std::unique_ptr<ZalSim::SimulatedCamera> simulator;
    std::unique_ptr<ZalCPP::Camera> camera;
};

std::shared_ptr<ZalCPP::Camera> simulate(const std::string& model, std::string& error)
{
    const auto pair = std::make_shared<SimulatedPair>();
    ZalSim::Options options;
    options.model = model;
    pair->simulator = ZalSim::SimulatedCamera::start(options, error);
    if (pair->simulator)
        pair->camera = ZalCPP::CameraSystem::Open(pair->simulator->cameraId(), error);
    return pair->camera ? std::shared_ptr<ZalCPP::Camera>(pair, pair->camera.get()) : nullptr;
}

} // namespace

std::shared_ptr<ZalCPP::Camera> open(const Source& source, std::string& error)
{
    if (source.kind == Source::Kind::Simulated)
        return simulate(source.name, error);
    return ZalCPP::CameraSystem::Open(source.name, error);
}

} // namespace Cameras
