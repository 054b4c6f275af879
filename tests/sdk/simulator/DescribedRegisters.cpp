#include "tests/sdk/simulator/DescribedRegisters.h"

#include "sdk/simulator/Registers.h"

using namespace ZalSim::Registers;

namespace {

using Registers = QMap<QString, DescribedRegister>;

void addSingleOnes(Registers& registers)
{
    const QMap<QString, Address> addresses = {
        {"DeviceVendorName", VendorName},
        {"DeviceModelName", ModelName},
        {"DeviceVersion", DeviceVersion},
        {"DeviceManufacturerInfo", ManufacturerInfo},
        {"DeviceFamilyName", FamilyName},
        {"DeviceFirmwareVersion", FirmwareVersion},
        {"GevSCPSPacketSizeReg", StreamPacketSize},
        {"WidthReg", Width},
        {"HeightReg", Height},
        {"OffsetXReg", OffsetX},
        {"OffsetYReg", OffsetY},
        {"SensorWidthReg", SensorWidth},
        {"SensorHeightReg", SensorHeight},
        {"PixelFormatReg", PixelFormat},
        {"AcquisitionReg", Acquisition},
        {"AcquisitionModeReg", AcquisitionMode},
        {"AcquisitionFrameCountReg", FrameCount},
        {"AcquisitionBurstFrameCountReg", BurstFrameCount},
        {"AcquisitionFrameRateEnableReg", FrameRateEnable},
        {"AcquisitionFrameRateReg", FrameRate},
        {"ExposureModeReg", ExposureMode},
        {"ExposureTimeReg", ExposureTime},
        {"GainReg", Gain},
        {"TLParamsLockedReg", ParamsLocked},
        {"TimestampLatchReg", TimestampLatch},
        {"TimestampLatchValueReg", TimestampLatchValue},
        {"TriggerSelectorReg", TriggerSelector},
        // One trigger each, whatever is selected.
        {"FrameTriggerModeReg", Trigger + BlockSize + TriggerBlock::Mode},
        {"BurstTriggerModeReg", Trigger + 2 * BlockSize + TriggerBlock::Mode},
        {"LineStatusAllReg", LineStatusAll},
        {"ActionDeviceKeyReg", ActionDeviceKey},
        {"ActionQueueSizeReg", ActionQueueSize},
        {"ActionUnconditionalModeReg", ActionUnconditionalMode},
    };
    for (auto i = addresses.begin(); i != addresses.end(); ++i)
        registers[i.key()] = {i.value(), 0};
}

void addClock(Registers& registers)
{
    const QMap<QString, Address> addresses = {
        {"PtpEnableReg", PtpEnable},
        {"PtpOperationModeReg", PtpOperationMode},
        {"PtpDataSetLatchReg", PtpDataSetLatch},
        {"PtpStatusReg", PtpStatus},
        {"PtpServoStatusReg", PtpServoStatus},
        {"PtpClockAccuracyReg", PtpClockAccuracy},
        {"PtpClockIDReg", PtpClockId},
        {"PtpParentClockIDReg", PtpParentClockId},
        {"PtpGrandmasterClockIDReg", PtpGrandmasterClockId},
        {"PtpOffsetFromMasterReg", PtpOffsetFromMaster},
    };
    for (auto i = addresses.begin(); i != addresses.end(); ++i)
        registers[i.key()] = {i.value(), 0};
}

// Names without the prefix of their block, as in "LineMode", and without "Reg".
void addBlock(Registers& registers, const QString& prefix, Address block, Address step,
              const QMap<QString, Address>& offsets)
{
    for (auto i = offsets.begin(); i != offsets.end(); ++i)
        registers[prefix + i.key() + "Reg"] = {block + i.value(), step};
}

void addLinesAndTriggers(Registers& registers)
{
    addBlock(registers, "Trigger", Trigger, BlockSize,
             {{"Mode", TriggerBlock::Mode},
              {"Source", TriggerBlock::Source},
              {"Activation", TriggerBlock::Activation},
              {"Software", TriggerBlock::Software},
              {"Delay", TriggerBlock::Delay}});
    addBlock(registers, "Line", Line, BlockSize,
             {{"Mode", LineBlock::Mode},
              {"Inverter", LineBlock::Inverter},
              {"Source", LineBlock::Source},
              {"Status", LineBlock::Status},
              {"DebounceMode", LineBlock::DebounceMode},
              {"Format", LineBlock::Format},
              {"DebounceDuration", LineBlock::DebounceDuration}});
    addBlock(registers, "UserOutput", UserOutputValue, SignalStride, {{"Value", 0}});
    addBlock(registers, "SoftwareSignal", SoftwareSignalPulse, SignalStride, {{"Pulse", 0}});
    addBlock(registers, "Action", 0, ActionStride,
             {{"GroupKey", ActionGroupKey}, {"GroupMask", ActionGroupMask}});
}

void addCountersAndTimers(Registers& registers)
{
    addBlock(registers, "Counter", Counter, BlockSize,
             {{"EventSource", CounterBlock::EventSource},
              {"EventActivation", CounterBlock::EventActivation},
              {"TriggerSource", CounterBlock::TriggerSource},
              {"TriggerActivation", CounterBlock::TriggerActivation},
              {"ResetSource", CounterBlock::ResetSource},
              {"ResetActivation", CounterBlock::ResetActivation},
              {"Reset", CounterBlock::Reset},
              {"Status", CounterBlock::Status},
              {"Duration", CounterBlock::Duration},
              {"Value", CounterBlock::Value},
              {"ValueAtReset", CounterBlock::ValueAtReset}});
    addBlock(registers, "Timer", Timer, BlockSize,
             {{"TriggerSource", TimerBlock::TriggerSource},
              {"TriggerActivation", TimerBlock::TriggerActivation},
              {"Reset", TimerBlock::Reset},
              {"Status", TimerBlock::Status},
              {"Duration", TimerBlock::Duration},
              {"Delay", TimerBlock::Delay},
              {"Value", TimerBlock::Value}});
}

Registers all()
{
    Registers registers;
    addSingleOnes(registers);
    addClock(registers);
    addLinesAndTriggers(registers);
    addCountersAndTimers(registers);
    return registers;
}

} // namespace

const QMap<QString, DescribedRegister>& describedRegisters()
{
    static const Registers registers = all();
    return registers;
}
