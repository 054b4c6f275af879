#include "sdk/bridge/Acquisition.h"

#include "sdk/bridge/AravisStatus.h"
#include "sdk/bridge/GObjectPtr.h"
#include "sdk/bridge/Guarded.h"
#include "sdk/bridge/ImagePlace.h"
#include "sdk/bridge/Limits.h"

#include <algorithm>
#include <cstdlib>
#include <utility>
#include <vector>

namespace ZalCPP {
namespace {

// How long the grabbing thread takes to notice that it has to end.
constexpr guint64 PopTimeoutUs = 20000;

const FeatureDescription* find(const CameraDescription& description, const char* name,
                               ZalFeatureDataType type)
{
    const auto found = description.positions.find(name);
    if (found == description.positions.end() || description.features[found->second].type != type)
        return nullptr;
    return &description.features[found->second];
}

ZalErrorType payloadSize(const CameraDescription& description, std::size_t& size)
{
    const auto* feature = find(description, "PayloadSize", ZalFeatureInteger);
    if (!feature)
        return ZalErrorNotImplemented;
    long long value = 0;
    const ZalErrorType status = NodeAccess::integerValue(*feature, value);
    if (status == ZalErrorSuccess && value <= 0)
        return ZalErrorOutOfRange;
    if (status == ZalErrorSuccess && static_cast<std::uint64_t>(value) > Limits::Payload)
        return ZalErrorOutOfResources;
    size = static_cast<std::size_t>(value);
    return status;
}

// Left to itself, Aravis would end the process when memory runs out.
ZalErrorType pushBuffer(ArvStream* stream, std::size_t size)
{
    void* const memory = std::malloc(size);
    if (!memory)
        return ZalErrorOutOfResources;
    arv_stream_push_buffer(stream, arv_buffer_new_full(size, memory, memory, std::free));
    return ZalErrorSuccess;
}

ZalErrorType pushBuffers(ArvStream* stream, std::size_t size)
{
    const std::size_t count = std::min(Limits::Buffers, Limits::PayloadOfAllBuffers / size);
    for (std::size_t i = 0; i < count; ++i) {
        const ZalErrorType status = pushBuffer(stream, size);
        if (status != ZalErrorSuccess)
            return status;
    }
    return ZalErrorSuccess;
}

ZalErrorType openStream(ArvDevice* device, const CameraDescription& description,
                        std::shared_ptr<ArvStream>& stream)
{
    std::size_t size = 0;
    const ZalErrorType status = payloadSize(description, size);
    if (status != ZalErrorSuccess)
        return status;
    if (!description.canStream)
        return ZalErrorNotImplemented;
    AravisError error;
    const auto created =
        adoptObject(arv_device_create_stream(device, nullptr, nullptr, error.out()));
    if (!created)
        return error.status() == ZalErrorSuccess ? ZalErrorUnknown : error.status();
    stream = created;
    return pushBuffers(created.get(), size);
}

// A camera without TLParamsLocked, or with one that it handles itself, is fine.
ZalErrorType lockParameters(const CameraDescription& description, bool locked)
{
    const auto* feature = find(description, "TLParamsLocked", ZalFeatureInteger);
    if (!feature)
        return ZalErrorSuccess;
    const ZalErrorType status = NodeAccess::setInteger(*feature, locked);
    const bool refused = status == ZalErrorNotWritable || status == ZalErrorNotAvailable;
    return refused ? ZalErrorSuccess : status;
}

ZalErrorType run(const CameraDescription& description, const char* command)
{
    const auto* feature = find(description, command, ZalFeatureCommand);
    return feature ? NodeAccess::runCommand(*feature) : ZalErrorNotImplemented;
}

ZalErrorType startCamera(ArvDevice* device, const CameraDescription& description,
                         std::shared_ptr<ArvStream>& stream)
{
    ZalErrorType status = openStream(device, description, stream);
    if (status == ZalErrorSuccess)
        status = lockParameters(description, true);
    return status == ZalErrorSuccess ? run(description, "AcquisitionStart") : status;
}

// A camera that refuses to stop must not stay locked as well: nobody could put it right any more.
ZalErrorType stopCamera(const CameraDescription& description)
{
    const ZalErrorType stopped = run(description, "AcquisitionStop");
    if (isSilent(stopped))
        return stopped;
    const ZalErrorType unlocked = lockParameters(description, false);
    return stopped == ZalErrorSuccess ? unlocked : stopped;
}

// Where the image lies is what the camera says, and a camera may say anything.
ImagePlace placeOf(ArvBuffer* buffer)
{
    std::size_t room = 0;
    ImagePlace place;
    const auto* begin = static_cast<const unsigned char*>(arv_buffer_get_data(buffer, &room));
    const auto* image =
        static_cast<const unsigned char*>(arv_buffer_get_image_data(buffer, &place.size));
    place.width = arv_buffer_get_image_width(buffer);
    place.height = arv_buffer_get_image_height(buffer);
    place.pixelFormat = arv_buffer_get_image_pixel_format(buffer);
    // Rows of padding lie behind the image, where nobody looks.
    arv_buffer_get_image_padding(buffer, &place.paddingX, nullptr);
    const auto offset = static_cast<std::size_t>(image - begin);
    const bool isInside =
        begin && image && image >= begin && offset <= room && place.size <= room - offset;
    place.data = isInside ? image : nullptr;
    return place;
}

bool fill(Frame& frame, ArvBuffer* buffer)
{
    const ImagePlace place = placeOf(buffer);
    frame.id = arv_buffer_get_frame_id(buffer);
    frame.width = static_cast<std::uint32_t>(place.width);
    frame.height = static_cast<std::uint32_t>(place.height);
    frame.pixelFormat = place.pixelFormat;
    return copyPixels(place, frame.pixels);
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
        // What the handler throws must not end the thread.
        endsWell([&] {
            Frame frame;
            if (hasImage(buffer) && fill(frame, buffer))
                handler(frame);
        });
        arv_stream_push_buffer(stream, buffer);
    }
}

} // namespace

