#include "sdk/simulator/BehaviourTimers.h"

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

// The shortest pulse in microseconds: without it a timer that starts itself would never end a step.
constexpr double PulseMin = 1;

Address timerRegister(unsigned timer, Address offset)
{
    return Registers::Timer + timer * BlockSize + offset;
}

double durationOf(const Step& step, unsigned timer)
{
    return std::max(PulseMin, step.memory.readDouble(timerRegister(timer, TimerBlock::Duration)));
}

bool isOwnTrigger(const Step& step, unsigned timer)
{
    const std::uint32_t source = step.memory.read(timerRegister(timer, TimerBlock::TriggerSource));
    return source == SignalTimer0Active + timer || source == SignalTimer0Start + timer ||
           source == SignalTimer0End + timer;
}

// Only its end can start a timer that watches itself.
bool isRepeating(const Step& step, unsigned timer)
{
    const std::uint32_t source = step.memory.read(timerRegister(timer, TimerBlock::TriggerSource));
    if (source == SignalTimer0End + timer)
        return true;
    return source == SignalTimer0Active + timer &&
           step.memory.read(timerRegister(timer, TimerBlock::TriggerActivation)) == FallingEdge;
}

bool isTriggered(const Step& step, unsigned timer)
{
    const std::uint32_t source = step.memory.read(timerRegister(timer, TimerBlock::TriggerSource));
    const std::uint32_t activation =
        step.memory.read(timerRegister(timer, TimerBlock::TriggerActivation));
    return !isOwnTrigger(step, timer) && step.bus.edges(source, activation) > 0;
}

bool hasTrigger(const Step& step, unsigned timer)
{
    return step.memory.read(timerRegister(timer, TimerBlock::TriggerSource)) != SignalOff;
}

} // namespace

void BehaviourTimers::switchOn(Memory& memory)
{
    for (unsigned timer = 0; timer < TimerCount; ++timer) {
        memory.writeDouble(timerRegister(timer, TimerBlock::Duration), 1000);
        memory.writeDouble(timerRegister(timer, TimerBlock::Delay), 0);
    }
}

void BehaviourTimers::run(const Step& step)
{
    for (unsigned timer = 0; timer < TimerCount; ++timer)
        runTimer(step, timer);
}

void BehaviourTimers::runTimer(const Step& step, unsigned timer)
{
    takeTrigger(step, timer);
    advance(step, timer);
    show(step, timer);
}

void BehaviourTimers::takeTrigger(const Step& step, unsigned timer)
{
    State& state = m_states[timer];
    if (step.memory.takeCommand(timerRegister(timer, TimerBlock::Reset))) {
        start(step, timer, step.now);
        return;
    }
    // A timer that is told to watch itself has no first end to wait for: it starts at once.
    const bool repeating = isRepeating(step, timer);
    const bool beginsToRepeat = repeating && !state.repeating;
    state.repeating = repeating;
    const bool running = state.phase == Phase::Delay || state.phase == Phase::Active;
    if (!running && (beginsToRepeat || isTriggered(step, timer)))
        start(step, timer, step.now);
}

void BehaviourTimers::start(const Step& step, unsigned timer, double when)
{
    const double delay = step.memory.readDouble(timerRegister(timer, TimerBlock::Delay));
    step.bus.setLevel(SignalTimer0Active + timer, false);
    m_states[timer].phase = Phase::Delay;
    m_states[timer].phaseEnd = when + std::max(0.0, delay);
}

// Several pulses may lie within one step, so the phases are walked by their own times.
void BehaviourTimers::advance(const Step& step, unsigned timer)
{
    State& state = m_states[timer];
    while (state.phaseEnd <= step.now) {
        if (state.phase == Phase::Delay)
            activate(step, timer);
        else if (state.phase == Phase::Active)
            complete(step, timer);
        else
            return;
    }
}

void BehaviourTimers::activate(const Step& step, unsigned timer)
{
    State& state = m_states[timer];
    state.phase = Phase::Active;
    state.phaseEnd += durationOf(step, timer);
    step.bus.setLevel(SignalTimer0Active + timer, true);
    step.bus.pulse(SignalTimer0Start + timer);
}

void BehaviourTimers::complete(const Step& step, unsigned timer)
{
    State& state = m_states[timer];
    step.bus.setLevel(SignalTimer0Active + timer, false);
    step.bus.pulse(SignalTimer0End + timer);
    if (state.repeating)
        start(step, timer, state.phaseEnd);
    else
        state.phase = Phase::Completed;
}

void BehaviourTimers::show(const Step& step, unsigned timer) const
{
    const State& state = m_states[timer];
    std::uint32_t status = Idle;
    if (state.phase == Phase::Active)
        status = Active;
    else if (state.phase == Phase::Completed)
        status = Completed;
    else if (state.phase == Phase::Delay || hasTrigger(step, timer))
        status = TriggerWait;
    step.memory.write(timerRegister(timer, TimerBlock::Status), status);
    const double begin = state.phaseEnd - durationOf(step, timer);
    step.memory.writeDouble(timerRegister(timer, TimerBlock::Value),
                            status == Active ? step.now - begin : 0);
}

} // namespace ZalSim
