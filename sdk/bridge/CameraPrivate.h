#pragma once

#include "sdk/bridge/Acquisition.h"
#include "sdk/bridge/CameraCore.h"

#include <ZalCPP/Camera.h>

#include <memory>
#include <utility>

namespace ZalCPP {

class Camera::Private
{
public:
    Private(CameraInfo cameraInfo, std::shared_ptr<CameraCore> cameraCore);
    ~Private() { close(); }
    Private(const Private&) = delete;
    Private& operator=(const Private&) = delete;

    void close();

    const CameraInfo info;
    const std::shared_ptr<CameraCore> core;
    const FeatureList features;
    std::unique_ptr<Acquisition> acquisition;
};

} // namespace ZalCPP
