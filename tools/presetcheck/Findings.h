#pragma once

#include "tools/presetcheck/Rules.h"

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

namespace PresetCheck {

/// One mistake at one place of a file.
struct Finding
{
    Rule rule;
    std::size_t offset; ///< In bytes from the start of the file.
    QString message;    ///< One line, without a full stop.
    int line = 1;       ///< From 1.
    int column = 1;     ///< From 1, in characters.
};

/// Collects findings in any order, one of a kind for each place.
class Findings
{
public:
    /// More than anybody reads; what comes after is only counted.
    static constexpr std::size_t Limit = 1000;

    void add(const Rule& rule, std::size_t offset, const QString& message);

    /// What was collected: in the file's order, with line and column of each in `text`.
    std::vector<Finding> located(const QByteArray& text) const;

    const std::vector<Finding>& collected() const { return list; }
    bool contains(const Rule& rule, std::size_t offset) const;
    int omitted() const { return left; }

private:
    using Key = std::pair<std::size_t, std::string_view>;

    std::vector<Finding> list;
    std::set<Key> keys;
    int left = 0;
};

/// A text from the file for use within a message: in quotes, short, and on one line.
QString quoted(const QString& text);

/// Length of the byte order mark that the text begins with; 0 when it has none.
std::size_t byteOrderMark(const QByteArray& text);

} // namespace PresetCheck
