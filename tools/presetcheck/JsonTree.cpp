#include "tools/presetcheck/JsonTree.h"

#include "tools/presetcheck/Findings.h"

#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <algorithm>
#include <cstring>

namespace PresetCheck {

namespace {

/// Root, preset, setting, element of a list, dependent setting.
constexpr std::size_t DeepestLevel = 5;

/// A byte order mark within the file is a character like any other, but fromUtf8() drops the first.
QString decoded(const char* text, rapidjson::SizeType length)
{
    const QByteArray marked = "\xEF\xBB\xBF" + QByteArray(text, static_cast<int>(length));
    // With its size, because the text may hold zeros.
    return QString::fromUtf8(marked.constData(), marked.size());
}

/// Builds the tree from the reader's events. A token begins at the first byte after the one before
/// that is neither space nor punctuation; the reader says where a text ends.
class TreeBuilder : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, TreeBuilder>
{
public:
    TreeBuilder(const QByteArray& wholeText, const rapidjson::MemoryStream& reader,
                std::size_t textStart, JsonNode& root)
        : text(wholeText), stream(reader), start(textStart), end(textStart), result(root)
    {
    }

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
        keyAt = tokenStart();
        key = decoded(value, length);
        return finishText();
    }

    bool StartObject() { return open(JsonNode::Kind::Object); }
    bool EndObject(rapidjson::SizeType) { return close(); }
    bool StartArray() { return open(JsonNode::Kind::Array); }
    bool EndArray(rapidjson::SizeType) { return close(); }

private:
    std::size_t tokenStart() const
    {
        std::size_t at = end;
        while (std::strchr(" \t\r\n,:", text.at(static_cast<int>(at))) != nullptr)
            ++at;
        return at;
    }

    bool finishText()
    {
        end = start + stream.Tell();
        return true;
    }

    /// Null below the deepest level.
    JsonNode* add(JsonNode::Kind kind, std::size_t at)
    {
        if (skipped > 0 || parents.size() >= DeepestLevel)
            return nullptr;
        JsonNode* node = &result;
        if (!parents.empty())
            node = &parents.back()->children.emplace_back();
        node->kind = kind;
        node->at = static_cast<std::uint32_t>(at);
        node->keyAt = static_cast<std::uint32_t>(keyAt);
        node->key.swap(key);
        keyAt = 0;
        return node;
    }

    /// A token that is written as it is read.
    bool addWord(JsonNode::Kind kind, const QString& word)
    {
        const std::size_t at = tokenStart();
        if (JsonNode* node = add(kind, at))
            node->text = word;
        end = at + static_cast<std::size_t>(word.size());
        return true;
    }

    bool open(JsonNode::Kind kind)
    {
        const std::size_t at = tokenStart();
        // A parent's children do not move while the last of them is open, so pointers hold.
        if (JsonNode* node = add(kind, at))
            parents.push_back(node);
        else
            ++skipped;
        end = at + 1;
        return true;
    }

    bool close()
    {
        if (skipped > 0)
            --skipped;
        else
            parents.pop_back();
        end = tokenStart() + 1;
        return true;
    }

    const QByteArray& text;
    const rapidjson::MemoryStream& stream;
    const std::size_t start;
    std::size_t end;
    JsonNode& result;
    std::vector<JsonNode*> parents;
    std::size_t skipped = 0;
    QString key;
    std::size_t keyAt = 0;
};

/// The reader's sentence as part of one of ours.
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
    // Iterative, because nesting is the file's choice and the stack is ours.
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

} // namespace PresetCheck
