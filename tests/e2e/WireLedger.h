#pragma once

#include "sdk/simulator/SimulatedCamera.h"
#include "tests/sdk/bridge/WireTap.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <tuple>
#include <vector>

/// What all registers of a simulated camera hold at a moment.
class RegisterImage
{
public:
    explicit RegisterImage(const ZalSim::SimulatedCamera& camera);

    std::vector<unsigned char> at(std::uint64_t address, std::uint32_t size) const;

private:
    std::vector<unsigned char> m_bytes;
};

/// What an operation cost on the wire, and how little would have done.
///
/// A read is needed once for each state of the camera's selectors in which it was made: the same
/// register in the same state need not be read again, unless that is so long ago that its value
/// may not be taken for granted. The state is what the operation has written so far; a register
/// that is written back to what it held is in its old state again. Only what was written itself is
/// read back after every write.
class WireLedger
{
public:
    WireLedger(const std::vector<WireTap::Access>& accesses, const RegisterImage& before);

    std::size_t reads() const { return m_allReads; }
    std::size_t writes() const { return m_allWrites; }
    std::size_t transactions() const { return m_allReads + m_allWrites; }
    std::size_t neededReads() const { return m_needed; }

    std::set<std::uint64_t> readAddresses() const { return m_addresses; }
    /// Whether every register that was written holds what it held before.
    bool leavesEverythingAsItWas() const { return m_present == m_initial; }

private:
    using State = std::map<std::uint64_t, std::vector<unsigned char>>;
    using Read =
        std::tuple<std::uint64_t, std::uint32_t, State, int>; ///< int: earlier writes to it
    using Time = std::chrono::steady_clock::time_point;

    void addRead(const Read& read, Time time);

    State m_initial;
    State m_present;
    std::set<std::uint64_t> m_addresses;
    std::map<Read, Time> m_lastReads;
    std::size_t m_allReads = 0;
    std::size_t m_allWrites = 0;
    std::size_t m_needed = 0;
};
