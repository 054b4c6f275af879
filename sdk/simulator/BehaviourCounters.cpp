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

Address counterRegister(unsigned counter, Address offset)
{
    return Counter + counter * BlockSize + offset;
}

unsigned edges(const Step& step, unsigned counter, Address source, Address activation)
{
    return step.bus.edges(step.memory.read(counterRegister(counter, source)),
                          step.memory.read(counterRegister(counter, activation)));
}

bool isOff(const Step& step, unsigned counter, Address source)
{
    return step.memory.read(counterRegister(counter, source)) == SignalOff;
}

// A counter that its own end resets divides its events.
bool isDivider(const Step& step, unsigned counter)
{
    return step.memory.read(counterRegister(counter, CounterBlock::ResetSource)) ==
               SignalCounter0End + counter &&
           isOff(step, counter, CounterBlock::TriggerSource);
}

std::int64_t durationOf(const Step& step, unsigned counter)
{
    return std::clamp<std::int64_t>(
        step.memory.readLong(counterRegister(counter, CounterBlock::Duration)), 1, DurationMax);
}

} // namespace

void BehaviourCounters::switchOn(Memory& memory)
{
    for (unsigned counter = 0; counter < CounterCount; ++counter)
        memory.writeLong(counterRegister(counter, CounterBlock::Duration), 1000);
}

void BehaviourCounters::run(const Step& step)
{
    for (unsigned counter = 0; counter < CounterCount; ++counter)
        runCounter(step, counter);
}

void BehaviourCounters::runCounter(const Step& step, unsigned counter)
{
    if (isReset(step, counter))
        reset(step, counter);
    takeTrigger(step, counter);
    if (statusOf(step, counter) == Active)
        count(step, counter);
    const std::uint32_t status = statusOf(step, counter);
    step.memory.write(counterRegister(counter, CounterBlock::Status), status);
    step.bus.setLevel(SignalCounter0Active + counter, status == Active);
}

bool BehaviourCounters::isReset(const Step& step, unsigned counter) const
{
    const bool commanded = step.memory.takeCommand(counterRegister(counter, CounterBlock::Reset));
    // A divider has gone on already when the edge of its end arrives.
    if (isDivider(step, counter))
        return commanded || m_states[counter].completed;
    return commanded ||
           edges(step, counter, CounterBlock::ResetSource, CounterBlock::ResetActivation) > 0;
}

void BehaviourCounters::reset(const Step& step, unsigned counter)
{
    const Address value = counterRegister(counter, CounterBlock::Value);
    step.memory.writeLong(counterRegister(counter, CounterBlock::ValueAtReset),
                          step.memory.readLong(value));
    step.memory.writeLong(value, 0);
    m_states[counter] = {};
}

// A trigger starts a waiting counter and, from zero, a completed one.
void BehaviourCounters::takeTrigger(const Step& step, unsigned counter)
{
    State& state = m_states[counter];
    const unsigned triggers =
        edges(step, counter, CounterBlock::TriggerSource, CounterBlock::TriggerActivation);
    if (triggers == 0 || (state.triggered && !state.completed))
        return;
    if (state.completed)
        step.memory.writeLong(counterRegister(counter, CounterBlock::Value), 0);
    state.triggered = true;
    state.completed = false;
}

void BehaviourCounters::count(const Step& step, unsigned counter)
{
    const Address status = counterRegister(counter, CounterBlock::Status);
    if (step.memory.read(status) != Active)
        step.bus.pulse(SignalCounter0Start + counter);
    const std::int64_t events =
        edges(step, counter, CounterBlock::EventSource, CounterBlock::EventActivation);
    if (isDivider(step, counter))
        divide(step, counter, events);
    else
        add(step, counter, events);
}

void BehaviourCounters::add(const Step& step, unsigned counter, std::int64_t events)
{
    const Address value = counterRegister(counter, CounterBlock::Value);
    const std::int64_t duration = durationOf(step, counter);
    const std::int64_t before = step.memory.readLong(value);
    const std::int64_t after =
        std::max(before, std::min(std::min(before, duration) + events, duration));
    if (after != before)
        step.memory.writeLong(value, after);
    m_states[counter].completed = after >= duration;
    if (m_states[counter].completed)
        step.bus.pulse(SignalCounter0End + counter);
}

// Several turns may lie within one step, and no event is lost between them.
void BehaviourCounters::divide(const Step& step, unsigned counter, std::int64_t events)
{
    const Address value = counterRegister(counter, CounterBlock::Value);
    const std::int64_t duration = durationOf(step, counter);
    const std::int64_t before = step.memory.readLong(value);
    const std::int64_t total = std::clamp<std::int64_t>(before, 0, duration) + events;
    const auto turns = static_cast<unsigned>(total / duration);
    if (total != before)
        step.memory.writeLong(value, total % duration);
    if (turns == 0)
        return;
    step.memory.writeLong(counterRegister(counter, CounterBlock::ValueAtReset), duration);
    step.bus.setLevel(SignalCounter0Active + counter, false);
    step.bus.pulse(SignalCounter0End + counter, turns);
    step.bus.pulse(SignalCounter0Start + counter, turns);
}

std::uint32_t BehaviourCounters::statusOf(const Step& step, unsigned counter) const
{
    if (m_states[counter].completed)
        return Completed;
    if (isOff(step, counter, CounterBlock::EventSource))
        return Idle;
    if (!isOff(step, counter, CounterBlock::TriggerSource) && !m_states[counter].triggered)
        return TriggerWait;
    return Active;
}

} // namespace ZalSim
