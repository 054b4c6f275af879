#pragma once

#include "sdk/simulator/TriggerInput.h"

namespace ZalSim {

/// Acquisition, triggers, exposure and the frames that come of them.
class BehaviourAcquisition : public Behaviour
{
public:
    BehaviourAcquisition();

    void SwitchOn(Memory& memory) override;
    void Run(const Step& step) override;

private:
    void ReleaseWhenAlone(Memory& memory) const;
    void Begin(const Step& step);
    void End(const Step& step);
    void TakeTriggers(const Step& step);
    void StartExposure(const Step& step);
    void Expose(const Step& step);
    bool WantsFrame(const Step& step);
    bool IsGateOpen(const Step& step) const;
    void EndExposure(const Step& step);
    bool IsExposureOver(const Step& step) const;
    void Deliver(const Step& step);
    void ShowSignals(const Step& step) const;

    TriggerInput acquisitionTrigger;
    TriggerInput frameTrigger;
    TriggerInput burstTrigger;

    bool acquiring = false;
    bool acquisitionTriggered = false;
    bool exposing = false;
    bool endless = true;
    unsigned framesLeft = 0;
    unsigned burstFramesLeft = 0;
    unsigned waitingTriggers = 0;
    unsigned framesToSend = 0;
    double exposureStart = 0;
    double nextFrame = 0;
};

} // namespace ZalSim
