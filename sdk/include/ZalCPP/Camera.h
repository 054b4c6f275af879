#pragma once

#include <ZalCPP/CameraInfo.h>
#include <ZalCPP/Export.h>
#include <ZalCPP/Feature.h>
#include <ZalCPP/Frame.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace ZalCPP {

/// Accesses to the camera's registers since it was opened. Each is one request and one answer on
/// the wire, unless it is longer than a packet or has to be repeated. Not counted are the
/// connection's own heartbeat, reads that were answered from a moment before, and what finds out,
/// after a write that failed, who controls the camera.
struct WireCounts
{
    std::uint64_t reads = 0;  ///< Requests for what registers hold.
    std::uint64_t writes = 0; ///< Requests to change registers.
};

/// Why a camera is lost.
enum class CameraLoss
{
    None,        ///< It is not.
    NoAnswer,    ///< It does not answer any more, or its connection ended.
    ControlTaken ///< It answers, but another program controls it.
};

/// A reason for the user, one sentence in English; marked for translation in the context "ZalCPP".
/// Empty where there is none beyond the loss itself. Any thread.
ZALCPP_EXPORT const char* LossText(CameraLoss loss);

/// An open camera. All methods may be called from any thread and are bounded in time like those of
/// Feature. Destroying the camera closes it, and does not wait for one that no longer answers.
///
/// A register that was read within the last 50 ms is not read again, unless the camera was written
/// since or its description says that the value changes by itself. A feature that does not answer
/// three times in a row, while the camera does, is given up: reading it, or writing it, fails with
/// ZalErrorTimeout at once until the camera is opened again.
class ZALCPP_EXPORT Camera
{
public:
    /// The frame is the handler's for the time of the call only. What it throws is dropped; the
    /// next frame arrives all the same.
    using FrameHandler = std::function<void(const Frame&)>;
    /// What it throws is dropped.
    using LostHandler = std::function<void()>;

    ~Camera();
    Camera(const Camera&) = delete;
    Camera& operator=(const Camera&) = delete;

    /// As when the camera was opened; valid as long as the camera object.
    const CameraInfo& Info() const;

    /// The complete feature list, in the description's order. The features may outlive the camera,
    /// with the limits that FeaturePtr names.
    FeatureList Features() const;

    /// The feature of that name, or null. Costs no traffic.
    FeaturePtr FindFeature(const std::string& name) const;

    /// Frames reach `handler` on a thread of the camera's own until StopAcquisition returns; the
    /// handler must not stop or destroy the camera. Incomplete frames are left out. Meanwhile the
    /// camera's TLParamsLocked is set, where it has one; a camera that refuses to stop is unlocked
    /// nevertheless.
    ///
    /// Fails with ZalErrorBadParameter without a handler, ZalErrorNotAvailable while acquiring,
    /// ZalErrorNotImplemented where the camera has no PayloadSize, no AcquisitionStart or no
    /// stream, ZalErrorOutOfRange where PayloadSize is not positive, ZalErrorOutOfResources where
    /// it is too large, or memory or threads run out; otherwise as the features do that it uses.
    ZalErrorType StartAcquisition(FrameHandler handler);
    /// After this no frame arrives, whatever the status. Stopping twice succeeds.
    ZalErrorType StopAcquisition();
    /// Between a successful start and the next stop, as long as the camera is not lost.
    bool IsAcquiring() const;

    /// Called once, on a thread of the camera's own, when the camera is lost for good. Set it right
    /// after opening.
    void SetLostHandler(LostHandler handler);
    /// Whether the camera is lost for good, and has to be opened again.
    bool IsLost() const;
    /// Known when the handler is called.
    CameraLoss Loss() const;

    /// Costs no traffic.
    WireCounts Counts() const;

private:
    friend class CameraSystem;
    class ZALCPP_HIDDEN Private;
    ZALCPP_HIDDEN explicit Camera(std::unique_ptr<Private> d);
    std::unique_ptr<Private> m_d;
};

} // namespace ZalCPP
