#pragma once

#include "sdk/bridge/CameraCore.h"

#include <ZalCPP/Camera.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <thread>

namespace ZalCPP {

/// Starts and stops the stream of images of one camera. Any thread but that of the frame handler.
class Acquisition
{
public:
    /// Does nothing yet. Shares ownership of the core.
    explicit Acquisition(std::shared_ptr<CameraCore> core);
    ~Acquisition();
    Acquisition(const Acquisition&) = delete;
    Acquisition& operator=(const Acquisition&) = delete;

    /// See Camera::StartAcquisition().
    ZalErrorType start(Camera::FrameHandler handler);
    /// See Camera::StopAcquisition().
    ZalErrorType stop();
    /// Between a successful start and the next stop, also when the camera is lost.
    bool isRunning() const { return m_running; }

private:
    using StreamPtr = std::shared_ptr<ArvStream>;

    ZalErrorType startGrabbing(Camera::FrameHandler handler);
    void endGrabbing();
    void cleanUp(bool stopCameraFirst);

    const std::shared_ptr<CameraCore> m_core;
    std::mutex m_mutex; ///< Starting and stopping exclude each other.
    std::atomic<bool> m_running{false};
    /// What it points to is opened and released on the worker thread, possibly after the caller of
    /// start() gave up waiting.
    std::shared_ptr<StreamPtr> m_stream;
    std::thread m_grabber;
};

} // namespace ZalCPP
