#include "tests/e2e/WireLedger.h"

namespace {

constexpr std::uint32_t MemorySize = 0x10000;
// What was read this long ago is to be read again.
constexpr std::chrono::milliseconds Window{50};

} // namespace

RegisterImage::RegisterImage(const ZalSim::SimulatedCamera& camera)
{
    m_bytes.reserve(MemorySize);
    for (std::uint32_t address = 0; address < MemorySize; address += 4) {
        const std::uint32_t value = camera.readRegister(address);
        for (const unsigned shift : {24U, 16U, 8U, 0U})
            m_bytes.push_back(static_cast<unsigned char>(value >> shift));
    }
}

std::vector<unsigned char> RegisterImage::at(std::uint64_t address, std::uint32_t size) const
{
    const auto first = m_bytes.begin() + static_cast<std::ptrdiff_t>(address);
    return {first, first + static_cast<std::ptrdiff_t>(size)};
}

WireLedger::WireLedger(const std::vector<WireTap::Access>& accesses, const RegisterImage& before)
{
    for (const WireTap::Access& access : accesses) {
        if (access.isWrite)
            m_initial[access.address] = before.at(access.address, access.size);
    }
    m_present = m_initial;
    std::map<std::uint64_t, int> writesTo;
    for (const WireTap::Access& access : accesses) {
        if (access.isWrite) {
            ++m_allWrites;
            ++writesTo[access.address];
            m_present[access.address] = access.bytes;
        } else {
            addRead({access.address, access.size, m_present, writesTo[access.address]},
                    access.time);
        }
    }
}

void WireLedger::addRead(const Read& read, Time time)
{
    ++m_allReads;
    m_addresses.insert(std::get<0>(read));
    const auto [last, isFirst] = m_lastReads.emplace(read, time);
    if (isFirst || time - last->second >= Window)
        ++m_needed;
    last->second = time;
}
