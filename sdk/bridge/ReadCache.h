#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <tuple>
#include <vector>

namespace ZalCPP {

/// The answers to recent reads of one camera, so that one refresh does not ask the same register
/// again and again. An answer is good for as long as writes must be quiet before changes are
/// looked for, and only until the next write: a write may change any register and move any address.
///
/// One thread only: the camera's worker thread.
class ReadCache
{
public:
    using Clock = std::chrono::steady_clock;

    /// How long an answer is good.
    static constexpr std::chrono::milliseconds Window{50};

    /// One question to the camera.
    struct Key
    {
        std::uint64_t address = 0;
        std::uint32_t size = 0; ///< In bytes.
        bool asNumber = false;  ///< Read as one number in the host's byte order.
    };

    /// While alive, no answer to a question from before `earliest` is good.
    class Fresh
    {
    public:
        /// Takes the place of one around it as long as it lives.
        Fresh(ReadCache& cache, Clock::time_point earliest);
        ~Fresh() { m_cache.m_earliest = m_before; }
        Fresh(const Fresh&) = delete;
        Fresh& operator=(const Fresh&) = delete;

    private:
        ReadCache& m_cache;
        const Clock::time_point m_before;
    };

    /// Fills `buffer`, of the key's size, where there is an answer that is good at `now`.
    bool find(const Key& key, Clock::time_point now, void* buffer) const;
    /// `asked` is when the question was put: the camera may have answered it right then.
    void keep(const Key& key, Clock::time_point asked, const void* buffer);
    /// After a write, which may change anything.
    void clear() { m_answers.clear(); }
    /// All answers from that address, whatever their size.
    void forget(std::uint64_t address);

private:
    struct Answer
    {
        Clock::time_point asked;
        std::vector<unsigned char> bytes;
    };

    std::map<std::tuple<std::uint64_t, std::uint32_t, bool>, Answer> m_answers;
    Clock::time_point m_earliest;
};

} // namespace ZalCPP
