#include "tests/sdk/simulator/Client.h"

#include <arv.h>

#include <chrono>
#include <stdexcept>
#include <type_traits>

namespace {

constexpr int BufferCount = 20;
constexpr std::chrono::seconds FrameTimeout(5);
// Longer than the slowest way from a trigger to its frame in these tests.
constexpr std::chrono::milliseconds OneMoreFrame(300);

void raise(const char* feature, GError* error)
{
    if (!error)
        return;
    const std::string message = std::string(feature) + ": " + error->message;
    g_error_free(error);
    throw std::runtime_error(message);
}

/// Calls with a place for Aravis' error and throws what it found there.
template <typename Call> auto checked(const char* feature, const Call& call)
{
    GError* error = nullptr;
    if constexpr (std::is_void_v<decltype(call(&error))>) {
        call(&error);
        raise(feature, error);
    } else {
        const auto result = call(&error);
        raise(feature, error);
        return result;
    }
}

} // namespace

Client::Client()
    : m_camera(
          checked("camera", [&](GError** error) { return arv_camera_new("127.0.0.1", error); }))
{
}

Client::~Client()
{
    if (m_stream)
        g_object_unref(m_stream);
    g_object_unref(m_camera);
}

ArvDevice* Client::device() const
{
    return arv_camera_get_device(m_camera);
}

bool Client::isController() const
{
    return arv_gv_device_is_controller(ARV_GV_DEVICE(device())) != FALSE;
}

std::string Client::text(const char* feature) const
{
    const char* text = checked(feature, [&](GError** error) {
        return arv_device_get_string_feature_value(device(), feature, error);
    });
    return text ? text : "";
}

std::int64_t Client::integer(const char* feature) const
{
    return checked(feature, [&](GError** error) {
        return arv_device_get_integer_feature_value(device(), feature, error);
    });
}

double Client::number(const char* feature) const
{
    return checked(feature, [&](GError** error) {
        return arv_device_get_float_feature_value(device(), feature, error);
    });
}

bool Client::isTrue(const char* feature) const
{
    return checked(feature, [&](GError** error) {
               return arv_device_get_boolean_feature_value(device(), feature, error);
           }) != FALSE;
}

void Client::set(const char* feature, const char* text) const
{
    checked(feature, [&](GError** error) {
        return arv_device_set_string_feature_value(device(), feature, text, error);
    });
}

void Client::set(const char* feature, int value) const
{
    set(feature, static_cast<std::int64_t>(value));
}

void Client::set(const char* feature, std::int64_t value) const
{
    checked(feature, [&](GError** error) {
        return arv_device_set_integer_feature_value(device(), feature, value, error);
    });
}

void Client::set(const char* feature, double value) const
{
    checked(feature, [&](GError** error) {
        return arv_device_set_float_feature_value(device(), feature, value, error);
    });
}

void Client::set(const char* feature, bool value) const
{
    checked(feature, [&](GError** error) {
        return arv_device_set_boolean_feature_value(device(), feature, value ? TRUE : FALSE, error);
    });
}

void Client::execute(const char* command) const
{
    checked(command,
            [&](GError** error) { return arv_device_execute_command(device(), command, error); });
}

ArvGcNode* Client::node(const char* name) const
{
    return arv_device_get_feature(device(), name);
}

std::vector<std::string> Client::availableEntries(const char* enumeration) const
{
    guint count = 0;
    const char** entries = checked(enumeration, [&](GError** error) {
        return arv_device_dup_available_enumeration_feature_values_as_strings(device(), enumeration,
                                                                              &count, error);
    });
    std::vector<std::string> names(entries, entries + count);
    g_free(entries);
    return names;
}

bool Client::isLocked(const char* feature) const
{
    return checked(feature, [&](GError** error) {
        return arv_gc_feature_node_is_locked(ARV_GC_FEATURE_NODE(node(feature)), error);
    });
}

bool Client::isAvailable(const char* feature) const
{
    return checked(feature, [&](GError** error) {
        return arv_gc_feature_node_is_available(ARV_GC_FEATURE_NODE(node(feature)), error);
    });
}

void Client::startAcquisition()
{
    prepareStream();
    execute("AcquisitionStart");
}

void Client::prepareStream()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_frames = 0;
    const auto callback = reinterpret_cast<ArvStreamCallback>(&Client::onStream);
    if (!m_stream)
        m_stream = checked("stream", [&](GError** error) {
            return arv_camera_create_stream(m_camera, callback, this, error);
        });
    const guint payload = checked(
        "PayloadSize", [&](GError** error) { return arv_camera_get_payload(m_camera, error); });
    for (int i = 0; i < BufferCount; ++i)
        arv_stream_push_buffer(m_stream, arv_buffer_new(payload, nullptr));
}

void Client::stopAcquisition()
{
    execute("AcquisitionStop");
}

// Runs on the thread of the stream.
void Client::onStream(void* self, int type, void*)
{
    if (type == ARV_STREAM_CALLBACK_TYPE_BUFFER_DONE)
        static_cast<Client*>(self)->takeFrame();
}

void Client::takeFrame()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    ArvBuffer* buffer = arv_stream_pop_buffer(m_stream);
    std::size_t size = 0;
    const auto* data = static_cast<const unsigned char*>(arv_buffer_get_data(buffer, &size));
    if (arv_buffer_get_status(buffer) == ARV_BUFFER_STATUS_SUCCESS) {
        m_picture.assign(data, data + size);
        ++m_frames;
    }
    arv_stream_push_buffer(m_stream, buffer);
    m_arrived.notify_all();
}

int Client::frames() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_frames;
}

bool Client::waitForFrames(int count) const
{
    std::unique_lock<std::mutex> lock(m_mutex);
    return m_arrived.wait_for(lock, FrameTimeout, [&] { return m_frames >= count; });
}

bool Client::getsExactly(int count) const
{
    if (!waitForFrames(count))
        return false;
    std::unique_lock<std::mutex> lock(m_mutex);
    return !m_arrived.wait_for(lock, OneMoreFrame, [&] { return m_frames > count; });
}

std::vector<unsigned char> Client::lastPicture() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_picture;
}
