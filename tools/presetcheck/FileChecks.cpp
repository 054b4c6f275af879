#include "tools/presetcheck/Checks.h"

#include "tools/presetcheck/Output.h"

#include <QSet>

namespace PresetCheck {

namespace {

using Kind = JsonNode::Kind;
using namespace PresetFile;

const QString SchemaKey = QStringLiteral("$schema");

bool isReserved(const QString& key)
{
    return key.startsWith(QLatin1Char('#'));
}

QString nameOf(Kind kind)
{
    switch (kind) {
    case Kind::Object:
        return QStringLiteral("an object");
    case Kind::Array:
        return QStringLiteral("a list");
    case Kind::Text:
        return QStringLiteral("a text");
    case Kind::Number:
        return QStringLiteral("a number");
    case Kind::Bool:
        return QStringLiteral("true or false");
    case Kind::Null:
        return QStringLiteral("null");
    }
    return {};
}

/// The fixed name that the author probably meant; empty for none, or when it is spelled right.
QString intendedFixedName(const QString& name)
{
    const auto simple = [](QString text) { return text.remove(QLatin1Char(' ')).toLower(); };
    for (const QString& candidate : {CustomPreset, TurnOffPreset, ResetPreset}) {
        if (name != candidate && simple(name) == simple(candidate))
            return candidate;
    }
    return {};
}

/// What can be told from the file alone.
class FileChecks
{
public:
    explicit FileChecks(Findings& findings) : m_findings(findings) {}

    void check(const JsonNode& root);

    const RootMembers& members() const { return m_members; }

private:
    using Members = std::vector<const JsonNode*>;

    /// The members that the plugin takes, in the file's order; the others are findings.
    Members membersOf(const JsonNode& object);
    void checkList(const JsonNode& list);
    void checkEntry(const JsonNode& entry, const QString& name);
    void checkUnlisted(const JsonNode& member);
    void checkPreset(const JsonNode& preset);
    void checkMember(const JsonNode& member);
    void checkText(const Rule& rule, const JsonNode& member, const QString& meaning);
    void checkList(const QString& feature, const JsonNode& elements);
    void checkStep(const QString& feature, const JsonNode& step, bool inList);
    void checkValue(const QString& feature, const JsonNode& value, bool inList);
    void checkAll(const JsonNode& value, bool inList);
    void checkDependent(const JsonNode& dependent);
    void checkNumber(const JsonNode& value);
    void checkPlaceholder(const JsonNode& value);

