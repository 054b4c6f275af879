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

    bool Has(const char* feature) const { return camera->FindFeature(feature) != nullptr; }
    ZalFeatureDataType Type(const char* feature) const;
    bool IsReadable(const char* feature) const;
    bool IsWritable(const char* feature) const;
    std::string Unit(const char* feature) const;
    /// Of an integer or a float.
    std::pair<double, double> Range(const char* feature) const;
    QStringList Entries(const char* feature) const;
    QStringList AvailableEntries(const char* feature) const;

    /// Of an enumeration or a text.
    std::string Text(const char* feature) const;
    /// Of an integer, a float or a boolean (0 or 1).
    double Number(const char* feature) const;
    void Set(const char* feature, const char* text) const;
    void Set(const char* feature, double value) const;
    void Set(const char* feature, int value) const { Set(feature, double(value)); }
    void Execute(const char* command) const;

    /// A selector and the value of a feature that it selects.
    template <typename Value>
    void SetFor(const char* selector, const char* entry, const char* feature, Value value) const
    {
        Set(selector, entry);
        Set(feature, value);
    }

    void StartAcquisition();
    void StopAcquisition();
    int Frames() const;
    /// Whether exactly that many have come since the start: waits for them, and then long enough
    /// for one more.
    bool GetsExactly(int count) const;

private:
    ZalCPP::FeaturePtr Find(const char* feature) const;

    std::unique_ptr<ZalCPP::Camera> camera;
    mutable std::mutex mutex;
    mutable std::condition_variable arrived;
    int frames = 0;
};
