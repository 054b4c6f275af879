#pragma once

#include "sdk/simulator/Behaviour.h"
#include "sdk/simulator/Models.h"

#include <array>

namespace ZalSim {

/// What the camera is: its names, its sensor and its image.
class BehaviourDevice : public Behaviour
{
public:
    explicit BehaviourDevice(const Model& simulated) : model(simulated) {}

    void SwitchOn(Memory& memory) override;
    void Run(const Step& step) override;

private:
    static constexpr std::array<Registers::Address, 5> FormatRegisters = {
        Registers::Width, Registers::Height, Registers::OffsetX, Registers::OffsetY,
        Registers::PixelFormat};

    void KeepFormat(Memory& memory);

    const Model& model;
    std::array<std::uint32_t, FormatRegisters.size()> format{};
};

} // namespace ZalSim
