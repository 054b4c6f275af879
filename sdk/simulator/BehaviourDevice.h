#pragma once

#include "sdk/simulator/Behaviour.h"
#include "sdk/simulator/Models.h"

#include <array>

namespace ZalSim {

/// What the camera is: its names, its sensor and its image.
class BehaviourDevice : public Behaviour
{
public:
    explicit BehaviourDevice(const Model& model) : m_model(model) {}

    void switchOn(Memory& memory) override;
    void run(const Step& step) override;

private:
    static constexpr std::array<Registers::Address, 5> FormatRegisters = {
        Registers::Width, Registers::Height, Registers::OffsetX, Registers::OffsetY,
        Registers::PixelFormat};

    void keepFormat(Memory& memory);

    const Model& m_model;
    std::array<std::uint32_t, FormatRegisters.size()> m_format{};
};

} // namespace ZalSim
