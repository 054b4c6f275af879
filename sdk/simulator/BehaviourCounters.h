#pragma once

#include "sdk/simulator/Behaviour.h"

#include <array>

namespace ZalSim {

constexpr unsigned CounterCount = 2;

/// The counters: each counts its events until its duration is reached.
class BehaviourCounters : public Behaviour
{
public:
    void switchOn(Memory& memory) override;
    void run(const Step& step) override;

private:
    struct State
    {
        bool triggered = false; ///< Has been started since it was reset or completed.
        bool completed = false;
    };

    void runCounter(const Step& step, unsigned counter);
    bool isReset(const Step& step, unsigned counter) const;
    void reset(const Step& step, unsigned counter);
    void takeTrigger(const Step& step, unsigned counter);
    void count(const Step& step, unsigned counter);
    void add(const Step& step, unsigned counter, std::int64_t events);
    void divide(const Step& step, unsigned counter, std::int64_t events);
    std::uint32_t statusOf(const Step& step, unsigned counter) const;

    std::array<State, CounterCount> m_states;
};

} // namespace ZalSim
