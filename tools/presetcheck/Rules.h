#pragma once

#include <vector>

namespace PresetCheck {

enum class Severity
{
    Error,  ///< The plugin skips or misreads this.
    Warning ///< This works as written, but hardly as meant, or not in every state of the camera.
};

/// One kind of mistake. The id is part of the output's format; docs/presets.md explains each.
struct Rule
{
    const char* id;
    Severity severity;
};

namespace Rules {

// The file.
inline constexpr Rule ParseError{"parse-error", Severity::Error};
inline constexpr Rule StrictJson{"strict-json", Severity::Error};
inline constexpr Rule RootNoObject{"root-no-object", Severity::Error};
inline constexpr Rule DuplicateKey{"duplicate-key", Severity::Error};
inline constexpr Rule UnknownKey{"unknown-key", Severity::Error};

// The list of presets.
inline constexpr Rule PresetsMissing{"presets-missing", Severity::Error};
inline constexpr Rule PresetsNoArray{"presets-no-array", Severity::Error};
inline constexpr Rule EntryNoText{"entry-no-text", Severity::Error};
inline constexpr Rule EntryTwice{"entry-twice", Severity::Warning};
inline constexpr Rule FixedNameSpelling{"fixed-name-spelling", Severity::Warning};
inline constexpr Rule PresetMissing{"preset-missing", Severity::Error};
inline constexpr Rule PresetNoObject{"preset-no-object", Severity::Error};
inline constexpr Rule NeverOffered{"never-offered", Severity::Warning};

// A preset.
inline constexpr Rule TooltipNoText{"tooltip-no-text", Severity::Error};
inline constexpr Rule ExecuteNoText{"execute-no-text", Severity::Error};
inline constexpr Rule SettingNoObject{"setting-no-object", Severity::Error};
inline constexpr Rule ListEmpty{"list-empty", Severity::Warning};
inline constexpr Rule ElementNoObject{"element-no-object", Severity::Error};
inline constexpr Rule ValueMissing{"value-missing", Severity::Error};
inline constexpr Rule ValueNotPlain{"value-not-plain", Severity::Error};
inline constexpr Rule DependentNotPlain{"dependent-not-plain", Severity::Error};
inline constexpr Rule NumberLost{"number-lost", Severity::Error};
inline constexpr Rule AllInList{"all-in-list", Severity::Error};
inline constexpr Rule AllAsDependent{"all-as-dependent", Severity::Error};
inline constexpr Rule AllNoEntry{"all-no-entry", Severity::Error};
inline constexpr Rule AllMalformed{"all-malformed", Severity::Error};
inline constexpr Rule UnknownPlaceholder{"unknown-placeholder", Severity::Warning};

// The camera.
inline constexpr Rule UnknownFeature{"unknown-feature", Severity::Error};
inline constexpr Rule NotSettable{"not-settable", Severity::Error};
inline constexpr Rule ReadOnly{"read-only", Severity::Error};
inline constexpr Rule NotWritableNow{"not-writable-now", Severity::Warning};
inline constexpr Rule WrongType{"wrong-type", Severity::Error};
inline constexpr Rule UnknownEntry{"unknown-entry", Severity::Error};
inline constexpr Rule UnavailableEntry{"unavailable-entry", Severity::Warning};
inline constexpr Rule OutOfRange{"out-of-range", Severity::Warning};
inline constexpr Rule OffIncrement{"off-increment", Severity::Error};
inline constexpr Rule AllNoEnumeration{"all-no-enumeration", Severity::Error};
inline constexpr Rule AllNoSelector{"all-no-selector", Severity::Warning};
inline constexpr Rule NotSelected{"not-selected", Severity::Warning};
inline constexpr Rule ExecuteNoCommand{"execute-no-command", Severity::Error};

} // namespace Rules

/// Every rule, in the order above.
const std::vector<Rule>& allRules();

} // namespace PresetCheck
