#include "sdk/bridge/Acquisition.h"

#include "sdk/bridge/AravisStatus.h"
#include "sdk/bridge/GObjectPtr.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace ZalCPP {
namespace {

constexpr int BufferCount = 8;
// How long the grabbing thread takes to notice that it shall end.
constexpr guint64 PopTimeoutUs = 20000;

const FeatureDescription* find(const CameraDescription& camera, const char* name,
                               ZalFeatureDataType type)
{
    const auto found = camera.positions.find(name);
    if (found == camera.positions.end() || camera.features[found->second].type != type)
        return nullptr;
    return &camera.features[found->second];
}

ZalErrorType payloadSize(const CameraDescription& camera, std::size_t& size)
{
    const auto* feature = find(camera, "PayloadSize", ZalFeatureInteger);
    if (!feature)
        return ZalErrorNotImplemented;
    long long value = 0;
    const ZalErrorType status = NodeAccess::integerValue(*feature, value);
    if (status == ZalErrorSuccess && value <= 0)
        return ZalErrorOutOfRange;
    size = static_cast<std::size_t>(value);
    return status;
}

ZalErrorType openStream(ArvDevice* device, const CameraDescription& camera,
                        std::shared_ptr<ArvStream>& stream)
{
    std::size_t size = 0;
    const ZalErrorType status = payloadSize(camera, size);
    if (status != ZalErrorSuccess)
        return status;
    AravisError error;
    const auto created =
        adoptObject(arv_device_create_stream(device, nullptr, nullptr, error.out()));
    if (!created)
        return error.status() == ZalErrorSuccess ? ZalErrorUnknown : error.status();
    for (int i = 0; i < BufferCount; ++i)
        arv_stream_push_buffer(created.get(), arv_buffer_new_allocate(size));
    stream = created;
    return ZalErrorSuccess;
}

// A camera without TLParamsLocked, or with one that it handles itself, is fine.
ZalErrorType lockParameters(const CameraDescription& camera, bool locked)
{
    const auto* feature = find(camera, "TLParamsLocked", ZalFeatureInteger);
    if (!feature)
        return ZalErrorSuccess;
    const ZalErrorType status = NodeAccess::setInteger(*feature, locked);
    const bool refused = status == ZalErrorNotWritable || status == ZalErrorNotAvailable;
    return refused ? ZalErrorSuccess : status;
}

ZalErrorType run(const CameraDescription& camera, const char* command)
{
    const auto* feature = find(camera, command, ZalFeatureCommand);
    return feature ? NodeAccess::runCommand(*feature) : ZalErrorNotImplemented;
}

ZalErrorType startCamera(ArvDevice* device, const CameraDescription& camera,
                         std::shared_ptr<ArvStream>& stream)
{
    ZalErrorType status = openStream(device, camera, stream);
    if (status == ZalErrorSuccess)
        status = lockParameters(camera, true);
    return status == ZalErrorSuccess ? run(camera, "AcquisitionStart") : status;
}

// A camera that refuses to stop must not stay locked as well: nobody could set it right any more.
ZalErrorType stopCamera(const CameraDescription& camera)
{
    const ZalErrorType stopped = run(camera, "AcquisitionStop");
    if (isSilent(stopped))
        return stopped;
    const ZalErrorType unlocked = lockParameters(camera, false);
    return stopped == ZalErrorSuccess ? unlocked : stopped;
}

std::vector<unsigned char> pixelsOf(ArvBuffer* buffer, int height)
{
    std::size_t size = 0;
    int paddingX = 0;
    int paddingY = 0;
    const auto* data = static_cast<const unsigned char*>(arv_buffer_get_image_data(buffer, &size));
    arv_buffer_get_image_padding(buffer, &paddingX, &paddingY);
    if (paddingX <= 0 || height <= 0)
        return {data, data + size};
    const std::size_t stride = size / static_cast<std::size_t>(height);
    const std::size_t row = stride - std::min(stride, static_cast<std::size_t>(paddingX));
    std::vector<unsigned char> pixels;
    for (int y = 0; y < height; ++y, data += stride)
        pixels.insert(pixels.end(), data, data + row);
    return pixels;
}

Frame frameOf(ArvBuffer* buffer)
{
    const int width = arv_buffer_get_image_width(buffer);
    const int height = arv_buffer_get_image_height(buffer);
    Frame frame;
    frame.id = arv_buffer_get_frame_id(buffer);
    frame.width = static_cast<std::uint32_t>(width);
    frame.height = static_cast<std::uint32_t>(height);
    frame.pixelFormat = arv_buffer_get_image_pixel_format(buffer);
    frame.pixels = pixelsOf(buffer, height);
    return frame;
}

bool hasImage(ArvBuffer* buffer)
{
    const auto payload = arv_buffer_get_payload_type(buffer);
    return arv_buffer_get_status(buffer) == ARV_BUFFER_STATUS_SUCCESS &&
           (payload == ARV_BUFFER_PAYLOAD_TYPE_IMAGE ||
            payload == ARV_BUFFER_PAYLOAD_TYPE_EXTENDED_CHUNK_DATA);
}

void grab(ArvStream* stream, const std::atomic<bool>& running, const Camera::FrameHandler& handler)
{
    while (running) {
        ArvBuffer* buffer = arv_stream_timeout_pop_buffer(stream, PopTimeoutUs);
        if (!buffer)
            continue;
        if (hasImage(buffer))
            handler(frameOf(buffer));
        arv_stream_push_buffer(stream, buffer);
    }
}

} // namespace

Acquisition::Acquisition(std::shared_ptr<CameraCore> camera) : core(std::move(camera)) {}

// Does not wait for the camera: closing it does.
Acquisition::~Acquisition()
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (!running)
        return;
    endGrabbing();
    cleanUp(true);
}

ZalErrorType Acquisition::start(Camera::FrameHandler handler)
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (running)
        return ZalErrorNotAvailable;
    stream = std::make_shared<StreamPtr>();
    const ZalErrorType status = core->changeAll(
        [device = core->device(), opened = stream](const CameraDescription& camera) {
            return startCamera(device, camera, *opened);
        });
    if (status != ZalErrorSuccess) {
        cleanUp(true);
        return status;
    }
    running = true;
    grabber = std::thread(
        [this, raw = stream->get(), handler = std::move(handler)] { grab(raw, running, handler); });
    return ZalErrorSuccess;
}

ZalErrorType Acquisition::stop()
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (!running)
        return ZalErrorSuccess;
    endGrabbing();
    const ZalErrorType status = core->changeAll(stopCamera);
    cleanUp(isSilent(status));
    return status;
}

void Acquisition::endGrabbing()
{
    running = false;
    grabber.join();
}

// What the camera did not do in time is done when it answers again, without anybody waiting. The
// stream goes that way in any case, because it talks to the camera when it is destroyed; it may
// even be opened only now.
void Acquisition::cleanUp(bool stopCameraFirst)
{
    const bool stopFirst = stopCameraFirst && core->isOpen();
    core->postChangeAll(
        [opened = std::exchange(stream, nullptr), stopFirst](const CameraDescription& camera) {
            const StreamPtr released = std::exchange(*opened, nullptr);
            return released && stopFirst ? stopCamera(camera) : ZalErrorSuccess;
        });
}

} // namespace ZalCPP
