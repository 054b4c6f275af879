#pragma once

#include <ZalCPP/Camera.h>

#include <QStringList>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

/// A host that uses the camera at 127.0.0.1 through the SDK. Every failing access throws a
/// std::runtime_error, which fails the test.
class SdkClient
{
public:
    SdkClient();
    ~SdkClient();
    SdkClient(const SdkClient&) = delete;
    SdkClient& operator=(const SdkClient&) = delete;

    bool has(const char* feature) const { return m_camera->FindFeature(feature) != nullptr; }
    ZalFeatureDataType type(const char* feature) const;
    bool isReadable(const char* feature) const;
    bool isWritable(const char* feature) const;
    std::string unit(const char* feature) const;
    /// Of an integer or a float.
    std::pair<double, double> range(const char* feature) const;
    QStringList entries(const char* feature) const;
    QStringList availableEntries(const char* feature) const;

    /// Of an enumeration or a text.
    std::string text(const char* feature) const;
    /// Of an integer, a float or a boolean (0 or 1).
    double number(const char* feature) const;
    void set(const char* feature, const char* text) const;
    void set(const char* feature, double value) const;
    void set(const char* feature, int value) const { set(feature, double(value)); }
    void execute(const char* command) const;

    /// A selector and the value of a feature that it selects.
    template <typename Value>
    void setFor(const char* selector, const char* entry, const char* feature, Value value) const
    {
        set(selector, entry);
        set(feature, value);
    }

    void startAcquisition();
    void stopAcquisition();
    int frames() const;
    /// Whether exactly that many have come since the start: waits for them, and then long enough
    /// for one more.
    bool getsExactly(int count) const;

private:
    ZalCPP::FeaturePtr find(const char* feature) const;

    std::unique_ptr<ZalCPP::Camera> m_camera;
    mutable std::mutex m_mutex;
    mutable std::condition_variable m_arrived;
    int m_frames = 0;
};
