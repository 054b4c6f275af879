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

AccessGuard::AccessGuard(std::shared_ptr<const CameraDescription> description,
                         std::shared_ptr<RegisterTap> tap)
    : m_description(std::move(description)), m_tap(std::move(tap)),
      m_reading(m_description->features.size()), m_writing(m_description->features.size())
{
}

bool AccessGuard::hasGivenUpReading(std::size_t feature) const
{
    return m_reading[feature] >= MostFailures;
}

bool AccessGuard::hasGivenUpWriting(std::size_t feature) const
{
    return m_writing[feature] >= MostFailures;
}

ZalErrorType AccessGuard::read(std::size_t feature, const Access& access, const Demand& demand)
{
    const FeatureDescription& facts = m_description->features[feature];
    const auto begun = Clock::now();
    const ReadCache::Fresh fresh(m_tap->cache, demand.earliest);
    if (!demand.isContinuation)
        forgetVolatile(facts);
    const ZalErrorType status = access(facts);
    const bool late = Clock::now() - begun > CameraWorker::CallTimeout;
    note(m_reading[feature], late || status == ZalErrorTimeout);
    return status;
}

// Where a register lies may depend on a selector. If that cannot be found out, the register cannot
// be read either.
void AccessGuard::forgetVolatile(const FeatureDescription& feature)
{
    for (ArvGcRegister* volatileRegister : feature.volatileRegisters) {
        AravisError error;
        const auto address = arv_gc_register_get_address(volatileRegister, error.out());
        if (error.status() == ZalErrorSuccess)
            m_tap->cache.forget(address);
    }
}

ZalErrorType AccessGuard::write(std::size_t feature, const Access& access)
{
    const ReadCache::Fresh fresh(m_tap->cache, Clock::now());
    const ZalErrorType status = access(m_description->features[feature]);
    note(m_writing[feature], status == ZalErrorTimeout);
    return status;
}

ZalErrorType AccessGuard::anew(const std::function<ZalErrorType()>& access)
{
    const ReadCache::Fresh fresh(m_tap->cache, Clock::now());
    return access();
}

} // namespace ZalCPP
