#include "tools/presetcheck/Findings.h"

#include <algorithm>

namespace PresetCheck {

namespace {

constexpr int LongestQuote = 60;

/// Walks through a text once, from place to place.
class Place
{
public:
    explicit Place(const QByteArray& wholeText) : text(wholeText), at(byteOrderMark(wholeText)) {}

    void moveTo(std::size_t offset)
    {
        for (const std::size_t end = std::min(offset, size()); at < end; ++at)
            step(text.at(static_cast<int>(at)));
    }

    int line = 1;
    int column = 1;

private:
    std::size_t size() const { return static_cast<std::size_t>(text.size()); }

    void step(char byte)
    {
        if (byte == '\n' || (byte == '\r' && !isLineFeed(at + 1))) {
            ++line;
            column = 1;
        } else if ((static_cast<unsigned char>(byte) & 0xC0U) != 0x80U) {
            // The first byte of a character; what continues it does not count.
            ++column;
        }
    }

    bool isLineFeed(std::size_t offset) const
    {
        return offset < size() && text.at(static_cast<int>(offset)) == '\n';
    }

    const QByteArray& text;
    std::size_t at;
};

} // namespace

void Findings::add(const Rule& rule, std::size_t offset, const QString& message)
{
    if (contains(rule, offset))
        return;
    if (list.size() >= Limit) {
        ++left;
        return;
    }
    keys.insert({offset, rule.id});
    list.push_back({rule, offset, message});
}

bool Findings::contains(const Rule& rule, std::size_t offset) const
{
    return keys.count({offset, rule.id}) > 0;
}

std::vector<Finding> Findings::located(const QByteArray& text) const
{
    std::vector<Finding> result = list;
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

QString quoted(const QString& text)
{
    QString shown =
        text.size() > LongestQuote ? text.left(LongestQuote) + QStringLiteral("...") : text;
    for (QChar& character : shown) {
        if (!character.isPrint() && !character.isSurrogate())
            character = QChar::ReplacementCharacter;
    }
    return QLatin1Char('"') + shown + QLatin1Char('"');
}

std::size_t byteOrderMark(const QByteArray& text)
{
    return text.startsWith("\xEF\xBB\xBF") ? 3 : 0;
}

} // namespace PresetCheck
