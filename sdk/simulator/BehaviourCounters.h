#pragma once

#include "sdk/simulator/Behaviour.h"

#include <array>

namespace ZalSim {

constexpr unsigned CounterCount = 2;

/// The counters: each counts its events until its duration is reached.
class BehaviourCounters : public Behaviour
{
public:
    void SwitchOn(Memory& memory) override;
    void Run(const Step& step) override;

private:
    struct State
    {
        bool triggered = false; ///< Has been started since it was reset or completed.
        bool completed = false;
    };

    void RunCounter(const Step& step, unsigned counter);
    bool IsReset(const Step& step, unsigned counter) const;
    void Reset(const Step& step, unsigned counter);
    void TakeTrigger(const Step& step, unsigned counter);
    void Count(const Step& step, unsigned counter);
    void Add(const Step& step, unsigned counter, std::int64_t events);
    void Divide(const Step& step, unsigned counter, std::int64_t events);
    std::uint32_t Status(const Step& step, unsigned counter) const;

    std::array<State, CounterCount> states;
};

} // namespace ZalSim
