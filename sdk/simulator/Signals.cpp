#include "sdk/simulator/Signals.h"

#include <algorithm>

namespace ZalSim {

// Register contents come from the network, so an index is never trusted.
bool Signals::level(std::uint32_t signal) const
{
    return signal < SignalCount && m_current[signal].level;
}

unsigned Signals::edges(std::uint32_t signal, std::uint32_t activation) const
{
    if (signal >= SignalCount)
        return 0;
    const State& state = m_current[signal];
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

unsigned Signals::pulses(std::uint32_t signal) const
{
    return std::min(edges(signal, RisingEdge), edges(signal, FallingEdge));
}

void Signals::setLevel(std::uint32_t signal, bool high)
{
    State& state = m_next[signal];
    if (state.level == high)
        return;
    state.level = high;
    ++(high ? state.rises : state.falls);
}

void Signals::pulse(std::uint32_t signal, unsigned count)
{
    m_next[signal].rises += count;
    m_next[signal].falls += count;
}

void Signals::publish()
{
    m_current = m_next;
    for (State& state : m_next) {
        state.rises = 0;
        state.falls = 0;
    }
}

} // namespace ZalSim
