#pragma once

#include "sdk/simulator/Behaviour.h"

#include <deque>

namespace ZalSim {

/// One entry of TriggerSelector: turns its source into triggers, delayed by TriggerDelay.
class TriggerInput
{
public:
    explicit TriggerInput(std::uint32_t selector);

    void SwitchOn(Memory& memory) const;
    bool IsOn(const Memory& memory) const;

    /// The triggers that take effect in this step. Call it in every step: a trigger that nobody
    /// waits for is lost, not kept.
    unsigned Take(const Step& step);

    /// Whether a level activation holds the trigger on.
    bool IsHeld(const Step& step) const;
    /// Whether the source still has the level that the trigger began with.
    bool IsSourceActive(const Step& step) const;
    bool IsSoftware(const Memory& memory) const;

    void Forget() { due.clear(); }

private:
    std::uint32_t Register(Registers::Address offset) const { return block + offset; }
    unsigned Arrived(const Step& step) const;

    Registers::Address block;
    std::deque<double> due;
};

} // namespace ZalSim
