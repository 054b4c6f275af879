#include "bench/BenchCamera.h"

#include "sdk/cameras/Cameras.h"
#include "tests/support/FakeCamera.h"

#include <cstdio>
#include <cstdlib>

namespace Bench {
namespace {

std::string nameOf(const ZalCPP::Feature& feature)
{
    std::uint32_t count = 0;
    if (feature.GetName(nullptr, count) != ZalErrorSuccess || count == 0)
        return {};
    std::vector<char> buffer(count);
    const ZalErrorType status = feature.GetName(buffer.data(), count);
    return status == ZalErrorSuccess ? buffer.data() : std::string();
}

class FakeBenchCamera : public BenchCamera
{
public:
    explicit FakeBenchCamera(std::size_t featureCount) : known(Fake::FakeCamera::standard())
    {
        known->setLogging(false);
        others.setLogging(false);
        adopt(spread(featureCount));
    }

    Transactions wire() const override { return {}; }
    void endMoment() override {}

private:
    /// The known features at equal distances in a list of that length.
    std::vector<ZalCPP::FeaturePtr> spread(std::size_t featureCount)
    {
        const auto& own = *known->features();
        std::vector<ZalCPP::FeaturePtr> list;
        std::size_t placed = 0;
        while (list.size() < featureCount || placed < own.size()) {
            if (placed < own.size() && list.size() * own.size() >= placed * featureCount)
                list.push_back(own[placed++]);
            else
                list.push_back(others.addInteger(otherName(list.size()), 0));
        }
        return list;
    }

    static std::string otherName(std::size_t position)
    {
        return "OtherFeature" + std::to_string(position);
    }

    std::unique_ptr<Fake::FakeCamera> known;
    Fake::FakeCamera others;
};

class SimulatedBenchCamera : public BenchCamera
{
public:
    explicit SimulatedBenchCamera(std::shared_ptr<ZalCPP::Camera> openCamera)
        : camera(std::move(openCamera))
    {
        adopt(*camera->Features());
    }

    Transactions wire() const override
    {
        const ZalCPP::WireCounts counts = camera->Counts();
        return {counts.reads, counts.writes};
    }

    // Any write does it; this one changes nothing.
    void endMoment() override
    {
        if (camera->FindFeature("UserOutputSelector")->SetStringValue("UserOutput0") != 0)
            std::abort();
    }

private:
    const std::shared_ptr<ZalCPP::Camera> camera;
};

} // namespace

std::unique_ptr<BenchCamera> BenchCamera::fake(std::size_t featureCount)
{
    return std::make_unique<FakeBenchCamera>(featureCount);
}

std::unique_ptr<BenchCamera> BenchCamera::simulated(std::string& error)
{
    std::shared_ptr<ZalCPP::Camera> camera = Cameras::open(Cameras::Source(), error);
    return camera ? std::make_unique<SimulatedBenchCamera>(std::move(camera)) : nullptr;
}

ZalCPP::FeatureList BenchCamera::features() const
{
    return std::make_shared<std::vector<ZalCPP::FeaturePtr>>(counted.begin(), counted.end());
}

void BenchCamera::notify(const std::string& name) const
{
    for (const auto& feature : counted) {
        if (nameOf(*feature) == name)
            return feature->notify();
    }
    std::fprintf(stderr, "The camera has no feature '%s'\n", name.c_str());
    std::abort();
}

void BenchCamera::notifyObserved() const
{
    for (const auto& feature : counted) {
        if (feature->isObserved())
            feature->notify();
    }
}

void BenchCamera::adopt(const std::vector<ZalCPP::FeaturePtr>& originals)
{
    counted.reserve(originals.size());
    for (const ZalCPP::FeaturePtr& original : originals)
        counted.push_back(std::make_shared<CountedFeature>(original, callLog));
}

} // namespace Bench
