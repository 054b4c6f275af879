#pragma once

#include "sdk/simulator/Behaviour.h"

#include <vector>

namespace ZalSim {

/// Signals that come from the host: software signals, user outputs and actions.
class BehaviourSignals : public Behaviour
{
public:
    void switchOn(Memory& memory) override;
    void run(const Step& step) override;

    /// An action command as it arrives from the network.
    void command(std::uint32_t deviceKey, std::uint32_t groupKey, std::uint32_t groupMask);

private:
    struct ActionCommand
    {
        std::uint32_t deviceKey;
        std::uint32_t groupKey;
        std::uint32_t groupMask;
    };

    void execute(const Step& step, const ActionCommand& command) const;

    std::vector<ActionCommand> m_commands;
};

} // namespace ZalSim
