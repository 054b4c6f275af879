#pragma once

#include "bench/CallLog.h"
#include "bench/CountedFeature.h"

#include <ZalCPP/Feature.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace Bench {

/// Single register accesses on the wire; none for a camera without a wire.
struct Transactions
{
    std::uint64_t reads = 0;
    std::uint64_t writes = 0;
};

/// A camera whose every SDK call is counted. It must outlive all tabs that show it.
class BenchCamera
{
public:
    /// A fake camera with that many features in all: the tab's own, evenly spread among others of
    /// which the tab knows nothing.
    static std::unique_ptr<BenchCamera> fake(std::size_t featureCount);

    /// The simulated camera `full`, opened through the SDK. Null, with a sentence in `error`, when
    /// it cannot be started.
    static std::unique_ptr<BenchCamera> simulated(std::string& error);

    virtual ~BenchCamera() = default;
    virtual Transactions wire() const = 0;
    /// Ends the moment for which the SDK shares reads, so that one run does not profit from the
    /// reads of the one before.
    virtual void endMoment() = 0;

    ZalCPP::FeatureList features() const;
    CallLog& log() { return callLog; }

    /// Reports the feature as changed to its observers.
    void notify(const std::string& name) const;
    /// Reports every feature that has observers.
    void notifyObserved() const;

protected:
    /// To be called once, with the uncounted features.
    void adopt(const std::vector<ZalCPP::FeaturePtr>& originals);

private:
    CallLog callLog;
    std::vector<std::shared_ptr<CountedFeature>> counted;
};

} // namespace Bench
