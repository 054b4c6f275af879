#include "tools/presetcheck/Findings.h"

#include "tools/presetcheck/JsonTree.h"

#include <algorithm>

namespace PresetCheck {

namespace {

/// Walks through a text once, from place to place.
class Place
{
public:
    explicit Place(const QByteArray& text) : m_text(text), m_at(byteOrderMark(text)) {}

    void moveTo(std::size_t offset)
    {
        for (const std::size_t end = std::min(offset, size()); m_at < end; ++m_at)
            step(m_text.at(static_cast<int>(m_at)));
    }

    int line = 1;
    int column = 1;

private:
    std::size_t size() const { return static_cast<std::size_t>(m_text.size()); }

    void step(char byte)
    {
        if (byte == '\n' || (byte == '\r' && !isLineFeed(m_at + 1))) {
            ++line;
            column = 1;
        } else if ((static_cast<unsigned char>(byte) & 0xC0U) != 0x80U) {
            // The bytes that continue a character do not count.
            ++column;
        }
    }

    bool isLineFeed(std::size_t offset) const
    {
        return offset < size() && m_text.at(static_cast<int>(offset)) == '\n';
    }

    const QByteArray& m_text;
    std::size_t m_at;
};

} // namespace

void Findings::add(const Rule& rule, std::size_t offset, const QString& message)
{
    if (contains(rule, offset))
        return;
    if (m_list.size() >= Limit) {
        ++m_omitted;
        return;
    }
    m_keys.insert({offset, rule.id});
    m_list.push_back({rule, offset, message});
}

bool Findings::contains(const Rule& rule, std::size_t offset) const
{
    return m_keys.count({offset, rule.id}) > 0;
}

std::vector<Finding> Findings::located(const QByteArray& text) const
{
    std::vector<Finding> result = m_list;
    std::stable_sort(result.begin(), result.end(),
                     [](const Finding& a, const Finding& b) { return a.offset < b.offset; });
    Place place(text);
    for (Finding& finding : result) {
        place.moveTo(finding.offset);
        finding.line = place.line;
        finding.column = place.column;
    }
    return result;
}

} // namespace PresetCheck
