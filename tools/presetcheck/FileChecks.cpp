#include "tools/presetcheck/FileChecks.h"

#include "tools/presetcheck/Numbers.h"
#include "tools/presetcheck/Placeholders.h"
#include "trigger/PresetFile.h"

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

/// The fixed name that the user probably meant; empty when there is none, or it is spelled right.
QString intendedFixedName(const QString& name)
{
    static const QStringList fixed = {QStringLiteral("Custom"), QStringLiteral("Turn Off All"),
                                      QStringLiteral("Reset All")};
    const auto simple = [](QString text) { return text.remove(QLatin1Char(' ')).toLower(); };
    for (const QString& candidate : fixed) {
        if (name != candidate && simple(name) == simple(candidate))
            return candidate;
    }
    return {};
}

} // namespace

FileChecks::FileChecks(Findings& collected) : findings(collected) {}

const JsonNode* FileChecks::preset(const QString& name) const
{
    return members.value(name);
}

void FileChecks::check(const JsonNode& root)
{
    if (root.kind != Kind::Object) {
        findings.add(Rules::RootNoObject, root.at,
                     QStringLiteral("The file must hold an object, not %1").arg(nameOf(root.kind)));
        return;
    }
    const Members rootMembers = membersOf(root);
    for (const JsonNode* member : rootMembers)
        members.insert(member->key, member);
    const JsonNode* list = members.value(ListKey);
    if (!list) {
        findings.add(Rules::PresetsMissing, root.at,
                     QStringLiteral("No \"#presets\" list, so no preset is offered"));
    } else if (list->kind != Kind::Array) {
        findings.add(Rules::PresetsNoArray, list->at,
                     QStringLiteral("\"#presets\" must be a list of names, not %1, so no preset is "
                                    "offered")
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
            findings.add(Rules::DuplicateKey, child.keyAt,
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
            findings.add(
                Rules::EntryNoText, entry.at,
                QStringLiteral("\"#presets\" must list names, not %1").arg(nameOf(entry.kind)));
        // The plugin takes what is no text for the empty name.
        const QString name = isText ? entry.text : QString();
        if (isText || preset(name))
            checkEntry(entry, name);
    }
}

void FileChecks::checkEntry(const JsonNode& entry, const QString& name)
{
    if (listed.contains(name)) {
        findings.add(Rules::EntryTwice, entry.at,
                     QStringLiteral("%1 is listed more than once").arg(quoted(name)));
        return;
    }
    listed.insert(name, true);
    if (const QString intended = intendedFixedName(name); !intended.isEmpty())
        findings.add(Rules::FixedNameSpelling, entry.at,
                     QStringLiteral("%1 is a preset like any other; the one with a meaning of its "
                                    "own is called \"%2\"")
                         .arg(quoted(name), intended));
    const JsonNode* found = preset(name);
    if (!found)
        findings.add(Rules::PresetMissing, entry.at,
                     QStringLiteral("%1 is listed, but there is no such preset").arg(quoted(name)));
    else if (found->kind != Kind::Object)
        findings.add(Rules::PresetNoObject, found->at,
                     QStringLiteral("The preset %1 must be an object, not %2; it is not offered")
                         .arg(quoted(name), nameOf(found->kind)));
    else
        checkPreset(*found);
}

void FileChecks::checkUnlisted(const JsonNode& member)
{
    if (member.key == ListKey || member.key == SchemaKey || listed.contains(member.key))
        return;
    if (isReserved(member.key))
        findings.add(Rules::UnknownKey, member.keyAt,
                     QStringLiteral("%1 means nothing here; the file's own key is \"#presets\"")
                         .arg(quoted(member.key)));
    else if (preset(ListKey) && preset(ListKey)->kind == Kind::Array)
        findings.add(Rules::NeverOffered, member.keyAt,
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
        findings.add(Rules::UnknownKey, member.keyAt,
                     QStringLiteral("%1 means nothing here; a preset's own keys are \"#tooltip\" "
                                    "and \"#execute\"")
                         .arg(quoted(member.key)));
    else if (member.kind == Kind::Object)
        checkStep(member.key, member, false);
    else if (member.kind == Kind::Array)
        checkList(member.key, member);
    else
        findings.add(Rules::SettingNoObject, member.at,
                     QStringLiteral("%1 must be an object with \"#value\", not %2; the plugin "
                                    "would write an empty text")
                         .arg(quoted(member.key), nameOf(member.kind)));
}

void FileChecks::checkText(const Rule& rule, const JsonNode& member, const QString& meaning)
{
    const bool mayBeEmpty = member.key == ToolTipKey;
    if (member.kind != Kind::Text)
        findings.add(rule, member.at,
                     QStringLiteral("%1 must be %2, not %3")
                         .arg(quoted(member.key), meaning, nameOf(member.kind)));
    else if (member.text.isEmpty() && !mayBeEmpty)
        findings.add(
            rule, member.at,
            QStringLiteral("%1 must be %2; this one is empty").arg(quoted(member.key), meaning));
}

void FileChecks::checkList(const QString& feature, const JsonNode& elements)
{
    if (elements.children.empty())
        findings.add(
            Rules::ListEmpty, elements.at,
            QStringLiteral("The list of %1 is empty, so it sets nothing").arg(quoted(feature)));
    for (const JsonNode& element : elements.children) {
        if (element.kind == Kind::Object)
            checkStep(feature, element, true);
        else
            findings.add(Rules::ElementNoObject, element.at,
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
            findings.add(Rules::UnknownKey, member->keyAt,
                         QStringLiteral("%1 means nothing here; a setting's own key is \"#value\"")
                             .arg(quoted(member->key)));
        } else {
            checkDependent(*member);
        }
    }
    if (!hasValue)
        findings.add(Rules::ValueMissing, step.at,
                     QStringLiteral("%1 has no \"#value\"; the plugin would write an empty text")
                         .arg(quoted(feature)));
}

void FileChecks::checkValue(const QString& feature, const JsonNode& value, bool inList)
{
    if (value.kind == Kind::Array)
        findings.add(Rules::ValueNotPlain, value.at,
                     QStringLiteral("\"#value\" takes one value; for several, make %1 a list of "
                                    "objects with one \"#value\" each")
                         .arg(quoted(feature)));
    else if (!value.isPlain())
        findings.add(Rules::ValueNotPlain, value.at,
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
        findings.add(Rules::AllInList, value.at,
                     QStringLiteral("\"<all>\" has no meaning in a list; the plugin would write it "
                                    "as it is"));
    else if (rest == QLatin1String("_"))
        findings.add(Rules::AllNoEntry, value.at,
                     QStringLiteral("%1 names no entry, so the selector stays at the last one")
                         .arg(quoted(value.text)));
    else if (!rest.isEmpty() && !rest.startsWith(QLatin1Char('_')))
        findings.add(Rules::AllMalformed, value.at,
                     QStringLiteral("%1 must be \"<all>\", or \"<all>_\" and an entry; the plugin "
                                    "overlooks what is between")
                         .arg(quoted(value.text)));
}

void FileChecks::checkDependent(const JsonNode& dependent)
{
    if (!dependent.isPlain())
        findings.add(Rules::DependentNotPlain, dependent.at,
                     QStringLiteral("%1 must be a text, a number or true or false, not %2")
                         .arg(quoted(dependent.key), nameOf(dependent.kind)));
    else if (dependent.text.startsWith(EveryEntry))
        findings.add(Rules::AllAsDependent, dependent.at,
                     QStringLiteral("\"<all>\" has a meaning in \"#value\" only; the plugin would "
                                    "write it as it is"));
    else
        checkPlaceholder(dependent);
    checkNumber(dependent);
}

void FileChecks::checkNumber(const JsonNode& value)
{
    if (value.kind == Kind::Number && isNumberLost(value.text))
        findings.add(
            Rules::NumberLost, value.at,
            QStringLiteral("%1 has more digits than the plugin keeps; it becomes %2")
                .arg(quoted(value.text), quoted(QString::number(value.text.toDouble(), 'f', 0))));
}

void FileChecks::checkPlaceholder(const JsonNode& value)
{
    if (value.kind == Kind::Text && Placeholders::isBracketed(value.text) &&
        !Placeholders::isLimit(value.text))
        findings.add(Rules::UnknownPlaceholder, value.at,
                     QStringLiteral("%1 stands for nothing; there are \"<min>\", \"<max>\" and, in "
                                    "\"#value\", \"<all>\"")
                         .arg(quoted(value.text)));
}

} // namespace PresetCheck
