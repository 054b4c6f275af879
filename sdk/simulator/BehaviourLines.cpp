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

Address LineRegister(unsigned line, Address offset)
{
    return Line + line * BlockSize + offset;
}

bool IsOutput(const Step& step, unsigned line)
{
    return step.memory.Read(LineRegister(line, LineBlock::Mode)) == OutputMode;
}

} // namespace

void BehaviourLines::SwitchOn(Memory& memory)
{
    constexpr std::array<std::uint32_t, LineCount> modes = {InputMode, InputMode, OutputMode,
                                                            OutputMode};
    constexpr std::array<std::uint32_t, LineCount> formats = {OptoCoupled, OptoCoupled, Ttl,
                                                              OptoCoupled};
    for (unsigned line = 0; line < LineCount; ++line) {
        memory.Write(LineRegister(line, LineBlock::Mode), modes[line]);
        memory.Write(LineRegister(line, LineBlock::Format), formats[line]);
        memory.WriteDouble(LineRegister(line, LineBlock::DebounceDuration), 8);
    }
    memory.Write(LineRegister(2, LineBlock::Source), SignalExposureActive);
}

void BehaviourLines::Drive(unsigned line, bool high)
{
    if (line < LineCount)
        inputs[line].driven = high;
}

bool BehaviourLines::Outside(unsigned line, double now) const
{
    if (inputs[line].driven)
        return *inputs[line].driven;
    const double time = ToggleTimes[line];
    return time > 0 && std::fmod(std::floor(now / time), 2.0) != 0.0;
}

bool BehaviourLines::Debounced(const Step& step, unsigned line)
{
    Input& input = inputs[line];
    const bool outside = Outside(line, step.now);
    const double duration = step.memory.ReadDouble(LineRegister(line, LineBlock::DebounceDuration));
    const bool settled = step.now - input.changedAt >= duration;
    const std::uint32_t mode = step.memory.Read(LineRegister(line, LineBlock::DebounceMode));
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

bool BehaviourLines::Status(const Step& step, unsigned line)
{
    const bool inverted = step.memory.Read(LineRegister(line, LineBlock::Inverter)) != 0;
    const bool input = Debounced(step, line);
    if (!IsOutput(step, line))
        return input != inverted;
    return step.bus.Level(step.memory.Read(LineRegister(line, LineBlock::Source))) != inverted;
}

// Pulses that are shorter than a step leave no trace in the level, but they are on the wire.
void BehaviourLines::PassPulses(const Step& step, unsigned line) const
{
    if (!IsOutput(step, line))
        return;
    const std::uint32_t source = step.memory.Read(LineRegister(line, LineBlock::Source));
    step.bus.Pulse(SignalLine0 + line, step.bus.Pulses(source));
}

void BehaviourLines::Run(const Step& step)
{
    std::uint32_t all = 0;
    for (unsigned line = 0; line < LineCount; ++line) {
        const bool status = Status(step, line);
        step.bus.SetLevel(SignalLine0 + line, status);
        PassPulses(step, line);
        step.memory.Write(LineRegister(line, LineBlock::Status), status ? 1 : 0);
        all |= (status ? 1U : 0U) << line;
    }
    step.memory.Write(LineStatusAll, all);
}

} // namespace ZalSim
