#pragma once

#include "sdk/simulator/Behaviour.h"

#include <array>

namespace ZalSim {

constexpr unsigned TimerCount = 2;

/// The timers: after its trigger each waits for its delay and is then active for its duration.
class BehaviourTimers : public Behaviour
{
public:
    void SwitchOn(Memory& memory) override;
    void Run(const Step& step) override;

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

    void RunTimer(const Step& step, unsigned timer);
    void TakeTrigger(const Step& step, unsigned timer);
    void Start(const Step& step, unsigned timer, double when);
    void Advance(const Step& step, unsigned timer);
    void Activate(const Step& step, unsigned timer);
    void Complete(const Step& step, unsigned timer);
    void Show(const Step& step, unsigned timer) const;

    std::array<State, TimerCount> states;
};

} // namespace ZalSim
