#include "sdk/bridge/AccessGuard.h"

#include "sdk/bridge/AravisStatus.h"
#include "sdk/bridge/CameraWorker.h"

#include <utility>

namespace ZalCPP {
namespace {

constexpr int MostFailures = 3;

void note(std::atomic<int>& failures, bool failed)
{
    failures = failed ? failures + 1 : 0;
}

} // namespace

AccessGuard::AccessGuard(std::shared_ptr<const CameraDescription> cameraDescription,
                         std::shared_ptr<RegisterTap> registerTap)
    : description(std::move(cameraDescription)), tap(std::move(registerTap)),
      reading(description->features.size()), writing(description->features.size())
{
}

bool AccessGuard::hasGivenUpReading(std::size_t feature) const
{
    return reading[feature] >= MostFailures;
}

bool AccessGuard::hasGivenUpWriting(std::size_t feature) const
{
    return writing[feature] >= MostFailures;
}

ZalErrorType AccessGuard::read(std::size_t feature, const Access& access, const Demand& demand)
{
    const FeatureDescription& facts = description->features[feature];
    const auto begun = Clock::now();
    const ReadCache::Fresh fresh(tap->cache, demand.earliest);
    if (!demand.isContinuation)
        forgetVolatile(facts);
    const ZalErrorType status = access(facts);
    const bool late = Clock::now() - begun > CameraWorker::CallTimeout;
    note(reading[feature], late || status == ZalErrorTimeout);
    return status;
}

// Where a register lies may depend on a selector. If that cannot be told, nor can the register be
// read.
void AccessGuard::forgetVolatile(const FeatureDescription& feature)
{
    for (ArvGcRegister* volatileRegister : feature.volatileRegisters) {
        AravisError error;
        const auto address = arv_gc_register_get_address(volatileRegister, error.out());
        if (error.status() == ZalErrorSuccess)
            tap->cache.forget(address);
    }
}

ZalErrorType AccessGuard::write(std::size_t feature, const Access& access)
{
    const ReadCache::Fresh fresh(tap->cache, Clock::now());
    const ZalErrorType status = access(description->features[feature]);
    note(writing[feature], status == ZalErrorTimeout);
    return status;
}

ZalErrorType AccessGuard::anew(const std::function<ZalErrorType()>& access)
{
    const ReadCache::Fresh fresh(tap->cache, Clock::now());
    return access();
}

} // namespace ZalCPP
