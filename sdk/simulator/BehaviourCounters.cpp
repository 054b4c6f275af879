#include "sdk/simulator/BehaviourCounters.h"

#include <algorithm>

namespace ZalSim {

using namespace Registers;

namespace {

enum Statuses : std::uint32_t
{
    Idle = 0,
    TriggerWait = 1,
    Active = 2,
    Completed = 3
};

Address CounterRegister(unsigned counter, Address offset)
{
    return Counter + counter * BlockSize + offset;
}

unsigned Edges(const Step& step, unsigned counter, Address source, Address activation)
{
    return step.bus.Edges(step.memory.Read(CounterRegister(counter, source)),
                          step.memory.Read(CounterRegister(counter, activation)));
}

bool IsOff(const Step& step, unsigned counter, Address source)
{
    return step.memory.Read(CounterRegister(counter, source)) == SignalOff;
}

} // namespace

void BehaviourCounters::SwitchOn(Memory& memory)
{
    for (unsigned counter = 0; counter < CounterCount; ++counter)
        memory.WriteLong(CounterRegister(counter, CounterBlock::Duration), 1000);
}

void BehaviourCounters::Run(const Step& step)
{
    for (unsigned counter = 0; counter < CounterCount; ++counter)
        RunCounter(step, counter);
}

void BehaviourCounters::RunCounter(const Step& step, unsigned counter)
{
    if (IsReset(step, counter))
        Reset(step, counter);
    TakeTrigger(step, counter);
    Count(step, counter);
    const std::uint32_t status = Status(step, counter);
    step.memory.Write(CounterRegister(counter, CounterBlock::Status), status);
    step.bus.SetLevel(SignalCounter0Active + counter, status == Active);
}

bool BehaviourCounters::IsReset(const Step& step, unsigned counter) const
{
    const bool commanded = step.memory.TakeCommand(CounterRegister(counter, CounterBlock::Reset));
    return commanded ||
           Edges(step, counter, CounterBlock::ResetSource, CounterBlock::ResetActivation) > 0;
}

void BehaviourCounters::Reset(const Step& step, unsigned counter)
{
    const Address value = CounterRegister(counter, CounterBlock::Value);
    step.memory.WriteLong(CounterRegister(counter, CounterBlock::ValueAtReset),
                          step.memory.ReadLong(value));
    step.memory.WriteLong(value, 0);
    states[counter] = {};
}

// A trigger starts a waiting counter and, from zero, a completed one.
void BehaviourCounters::TakeTrigger(const Step& step, unsigned counter)
{
    State& state = states[counter];
    const unsigned triggers =
        Edges(step, counter, CounterBlock::TriggerSource, CounterBlock::TriggerActivation);
    if (triggers == 0 || (state.triggered && !state.completed))
        return;
    if (state.completed)
        step.memory.WriteLong(CounterRegister(counter, CounterBlock::Value), 0);
    state.triggered = true;
    state.completed = false;
}

void BehaviourCounters::Count(const Step& step, unsigned counter)
{
    if (Status(step, counter) != Active)
        return;
    const Address value = CounterRegister(counter, CounterBlock::Value);
    const std::int64_t duration =
        step.memory.ReadLong(CounterRegister(counter, CounterBlock::Duration));
    const unsigned events =
        Edges(step, counter, CounterBlock::EventSource, CounterBlock::EventActivation);
    const std::int64_t before = step.memory.ReadLong(value);
    const std::int64_t after = std::max(before, std::min(before + events, duration));
    if (after != before)
        step.memory.WriteLong(value, after);
    states[counter].completed = after >= duration;
}

std::uint32_t BehaviourCounters::Status(const Step& step, unsigned counter) const
{
    if (states[counter].completed)
        return Completed;
    if (IsOff(step, counter, CounterBlock::EventSource))
        return Idle;
    if (!IsOff(step, counter, CounterBlock::TriggerSource) && !states[counter].triggered)
        return TriggerWait;
    return Active;
}

} // namespace ZalSim
