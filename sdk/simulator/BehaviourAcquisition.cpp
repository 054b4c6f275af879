#include "sdk/simulator/BehaviourAcquisition.h"

#include <algorithm>

namespace ZalSim {

using namespace Registers;

namespace {

enum AcquisitionModes : std::uint32_t
{
    Continuous = 1,
    SingleFrame = 2,
    MultiFrame = 3
};
enum ExposureModes : std::uint32_t
{
    Timed = 0,
    TriggerWidth = 1
};
enum Selectors : std::uint32_t
{
    AcquisitionStart = 0,
    FrameStart = 1,
    FrameBurstStart = 2
};

constexpr double FrameRateMax = 50;
// Triggers that come while the sensor is exposed wait in a short queue; more than these are lost,
// as they are in a camera.
constexpr unsigned WaitingTriggersMax = 16;

double FramePeriod(const Memory& memory)
{
    const bool fixed = memory.Read(FrameRateEnable) != 0;
    const double rate = fixed ? memory.ReadDouble(FrameRate) : FrameRateMax;
    return 1e6 / std::clamp(rate, 0.1, FrameRateMax);
}

} // namespace

BehaviourAcquisition::BehaviourAcquisition()
    : acquisitionTrigger(AcquisitionStart), frameTrigger(FrameStart), burstTrigger(FrameBurstStart)
{
}

void BehaviourAcquisition::SwitchOn(Memory& memory)
{
    // Aravis' camera sends one frame for each of its own software triggers; which these are is
    // decided here.
    memory.Write(AravisTriggerMode, 1);
    memory.Write(AravisTriggerSource, 1);
    memory.Write(AcquisitionMode, Continuous);
    memory.Write(FrameCount, 10);
    memory.Write(BurstFrameCount, 3);
    memory.Write(FrameRateEnable, 1);
    memory.WriteDouble(FrameRate, 20);
    memory.WriteDouble(ExposureTime, 10000);
    memory.Write(TriggerSelector, FrameStart);
    for (const TriggerInput* trigger : {&acquisitionTrigger, &frameTrigger, &burstTrigger})
        trigger->SwitchOn(memory);
}

void BehaviourAcquisition::Run(const Step& step)
{
    ReleaseWhenAlone(step.memory);
    const bool wanted = step.memory.Read(Acquisition) != 0;
    if (wanted && !acquiring)
        Begin(step);
    if (!wanted && acquiring)
        End(step);
    TakeTriggers(step);
    if (acquiring) {
        EndExposure(step);
        StartExposure(step);
        Deliver(step);
    }
    ShowSignals(step);
}

// A host that vanished leaves its acquisition running; the camera stops when it gives the host up.
void BehaviourAcquisition::ReleaseWhenAlone(Memory& memory) const
{
    if (memory.Read(ControlPrivilege) != 0)
        return;
    if (memory.Read(Acquisition) != 0)
        memory.Write(Acquisition, 0);
    if (memory.Read(ParamsLocked) != 0)
        memory.Write(ParamsLocked, 0);
}

void BehaviourAcquisition::Begin(const Step& step)
{
    const std::uint32_t mode = step.memory.Read(AcquisitionMode);
    acquiring = true;
    acquisitionTriggered = false;
    exposing = false;
    endless = mode != SingleFrame && mode != MultiFrame;
    framesLeft = mode == SingleFrame ? 1 : step.memory.Read(FrameCount);
    burstFramesLeft = 0;
    waitingTriggers = 0;
    framesToSend = 0;
    nextFrame = step.now;
    step.memory.Write(PictureNumber, 0);
}

void BehaviourAcquisition::End(const Step& step)
{
    acquiring = false;
    exposing = false;
    for (TriggerInput* trigger : {&acquisitionTrigger, &frameTrigger, &burstTrigger})
        trigger->Forget();
    step.memory.Write(AravisSendFrame, 0);
}

void BehaviourAcquisition::TakeTriggers(const Step& step)
{
    const unsigned acquisitions = acquisitionTrigger.Take(step);
    const unsigned bursts = burstTrigger.Take(step);
    const unsigned frames = frameTrigger.Take(step);
    if (!acquiring)
        return;
    acquisitionTriggered = acquisitionTriggered || acquisitions > 0;
    if (!burstTrigger.IsOn(step.memory))
        burstFramesLeft = 0;
    else if (bursts > 0 && burstFramesLeft == 0)
        burstFramesLeft = step.memory.Read(BurstFrameCount);
    if (!frameTrigger.IsOn(step.memory))
        waitingTriggers = 0;
    if (!IsGateOpen(step))
        return;
    waitingTriggers = std::min(waitingTriggers + frames, WaitingTriggersMax);
    step.bus.Pulse(SignalFrameTrigger, frames);
}

bool BehaviourAcquisition::IsGateOpen(const Step& step) const
{
    if (!endless && framesLeft == 0)
        return false;
    if (acquisitionTrigger.IsOn(step.memory) && !acquisitionTriggered)
        return false;
    return !burstTrigger.IsOn(step.memory) || burstFramesLeft > 0;
}

bool BehaviourAcquisition::WantsFrame(const Step& step)
{
    if (frameTrigger.IsOn(step.memory) && !frameTrigger.IsHeld(step)) {
        nextFrame = step.now;
        if (waitingTriggers == 0)
            return false;
        --waitingTriggers;
        return true;
    }
    if (step.now < nextFrame)
        return false;
    // Keeps the rhythm, but does not run after frames that a long exposure left out.
    const double period = FramePeriod(step.memory);
    nextFrame = std::max(nextFrame + period, step.now);
    return true;
}

void BehaviourAcquisition::StartExposure(const Step& step)
{
    if (!IsGateOpen(step))
        nextFrame = step.now;
    else if (!exposing && WantsFrame(step))
        Expose(step);
}

void BehaviourAcquisition::Expose(const Step& step)
{
    exposing = true;
    exposureStart = step.now;
    framesLeft -= endless ? 0 : 1;
    burstFramesLeft -= burstFramesLeft > 0 ? 1 : 0;
    step.bus.Pulse(SignalFrameStart);
    step.bus.Pulse(SignalExposureStart);
}

bool BehaviourAcquisition::IsExposureOver(const Step& step) const
{
    const bool byWidth = step.memory.Read(ExposureMode) == TriggerWidth &&
                         frameTrigger.IsOn(step.memory) && !frameTrigger.IsSoftware(step.memory);
    if (byWidth)
        return !frameTrigger.IsSourceActive(step);
    return step.now - exposureStart >= step.memory.ReadDouble(ExposureTime);
}

void BehaviourAcquisition::EndExposure(const Step& step)
{
    if (!exposing || !IsExposureOver(step))
        return;
    exposing = false;
    ++framesToSend;
    step.bus.Pulse(SignalExposureEnd);
    step.bus.Pulse(SignalFrameEnd);
}

// The send register is cleared when a frame leaves. Writing it earlier would lose one.
void BehaviourAcquisition::Deliver(const Step& step)
{
    if (step.memory.Read(AravisSendFrame) != 0)
        return;
    if (framesToSend > 0) {
        --framesToSend;
        step.memory.Write(AravisSendFrame, 1);
    } else if (!endless && framesLeft == 0 && !exposing) {
        step.memory.Write(Acquisition, 0);
    }
}

void BehaviourAcquisition::ShowSignals(const Step& step) const
{
    const bool waiting = acquiring && !exposing && IsGateOpen(step);
    step.bus.SetLevel(SignalExposureActive, exposing);
    step.bus.SetLevel(SignalAcquisitionActive, acquiring);
    step.bus.SetLevel(SignalFrameTriggerWait, waiting && frameTrigger.IsOn(step.memory));
}

} // namespace ZalSim
