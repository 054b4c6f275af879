#pragma once

#include "sdk/simulator/BehaviourLines.h"
#include "sdk/simulator/BehaviourSignals.h"

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace ZalSim {

struct Model;

/// Brings a camera's memory to life: runs the behaviours once a millisecond on a thread of its own
/// from construction to destruction.
class Engine
{
public:
    Engine(const Memory& memory, const Model& model);
    ~Engine();
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    /// Any thread; both return after the camera has seen it.
    void driveLine(unsigned line, bool high);
    void commandAction(std::uint32_t deviceKey, std::uint32_t groupKey, std::uint32_t groupMask);

private:
    void loop();
    void runStep(double elapsed);
    void apply(const std::function<void()>& change);

    Memory m_memory;
    Signals m_bus;
    std::vector<std::unique_ptr<Behaviour>> m_behaviours;
    BehaviourLines* m_lines = nullptr;
    BehaviourSignals* m_hostSignals = nullptr;
    double m_now = 0;

    std::mutex m_mutex; ///< Guards everything above while the thread runs, and what follows.
    std::condition_variable m_wake;
    std::condition_variable m_stepped;
    std::uint64_t m_steps = 0;
    bool m_stopping = false;
    std::thread m_thread;
};

} // namespace ZalSim
