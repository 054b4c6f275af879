#include "sdk/simulator/TriggerInput.h"

namespace ZalSim {

namespace {
// A delayed trigger waits here; a signal that is faster than the delay lasts must not pile up.
constexpr std::size_t DelayedTriggersMax = 64;
} // namespace

using namespace Registers;

TriggerInput::TriggerInput(std::uint32_t selector) : block(Trigger + selector * BlockSize) {}

void TriggerInput::SwitchOn(Memory& memory) const
{
    memory.Write(Register(TriggerBlock::Mode), 0);
    memory.Write(Register(TriggerBlock::Source), SignalSoftware);
    memory.Write(Register(TriggerBlock::Activation), RisingEdge);
    memory.WriteDouble(Register(TriggerBlock::Delay), 0);
}

bool TriggerInput::IsOn(const Memory& memory) const
{
    return memory.Read(Register(TriggerBlock::Mode)) != 0;
}

bool TriggerInput::IsSoftware(const Memory& memory) const
{
    return memory.Read(Register(TriggerBlock::Source)) == SignalSoftware;
}

unsigned TriggerInput::Arrived(const Step& step) const
{
    // The command is taken even if the source is another one, so that it cannot fire later.
    const bool commanded = step.memory.TakeCommand(Register(TriggerBlock::Software));
    if (!IsOn(step.memory))
        return 0;
    if (IsSoftware(step.memory))
        return commanded ? 1 : 0;
    return step.bus.Edges(step.memory.Read(Register(TriggerBlock::Source)),
                          step.memory.Read(Register(TriggerBlock::Activation)));
}

unsigned TriggerInput::Take(const Step& step)
{
    const double delay = step.memory.ReadDouble(Register(TriggerBlock::Delay));
    if (!IsOn(step.memory))
        Forget();
    for (unsigned count = Arrived(step); count > 0 && due.size() < DelayedTriggersMax; --count)
        due.push_back(step.now + delay);
    unsigned taken = 0;
    for (; !due.empty() && due.front() <= step.now; ++taken)
        due.pop_front();
    return taken;
}

bool TriggerInput::IsHeld(const Step& step) const
{
    const std::uint32_t activation = step.memory.Read(Register(TriggerBlock::Activation));
    if (activation != LevelHigh && activation != LevelLow)
        return false;
    return !IsSoftware(step.memory) && IsSourceActive(step);
}

bool TriggerInput::IsSourceActive(const Step& step) const
{
    const std::uint32_t activation = step.memory.Read(Register(TriggerBlock::Activation));
    const bool level = step.bus.Level(step.memory.Read(Register(TriggerBlock::Source)));
    return activation == FallingEdge || activation == LevelLow ? !level : level;
}

} // namespace ZalSim
