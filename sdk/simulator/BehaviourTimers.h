#pragma once

#include "sdk/simulator/Behaviour.h"

#include <array>

namespace ZalSim {

constexpr unsigned TimerCount = 2;

/// The timers: after its trigger each waits for its delay and is then active for its duration.
class BehaviourTimers : public Behaviour
{
public:
    void switchOn(Memory& memory) override;
    void run(const Step& step) override;

private:
    enum class Phase
    {
        Idle,
        Delay,
        Active,
        Completed
    };
    struct State
    {
        Phase phase = Phase::Idle;
        double phaseEnd = 0;
        bool repeating = false; ///< Its own end is its trigger.
    };

    void runTimer(const Step& step, unsigned timer);
    void takeTrigger(const Step& step, unsigned timer);
    void start(const Step& step, unsigned timer, double when);
    void advance(const Step& step, unsigned timer);
    void activate(const Step& step, unsigned timer);
    void complete(const Step& step, unsigned timer);
    void show(const Step& step, unsigned timer) const;

    std::array<State, TimerCount> m_states;
};

} // namespace ZalSim
