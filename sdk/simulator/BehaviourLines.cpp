#include "sdk/simulator/BehaviourLines.h"

#include <cmath>

namespace ZalSim {

using namespace Registers;

namespace {

enum Modes : std::uint32_t
{
    InputMode = 0,
    OutputMode = 1
};
enum Formats : std::uint32_t
{
    Ttl = 1,
    OptoCoupled = 2
};
enum DebounceModes : std::uint32_t
{
    Off = 0,
    Deglitch = 1,
    Debounce = 2
};

// How long an input that nobody drives stays at each level, in microseconds; 0 is for lines that
// have nothing connected.
constexpr std::array<double, LineCount> ToggleTimes = {1000000, 1500000, 0, 0};

Address lineRegister(unsigned line, Address offset)
{
    return Line + line * BlockSize + offset;
}

bool isOutput(const Step& step, unsigned line)
{
    return step.memory.read(lineRegister(line, LineBlock::Mode)) == OutputMode;
}

} // namespace

void BehaviourLines::switchOn(Memory& memory)
{
    constexpr std::array<std::uint32_t, LineCount> modes = {InputMode, InputMode, OutputMode,
                                                            OutputMode};
    constexpr std::array<std::uint32_t, LineCount> formats = {OptoCoupled, OptoCoupled, Ttl,
                                                              OptoCoupled};
    for (unsigned line = 0; line < LineCount; ++line) {
        memory.write(lineRegister(line, LineBlock::Mode), modes[line]);
        memory.write(lineRegister(line, LineBlock::Format), formats[line]);
        memory.writeDouble(lineRegister(line, LineBlock::DebounceDuration), 8);
    }
    memory.write(lineRegister(2, LineBlock::Source), SignalExposureActive);
}

void BehaviourLines::drive(unsigned line, bool high)
{
    if (line < LineCount)
        m_inputs[line].driven = high;
}

bool BehaviourLines::outsideLevel(unsigned line, double now) const
{
    if (m_inputs[line].driven)
        return *m_inputs[line].driven;
    const double time = ToggleTimes[line];
    return time > 0 && std::fmod(std::floor(now / time), 2.0) != 0.0;
}

bool BehaviourLines::debounced(const Step& step, unsigned line)
{
    Input& input = m_inputs[line];
    const bool outside = outsideLevel(line, step.now);
    const double duration = step.memory.readDouble(lineRegister(line, LineBlock::DebounceDuration));
    const bool settled = step.now - input.changedAt >= duration;
    const std::uint32_t mode = step.memory.read(lineRegister(line, LineBlock::DebounceMode));
    if (mode == Debounce) {
        if (outside != input.accepted && settled) {
            input.accepted = outside;
            input.changedAt = step.now;
        }
    } else if (outside != input.candidate) {
        input.candidate = outside;
        input.changedAt = step.now;
    } else if (settled) {
        input.accepted = outside;
    }
    if (mode == Off)
        input.accepted = outside;
    return input.accepted;
}

bool BehaviourLines::statusOf(const Step& step, unsigned line)
{
    const bool inverted = step.memory.read(lineRegister(line, LineBlock::Inverter)) != 0;
    const bool input = debounced(step, line);
    if (!isOutput(step, line))
        return input != inverted;
    return step.bus.level(step.memory.read(lineRegister(line, LineBlock::Source))) != inverted;
}

// Pulses that are shorter than a step leave no trace in the level, but they are on the wire.
void BehaviourLines::passPulses(const Step& step, unsigned line) const
{
    if (!isOutput(step, line))
        return;
    const std::uint32_t source = step.memory.read(lineRegister(line, LineBlock::Source));
    step.bus.pulse(SignalLine0 + line, step.bus.pulses(source));
}

void BehaviourLines::run(const Step& step)
{
    std::uint32_t all = 0;
    for (unsigned line = 0; line < LineCount; ++line) {
        const bool status = statusOf(step, line);
        step.bus.setLevel(SignalLine0 + line, status);
        passPulses(step, line);
        step.memory.write(lineRegister(line, LineBlock::Status), status ? 1 : 0);
        all |= (status ? 1U : 0U) << line;
    }
    step.memory.write(LineStatusAll, all);
}

} // namespace ZalSim
