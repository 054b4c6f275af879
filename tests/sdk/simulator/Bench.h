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
    template <typename... Behaviours> void step(Behaviours&... behaviours)
    {
        m_now += StepTime;
        const ZalSim::Step step{m_memory, m_bus, m_now};
        (behaviours.run(step), ...);
        m_bus.publish();
        takeFrames();
    }

    template <typename... Behaviours> void steps(int count, Behaviours&... behaviours)
    {
        for (int i = 0; i < count; ++i)
            step(behaviours...);
    }

    /// A pulse that the behaviours see in the next step.
    void pulse(std::uint32_t signal, unsigned count = 1);
    void setLevel(std::uint32_t signal, bool high);

    bool level(std::uint32_t signal) const { return m_bus.level(signal); }

    ZalSim::Memory& registers() { return m_memory; }
    ZalSim::Signals& allSignals() { return m_bus; }
    unsigned framesSent() const { return m_frames; }

    /// While true the network is busy and takes no frame.
    void holdFrames(bool hold) { m_holding = hold; }

private:
    void takeFrames();

    _ArvFakeCamera* m_device;
    ZalSim::Memory m_memory;
    ZalSim::Signals m_bus;
    double m_now = 0;
    unsigned m_frames = 0;
    bool m_holding = false;
};

/// A bench with one behaviour on it, which is switched on.
template <typename Subject> class BenchOf : public Bench
{
public:
    BenchOf() { subject.switchOn(registers()); }

    template <typename... Others> void step(Others&... others) { Bench::step(subject, others...); }
    template <typename... Others> void steps(int count, Others&... others)
    {
        Bench::steps(count, subject, others...);
    }

    Subject subject;
};
