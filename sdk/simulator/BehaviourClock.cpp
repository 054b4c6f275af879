#include "sdk/simulator/BehaviourClock.h"

#include <chrono>
#include <cmath>

namespace ZalSim {

using namespace Registers;

namespace {

enum PtpStates : std::uint32_t
{
    Initializing = 1,
    Disabled = 3,
    Listening = 4,
    PreMaster = 5,
    Master = 6,
    Uncalibrated = 8,
    Slave = 9
};
enum OperationModes : std::uint32_t
{
    AutoMode = 0,
    SlaveMode = 1,
    MasterMode = 2
};
enum ServoStates : std::uint32_t
{
    ServoUnknown = 0,
    ServoLocked = 1
};
enum Accuracies : std::uint32_t
{
    Within1us = 0x23,
    UnknownAccuracy = 0xfe
};

// When the clock gets from one state into the next, in microseconds after it was enabled.
constexpr double ListensAfter = 300000;
constexpr double PreparesAfter = 800000;
constexpr double SettlesAfter = 1500000;

// The camera's clock identity is its network address; the master is another device.
constexpr std::int64_t OwnClockId = 0x02005efffe000001;
constexpr std::int64_t MasterClockId = 0x02005efffe00a001;

std::int64_t nanosecondsNow()
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

// The offset of a settled servo wanders by some tens of nanoseconds.
std::int64_t offset(double now)
{
    return std::lround(60 * std::sin(now / 700000) + 25 * std::sin(now / 110000));
}

} // namespace

void BehaviourClock::switchOn(Memory& memory)
{
    memory.write(PtpStatus, Disabled);
    memory.write(PtpClockAccuracy, UnknownAccuracy);
    memory.writeLong(PtpClockId, OwnClockId);
}

void BehaviourClock::run(const Step& step)
{
    if (step.memory.takeCommand(TimestampLatch))
        step.memory.writeLong(TimestampLatchValue, nanosecondsNow());
    followSettings(step);
    const std::uint32_t state = ptpState(step);
    step.memory.write(PtpStatus, state);
    step.memory.write(PtpServoStatus, state == Slave ? ServoLocked : ServoUnknown);
    if (step.memory.takeCommand(PtpDataSetLatch))
        latchPtp(step);
}

// A change of the settings sends the clock through all states again.
void BehaviourClock::followSettings(const Step& step)
{
    const bool nowEnabled = step.memory.read(PtpEnable) != 0;
    const std::uint32_t nowMode = step.memory.read(PtpOperationMode);
    if (nowEnabled != m_enabled || nowMode != m_mode)
        m_enabledAt = step.now;
    m_enabled = nowEnabled;
    m_mode = nowMode;
}

std::uint32_t BehaviourClock::ptpState(const Step& step) const
{
    const double time = step.now - m_enabledAt;
    const bool master = m_mode == MasterMode;
    if (!m_enabled)
        return Disabled;
    if (time < ListensAfter)
        return Initializing;
    if (time < PreparesAfter)
        return Listening;
    if (time < SettlesAfter)
        return master ? PreMaster : Uncalibrated;
    return master ? Master : Slave;
}

void BehaviourClock::latchPtp(const Step& step) const
{
    const std::uint32_t state = ptpState(step);
    const bool follows = state == Slave || state == Uncalibrated;
    const std::int64_t master = follows ? MasterClockId : OwnClockId;
    step.memory.writeLong(PtpParentClockId, m_enabled ? master : 0);
    step.memory.writeLong(PtpGrandmasterClockId, m_enabled ? master : 0);
    step.memory.writeLong(PtpOffsetFromMaster, state == Slave ? offset(step.now) : 0);
    step.memory.write(PtpClockAccuracy,
                      state == Slave || state == Master ? Within1us : UnknownAccuracy);
}

} // namespace ZalSim