    Findings& m_findings;
    RootMembers m_members;
    QSet<QString> m_listed;
};

void FileChecks::check(const JsonNode& root)
{
    if (root.kind != Kind::Object) {
        m_findings.add(
            Rules::RootNoObject, root.at,
            QStringLiteral("The file must hold an object, not %1").arg(nameOf(root.kind)));
        return;
    }
    const Members rootMembers = membersOf(root);
    for (const JsonNode* member : rootMembers)
        m_members.insert(member->key, member);
    const JsonNode* list = m_members.value(ListKey);
    if (!list) {
        m_findings.add(Rules::PresetsMissing, root.at,
                       QStringLiteral("No \"#presets\" list, so no preset is offered"));
    } else if (list->kind != Kind::Array) {
        m_findings.add(
            Rules::PresetsNoArray, list->at,
            QStringLiteral("\"#presets\" must be a list of names, not %1, so no preset is offered")
                .arg(nameOf(list->kind)));
    } else {
        checkList(*list);
    }
    for (const JsonNode* member : rootMembers)
        checkUnlisted(*member);
}

FileChecks::Members FileChecks::membersOf(const JsonNode& object)
{
    QHash<QString, const JsonNode*> last;
    for (const JsonNode& child : object.children) {
        if (last.contains(child.key))
            m_findings.add(
                Rules::DuplicateKey, child.keyAt,
                QStringLiteral("%1 is here more than once; the plugin takes the last one")
                    .arg(quoted(child.key)));
        last.insert(child.key, &child);
    }
    Members result;
    for (const JsonNode& child : object.children) {
        if (last.value(child.key) == &child)
            result.push_back(&child);
    }
    return result;
}

void FileChecks::checkList(const JsonNode& list)
{
    for (const JsonNode& entry : list.children) {
        const bool isText = entry.kind == Kind::Text;
        if (!isText)
            m_findings.add(
                Rules::EntryNoText, entry.at,
                QStringLiteral("\"#presets\" must list names, not %1").arg(nameOf(entry.kind)));
        // For the plugin, what is not a text is the empty name.
        const QString name = isText ? entry.text : QString();
        if (isText || m_members.value(name))
            checkEntry(entry, name);
    }
}

void FileChecks::checkEntry(const JsonNode& entry, const QString& name)
{
    if (m_listed.contains(name)) {
        m_findings.add(Rules::EntryTwice, entry.at,
                       QStringLiteral("%1 is listed more than once").arg(quoted(name)));
        return;
    }
    m_listed.insert(name);
    if (const QString intended = intendedFixedName(name); !intended.isEmpty())
        m_findings.add(
            Rules::FixedNameSpelling, entry.at,
            QStringLiteral("%1 is a preset like any other; the one with a meaning of its "
                           "own is called \"%2\"")
                .arg(quoted(name), intended));
    const JsonNode* found = m_members.value(name);
    if (!found)
        m_findings.add(
            Rules::PresetMissing, entry.at,
            QStringLiteral("%1 is listed, but there is no such preset").arg(quoted(name)));
    else if (found->kind != Kind::Object)
        m_findings.add(Rules::PresetNoObject, found->at,
                       QStringLiteral("The preset %1 must be an object, not %2; it is not offered")
                           .arg(quoted(name), nameOf(found->kind)));
    else
        checkPreset(*found);
}

void FileChecks::checkUnlisted(const JsonNode& member)
{
    if (member.key == ListKey || member.key == SchemaKey || m_listed.contains(member.key))
        return;
    if (isReserved(member.key))
        m_findings.add(Rules::UnknownKey, member.keyAt,
                       QStringLiteral("%1 means nothing here; the file's own key is \"#presets\"")
                           .arg(quoted(member.key)));
    else if (const JsonNode* list = m_members.value(ListKey); list && list->kind == Kind::Array)
        m_findings.add(Rules::NeverOffered, member.keyAt,
                       QStringLiteral("%1 is not listed in \"#presets\", so it is never offered")
                           .arg(quoted(member.key)));
}

void FileChecks::checkPreset(const JsonNode& preset)
{
    for (const JsonNode* member : membersOf(preset))
        checkMember(*member);
}

void FileChecks::checkMember(const JsonNode& member)
{
    if (member.key == ToolTipKey)
        checkText(Rules::TooltipNoText, member, QStringLiteral("a text"));
    else if (member.key == CommandKey)
        checkText(Rules::ExecuteNoText, member, QStringLiteral("the name of a command"));
    else if (isReserved(member.key))
        m_findings.add(Rules::UnknownKey, member.keyAt,
                       QStringLiteral("%1 means nothing here; a preset's own keys are \"#tooltip\" "
                                      "and \"#execute\"")
                           .arg(quoted(member.key)));
    else if (member.kind == Kind::Object)
        checkStep(member.key, member, false);
    else if (member.kind == Kind::Array)
        checkList(member.key, member);
    else
        m_findings.add(Rules::SettingNoObject, member.at,
                       QStringLiteral("%1 must be an object with \"#value\", not %2; the plugin "
                                      "would write an empty text")
                           .arg(quoted(member.key), nameOf(member.kind)));
}

void FileChecks::checkText(const Rule& rule, const JsonNode& member, const QString& meaning)
{
    const bool mayBeEmpty = member.key == ToolTipKey;
    if (member.kind != Kind::Text)
        m_findings.add(rule, member.at,
                       QStringLiteral("%1 must be %2, not %3")
                           .arg(quoted(member.key), meaning, nameOf(member.kind)));
    else if (member.text.isEmpty() && !mayBeEmpty)
        m_findings.add(
            rule, member.at,
            QStringLiteral("%1 must be %2; this one is empty").arg(quoted(member.key), meaning));
}

void FileChecks::checkList(const QString& feature, const JsonNode& elements)
{
    if (elements.children.empty())
        m_findings.add(
            Rules::ListEmpty, elements.at,
            QStringLiteral("The list of %1 is empty, so it sets nothing").arg(quoted(feature)));
    for (const JsonNode& element : elements.children) {
        if (element.kind == Kind::Object)
            checkStep(feature, element, true);
        else
            m_findings.add(
                Rules::ElementNoObject, element.at,
                QStringLiteral("The list of %1 must hold objects with \"#value\", not %2; "
                               "the plugin would write an empty text")
                    .arg(quoted(feature), nameOf(element.kind)));
    }
}

void FileChecks::checkStep(const QString& feature, const JsonNode& step, bool inList)
{
    bool hasValue = false;
    for (const JsonNode* member : membersOf(step)) {
        if (member->key == ValueKey) {
            hasValue = true;
            checkValue(feature, *member, inList);
        } else if (isReserved(member->key)) {
            m_findings.add(
                Rules::UnknownKey, member->keyAt,
                QStringLiteral("%1 means nothing here; a setting's own key is \"#value\"")
                    .arg(quoted(member->key)));
        } else {
            checkDependent(*member);
        }
    }
    if (!hasValue)
        m_findings.add(Rules::ValueMissing, step.at,
                       QStringLiteral("%1 has no \"#value\"; the plugin would write an empty text")
                           .arg(quoted(feature)));
}

void FileChecks::checkValue(const QString& feature, const JsonNode& value, bool inList)
{
    if (value.kind == Kind::Array)
        m_findings.add(Rules::ValueNotPlain, value.at,
                       QStringLiteral("\"#value\" takes one value; for several, make %1 a list of "
                                      "objects with one \"#value\" each")
                           .arg(quoted(feature)));
    else if (!value.isPlain())
        m_findings.add(
            Rules::ValueNotPlain, value.at,
            QStringLiteral("\"#value\" must be a text, a number or true or false, not %1")
                .arg(nameOf(value.kind)));
    else if (value.text.startsWith(EveryEntry))
        checkAll(value, inList);
    else
        checkPlaceholder(value);
    checkNumber(value);
}

void FileChecks::checkAll(const JsonNode& value, bool inList)
{
    const QString rest = value.text.mid(EveryEntry.size());
    if (inList)
        m_findings.add(
            Rules::AllInList, value.at,
            QStringLiteral("\"<all>\" has no meaning in a list; the plugin would write it "
                           "as it is"));
    else if (rest == QLatin1String("_"))
        m_findings.add(Rules::AllNoEntry, value.at,
                       QStringLiteral("%1 names no entry, so the selector stays at the last one")
                           .arg(quoted(value.text)));
    else if (!rest.isEmpty() && !rest.startsWith(QLatin1Char('_')))
        m_findings.add(
            Rules::AllMalformed, value.at,
            QStringLiteral("%1 must be \"<all>\", or \"<all>_\" and an entry; the plugin "
                           "overlooks what is between")
                .arg(quoted(value.text)));
}

void FileChecks::checkDependent(const JsonNode& dependent)
{
    if (!dependent.isPlain())
        m_findings.add(Rules::DependentNotPlain, dependent.at,
                       QStringLiteral("%1 must be a text, a number or true or false, not %2")
                           .arg(quoted(dependent.key), nameOf(dependent.kind)));
    else if (dependent.text.startsWith(EveryEntry))
        m_findings.add(
            Rules::AllAsDependent, dependent.at,
            QStringLiteral("\"<all>\" has a meaning in \"#value\" only; the plugin would "
                           "write it as it is"));
    else
        checkPlaceholder(dependent);
    checkNumber(dependent);
}

void FileChecks::checkNumber(const JsonNode& value)
{
    if (value.kind == Kind::Number && isNumberLost(value.text))
        m_findings.add(
            Rules::NumberLost, value.at,
            QStringLiteral("%1 has more digits than the plugin keeps; it becomes %2")
                .arg(quoted(value.text), quoted(QString::number(value.text.toDouble(), 'f', 0))));
}

void FileChecks::checkPlaceholder(const JsonNode& value)
{
    if (value.kind == Kind::Text && isUnknownPlaceholder(value.text))
        m_findings.add(
            Rules::UnknownPlaceholder, value.at,
            QStringLiteral("%1 stands for nothing; there are \"<min>\", \"<max>\" and, in "
                           "\"#value\", \"<all>\"")
                .arg(quoted(value.text)));
}

} // namespace

RootMembers checkFile(const JsonNode& root, Findings& findings)
{
    FileChecks checks(findings);
    checks.check(root);
    return checks.members();
}

bool isLimit(const QString& text)
{
    return text == Minimum || text == Maximum;
}

bool isUnknownPlaceholder(const QString& text)
{
    return text.startsWith(QLatin1Char('<')) && text.endsWith(QLatin1Char('>')) && !isLimit(text);
}

} // namespace PresetCheck
