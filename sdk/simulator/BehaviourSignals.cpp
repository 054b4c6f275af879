#include "sdk/simulator/BehaviourSignals.h"

namespace ZalSim {

using namespace Registers;

namespace {

constexpr unsigned SoftwareSignalCount = 2;
constexpr unsigned UserOutputCount = 2;
constexpr unsigned ActionCount = 2;

// An action fires when the keys are the same and the masks have a bit in common.
bool IsMeant(const Memory& memory, unsigned action, std::uint32_t groupKey, std::uint32_t groupMask)
{
    return memory.Read(ActionGroupKey + action * ActionStride) == groupKey &&
           (memory.Read(ActionGroupMask + action * ActionStride) & groupMask) != 0;
}

} // namespace

void BehaviourSignals::SwitchOn(Memory& memory)
{
    memory.Write(ActionQueueSize, 1);
}

void BehaviourSignals::Command(std::uint32_t deviceKey, std::uint32_t groupKey,
                               std::uint32_t groupMask)
{
    commands.push_back({deviceKey, groupKey, groupMask});
}

void BehaviourSignals::Run(const Step& step)
{
    for (unsigned signal = 0; signal < SoftwareSignalCount; ++signal) {
        if (step.memory.TakeCommand(SoftwareSignalPulse + signal * 4))
            step.bus.Pulse(SignalSoftwareSignal0 + signal);
    }
    for (unsigned output = 0; output < UserOutputCount; ++output)
        step.bus.SetLevel(SignalUserOutput0 + output,
                          step.memory.Read(UserOutputValue + output * 4) != 0);
    for (const ActionCommand& command : commands)
        Execute(step, command);
    commands.clear();
}

void BehaviourSignals::Execute(const Step& step, const ActionCommand& command) const
{
    const bool controlled = step.memory.Read(ControlPrivilege) != 0;
    if (!controlled && step.memory.Read(ActionUnconditionalMode) == 0)
        return;
    if (command.deviceKey != step.memory.Read(ActionDeviceKey))
        return;
    for (unsigned action = 0; action < ActionCount; ++action) {
        if (IsMeant(step.memory, action, command.groupKey, command.groupMask))
            step.bus.Pulse(SignalAction0 + action);
    }
}

} // namespace ZalSim
