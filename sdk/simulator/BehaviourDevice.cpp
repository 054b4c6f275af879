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

void BehaviourDevice::switchOn(Memory& memory)
{
    memory.write(MacHigh, 0x0200);
    memory.write(MacLow, 0x5e000001);
    memory.writeText(VendorName, m_model.vendor, 32);
    memory.writeText(ModelName, m_model.product, 32);
    memory.writeText(DeviceVersion, "1.0", 32);
    memory.writeText(ManufacturerInfo, "Simulated camera", 48);
    memory.writeText(FamilyName, m_model.family, 32);
    memory.writeText(FirmwareVersion, "1.4.2", 32);
    memory.write(SensorWidth, 1920);
    memory.write(SensorHeight, 1200);
    memory.write(Width, 640);
    memory.write(Height, 480);
    memory.write(PixelFormat, Mono8);
    memory.write(StreamPacketSize, PacketSize);
}

// A host should lock the format while it acquires. One that does not is refused: the buffers of the
// running acquisition have the old size.
void BehaviourDevice::keepFormat(Memory& memory)
{
    const bool acquiring = memory.read(Acquisition) != 0;
    for (std::size_t i = 0; i < FormatRegisters.size(); ++i) {
        const std::uint32_t wanted = memory.read(FormatRegisters[i]);
        if (!acquiring)
            m_format[i] = wanted;
        else if (wanted != m_format[i])
            memory.write(FormatRegisters[i], m_format[i]);
    }
}

// Aravis' camera knows exposure and gain (here tenths of a decibel) as integers of its own.
void BehaviourDevice::run(const Step& step)
{
    keepFormat(step.memory);
    const double exposure = step.memory.readDouble(ExposureTime);
    step.memory.write(AravisExposureUs, static_cast<std::uint32_t>(std::lround(exposure)));
    const double gain = step.memory.readDouble(Gain);
    step.memory.write(AravisGain, static_cast<std::uint32_t>(std::lround(gain * 10)));
}

} // namespace ZalSim
