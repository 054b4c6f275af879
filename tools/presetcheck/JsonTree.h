#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace PresetCheck {

/// A value of a JSON file and where it stands. Values nested deeper than presets go are left out.
struct JsonNode
{
    enum class Kind : std::uint8_t
    {
        Object,
        Array,
        Text,
        Number,
        Bool,
        Null
    };

    Kind kind = Kind::Null;
    std::uint32_t at = 0;    ///< Offset of the value in bytes.
    std::uint32_t keyAt = 0; ///< Offset of the key; 0 in an array.
    QString key;             ///< Empty in an array.
    QString text;            ///< A text is decoded, any other plain value as it is written.
    std::vector<JsonNode> children;

    /// A text, a number or a bool: what a feature can be set to.
    bool isPlain() const;
    /// The last member of that key, which is the one that counts. Null when there is none.
    const JsonNode* member(const QString& name) const;
};

struct JsonTree
{
    JsonNode root;           ///< Undefined after an error.
    QString error;           ///< Empty when the text is JSON.
    std::size_t errorAt = 0; ///< Offset in bytes.
};

/// Reads a text by the letter of the JSON standard, but without limits to numbers and nesting.
JsonTree readJson(const QByteArray& text);

/// Length of the byte order mark that the text begins with; 0 when it has none.
std::size_t byteOrderMark(const QByteArray& text);

} // namespace PresetCheck
