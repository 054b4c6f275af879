// What the bridge accepts from a camera's description. A camera may name any size, count or time;
// beyond these it is a mistake, or would cost more than it is worth.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace ZalCPP::Limits {

/// A register that holds a number: no number has more than 64 bits.
constexpr std::uint64_t NumberLength = 8;
/// A text in a register. The longest that cameras have, such as URLs, have 512 bytes.
constexpr std::uint64_t TextLength = 64ULL * 1024;
/// Raw data in a register. Lookup tables and file buffers have up to 256 KiB.
constexpr std::uint64_t RawLength = 1024ULL * 1024;

/// One image: 256 megapixels of 16 bits.
constexpr std::size_t Payload = 512ULL * 1024 * 1024;
/// All images that wait to be filled. There are fewer of them where they are large ...
constexpr std::size_t PayloadOfAllBuffers = 1024ULL * 1024 * 1024;
/// ... and no more than these: a quarter of a second at 30 images a second.
constexpr std::size_t Buffers = 8;

/// Entries of one enumeration; each is asked whether it is available. PixelFormat, the longest that
/// is usual, has some 200.
constexpr std::size_t Entries = 4096;
/// Levels of categories that show in a feature's path; what lies deeper belongs to the last one.
constexpr std::size_t CategoryDepth = 32;

/// Nodes that one question passes through one behind the other. Aravis follows them by recursion.
constexpr std::size_t EvaluationDepth = 256;
/// Nodes that one question visits in all, for an enumeration those of all its entries. Formulas
/// that use each other twice double it each time: thirty of them would take hours.
constexpr std::size_t EvaluationSteps = 1000ULL * 1000;

/// No display shows changes faster, and a camera is not to be flooded.
constexpr std::chrono::milliseconds ShortestPollingTime{20};
/// Far from the end of any clock.
constexpr std::chrono::milliseconds LongestPollingTime{std::chrono::hours(24)};

} // namespace ZalCPP::Limits
