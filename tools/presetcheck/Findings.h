#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

namespace PresetCheck {

enum class Severity
{
    Error,  ///< The plugin skips or misreads this.
    Warning ///< This works as written, but hardly as meant, or not in every state of the camera.
};

/// One kind of mistake.
struct Rule
{
    const char* id; ///< Part of the output's format.
    Severity severity;
};

/// Every rule: its name here, its id, its severity. docs/presets.md explains each.
#define PRESETCHECK_RULES(RULE)                                                                    \
    /* The file. */                                                                                \
    RULE(ParseError, "parse-error", Error)                                                         \
    RULE(StrictJson, "strict-json", Error)                                                         \
    RULE(RootNoObject, "root-no-object", Error)                                                    \
    RULE(DuplicateKey, "duplicate-key", Error)                                                     \
    RULE(UnknownKey, "unknown-key", Error)                                                         \
    /* The list of presets. */                                                                     \
    RULE(PresetsMissing, "presets-missing", Error)                                                 \
    RULE(PresetsNoArray, "presets-no-array", Error)                                                \
    RULE(EntryNoText, "entry-no-text", Error)                                                      \
    RULE(EntryTwice, "entry-twice", Warning)                                                       \
    RULE(FixedNameSpelling, "fixed-name-spelling", Warning)                                        \
    RULE(PresetMissing, "preset-missing", Error)                                                   \
    RULE(PresetNoObject, "preset-no-object", Error)                                                \
    RULE(NeverOffered, "never-offered", Warning)                                                   \
    /* A preset. */                                                                                \
    RULE(TooltipNoText, "tooltip-no-text", Error)                                                  \
    RULE(ExecuteNoText, "execute-no-text", Error)                                                  \
    RULE(SettingNoObject, "setting-no-object", Error)                                              \
    RULE(ListEmpty, "list-empty", Warning)                                                         \
    RULE(ElementNoObject, "element-no-object", Error)                                              \
    RULE(ValueMissing, "value-missing", Error)                                                     \
    RULE(ValueNotPlain, "value-not-plain", Error)                                                  \
    RULE(DependentNotPlain, "dependent-not-plain", Error)                                          \
    RULE(NumberLost, "number-lost", Error)                                                         \
    RULE(AllInList, "all-in-list", Error)                                                          \
    RULE(AllAsDependent, "all-as-dependent", Error)                                                \
    RULE(AllNoEntry, "all-no-entry", Error)                                                        \
    RULE(AllMalformed, "all-malformed", Error)                                                     \
    RULE(UnknownPlaceholder, "unknown-placeholder", Warning)                                       \
    /* The camera. */                                                                              \
    RULE(UnknownFeature, "unknown-feature", Error)                                                 \
    RULE(NotSettable, "not-settable", Error)                                                       \
    RULE(ReadOnly, "read-only", Error)                                                             \
    RULE(NotWritableNow, "not-writable-now", Warning)                                              \
    RULE(WrongType, "wrong-type", Error)                                                           \
    RULE(UnknownEntry, "unknown-entry", Error)                                                     \
    RULE(UnavailableEntry, "unavailable-entry", Warning)                                           \
    RULE(OutOfRange, "out-of-range", Warning)                                                      \
    RULE(OffIncrement, "off-increment", Error)                                                     \
    RULE(AllNoEnumeration, "all-no-enumeration", Error)                                            \
    RULE(AllNoSelector, "all-no-selector", Warning)                                                \
    RULE(NotSelected, "not-selected", Warning)                                                     \
    RULE(ExecuteNoCommand, "execute-no-command", Error)

namespace Rules {

#define PRESETCHECK_RULE(name, id, severity) inline constexpr Rule name{id, Severity::severity};
PRESETCHECK_RULES(PRESETCHECK_RULE)
#undef PRESETCHECK_RULE

} // namespace Rules

/// One mistake at one place of a file.
struct Finding
{
    Rule rule;
    std::size_t offset; ///< In bytes from the start of the file.
    QString message;    ///< One line, without a full stop.
    int line = 1;       ///< From 1.
    int column = 1;     ///< From 1, in characters.
};

/// Collects findings in any order, at most one of each rule for a place.
class Findings
{
public:
    /// More than anybody reads; findings beyond it are only counted.
    static constexpr std::size_t Limit = 1000;

    void add(const Rule& rule, std::size_t offset, const QString& message);

    /// The findings in the file's order, each with its line and column in `text`.
    std::vector<Finding> located(const QByteArray& text) const;

    const std::vector<Finding>& collected() const { return m_list; }
    bool contains(const Rule& rule, std::size_t offset) const;
    int omitted() const { return m_omitted; }

private:
    using Key = std::pair<std::size_t, std::string_view>;

    std::vector<Finding> m_list;
    std::set<Key> m_keys;
    int m_omitted = 0;
};

/// What there is to say about one presets file.
struct Report
{
    QString file;
    /// The presets that the plugin puts into its box, in that order.
    QStringList offered;
    /// In the file's order.
    std::vector<Finding> findings;
    /// Findings beyond the limit.
    int omitted = 0;
    /// The camera's selectors are where they were.
    bool cameraFollowed = true;
};

} // namespace PresetCheck
