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

// A host can write any number into the registers.
constexpr std::int64_t DurationMax = 0xffffffff;

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

// A counter that its own end resets divides its events.
bool IsDivider(const Step& step, unsigned counter)
{
    return step.memory.Read(CounterRegister(counter, CounterBlock::ResetSource)) ==
               SignalCounter0End + counter &&
           IsOff(step, counter, CounterBlock::TriggerSource);
}

std::int64_t Duration(const Step& step, unsigned counter)
{
    return std::clamp<std::int64_t>(
        step.memory.ReadLong(CounterRegister(counter, CounterBlock::Duration)), 1, DurationMax);
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
    if (Status(step, counter) == Active)
        Count(step, counter);
    const std::uint32_t status = Status(step, counter);
    step.memory.Write(CounterRegister(counter, CounterBlock::Status), status);
    step.bus.SetLevel(SignalCounter0Active + counter, status == Active);
}

bool BehaviourCounters::IsReset(const Step& step, unsigned counter) const
{
    const bool commanded = step.memory.TakeCommand(CounterRegister(counter, CounterBlock::Reset));
    // A divider has gone on already when the edge of its end arrives.
    if (IsDivider(step, counter))
        return commanded || states[counter].completed;
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
    const Address status = CounterRegister(counter, CounterBlock::Status);
    if (step.memory.Read(status) != Active)
        step.bus.Pulse(SignalCounter0Start + counter);
    const std::int64_t events =
        Edges(step, counter, CounterBlock::EventSource, CounterBlock::EventActivation);
    if (IsDivider(step, counter))
        Divide(step, counter, events);
    else
        Add(step, counter, events);
}

void BehaviourCounters::Add(const Step& step, unsigned counter, std::int64_t events)
{
    const Address value = CounterRegister(counter, CounterBlock::Value);
    const std::int64_t duration = Duration(step, counter);
    const std::int64_t before = step.memory.ReadLong(value);
    const std::int64_t after =
        std::max(before, std::min(std::min(before, duration) + events, duration));
    if (after != before)
        step.memory.WriteLong(value, after);
    states[counter].completed = after >= duration;
    if (states[counter].completed)
        step.bus.Pulse(SignalCounter0End + counter);
}

// Several turns may lie within one step, and no event is lost between them.
void BehaviourCounters::Divide(const Step& step, unsigned counter, std::int64_t events)
{
    const Address value = CounterRegister(counter, CounterBlock::Value);
    const std::int64_t duration = Duration(step, counter);
    const std::int64_t before = step.memory.ReadLong(value);
    const std::int64_t total = std::clamp<std::int64_t>(before, 0, duration) + events;
    const auto turns = static_cast<unsigned>(total / duration);
    if (total != before)
        step.memory.WriteLong(value, total % duration);
    if (turns == 0)
        return;
    step.memory.WriteLong(CounterRegister(counter, CounterBlock::ValueAtReset), duration);
    step.bus.SetLevel(SignalCounter0Active + counter, false);
    step.bus.Pulse(SignalCounter0End + counter, turns);
    step.bus.Pulse(SignalCounter0Start + counter, turns);
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
