#pragma once

#include "sdk/simulator/Behaviour.h"

namespace ZalSim {

/// The camera's time: the timestamp latch and the precision time protocol.
class BehaviourClock : public Behaviour
{
public:
    void SwitchOn(Memory& memory) override;
    void Run(const Step& step) override;

private:
    void FollowSettings(const Step& step);
    std::uint32_t PtpState(const Step& step) const;
    void LatchPtp(const Step& step) const;

    bool enabled = false;
    std::uint32_t mode = 0;
    double enabledAt = 0;
};

} // namespace ZalSim
