#pragma once

#include "sdk/simulator/Behaviour.h"

namespace ZalSim {

/// The camera's time: the timestamp latch and the precision time protocol.
class BehaviourClock : public Behaviour
{
public:
    void switchOn(Memory& memory) override;
    void run(const Step& step) override;

private:
    void followSettings(const Step& step);
    std::uint32_t ptpState(const Step& step) const;
    void latchPtp(const Step& step) const;

    bool m_enabled = false;
    std::uint32_t m_mode = 0;
    double m_enabledAt = 0;
};

} // namespace ZalSim