Acquisition::Acquisition(std::shared_ptr<CameraCore> core) : m_core(std::move(core)) {}

// Does not wait for the camera: closing it does.
Acquisition::~Acquisition()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_running)
        return;
    endGrabbing();
    cleanUp(true);
}

ZalErrorType Acquisition::start(Camera::FrameHandler handler)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_running)
        return ZalErrorNotAvailable;
    m_stream = std::make_shared<StreamPtr>();
    const ZalErrorType status = m_core->changeAll(
        [device = m_core->device(), opened = m_stream](const CameraDescription& description) {
            return startCamera(device, description, *opened);
        });
    const ZalErrorType result =
        status == ZalErrorSuccess ? startGrabbing(std::move(handler)) : status;
    if (result != ZalErrorSuccess)
        cleanUp(true);
    return result;
}

ZalErrorType Acquisition::startGrabbing(Camera::FrameHandler handler)
{
    m_running = true;
    const bool started = endsWell([&] {
        m_grabber = std::thread([this, raw = m_stream->get(), handler = std::move(handler)] {
            grab(raw, m_running, handler);
        });
    });
    m_running = started;
    return started ? ZalErrorSuccess : ZalErrorOutOfResources;
}

ZalErrorType Acquisition::stop()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_running)
        return ZalErrorSuccess;
    endGrabbing();
    const ZalErrorType status = m_core->changeAll(stopCamera);
    cleanUp(isSilent(status));
    return status;
}

void Acquisition::endGrabbing()
{
    m_running = false;
    m_grabber.join();
}

// What the camera did not do in time is done when it answers again, without anybody waiting. The
// stream is always released that way, because its destruction talks to the camera; it may even have
// been opened only after the caller gave up.
void Acquisition::cleanUp(bool stopCameraFirst)
{
    const bool stopFirst = stopCameraFirst && m_core->isOpen();
    m_core->postChangeAll([opened = std::exchange(m_stream, nullptr),
                           stopFirst](const CameraDescription& description) {
        const StreamPtr released = std::exchange(*opened, nullptr);
        return released && stopFirst ? stopCamera(description) : ZalErrorSuccess;
    });
}

} // namespace ZalCPP
