#include "tools/presetcheck/JsonTree.h"

#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <algorithm>
#include <cstring>

namespace PresetCheck {

namespace {

/// Root, preset, setting, element of a list, dependent setting.
constexpr std::size_t DeepestLevel = 5;

/// fromUtf8() drops a byte order mark at the start, which is a character here like any other. So it
/// is given one to drop.
QString decoded(const char* text, rapidjson::SizeType length)
{
    const QByteArray marked = "\xEF\xBB\xBF" + QByteArray(text, static_cast<int>(length));
    // The text may hold zeros, so its size is passed along.
    return QString::fromUtf8(marked.constData(), marked.size());
}

/// Builds the tree from the reader's events, which come without places. A token begins at the first
/// byte behind the previous token that is neither space nor punctuation; where a text ends is where
/// the reader stands.
class TreeBuilder : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, TreeBuilder>
{
public:
    TreeBuilder(const QByteArray& text, const rapidjson::MemoryStream& stream, std::size_t start,
                JsonNode& root)
        : m_text(text), m_stream(stream), m_start(start), m_end(start), m_root(root)
    {
    }

    // The reader calls these by their names.
    // NOLINTBEGIN(readability-identifier-naming)
    bool Null() { return addWord(JsonNode::Kind::Null, QStringLiteral("null")); }
    bool Bool(bool value)
    {
        return addWord(JsonNode::Kind::Bool,
                       value ? QStringLiteral("true") : QStringLiteral("false"));
    }

    bool RawNumber(const char* number, rapidjson::SizeType length, bool)
    {
        return addWord(JsonNode::Kind::Number,
                       QString::fromLatin1(number, static_cast<int>(length)));
    }

    bool String(const char* value, rapidjson::SizeType length, bool)
    {
        if (JsonNode* node = add(JsonNode::Kind::Text, tokenStart()))
            node->text = decoded(value, length);
        return finishText();
    }

    bool Key(const char* value, rapidjson::SizeType length, bool)
    {
        m_keyAt = tokenStart();
        m_key = decoded(value, length);
        return finishText();
    }

    bool StartObject() { return open(JsonNode::Kind::Object); }
    bool EndObject(rapidjson::SizeType) { return close(); }
    bool StartArray() { return open(JsonNode::Kind::Array); }
    bool EndArray(rapidjson::SizeType) { return close(); }
    // NOLINTEND(readability-identifier-naming)

private:
    std::size_t tokenStart() const
    {
        std::size_t at = m_end;
        while (std::strchr(" \t\r\n,:", m_text.at(static_cast<int>(at))) != nullptr)
            ++at;
        return at;
    }

    bool finishText()
    {
        m_end = m_start + m_stream.Tell();
        return true;
    }

    /// Null below the deepest level.
    JsonNode* add(JsonNode::Kind kind, std::size_t at)
    {
        if (m_skipped > 0 || m_parents.size() >= DeepestLevel)
            return nullptr;
        JsonNode* node = &m_root;
        if (!m_parents.empty())
            node = &m_parents.back()->children.emplace_back();
        node->kind = kind;
        node->at = static_cast<std::uint32_t>(at);
        node->keyAt = static_cast<std::uint32_t>(m_keyAt);
        node->key.swap(m_key);
        m_keyAt = 0;
        return node;
    }

    /// A token whose length in the file is that of the word.
    bool addWord(JsonNode::Kind kind, const QString& word)
    {
        const std::size_t at = tokenStart();
        if (JsonNode* node = add(kind, at))
            node->text = word;
        m_end = at + static_cast<std::size_t>(word.size());
        return true;
    }

    bool open(JsonNode::Kind kind)
    {
        const std::size_t at = tokenStart();
        // The pointers hold, because nothing is added to a parent while its last child is open.
        if (JsonNode* node = add(kind, at))
            m_parents.push_back(node);
        else
            ++m_skipped;
        m_end = at + 1;
        return true;
    }

    bool close()
    {
        if (m_skipped > 0)
            --m_skipped;
        else
            m_parents.pop_back();
        m_end = tokenStart() + 1;
        return true;
    }

    const QByteArray& m_text;
    const rapidjson::MemoryStream& m_stream;
    const std::size_t m_start;
    std::size_t m_end;
    JsonNode& m_root;
    std::vector<JsonNode*> m_parents;
    std::size_t m_skipped = 0;
    QString m_key;
    std::size_t m_keyAt = 0;
};

/// The reader's sentence, made to fit into one of ours.
QString errorText(rapidjson::ParseErrorCode code)
{
    QString text = QString::fromLatin1(rapidjson::GetParseError_En(code));
    text[0] = text.at(0).toLower();
    text.chop(1);
    return text;
}

} // namespace

bool JsonNode::isPlain() const
{
    return kind == Kind::Text || kind == Kind::Number || kind == Kind::Bool;
}

const JsonNode* JsonNode::member(const QString& name) const
{
    const auto found = std::find_if(children.rbegin(), children.rend(),
                                    [&](const JsonNode& child) { return child.key == name; });
    return found == children.rend() ? nullptr : &*found;
}

JsonTree readJson(const QByteArray& text)
{
    JsonTree tree;
    const std::size_t start = byteOrderMark(text);
    rapidjson::MemoryStream stream(text.constData() + start,
                                   static_cast<std::size_t>(text.size()) - start);
    TreeBuilder builder(text, stream, start, tree.root);
    rapidjson::Reader reader;
    // Iterative, so that deep nesting does not exhaust the stack.
    constexpr unsigned flags = rapidjson::kParseIterativeFlag |
                               rapidjson::kParseValidateEncodingFlag |
                               rapidjson::kParseNumbersAsStringsFlag;
    reader.Parse<flags>(stream, builder);
    if (reader.HasParseError()) {
        tree.error = errorText(reader.GetParseErrorCode());
        tree.errorAt = start + reader.GetErrorOffset();
    }
    return tree;
}

std::size_t byteOrderMark(const QByteArray& text)
{
    return text.startsWith("\xEF\xBB\xBF") ? 3 : 0;
}

} // namespace PresetCheck
