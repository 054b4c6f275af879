#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace PresetCheck {

/// A value of a JSON file with the place where it stands. Values nested deeper than presets go are
/// left out.
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
    QString text;            ///< A text decoded, anything else plain as it is written.
    std::vector<JsonNode> children;

    /// A text, a number or a bool: what a feature can be set to.
    bool isPlain() const;
    /// The member that counts: the last one of that key. Null when there is none.
    const JsonNode* member(const QString& name) const;
};

struct JsonTree
{
    JsonNode root;           ///< Not to be used after an error.
    QString error;           ///< Empty when the text is JSON.
    std::size_t errorAt = 0; ///< Offset in bytes.
};

/// Reads a text by the letter of the JSON standard, apart from limits to numbers and nesting.
JsonTree readJson(const QByteArray& text);

} // namespace PresetCheck
