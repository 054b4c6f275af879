#pragma once

#include "sdk/simulator/TriggerInput.h"

namespace ZalSim {

/// Acquisition, triggers, exposure and the frames that come of them.
class BehaviourAcquisition : public Behaviour
{
public:
    BehaviourAcquisition();

    void switchOn(Memory& memory) override;
    void run(const Step& step) override;

private:
    void releaseWhenAlone(Memory& memory) const;
    void begin(const Step& step);
    void end(const Step& step);
    void takeTriggers(const Step& step);
    void startExposure(const Step& step);
    void expose(const Step& step);
    bool wantsFrame(const Step& step);
    bool isGateOpen(const Step& step) const;
    void endExposure(const Step& step);
    bool isExposureOver(const Step& step) const;
    void deliver(const Step& step);
    void showSignals(const Step& step) const;

    TriggerInput m_acquisitionTrigger;
    TriggerInput m_frameTrigger;
    TriggerInput m_burstTrigger;

    bool m_acquiring = false;
    bool m_acquisitionTriggered = false;
    bool m_exposing = false;
    bool m_endless = true;
    unsigned m_framesLeft = 0;
    unsigned m_burstFramesLeft = 0;
    unsigned m_waitingTriggers = 0;
    unsigned m_framesToSend = 0;
    double m_exposureStart = 0;
    double m_nextFrame = 0;
};

} // namespace ZalSim
