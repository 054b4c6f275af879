#pragma once

#include "sdk/simulator/Behaviour.h"

#include <array>
#include <optional>

namespace ZalSim {

constexpr unsigned LineCount = 4;

/// The digital lines. Inputs follow the outside world, outputs their source.
class BehaviourLines : public Behaviour
{
public:
    void SwitchOn(Memory& memory) override;
    void Run(const Step& step) override;

    /// From now on the line's input has this level instead of toggling by itself.
    void Drive(unsigned line, bool high);

private:
    struct Input
    {
        std::optional<bool> driven;
        bool accepted = false;
        bool candidate = false;
        double changedAt = 0;
    };

    bool Outside(unsigned line, double now) const;
    bool Debounced(const Step& step, unsigned line);
    bool Status(const Step& step, unsigned line);
    void PassPulses(const Step& step, unsigned line) const;

    std::array<Input, LineCount> inputs;
};

} // namespace ZalSim
