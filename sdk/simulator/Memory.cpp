#include "sdk/simulator/Memory.h"

#include <arv.h>

#include <cmath>
#include <cstring>
#include <vector>

namespace ZalSim {

using Registers::Address;

std::uint32_t Memory::read(Address address) const
{
    guint32 value = 0;
    arv_fake_camera_read_register(m_device, address, &value);
    return value;
}

void Memory::write(Address address, std::uint32_t value)
{
    arv_fake_camera_write_register(m_device, address, value);
}

std::int64_t Memory::readLong(Address address) const
{
    gint64 value = 0;
    arv_fake_camera_read_memory(m_device, address, sizeof value, &value);
    return GINT64_FROM_BE(value);
}

void Memory::writeLong(Address address, std::int64_t value)
{
    const gint64 wire = GINT64_TO_BE(value);
    arv_fake_camera_write_memory(m_device, address, sizeof wire, &wire);
}

double Memory::readDouble(Address address) const
{
    const std::int64_t bits = readLong(address);
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    // A host can write any bits.
    return std::isfinite(value) ? value : 0;
}

void Memory::writeDouble(Address address, double value)
{
    std::int64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    writeLong(address, bits);
}

void Memory::writeText(Address address, const std::string& text, std::size_t size)
{
    std::vector<char> field(size, '\0');
    text.copy(field.data(), size - 1);
    arv_fake_camera_write_memory(m_device, address, static_cast<guint32>(size), field.data());
}

bool Memory::takeCommand(Address address)
{
    if (read(address) == 0)
        return false;
    write(address, 0);
    return true;
}

} // namespace ZalSim
