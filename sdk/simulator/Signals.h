#pragma once

#include <array>
#include <cstdint>

namespace ZalSim {

/// The camera's internal signals. The values are those of the source enumerations (TriggerSource,
/// LineSource, CounterEventSource, TimerTriggerSource ...) in the GenICam descriptions.
enum Signal : std::uint32_t
{
    SignalOff = 0,
    SignalSoftware = 1,
    SignalFrameTrigger = 2,
    SignalFrameStart = 3,
    SignalFrameEnd = 4,
    SignalExposureStart = 5,
    SignalExposureEnd = 6,
    SignalExposureActive = 7,
    SignalAcquisitionActive = 8,
    SignalFrameTriggerWait = 9,
    SignalLine0 = 16,
    SignalUserOutput0 = 24,
    SignalCounter0Active = 32,
    SignalCounter0Start = 34,
    SignalCounter0End = 36,
    SignalTimer0Active = 40,
    SignalTimer0Start = 42,
    SignalTimer0End = 44,
    SignalSoftwareSignal0 = 48,
    SignalAction0 = 56,
    SignalCount = 64
};

/// The values of the activation enumerations.
enum Activation : std::uint32_t
{
    RisingEdge = 0,
    FallingEdge = 1,
    AnyEdge = 2,
    LevelHigh = 3,
    LevelLow = 4
};

/// Levels and edges of all signals. What happens in one step is seen in the next one, by everybody
/// and once, so that the order in which the behaviours run does not matter.
class Signals
{
public:
    bool level(std::uint32_t signal) const;
    /// How many edges of that kind there were in the last step; a level activation has none.
    unsigned edges(std::uint32_t signal, std::uint32_t activation) const;

    /// How often it went up and down again in the last step.
    unsigned pulses(std::uint32_t signal) const;

    void setLevel(std::uint32_t signal, bool high);
    /// Up and down again, `count` times.
    void pulse(std::uint32_t signal, unsigned count = 1);

    /// Ends a step: what was set in it is what can be read now.
    void publish();

private:
    struct State
    {
        bool level = false;
        unsigned rises = 0;
        unsigned falls = 0;
    };
    using States = std::array<State, SignalCount>;

    States m_current{};
    States m_next{};
};

} // namespace ZalSim
