#pragma once

#include "bench/BenchCamera.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>
#include <functional>

namespace Bench {

/// Measures one operation again and again: its time, SDK calls and wire transactions.
///
/// Of the times the smallest counts: whatever else the machine does can only add to it. Calls and
/// transactions are the means of all runs.
class Meter
{
public:
    Meter(benchmark::State& benchmarkState, BenchCamera& measuredCamera)
        : state(benchmarkState), camera(measuredCamera)
    {
    }

    void measure(const std::function<void()>& operation);
    void reportSdkCalls() const;
    void reportTimeAndWire() const;

private:
    static benchmark::Counter mean(std::uint64_t total);

    benchmark::State& state;
    BenchCamera& camera;
    std::chrono::duration<double, std::micro> fastest =
        std::chrono::duration<double, std::micro>::max();
    std::uint64_t sdkCalls = 0;
    Transactions transactions;
};

} // namespace Bench
