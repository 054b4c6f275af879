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
    void switchOn(Memory& memory) override;
    void run(const Step& step) override;

    /// From now on the line's input has this level instead of toggling by itself.
    void drive(unsigned line, bool high);

private:
    struct Input
    {
        std::optional<bool> driven;
        bool accepted = false;
        bool candidate = false;
        double changedAt = 0;
    };

    bool outsideLevel(unsigned line, double now) const;
    bool debounced(const Step& step, unsigned line);
    bool statusOf(const Step& step, unsigned line);
    void passPulses(const Step& step, unsigned line) const;

    std::array<Input, LineCount> m_inputs;
};

} // namespace ZalSim
