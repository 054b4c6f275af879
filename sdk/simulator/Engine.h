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
    void DriveLine(unsigned line, bool high);
    void CommandAction(std::uint32_t deviceKey, std::uint32_t groupKey, std::uint32_t groupMask);

private:
    void Loop();
    void RunStep(double elapsed);
    void Apply(const std::function<void()>& change);

    Memory memory;
    Signals bus;
    std::vector<std::unique_ptr<Behaviour>> behaviours;
    BehaviourLines* lines = nullptr;
    BehaviourSignals* hostSignals = nullptr;
    double now = 0;

    std::mutex mutex; ///< Guards everything above while the thread runs, and what follows.
    std::condition_variable wake;
    std::condition_variable stepped;
    std::uint64_t steps = 0;
    bool stopping = false;
    std::thread thread;
};

} // namespace ZalSim
