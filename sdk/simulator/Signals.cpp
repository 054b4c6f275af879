#include "sdk/simulator/Signals.h"

#include <algorithm>

namespace ZalSim {

// Register contents come from the network, so an index is never trusted.
bool Signals::Level(std::uint32_t signal) const
{
    return signal < SignalCount && current[signal].level;
}

unsigned Signals::Edges(std::uint32_t signal, std::uint32_t activation) const
{
    if (signal >= SignalCount)
        return 0;
    const State& state = current[signal];
    switch (activation) {
    case RisingEdge:
        return state.rises;
    case FallingEdge:
        return state.falls;
    case AnyEdge:
        return state.rises + state.falls;
    default:
        return 0;
    }
}

unsigned Signals::Pulses(std::uint32_t signal) const
{
    return std::min(Edges(signal, RisingEdge), Edges(signal, FallingEdge));
}

void Signals::SetLevel(std::uint32_t signal, bool high)
{
    State& state = next[signal];
    if (state.level == high)
        return;
    state.level = high;
    ++(high ? state.rises : state.falls);
}

void Signals::Pulse(std::uint32_t signal, unsigned count)
{
    next[signal].rises += count;
    next[signal].falls += count;
}

void Signals::Publish()
{
    current = next;
    for (State& state : next) {
        state.rises = 0;
        state.falls = 0;
    }
}

} // namespace ZalSim
