#include "tests/sdk/simulator/SdkClient.h"

#include <ZalCPP/CameraSystem.h>

#include <array>
#include <chrono>
#include <stdexcept>
#include <vector>

namespace {

constexpr std::chrono::seconds FrameTimeout(5);
// Longer than the slowest way from a trigger to its frame in these tests.
constexpr std::chrono::milliseconds OneMoreFrame(300);

void Check(const char* feature, ZalErrorType status)
{
    if (status != ZalErrorSuccess)
        throw std::runtime_error(std::string(feature) + ": " + ZalCPP::ErrorText(status));
}

using TextCall = ZalErrorType (ZalCPP::Feature::*)(char*, std::uint32_t&) const;

std::string ReadText(const char* name, const ZalCPP::Feature& feature, TextCall call)
{
    // Room for every text: one that changes by itself may grow between asking for its size and it.
    std::array<char, 256> text{};
    std::uint32_t size = text.size();
    Check(name, (feature.*call)(text.data(), size));
    return text.data();
}

} // namespace

SdkClient::SdkClient()
{
    std::string error;
    camera = ZalCPP::CameraSystem::Open("127.0.0.1", error);
    if (!camera)
        throw std::runtime_error(error);
}

SdkClient::~SdkClient() = default;

ZalCPP::FeaturePtr SdkClient::Find(const char* feature) const
{
    auto found = camera->FindFeature(feature);
    if (!found)
        throw std::runtime_error(std::string(feature) + " does not exist");
    return found;
}

ZalFeatureDataType SdkClient::Type(const char* feature) const
{
    ZalFeatureDataType type = ZalFeatureUnknown;
    Check(feature, Find(feature)->GetDataType(type));
    return type;
}

bool SdkClient::IsReadable(const char* feature) const
{
    bool readable = false;
    Check(feature, Find(feature)->IsReadable(readable));
    return readable;
}

bool SdkClient::IsWritable(const char* feature) const
{
    bool writable = false;
    Check(feature, Find(feature)->IsWritable(writable));
    return writable;
}

std::string SdkClient::Unit(const char* feature) const
{
    return ReadText(feature, *Find(feature), &ZalCPP::Feature::GetUnit);
}

std::pair<double, double> SdkClient::Range(const char* feature) const
{
    std::pair<double, double> range;
    if (Type(feature) == ZalFeatureFloat) {
        Check(feature, Find(feature)->GetFloatRange(range.first, range.second));
        return range;
    }
    long long min = 0;
    long long max = 0;
    Check(feature, Find(feature)->GetIntegerRange(min, max));
    return {double(min), double(max)};
}

QStringList SdkClient::Entries(const char* feature) const
{
    std::uint32_t count = 0;
    Check(feature, Find(feature)->GetEnumNames(nullptr, count));
    std::vector<const char*> names(count);
    Check(feature, Find(feature)->GetEnumNames(names.data(), count));
    QStringList entries;
    for (const char* name : names)
        entries << name;
    return entries;
}

QStringList SdkClient::AvailableEntries(const char* feature) const
{
    QStringList names;
    for (const QString& name : Entries(feature)) {
        bool available = false;
        Check(feature, Find(feature)->IsValueAvailable(qPrintable(name), available));
        if (available)
            names << name;
    }
    return names;
}

std::string SdkClient::Text(const char* feature) const
{
    return ReadText(feature, *Find(feature), &ZalCPP::Feature::GetStringValue);
}

double SdkClient::Number(const char* feature) const
{
    double number = 0;
    bool truth = false;
    long long integer = 0;
    switch (Type(feature)) {
    case ZalFeatureFloat:
        Check(feature, Find(feature)->GetFloatValue(number));
        return number;
    case ZalFeatureBool:
        Check(feature, Find(feature)->GetBoolValue(truth));
        return truth ? 1 : 0;
    default:
        Check(feature, Find(feature)->GetIntegerValue(integer));
        return double(integer);
    }
}

void SdkClient::Set(const char* feature, const char* text) const
{
    Check(feature, Find(feature)->SetStringValue(text));
}

void SdkClient::Set(const char* feature, double value) const
{
    switch (Type(feature)) {
    case ZalFeatureFloat:
        return Check(feature, Find(feature)->SetFloatValue(value));
    case ZalFeatureBool:
        return Check(feature, Find(feature)->SetBoolValue(value != 0.0));
    default:
        return Check(feature, Find(feature)->SetIntegerValue(static_cast<long long>(value)));
    }
}

void SdkClient::Execute(const char* command) const
{
    Check(command, Find(command)->RunCommand());
}

void SdkClient::StartAcquisition()
{
    frames = 0;
    Check("acquisition", camera->StartAcquisition([this](const ZalCPP::Frame&) {
        const std::lock_guard<std::mutex> lock(mutex);
        ++frames;
        arrived.notify_all();
    }));
}

void SdkClient::StopAcquisition()
{
    Check("acquisition", camera->StopAcquisition());
}

int SdkClient::Frames() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return frames;
}

bool SdkClient::GetsExactly(int count) const
{
    std::unique_lock<std::mutex> lock(mutex);
    if (!arrived.wait_for(lock, FrameTimeout, [&] { return frames >= count; }))
        return false;
    return !arrived.wait_for(lock, OneMoreFrame, [&] { return frames > count; });
}
