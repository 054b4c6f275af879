#pragma once

#include <cstdint>

/// Where the camera's registers lie. The GenICam descriptions in models/ have the same addresses; a
/// test compares them.
///
/// Below 0x4000 lie the registers of GigE Vision itself and those that Aravis' camera works with;
/// everything that only the simulation knows lies above.
namespace ZalSim::Registers {

using Address = std::uint32_t;

// GigE Vision
constexpr Address MacHigh = 0x0008;
constexpr Address MacLow = 0x000c;
constexpr Address VendorName = 0x0048;
constexpr Address ModelName = 0x0068;
constexpr Address DeviceVersion = 0x0088;
constexpr Address ManufacturerInfo = 0x00a8;
constexpr Address ControlPrivilege = 0x0a00;
constexpr Address StreamPort = 0x0d00;
constexpr Address StreamPacketSize = 0x0d04;

// Aravis' camera
constexpr Address Width = 0x0100;
constexpr Address Height = 0x0104;
constexpr Address AravisGain = 0x0110;
constexpr Address SensorHeight = 0x0118;
constexpr Address SensorWidth = 0x011c;
constexpr Address AravisExposureUs = 0x0120;
constexpr Address Acquisition = 0x0124;
constexpr Address PixelFormat = 0x0128;
constexpr Address AcquisitionMode = 0x012c;
constexpr Address OffsetX = 0x0130;
constexpr Address OffsetY = 0x0134;
constexpr Address AravisTriggerMode = 0x0300;
constexpr Address AravisTriggerSource = 0x0304;
constexpr Address AravisSendFrame = 0x030c;

// Device and acquisition
constexpr Address ParamsLocked = 0x4000;
constexpr Address FrameCount = 0x4008;
constexpr Address BurstFrameCount = 0x400c;
constexpr Address FrameRateEnable = 0x4010;
constexpr Address ExposureMode = 0x4014;
constexpr Address FrameRate = 0x4018;
constexpr Address ExposureTime = 0x4020;
constexpr Address Gain = 0x4028;
constexpr Address TimestampLatch = 0x4030;
constexpr Address TimestampLatchValue = 0x4038;
constexpr Address FamilyName = 0x4040;
constexpr Address FirmwareVersion = 0x4060;
constexpr Address TriggerSelector = 0x4080;
constexpr Address PictureNumber = 0x40f0; // Of the acquisition; in no description.

// Blocks that a selector steps through
constexpr Address BlockSize = 0x40;
constexpr Address Trigger = 0x4100;
constexpr Address Line = 0x4200;
constexpr Address Counter = 0x4300;
constexpr Address Timer = 0x4400;

namespace TriggerBlock {
constexpr Address Mode = 0x00;
constexpr Address Source = 0x04;
constexpr Address Activation = 0x08;
constexpr Address Software = 0x0c;
constexpr Address Delay = 0x10;
} // namespace TriggerBlock

namespace LineBlock {
constexpr Address Mode = 0x00;
constexpr Address Inverter = 0x04;
constexpr Address Source = 0x08;
constexpr Address Status = 0x0c;
constexpr Address DebounceMode = 0x10;
constexpr Address Format = 0x14;
constexpr Address DebounceDuration = 0x18;
} // namespace LineBlock

namespace CounterBlock {
constexpr Address EventSource = 0x00;
constexpr Address EventActivation = 0x04;
constexpr Address TriggerSource = 0x08;
constexpr Address TriggerActivation = 0x0c;
constexpr Address ResetSource = 0x10;
constexpr Address ResetActivation = 0x14;
constexpr Address Reset = 0x18;
constexpr Address Status = 0x1c;
constexpr Address Duration = 0x20;
constexpr Address Value = 0x28;
constexpr Address ValueAtReset = 0x30;
} // namespace CounterBlock

namespace TimerBlock {
constexpr Address TriggerSource = 0x00;
constexpr Address TriggerActivation = 0x04;
constexpr Address Reset = 0x08;
constexpr Address Status = 0x0c;
constexpr Address Duration = 0x10;
constexpr Address Delay = 0x18;
constexpr Address Value = 0x20;
} // namespace TimerBlock

// Signals given by software or over the network
constexpr Address SoftwareSignalPulse = 0x4500;
constexpr Address UserOutputValue = 0x4520;
constexpr Address SignalStride = 0x4; // From one signal, or output, to the next.
constexpr Address LineStatusAll = 0x4540;
constexpr Address ActionDeviceKey = 0x4580;
constexpr Address ActionQueueSize = 0x4584;
constexpr Address ActionUnconditionalMode = 0x4588;
constexpr Address ActionGroupKey = 0x45a0;
constexpr Address ActionGroupMask = 0x45a4;
constexpr Address ActionStride = 0x10;

// Precision time protocol
constexpr Address PtpEnable = 0x4600;
constexpr Address PtpOperationMode = 0x4604;
constexpr Address PtpDataSetLatch = 0x4608;
constexpr Address PtpStatus = 0x460c;
constexpr Address PtpServoStatus = 0x4610;
constexpr Address PtpClockAccuracy = 0x4614;
constexpr Address PtpClockId = 0x4618;
constexpr Address PtpParentClockId = 0x4620;
constexpr Address PtpGrandmasterClockId = 0x4628;
constexpr Address PtpOffsetFromMaster = 0x4630;

} // namespace ZalSim::Registers
