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

double framePeriod(const Memory& memory)
{
    const bool fixed = memory.read(FrameRateEnable) != 0;
    const double rate = fixed ? memory.readDouble(FrameRate) : FrameRateMax;
    return 1e6 / std::clamp(rate, 0.1, FrameRateMax);
}

} // namespace

BehaviourAcquisition::BehaviourAcquisition()
    : m_acquisitionTrigger(AcquisitionStart), m_frameTrigger(FrameStart),
      m_burstTrigger(FrameBurstStart)
{
}

void BehaviourAcquisition::switchOn(Memory& memory)
{
    // Aravis' camera sends one frame for each of its own software triggers; which these are is
    // decided here.
    memory.write(AravisTriggerMode, 1);
    memory.write(AravisTriggerSource, 1);
    memory.write(AcquisitionMode, Continuous);
    memory.write(FrameCount, 10);
    memory.write(BurstFrameCount, 3);
    memory.write(FrameRateEnable, 1);
    memory.writeDouble(FrameRate, 20);
    memory.writeDouble(ExposureTime, 10000);
    memory.write(TriggerSelector, FrameStart);
    for (const TriggerInput* trigger : {&m_acquisitionTrigger, &m_frameTrigger, &m_burstTrigger})
        trigger->switchOn(memory);
}

void BehaviourAcquisition::run(const Step& step)
{
    releaseWhenAlone(step.memory);
    const bool wanted = step.memory.read(Acquisition) != 0;
    if (wanted && !m_acquiring)
        begin(step);
    if (!wanted && m_acquiring)
        end(step);
    takeTriggers(step);
    if (m_acquiring) {
        endExposure(step);
        startExposure(step);
        deliver(step);
    }
    showSignals(step);
}

// A host that vanished leaves its acquisition running; the camera stops when it gives the host up.
void BehaviourAcquisition::releaseWhenAlone(Memory& memory) const
{
    if (memory.read(ControlPrivilege) != 0)
        return;
    if (memory.read(Acquisition) != 0)
        memory.write(Acquisition, 0);
    if (memory.read(ParamsLocked) != 0)
        memory.write(ParamsLocked, 0);
}

void BehaviourAcquisition::begin(const Step& step)
{
    const std::uint32_t mode = step.memory.read(AcquisitionMode);
    m_acquiring = true;
    m_acquisitionTriggered = false;
    m_exposing = false;
    m_endless = mode != SingleFrame && mode != MultiFrame;
    m_framesLeft = mode == SingleFrame ? 1 : step.memory.read(FrameCount);
    m_burstFramesLeft = 0;
    m_waitingTriggers = 0;
    m_framesToSend = 0;
    m_nextFrame = step.now;
    step.memory.write(PictureNumber, 0);
}

void BehaviourAcquisition::end(const Step& step)
{
    m_acquiring = false;
    m_exposing = false;
    for (TriggerInput* trigger : {&m_acquisitionTrigger, &m_frameTrigger, &m_burstTrigger})
        trigger->forget();
    step.memory.write(AravisSendFrame, 0);
}

void BehaviourAcquisition::takeTriggers(const Step& step)
{
    const unsigned acquisitions = m_acquisitionTrigger.take(step);
    const unsigned bursts = m_burstTrigger.take(step);
    const unsigned frames = m_frameTrigger.take(step);
    if (!m_acquiring)
        return;
    m_acquisitionTriggered = m_acquisitionTriggered || acquisitions > 0;
    if (!m_burstTrigger.isOn(step.memory))
        m_burstFramesLeft = 0;
    else if (bursts > 0 && m_burstFramesLeft == 0)
        m_burstFramesLeft = step.memory.read(BurstFrameCount);
    if (!m_frameTrigger.isOn(step.memory))
        m_waitingTriggers = 0;
    if (!isGateOpen(step))
        return;
    m_waitingTriggers = std::min(m_waitingTriggers + frames, WaitingTriggersMax);
    step.bus.pulse(SignalFrameTrigger, frames);
}

bool BehaviourAcquisition::isGateOpen(const Step& step) const
{
    if (!m_endless && m_framesLeft == 0)
        return false;
    if (m_acquisitionTrigger.isOn(step.memory) && !m_acquisitionTriggered)
        return false;
    return !m_burstTrigger.isOn(step.memory) || m_burstFramesLeft > 0;
}

bool BehaviourAcquisition::wantsFrame(const Step& step)
{
    if (m_frameTrigger.isOn(step.memory) && !m_frameTrigger.isHeld(step)) {
        m_nextFrame = step.now;
        if (m_waitingTriggers == 0)
            return false;
        --m_waitingTriggers;
        return true;
    }
    if (step.now < m_nextFrame)
        return false;
    // Keeps the rhythm, but does not run after frames that a long exposure left out.
    const double period = framePeriod(step.memory);
    m_nextFrame = std::max(m_nextFrame + period, step.now);
    return true;
}

void BehaviourAcquisition::startExposure(const Step& step)
{
    if (!isGateOpen(step))
        m_nextFrame = step.now;
    else if (!m_exposing && wantsFrame(step))
        expose(step);
}

void BehaviourAcquisition::expose(const Step& step)
{
    m_exposing = true;
    m_exposureStart = step.now;
    m_framesLeft -= m_endless ? 0 : 1;
    m_burstFramesLeft -= m_burstFramesLeft > 0 ? 1 : 0;
    step.bus.pulse(SignalFrameStart);
    step.bus.pulse(SignalExposureStart);
}

bool BehaviourAcquisition::isExposureOver(const Step& step) const
{
    const bool byWidth = step.memory.read(ExposureMode) == TriggerWidth &&
                         m_frameTrigger.isOn(step.memory) &&
                         !m_frameTrigger.isSoftware(step.memory);
    if (byWidth)
        return !m_frameTrigger.isSourceActive(step);
    return step.now - m_exposureStart >= step.memory.readDouble(ExposureTime);
}

void BehaviourAcquisition::endExposure(const Step& step)
{
    if (!m_exposing || !isExposureOver(step))
        return;
    m_exposing = false;
    ++m_framesToSend;
    step.bus.pulse(SignalExposureEnd);
    step.bus.pulse(SignalFrameEnd);
}

// The send register is cleared when a frame leaves. Writing it earlier would lose one.
void BehaviourAcquisition::deliver(const Step& step)
{
    if (step.memory.read(AravisSendFrame) != 0)
        return;
    if (m_framesToSend > 0) {
        --m_framesToSend;
        step.memory.write(AravisSendFrame, 1);
    } else if (!m_endless && m_framesLeft == 0 && !m_exposing) {
        step.memory.write(Acquisition, 0);
    }
}

void BehaviourAcquisition::showSignals(const Step& step) const
{
    const bool waiting = m_acquiring && !m_exposing && isGateOpen(step);
    step.bus.setLevel(SignalExposureActive, m_exposing);
    step.bus.setLevel(SignalAcquisitionActive, m_acquiring);
    step.bus.setLevel(SignalFrameTriggerWait, waiting && m_frameTrigger.isOn(step.memory));
}

} // namespace ZalSim
