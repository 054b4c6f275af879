#pragma once

#include <ZalCPP/Feature.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace ZalCPP {

/// What is known of a camera before it is opened.
struct CameraInfo
{
    std::string id; ///< Opens the camera; unique among the cameras found.
    std::string vendor;
    std::string model;
    std::string serial;
    std::string address;
};

/// One image. The pixels are the camera's own, in PFNC `pixelFormat`, rows without padding.
struct Frame
{
    std::uint64_t id = 0;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t pixelFormat = 0;
    std::vector<unsigned char> pixels;
};

/// Accesses to the camera's registers since it was opened. Each is one request and one answer on
/// the wire, unless it is longer than a packet or has to be repeated. Not counted are the
/// connection's own heartbeat and reads whose answer was known from a moment before.
struct WireCounts
{
    std::uint64_t reads = 0;
    std::uint64_t writes = 0;
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
const char* LossText(CameraLoss loss);

/// An open camera. All methods may be called from any thread and are bounded in time like those of
/// Feature. Destroying the camera closes it, and does not wait for one that no longer answers.
///
/// A register that was read within the last 50 ms is not read again, unless the camera was written
/// since or its description says that the value changes by itself. A feature that does not answer
/// three times in a row, while the camera does, is given up: reading it, or writing it, fails with
/// ZalErrorTimeout at once until the camera is opened again.
class Camera
{
public:
    using FrameHandler = std::function<void(const Frame&)>;
    using LostHandler = std::function<void()>;

    ~Camera();
    Camera(const Camera&) = delete;
    Camera& operator=(const Camera&) = delete;

    const CameraInfo& Info() const;

    /// The complete feature list, in the description's order. The features may outlive the camera;
    /// they then answer with ZalErrorNotOpen.
    FeatureList Features() const;

    /// The feature of that name, or null. Costs no traffic.
    FeaturePtr FindFeature(const std::string& name) const;

    /// Frames reach `handler` on a thread of the camera's own until StopAcquisition returns; it
    /// must not stop or destroy the camera. Incomplete frames are left out. Meanwhile the camera's
    /// TLParamsLocked is set, where it has one; a camera that refuses to stop is unlocked all the
    /// same. Fails with ZalErrorNotAvailable while acquiring.
    ZalErrorType StartAcquisition(FrameHandler handler);
    /// After this no frame arrives, whatever the status. Stopping twice succeeds.
    ZalErrorType StopAcquisition();
    bool IsAcquiring() const;

    /// Called once, on a thread of the camera's own, when the camera is lost for good. Set it right
    /// after opening.
    void SetLostHandler(LostHandler handler);
    bool IsLost() const;
    /// Known when the handler is called.
    CameraLoss Loss() const;

    WireCounts Counts() const;

private:
    friend class CameraSystem;
    class Private;
    explicit Camera(std::unique_ptr<Private> d);
    std::unique_ptr<Private> d;
};

/// Finds and opens cameras (GigE Vision and USB3 Vision). Any thread.
class CameraSystem
{
public:
    /// The cameras found now; takes about as long as the network discovery does.
    static std::vector<CameraInfo> List();

    /// Opens the camera whose id, serial number or network address is `id`, or the first one found
    /// when `id` is empty. On failure returns null and sets `error` to a sentence for the user. A
    /// camera that does not tell which of its features are implemented cannot be opened, nor one
    /// whose description cannot be read to its end.
    static std::unique_ptr<Camera> Open(const std::string& id, std::string& error);
};

} // namespace ZalCPP
