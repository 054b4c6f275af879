#include "bench/Meter.h"

#include <algorithm>

namespace Bench {

void Meter::measure(const std::function<void()>& operation)
{
    const std::uint64_t callsBefore = camera.log().callCount();
    const Transactions before = camera.wire();

    const auto start = std::chrono::steady_clock::now();
    operation();
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;

    const Transactions after = camera.wire();
    state.SetIterationTime(elapsed.count());
    fastest = std::min<decltype(fastest)>(fastest, elapsed);
    sdkCalls += camera.log().callCount() - callsBefore;
    transactions.reads += after.reads - before.reads;
    transactions.writes += after.writes - before.writes;
}

void Meter::reportSdkCalls() const
{
    state.counters["sdk_calls"] = mean(sdkCalls);
}

void Meter::reportTimeAndWire() const
{
    state.counters["fastest_us"] = fastest.count();
    state.counters["wire_reads"] = mean(transactions.reads);
    state.counters["wire_writes"] = mean(transactions.writes);
}

benchmark::Counter Meter::mean(std::uint64_t total)
{
    return {static_cast<double>(total), benchmark::Counter::kAvgIterations};
}

} // namespace Bench
