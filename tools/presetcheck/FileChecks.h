#pragma once

#include "tools/presetcheck/Findings.h"
#include "tools/presetcheck/JsonTree.h"

#include <QHash>

namespace PresetCheck {

/// What can be told from the file alone.
class FileChecks
{
public:
    explicit FileChecks(Findings& findings);

    void check(const JsonNode& root);

    /// The preset of that name at the root, as the plugin takes it; null when there is none.
    const JsonNode* preset(const QString& name) const;

private:
    using Members = std::vector<const JsonNode*>;

    /// The members that count, in the file's order; complains about the others.
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

    Findings& findings;
    QHash<QString, const JsonNode*> members;
    QHash<QString, bool> listed;
};

} // namespace PresetCheck
