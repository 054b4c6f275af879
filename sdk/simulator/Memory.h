#pragma once

#include "sdk/simulator/Registers.h"

#include <cstdint>
#include <string>

struct _ArvFakeCamera; // NOLINT(bugprone-reserved-identifier): named so by Aravis

namespace ZalSim {

/// The camera's registers with their types; big endian in the memory, as on the wire. Any thread.
class Memory
{
public:
    explicit Memory(_ArvFakeCamera* camera) : m_device(camera) {}

    std::uint32_t read(Registers::Address address) const;
    void write(Registers::Address address, std::uint32_t value);

    std::int64_t readLong(Registers::Address address) const;
    void writeLong(Registers::Address address, std::int64_t value);

    double readDouble(Registers::Address address) const;
    void writeDouble(Registers::Address address, double value);

    /// Zero-terminated, cut to `size` bytes with the terminator.
    void writeText(Registers::Address address, const std::string& text, std::size_t size);

    /// Whether a command was written; takes it back, so that each one is seen once.
    bool takeCommand(Registers::Address address);

private:
    _ArvFakeCamera* m_device;
};

} // namespace ZalSim
