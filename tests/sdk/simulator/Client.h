#pragma once

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

// NOLINTBEGIN(bugprone-reserved-identifier): named so by Aravis
struct _ArvCamera;
struct _ArvDevice;
struct _ArvStream;
struct _ArvGcNode;
// NOLINTEND(bugprone-reserved-identifier)

/// A host that controls the camera at 127.0.0.1 over the network. Every failing access throws a
/// std::runtime_error, which fails the test.
class Client
{
public:
    Client();
    ~Client();
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    /// Whether the camera obeys this host; another one may have it.
    bool isController() const;

    std::string text(const char* feature) const;
    std::int64_t integer(const char* feature) const;
    double number(const char* feature) const;
    bool isTrue(const char* feature) const;
    void set(const char* feature, const char* text) const;
    void set(const char* feature, int value) const;
    void set(const char* feature, std::int64_t value) const;
    void set(const char* feature, double value) const;
    void set(const char* feature, bool value) const;
    void execute(const char* command) const;

    _ArvGcNode* node(const char* name) const;
    std::vector<std::string> availableEntries(const char* enumeration) const;
    bool isLocked(const char* feature) const;
    bool isAvailable(const char* feature) const;

    void startAcquisition();
    void stopAcquisition();

    /// Complete frames since the acquisition was started.
    int frames() const;
    /// Waits until there are that many; false when they do not come.
    bool waitForFrames(int count) const;
    /// Whether exactly that many come: waits for them, and then long enough for one more.
    bool getsExactly(int count) const;
    std::vector<unsigned char> lastPicture() const;

private:
    static void onStream(void* self, int type, void* buffer);
    void prepareStream();
    void takeFrame();
    _ArvDevice* device() const;

    _ArvCamera* m_camera;
    _ArvStream* m_stream = nullptr;
    mutable std::mutex m_mutex;
    mutable std::condition_variable m_arrived;
    int m_frames = 0;
    std::vector<unsigned char> m_picture;
};
