#include "sdk/simulator/TriggerInput.h"

namespace ZalSim {

namespace {
// A delayed trigger waits here; a signal that is faster than the delay lasts must not pile up.
constexpr std::size_t DelayedTriggersMax = 64;
} // namespace

using namespace Registers;

TriggerInput::TriggerInput(std::uint32_t selector) : m_block(Trigger + selector * BlockSize) {}

void TriggerInput::switchOn(Memory& memory) const
{
    memory.write(registerAt(TriggerBlock::Mode), 0);
    memory.write(registerAt(TriggerBlock::Source), SignalSoftware);
    memory.write(registerAt(TriggerBlock::Activation), RisingEdge);
    memory.writeDouble(registerAt(TriggerBlock::Delay), 0);
}

bool TriggerInput::isOn(const Memory& memory) const
{
    return memory.read(registerAt(TriggerBlock::Mode)) != 0;
}

bool TriggerInput::isSoftware(const Memory& memory) const
{
    return memory.read(registerAt(TriggerBlock::Source)) == SignalSoftware;
}

unsigned TriggerInput::arrived(const Step& step) const
{
    // The command is taken even if the source is another one, so that it cannot fire later.
    const bool commanded = step.memory.takeCommand(registerAt(TriggerBlock::Software));
    if (!isOn(step.memory))
        return 0;
    if (isSoftware(step.memory))
        return commanded ? 1 : 0;
    return step.bus.edges(step.memory.read(registerAt(TriggerBlock::Source)),
                          step.memory.read(registerAt(TriggerBlock::Activation)));
}

unsigned TriggerInput::take(const Step& step)
{
    const double delay = step.memory.readDouble(registerAt(TriggerBlock::Delay));
    if (!isOn(step.memory))
        forget();
    for (unsigned count = arrived(step); count > 0 && m_due.size() < DelayedTriggersMax; --count)
        m_due.push_back(step.now + delay);
    unsigned taken = 0;
    for (; !m_due.empty() && m_due.front() <= step.now; ++taken)
        m_due.pop_front();
    return taken;
}

bool TriggerInput::isHeld(const Step& step) const
{
    const std::uint32_t activation = step.memory.read(registerAt(TriggerBlock::Activation));
    if (activation != LevelHigh && activation != LevelLow)
        return false;
    return !isSoftware(step.memory) && isSourceActive(step);
}

bool TriggerInput::isSourceActive(const Step& step) const
{
    const std::uint32_t activation = step.memory.read(registerAt(TriggerBlock::Activation));
    const bool level = step.bus.level(step.memory.read(registerAt(TriggerBlock::Source)));
    return activation == FallingEdge || activation == LevelLow ? !level : level;
}

} // namespace ZalSim
