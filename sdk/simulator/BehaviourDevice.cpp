#include "sdk/simulator/BehaviourDevice.h"

#include <cmath>

namespace ZalSim {

using namespace Registers;

namespace {
constexpr std::uint32_t Mono8 = 0x01080001;
// Few big packets: the loopback interface carries them, and a receiver that is busy for a moment
// loses less.
constexpr std::uint32_t PacketSize = 9000;
} // namespace

void BehaviourDevice::SwitchOn(Memory& memory)
{
    memory.Write(MacHigh, 0x0200);
    memory.Write(MacLow, 0x5e000001);
    memory.WriteText(VendorName, model.vendor, 32);
    memory.WriteText(ModelName, model.product, 32);
    memory.WriteText(DeviceVersion, "1.0", 32);
    memory.WriteText(ManufacturerInfo, "Simulated camera", 48);
    memory.WriteText(FamilyName, model.family, 32);
    memory.WriteText(FirmwareVersion, "1.4.2", 32);
    memory.Write(SensorWidth, 1920);
    memory.Write(SensorHeight, 1200);
    memory.Write(Width, 640);
    memory.Write(Height, 480);
    memory.Write(PixelFormat, Mono8);
    memory.Write(StreamPacketSize, PacketSize);
}

// A host should lock the format while it acquires. One that does not is refused: the buffers of the
// running acquisition have the old size.
void BehaviourDevice::KeepFormat(Memory& memory)
{
    const bool acquiring = memory.Read(Acquisition) != 0;
    for (std::size_t i = 0; i < FormatRegisters.size(); ++i) {
        const std::uint32_t wanted = memory.Read(FormatRegisters[i]);
        if (!acquiring)
            format[i] = wanted;
        else if (wanted != format[i])
            memory.Write(FormatRegisters[i], format[i]);
    }
}

// Aravis' camera knows exposure and gain (here tenths of a decibel) as integers of its own.
void BehaviourDevice::Run(const Step& step)
{
    KeepFormat(step.memory);
    const double exposure = step.memory.ReadDouble(ExposureTime);
    step.memory.Write(AravisExposureUs, static_cast<std::uint32_t>(std::lround(exposure)));
    const double gain = step.memory.ReadDouble(Gain);
    step.memory.Write(AravisGain, static_cast<std::uint32_t>(std::lround(gain * 10)));
}

} // namespace ZalSim
