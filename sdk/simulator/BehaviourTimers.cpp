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

Address TimerRegister(unsigned timer, Address offset)
{
    return Registers::Timer + timer * BlockSize + offset;
}

double Duration(const Step& step, unsigned timer)
{
    return std::max(PulseMin, step.memory.ReadDouble(TimerRegister(timer, TimerBlock::Duration)));
}

bool IsOwnTrigger(const Step& step, unsigned timer)
{
    const std::uint32_t source = step.memory.Read(TimerRegister(timer, TimerBlock::TriggerSource));
    return source == SignalTimer0Active + timer || source == SignalTimer0Start + timer ||
           source == SignalTimer0End + timer;
}

// Only its end can start a timer that watches itself.
bool IsRepeating(const Step& step, unsigned timer)
{
    const std::uint32_t source = step.memory.Read(TimerRegister(timer, TimerBlock::TriggerSource));
    if (source == SignalTimer0End + timer)
        return true;
    return source == SignalTimer0Active + timer &&
           step.memory.Read(TimerRegister(timer, TimerBlock::TriggerActivation)) == FallingEdge;
}

bool IsTriggered(const Step& step, unsigned timer)
{
    const std::uint32_t source = step.memory.Read(TimerRegister(timer, TimerBlock::TriggerSource));
    const std::uint32_t activation =
        step.memory.Read(TimerRegister(timer, TimerBlock::TriggerActivation));
    return !IsOwnTrigger(step, timer) && step.bus.Edges(source, activation) > 0;
}

bool HasTrigger(const Step& step, unsigned timer)
{
    return step.memory.Read(TimerRegister(timer, TimerBlock::TriggerSource)) != SignalOff;
}

} // namespace

void BehaviourTimers::SwitchOn(Memory& memory)
{
    for (unsigned timer = 0; timer < TimerCount; ++timer) {
        memory.WriteDouble(TimerRegister(timer, TimerBlock::Duration), 1000);
        memory.WriteDouble(TimerRegister(timer, TimerBlock::Delay), 0);
    }
}

void BehaviourTimers::Run(const Step& step)
{
    for (unsigned timer = 0; timer < TimerCount; ++timer)
        RunTimer(step, timer);
}

void BehaviourTimers::RunTimer(const Step& step, unsigned timer)
{
    TakeTrigger(step, timer);
    Advance(step, timer);
    Show(step, timer);
}

void BehaviourTimers::TakeTrigger(const Step& step, unsigned timer)
{
    State& state = states[timer];
    if (step.memory.TakeCommand(TimerRegister(timer, TimerBlock::Reset))) {
        Start(step, timer, step.now);
        return;
    }
    // A timer that is told to watch itself has no first end to wait for: it starts at once.
    const bool repeating = IsRepeating(step, timer);
    const bool beginsToRepeat = repeating && !state.repeating;
    state.repeating = repeating;
    const bool running = state.phase == Phase::Delay || state.phase == Phase::Active;
    if (!running && (beginsToRepeat || IsTriggered(step, timer)))
        Start(step, timer, step.now);
}

void BehaviourTimers::Start(const Step& step, unsigned timer, double when)
{
    const double delay = step.memory.ReadDouble(TimerRegister(timer, TimerBlock::Delay));
    step.bus.SetLevel(SignalTimer0Active + timer, false);
    states[timer].phase = Phase::Delay;
    states[timer].phaseEnd = when + std::max(0.0, delay);
}

// Several pulses may lie within one step, so the phases are walked by their own times.
void BehaviourTimers::Advance(const Step& step, unsigned timer)
{
    State& state = states[timer];
    while (state.phaseEnd <= step.now) {
        if (state.phase == Phase::Delay)
            Activate(step, timer);
        else if (state.phase == Phase::Active)
            Complete(step, timer);
        else
            return;
    }
}

void BehaviourTimers::Activate(const Step& step, unsigned timer)
{
    State& state = states[timer];
    state.phase = Phase::Active;
    state.phaseEnd += Duration(step, timer);
    step.bus.SetLevel(SignalTimer0Active + timer, true);
    step.bus.Pulse(SignalTimer0Start + timer);
}

void BehaviourTimers::Complete(const Step& step, unsigned timer)
{
    State& state = states[timer];
    step.bus.SetLevel(SignalTimer0Active + timer, false);
    step.bus.Pulse(SignalTimer0End + timer);
    if (state.repeating)
        Start(step, timer, state.phaseEnd);
    else
        state.phase = Phase::Completed;
}

void BehaviourTimers::Show(const Step& step, unsigned timer) const
{
    const State& state = states[timer];
    std::uint32_t status = Idle;
    if (state.phase == Phase::Active)
        status = Active;
    else if (state.phase == Phase::Completed)
        status = Completed;
    else if (state.phase == Phase::Delay || HasTrigger(step, timer))
        status = TriggerWait;
    step.memory.Write(TimerRegister(timer, TimerBlock::Status), status);
    const double begin = state.phaseEnd - Duration(step, timer);
    step.memory.WriteDouble(TimerRegister(timer, TimerBlock::Value),
                            status == Active ? step.now - begin : 0);
}

} // namespace ZalSim
