#pragma once

#include "sdk/bridge/Acquisition.h"
#include "sdk/bridge/CameraCore.h"

#include <ZalCPP/Camera.h>

#include <memory>
#include <utility>

namespace ZalCPP {

/// The parts of a Camera. Destroying it closes the camera; features that others hold keep the core.
class Camera::Private
{
public:
    /// Of a camera that was just opened.
    Private(CameraInfo cameraInfo, std::shared_ptr<CameraCore> cameraCore);
    ~Private() { close(); }
    Private(const Private&) = delete;
    Private& operator=(const Private&) = delete;

    /// Ends the acquisition first. Waits for a camera that answers; a second call does nothing.
    void close();

    const CameraInfo info;
    const std::shared_ptr<CameraCore> core;
    const FeatureList features;
    std::unique_ptr<Acquisition> acquisition;
};

} // namespace ZalCPP
