// What the tests of the bridge share: asking features without the two-call ceremony, and an
// observer that remembers its calls.
#pragma once

#include <ZalCPP/CameraSystem.h>

#include <QtTest>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace BridgeTest {

using ZalCPP::Feature;
using ZalCPP::FeaturePtr;

/// Opens the camera on the loopback interface; ends the program when that fails.
inline std::unique_ptr<ZalCPP::Camera> openCamera(const char* address = "127.0.0.1")
{
    std::string error;
    auto camera = ZalCPP::CameraSystem::Open(address, error);
    if (!camera)
        qFatal("%s", error.c_str());
    return camera;
}

/// The elements that a call in array form gives; empty when it fails.
template <typename Element, typename Call> std::vector<Element> elements(Call call)
{
    std::uint32_t count = 0;
    Element* none = nullptr;
    if (call(none, count) != ZalErrorSuccess)
        return {};
    std::vector<Element> result(count);
    if (count > 0 && call(result.data(), count) != ZalErrorSuccess)
        return {};
    result.resize(count);
    return result;
}

using TextCall = ZalErrorType (Feature::*)(char*, std::uint32_t&) const;

inline std::string text(const FeaturePtr& feature, TextCall call = &Feature::GetStringValue)
{
    const auto characters = elements<char>(
        [&](char* buffer, std::uint32_t& count) { return (feature.get()->*call)(buffer, count); });
    return characters.empty() ? "<failed>" : characters.data();
}

inline std::vector<std::string> names(const std::vector<FeaturePtr>& features)
{
    std::vector<std::string> result;
    result.reserve(features.size());
    for (const FeaturePtr& feature : features)
        result.push_back(text(feature, &Feature::GetName));
    return result;
}

/// The result of a one-argument query, or `failed`.
template <typename Value>
Value ask(const FeaturePtr& feature, ZalErrorType (Feature::*query)(Value&) const, Value failed)
{
    Value value = failed;
    return (feature.get()->*query)(value) == ZalErrorSuccess ? value : failed;
}

inline long long integer(const FeaturePtr& feature)
{
    return ask<long long>(feature, &Feature::GetIntegerValue, -999);
}

inline bool isReadable(const FeaturePtr& feature)
{
    return ask<bool>(feature, &Feature::IsReadable, false);
}

inline bool isWritable(const FeaturePtr& feature)
{
    return ask<bool>(feature, &Feature::IsWritable, false);
}

/// Remembers the names of the features that it was called for.
class Recorder : public ZalCPP::IFeatureObserver
{
public:
    void FeatureChanged(const FeaturePtr& feature) override
    {
        if (onCall)
            onCall(feature);
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_called.push_back(text(feature, &Feature::GetName));
    }

    std::vector<std::string> calls() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_called;
    }

    int count(const std::string& name) const
    {
        const auto all = calls();
        return static_cast<int>(std::count(all.begin(), all.end(), name));
    }

    int count() const { return static_cast<int>(calls().size()); }

    void clear()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_called.clear();
    }

    /// Set before registering; runs on the notification thread.
    std::function<void(const FeaturePtr&)> onCall;

private:
    mutable std::mutex m_mutex;
    std::vector<std::string> m_called;
};

} // namespace BridgeTest
