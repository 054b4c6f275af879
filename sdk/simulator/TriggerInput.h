#pragma once

#include "sdk/simulator/Behaviour.h"

#include <deque>

namespace ZalSim {

/// One entry of TriggerSelector: turns its source into triggers, delayed by TriggerDelay.
class TriggerInput
{
public:
    explicit TriggerInput(std::uint32_t selector);

    void switchOn(Memory& memory) const;
    bool isOn(const Memory& memory) const;

    /// The triggers that take effect in this step. Call it in every step: a trigger that nobody
    /// waits for is lost, not kept.
    unsigned take(const Step& step);

    /// Whether a level activation holds the trigger on.
    bool isHeld(const Step& step) const;
    /// Whether the source still has the level that the trigger began with.
    bool isSourceActive(const Step& step) const;
    bool isSoftware(const Memory& memory) const;

    void forget() { m_due.clear(); }

private:
    std::uint32_t registerAt(Registers::Address offset) const { return m_block + offset; }
    unsigned arrived(const Step& step) const;

    Registers::Address m_block;
    std::deque<double> m_due;
};

} // namespace ZalSim
