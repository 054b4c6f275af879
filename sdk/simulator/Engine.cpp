#include "sdk/simulator/Engine.h"

#include "sdk/simulator/BehaviourAcquisition.h"
#include "sdk/simulator/BehaviourClock.h"
#include "sdk/simulator/BehaviourCounters.h"
#include "sdk/simulator/BehaviourDevice.h"
#include "sdk/simulator/BehaviourTimers.h"

#include <algorithm>
#include <chrono>

namespace ZalSim {

namespace {
using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::duration<double, std::micro>;

constexpr std::chrono::milliseconds StepTime(1);
// A process that was stopped for a while goes on where it was, it does not catch up.
constexpr double ElapsedMax = 100000;
} // namespace

Engine::Engine(const Memory& cameraMemory, const Model& model) : memory(cameraMemory)
{
    auto ownLines = std::make_unique<BehaviourLines>();
    auto ownSignals = std::make_unique<BehaviourSignals>();
    lines = ownLines.get();
    hostSignals = ownSignals.get();
    behaviours.push_back(std::make_unique<BehaviourDevice>(model));
    behaviours.push_back(std::make_unique<BehaviourAcquisition>());
    behaviours.push_back(std::move(ownLines));
    behaviours.push_back(std::move(ownSignals));
    behaviours.push_back(std::make_unique<BehaviourCounters>());
    behaviours.push_back(std::make_unique<BehaviourTimers>());
    behaviours.push_back(std::make_unique<BehaviourClock>());
    for (const auto& behaviour : behaviours)
        behaviour->SwitchOn(memory);
    thread = std::thread(&Engine::Loop, this);
}

Engine::~Engine()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        stopping = true;
    }
    wake.notify_all();
    thread.join();
}

void Engine::Loop()
{
    std::unique_lock<std::mutex> lock(mutex);
    Clock::time_point last = Clock::now();
    while (!wake.wait_until(lock, last + StepTime, [this] { return stopping; })) {
        const Clock::time_point time = Clock::now();
        RunStep(std::min(Microseconds(time - last).count(), ElapsedMax));
        last = time;
        ++steps;
        stepped.notify_all();
    }
}

void Engine::RunStep(double elapsed)
{
    now += elapsed;
    const Step step{memory, bus, now};
    for (const auto& behaviour : behaviours)
        behaviour->Run(step);
    bus.Publish();
}

// One step takes the change in, the next one shows it to everybody.
void Engine::Apply(const std::function<void()>& change)
{
    std::unique_lock<std::mutex> lock(mutex);
    change();
    const std::uint64_t seen = steps + 2;
    stepped.wait(lock, [&] { return steps >= seen; });
}

void Engine::DriveLine(unsigned line, bool high)
{
    Apply([&] { lines->Drive(line, high); });
}

void Engine::CommandAction(std::uint32_t deviceKey, std::uint32_t groupKey, std::uint32_t groupMask)
{
    Apply([&] { hostSignals->Command(deviceKey, groupKey, groupMask); });
}

} // namespace ZalSim
