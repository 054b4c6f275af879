#include "sdk/bridge/ReadCache.h"

#include <algorithm>
#include <utility>

namespace ZalCPP {
namespace {

// Long blocks are data, which nobody reads twice.
constexpr std::size_t LongestAnswer = 512;
// More than any refresh asks for; bounds what reading a whole camera leaves behind.
constexpr std::size_t MostAnswers = 1024;

auto tupleOf(const ReadCache::Key& key)
{
    return std::make_tuple(key.address, key.size, key.asNumber);
}

} // namespace

ReadCache::Fresh::Fresh(ReadCache& cache, Clock::time_point earliest)
    : m_cache(cache), m_before(std::exchange(cache.m_earliest, earliest))
{
}

bool ReadCache::find(const Key& key, Clock::time_point now, void* buffer) const
{
    const auto found = m_answers.find(tupleOf(key));
    if (found == m_answers.end())
        return false;
    const Answer& answer = found->second;
    if (answer.asked < m_earliest || now - answer.asked >= Window)
        return false;
    std::copy(answer.bytes.begin(), answer.bytes.end(), static_cast<unsigned char*>(buffer));
    return true;
}

void ReadCache::keep(const Key& key, Clock::time_point asked, const void* buffer)
{
    if (key.size > LongestAnswer)
        return;
    if (m_answers.size() >= MostAnswers)
        m_answers.clear();
    const auto* bytes = static_cast<const unsigned char*>(buffer);
    m_answers[tupleOf(key)] = {asked, {bytes, bytes + key.size}};
}

void ReadCache::forget(std::uint64_t address)
{
    auto answer = m_answers.lower_bound({address, 0, false});
    while (answer != m_answers.end() && std::get<0>(answer->first) == address)
        answer = m_answers.erase(answer);
}

} // namespace ZalCPP
