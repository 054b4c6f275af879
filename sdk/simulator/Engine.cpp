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

Engine::Engine(const Memory& memory, const Model& model) : m_memory(memory)
{
    auto ownLines = std::make_unique<BehaviourLines>();
    auto ownSignals = std::make_unique<BehaviourSignals>();
    m_lines = ownLines.get();
    m_hostSignals = ownSignals.get();
    m_behaviours.push_back(std::make_unique<BehaviourDevice>(model));
    m_behaviours.push_back(std::make_unique<BehaviourAcquisition>());
    m_behaviours.push_back(std::move(ownLines));
    m_behaviours.push_back(std::move(ownSignals));
    m_behaviours.push_back(std::make_unique<BehaviourCounters>());
    m_behaviours.push_back(std::make_unique<BehaviourTimers>());
    m_behaviours.push_back(std::make_unique<BehaviourClock>());
    for (const auto& behaviour : m_behaviours)
        behaviour->switchOn(m_memory);
    m_thread = std::thread(&Engine::loop, this);
}

Engine::~Engine()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_stopping = true;
    }
    m_wake.notify_all();
    m_thread.join();
}

void Engine::loop()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    Clock::time_point last = Clock::now();
    while (!m_wake.wait_until(lock, last + StepTime, [this] { return m_stopping; })) {
        const Clock::time_point time = Clock::now();
        runStep(std::min(Microseconds(time - last).count(), ElapsedMax));
        last = time;
        ++m_steps;
        m_stepped.notify_all();
    }
}

void Engine::runStep(double elapsed)
{
    m_now += elapsed;
    const Step step{m_memory, m_bus, m_now};
    for (const auto& behaviour : m_behaviours)
        behaviour->run(step);
    m_bus.publish();
}

// One step takes the change in, the next one shows it to everybody.
void Engine::apply(const std::function<void()>& change)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    change();
    const std::uint64_t seen = m_steps + 2;
    m_stepped.wait(lock, [&] { return m_steps >= seen; });
}

void Engine::driveLine(unsigned line, bool high)
{
    apply([&] { m_lines->drive(line, high); });
}

void Engine::commandAction(std::uint32_t deviceKey, std::uint32_t groupKey, std::uint32_t groupMask)
{
    apply([&] { m_hostSignals->command(deviceKey, groupKey, groupMask); });
}

} // namespace ZalSim
