#pragma once

#include "sdk/simulator/Memory.h"
#include "sdk/simulator/Signals.h"

namespace ZalSim {

/// What a behaviour sees in one step of about a millisecond.
struct Step
{
    Memory& memory;
    Signals& bus;
    double now; ///< Microseconds since the camera was switched on.
};

/// One concern of the camera's inner life. Runs on the engine's thread.
class Behaviour
{
public:
    Behaviour() = default;
    virtual ~Behaviour() = default;
    Behaviour(const Behaviour&) = delete;
    Behaviour& operator=(const Behaviour&) = delete;

    /// Writes the start values of its registers, which are all zero before.
    virtual void switchOn(Memory& memory) = 0;
    virtual void run(const Step& step) = 0;
};

} // namespace ZalSim
