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

void Raise(const char* feature, GError* error)
{
    if (!error)
        return;
    const std::string message = std::string(feature) + ": " + error->message;
    g_error_free(error);
    throw std::runtime_error(message);
}

/// Calls with a place for Aravis' error and throws what it found there.
template <typename Call> auto Checked(const char* feature, const Call& call)
{
    GError* error = nullptr;
    if constexpr (std::is_void_v<decltype(call(&error))>) {
        call(&error);
        Raise(feature, error);
    } else {
        const auto result = call(&error);
        Raise(feature, error);
        return result;
    }
}

} // namespace

Client::Client()
    : camera(Checked("camera", [&](GError** error) { return arv_camera_new("127.0.0.1", error); }))
{
}

Client::~Client()
{
    if (stream)
        g_object_unref(stream);
    g_object_unref(camera);
}

ArvDevice* Client::Device() const
{
    return arv_camera_get_device(camera);
}

bool Client::IsController() const
{
    return arv_gv_device_is_controller(ARV_GV_DEVICE(Device())) != FALSE;
}

std::string Client::Text(const char* feature) const
{
    const char* text = Checked(feature, [&](GError** error) {
        return arv_device_get_string_feature_value(Device(), feature, error);
    });
    return text ? text : "";
}

std::int64_t Client::Integer(const char* feature) const
{
    return Checked(feature, [&](GError** error) {
        return arv_device_get_integer_feature_value(Device(), feature, error);
    });
}

double Client::Number(const char* feature) const
{
    return Checked(feature, [&](GError** error) {
        return arv_device_get_float_feature_value(Device(), feature, error);
    });
}

bool Client::IsTrue(const char* feature) const
{
    return Checked(feature, [&](GError** error) {
               return arv_device_get_boolean_feature_value(Device(), feature, error);
           }) != FALSE;
}

void Client::Set(const char* feature, const char* text) const
{
    Checked(feature, [&](GError** error) {
        return arv_device_set_string_feature_value(Device(), feature, text, error);
    });
}

void Client::Set(const char* feature, int value) const
{
    Set(feature, static_cast<std::int64_t>(value));
}

void Client::Set(const char* feature, std::int64_t value) const
{
    Checked(feature, [&](GError** error) {
        return arv_device_set_integer_feature_value(Device(), feature, value, error);
    });
}

void Client::Set(const char* feature, double value) const
{
    Checked(feature, [&](GError** error) {
        return arv_device_set_float_feature_value(Device(), feature, value, error);
    });
}

void Client::Set(const char* feature, bool value) const
{
    Checked(feature, [&](GError** error) {
        return arv_device_set_boolean_feature_value(Device(), feature, value ? TRUE : FALSE, error);
    });
}

void Client::Execute(const char* command) const
{
    Checked(command,
            [&](GError** error) { return arv_device_execute_command(Device(), command, error); });
}

ArvGcNode* Client::Node(const char* name) const
{
    return arv_device_get_feature(Device(), name);
}

std::vector<std::string> Client::AvailableEntries(const char* enumeration) const
{
    guint count = 0;
    const char** entries = Checked(enumeration, [&](GError** error) {
        return arv_device_dup_available_enumeration_feature_values_as_strings(Device(), enumeration,
                                                                              &count, error);
    });
    std::vector<std::string> names(entries, entries + count);
    g_free(entries);
    return names;
}

bool Client::IsLocked(const char* feature) const
{
    return Checked(feature, [&](GError** error) {
        return arv_gc_feature_node_is_locked(ARV_GC_FEATURE_NODE(Node(feature)), error);
    });
}

bool Client::IsAvailable(const char* feature) const
{
    return Checked(feature, [&](GError** error) {
        return arv_gc_feature_node_is_available(ARV_GC_FEATURE_NODE(Node(feature)), error);
    });
}

void Client::StartAcquisition()
{
    PrepareStream();
    Execute("AcquisitionStart");
}

void Client::PrepareStream()
{
    const std::lock_guard<std::mutex> lock(mutex);
    frames = 0;
    const auto callback = reinterpret_cast<ArvStreamCallback>(&Client::OnStream);
    if (!stream)
        stream = Checked("stream", [&](GError** error) {
            return arv_camera_create_stream(camera, callback, this, error);
        });
    const guint payload = Checked(
        "PayloadSize", [&](GError** error) { return arv_camera_get_payload(camera, error); });
    for (int i = 0; i < BufferCount; ++i)
        arv_stream_push_buffer(stream, arv_buffer_new(payload, nullptr));
}

void Client::StopAcquisition()
{
    Execute("AcquisitionStop");
}

// Runs on the thread of the stream.
void Client::OnStream(void* self, int type, void*)
{
    if (type == ARV_STREAM_CALLBACK_TYPE_BUFFER_DONE)
        static_cast<Client*>(self)->TakeFrame();
}

void Client::TakeFrame()
{
    const std::lock_guard<std::mutex> lock(mutex);
    ArvBuffer* buffer = arv_stream_pop_buffer(stream);
    std::size_t size = 0;
    const auto* data = static_cast<const unsigned char*>(arv_buffer_get_data(buffer, &size));
    if (arv_buffer_get_status(buffer) == ARV_BUFFER_STATUS_SUCCESS) {
        picture.assign(data, data + size);
        ++frames;
    }
    arv_stream_push_buffer(stream, buffer);
    arrived.notify_all();
}

int Client::Frames() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return frames;
}

bool Client::WaitForFrames(int count) const
{
    std::unique_lock<std::mutex> lock(mutex);
    return arrived.wait_for(lock, FrameTimeout, [&] { return frames >= count; });
}

bool Client::GetsExactly(int count) const
{
    if (!WaitForFrames(count))
        return false;
    std::unique_lock<std::mutex> lock(mutex);
    return !arrived.wait_for(lock, OneMoreFrame, [&] { return frames > count; });
}

std::vector<unsigned char> Client::LastPicture() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return picture;
}
