#pragma once

#include "sdk/simulator/Behaviour.h"

#include <cstdint>
#include <memory>

/// A camera's memory without a network and with a clock that the test moves: behaviours run on it
/// step by step.
class Bench
{
public:
    static constexpr double StepTime = 1000; ///< Microseconds.

    Bench();
    ~Bench();

    /// One step of all behaviours given, in this order.
    template <typename... Behaviours> void Step(Behaviours&... behaviours)
    {
        now += StepTime;
        const ZalSim::Step step{memory, bus, now};
        (behaviours.Run(step), ...);
        bus.Publish();
        TakeFrames();
    }

    template <typename... Behaviours> void Steps(int count, Behaviours&... behaviours)
    {
        for (int i = 0; i < count; ++i)
            Step(behaviours...);
    }

    /// A pulse that the behaviours see in the next step.
    void Pulse(std::uint32_t signal, unsigned count = 1);
    void SetLevel(std::uint32_t signal, bool high);

    bool Level(std::uint32_t signal) const { return bus.Level(signal); }

    ZalSim::Memory& Registers() { return memory; }
    ZalSim::Signals& AllSignals() { return bus; }
    unsigned FramesSent() const { return frames; }

    /// While true the network is busy and takes no frame.
    void HoldFrames(bool hold) { holding = hold; }

private:
    void TakeFrames();

    _ArvFakeCamera* device;
    ZalSim::Memory memory;
    ZalSim::Signals bus;
    double now = 0;
    unsigned frames = 0;
    bool holding = false;
};

/// A bench with one behaviour on it, which is switched on.
template <typename Subject> class BenchOf : public Bench
{
public:
    BenchOf() { subject.SwitchOn(Registers()); }

    template <typename... Others> void Step(Others&... others) { Bench::Step(subject, others...); }
    template <typename... Others> void Steps(int count, Others&... others)
    {
        Bench::Steps(count, subject, others...);
    }

    Subject subject;
};
