#pragma once

#include <ZalCPP/Camera.h>

#include <QString>

/// An open camera as the viewer uses it. Closed when destroyed; no handler runs after that.
class CameraDevice
{
public:
    virtual ~CameraDevice() = default;

    /// Maker, model and serial number in one line.
    virtual QString name() const = 0;
    virtual ZalCPP::FeatureList features() const = 0;

    /// Frames reach `handler` on a thread of the camera's own until stop() returns.
    virtual ZalErrorType start(ZalCPP::Camera::FrameHandler handler) = 0;
    virtual ZalErrorType stop() = 0;

    /// Called once, on a thread of the camera's own, when the camera is lost for good.
    virtual void setLostHandler(ZalCPP::Camera::LostHandler handler) = 0;
    virtual bool isLost() const = 0;
    virtual ZalCPP::CameraLoss loss() const = 0;
};
