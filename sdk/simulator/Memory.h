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
    explicit Memory(_ArvFakeCamera* camera) : device(camera) {}

    std::uint32_t Read(Registers::Address address) const;
    void Write(Registers::Address address, std::uint32_t value);

    std::int64_t ReadLong(Registers::Address address) const;
    void WriteLong(Registers::Address address, std::int64_t value);

    double ReadDouble(Registers::Address address) const;
    void WriteDouble(Registers::Address address, double value);

    /// Zero-terminated, cut to `size` bytes with the terminator.
    void WriteText(Registers::Address address, const std::string& text, std::size_t size);

    /// Whether a command was written; takes it back, so that each one is seen once.
    bool TakeCommand(Registers::Address address);

private:
    _ArvFakeCamera* device;
};

} // namespace ZalSim
