#include "sdk/simulator/BehaviourSignals.h"

namespace ZalSim {

using namespace Registers;

namespace {

constexpr unsigned SoftwareSignalCount = 2;
constexpr unsigned UserOutputCount = 2;
constexpr unsigned ActionCount = 2;

// An action fires when the keys are the same and the masks have a bit in common.
bool isMeant(const Memory& memory, unsigned action, std::uint32_t groupKey, std::uint32_t groupMask)
{
    return memory.read(ActionGroupKey + action * ActionStride) == groupKey &&
           (memory.read(ActionGroupMask + action * ActionStride) & groupMask) != 0;
}

} // namespace

void BehaviourSignals::switchOn(Memory& memory)
{
    memory.write(ActionQueueSize, 1);
}

void BehaviourSignals::command(std::uint32_t deviceKey, std::uint32_t groupKey,
                               std::uint32_t groupMask)
{
    m_commands.push_back({deviceKey, groupKey, groupMask});
}

void BehaviourSignals::run(const Step& step)
{
    for (unsigned signal = 0; signal < SoftwareSignalCount; ++signal) {
        if (step.memory.takeCommand(SoftwareSignalPulse + signal * SignalStride))
            step.bus.pulse(SignalSoftwareSignal0 + signal);
    }
    for (unsigned output = 0; output < UserOutputCount; ++output)
        step.bus.setLevel(SignalUserOutput0 + output,
                          step.memory.read(UserOutputValue + output * SignalStride) != 0);
    for (const ActionCommand& command : m_commands)
        execute(step, command);
    m_commands.clear();
}

void BehaviourSignals::execute(const Step& step, const ActionCommand& command) const
{
    const bool controlled = step.memory.read(ControlPrivilege) != 0;
    if (!controlled && step.memory.read(ActionUnconditionalMode) == 0)
        return;
    if (command.deviceKey != step.memory.read(ActionDeviceKey))
        return;
    for (unsigned action = 0; action < ActionCount; ++action) {
        if (isMeant(step.memory, action, command.groupKey, command.groupMask))
            step.bus.pulse(SignalAction0 + action);
    }
}

} // namespace ZalSim
