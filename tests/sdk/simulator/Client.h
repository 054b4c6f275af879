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
    bool IsController() const;

    std::string Text(const char* feature) const;
    std::int64_t Integer(const char* feature) const;
    double Number(const char* feature) const;
    bool IsTrue(const char* feature) const;
    void Set(const char* feature, const char* text) const;
    void Set(const char* feature, int value) const;
    void Set(const char* feature, std::int64_t value) const;
    void Set(const char* feature, double value) const;
    void Set(const char* feature, bool value) const;
    void Execute(const char* command) const;

    _ArvGcNode* Node(const char* name) const;
    std::vector<std::string> AvailableEntries(const char* enumeration) const;
    bool IsLocked(const char* feature) const;
    bool IsAvailable(const char* feature) const;

    void StartAcquisition();
    void StopAcquisition();

    /// Complete frames since the acquisition was started.
    int Frames() const;
    /// Waits until there are that many; false when they do not come.
    bool WaitForFrames(int count) const;
    /// Whether exactly that many come: waits for them, and then long enough for one more.
    bool GetsExactly(int count) const;
    std::vector<unsigned char> LastPicture() const;

private:
    static void OnStream(void* self, int type, void* buffer);
    void PrepareStream();
    void TakeFrame();
    _ArvDevice* Device() const;

    _ArvCamera* camera;
    _ArvStream* stream = nullptr;
    mutable std::mutex mutex;
    mutable std::condition_variable arrived;
    int frames = 0;
    std::vector<unsigned char> picture;
};
