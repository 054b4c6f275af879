#include "tests/sdk/bridge/mutations/Runs.h"

#include <ZalCPP/CameraSystem.h>

#include <arv.h>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <vector>

namespace {

using ZalCPP::FeaturePtr;

class Observer : public ZalCPP::IFeatureObserver
{
public:
    void FeatureChanged(const FeaturePtr& feature) override
    {
        bool readable = false;
        feature->IsReadable(readable);
    }
};

template <typename Call> void text(Call call)
{
    std::uint32_t count = 0;
    if (call(static_cast<char*>(nullptr), count) != ZalErrorSuccess)
        return;
    std::vector<char> buffer(count);
    call(buffer.data(), count);
}

void useFacts(const FeaturePtr& feature)
{
    using TextCall = ZalErrorType (ZalCPP::Feature::*)(char*, std::uint32_t&) const;
    for (const TextCall call : {&ZalCPP::Feature::GetName, &ZalCPP::Feature::GetDisplayName,
                                &ZalCPP::Feature::GetCategory, &ZalCPP::Feature::GetUnit,
                                &ZalCPP::Feature::GetRepresentation, &ZalCPP::Feature::GetToolTip,
                                &ZalCPP::Feature::GetDescription})
        text([&](char* buffer, std::uint32_t& count) {
            return (feature.get()->*call)(buffer, count);
        });
    bool answer = false;
    feature->IsReadable(answer);
    feature->IsWritable(answer);
    feature->HasIncrement(answer);
    feature->IsCommandDone(answer);
    std::uint32_t count = 0;
    feature->GetSelectedFeatures(nullptr, count);
}

void useNumbers(const FeaturePtr& feature)
{
    long long integer = 0;
    long long low = 0;
    long long high = 0;
    double real = 0;
    double least = 0;
    double most = 0;
    bool flag = false;
    if (feature->GetIntegerRange(low, high) == ZalErrorSuccess) {
        feature->SetIntegerValue(low);
        feature->SetIntegerValue(high);
    }
    if (feature->GetIntegerValue(integer) == ZalErrorSuccess)
        feature->SetIntegerValue(integer);
    feature->GetIntegerIncrement(integer);
    if (feature->GetFloatRange(least, most) == ZalErrorSuccess)
        feature->SetFloatValue(most);
    if (feature->GetFloatValue(real) == ZalErrorSuccess)
        feature->SetFloatValue(real);
    feature->GetFloatIncrement(real);
    if (feature->GetBoolValue(flag) == ZalErrorSuccess)
        feature->SetBoolValue(!flag);
}

void useEntries(const FeaturePtr& feature)
{
    std::uint32_t count = 0;
    if (feature->GetEntries(nullptr, count) != ZalErrorSuccess)
        return;
    std::vector<ZalCPP::EnumEntry> entries(count);
    feature->GetEntries(entries.data(), count);
    for (const ZalCPP::EnumEntry& entry : entries) {
        bool available = false;
        feature->IsValueAvailable(entry.name.c_str(), available);
        feature->SetStringValue(entry.name.c_str());
    }
}

void useData(const FeaturePtr& feature)
{
    text(
        [&](char* buffer, std::uint32_t& count) { return feature->GetStringValue(buffer, count); });
    feature->SetStringValue("text");
    std::uint32_t count = 0;
    if (feature->GetRawValue(nullptr, count) == ZalErrorSuccess) {
        std::vector<unsigned char> data(count);
        feature->GetRawValue(data.data(), count);
        feature->SetRawValue(data.data(), count);
    }
    feature->RunCommand();
}

// More than there are buffers, so that each has been used again.
constexpr int MostFrames = 20;

void acquire(ZalCPP::Camera& camera)
{
    std::mutex mutex;
    std::condition_variable arrived;
    int frames = 0;
    camera.StartAcquisition([&](const ZalCPP::Frame&) {
        const std::lock_guard<std::mutex> lock(mutex);
        ++frames;
        arrived.notify_all();
    });
    {
        std::unique_lock<std::mutex> lock(mutex);
        arrived.wait_for(lock, std::chrono::milliseconds(100),
                         [&] { return frames >= MostFrames; });
    }
    camera.StopAcquisition();
}

} // namespace

Runs::Outcome Runs::throughTheBridge(const std::string& descriptionFile)
{
    arv_set_fake_camera_genicam_filename(descriptionFile.c_str());
    std::string error;
    const auto camera = ZalCPP::CameraSystem::Open("Fake_1", error);
    if (!camera)
        return error.empty() ? Silent : Refused;
    const auto observer = std::make_shared<Observer>();
    for (const FeaturePtr& feature : *camera->Features())
        feature->RegisterObserver(observer);
    for (const FeaturePtr& feature : *camera->Features()) {
        useFacts(feature);
        useNumbers(feature);
        useEntries(feature);
        useData(feature);
    }
    acquire(*camera);
    return Opened;
}
