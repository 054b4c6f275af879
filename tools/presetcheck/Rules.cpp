#include "tools/presetcheck/Rules.h"

namespace PresetCheck {

const std::vector<Rule>& allRules()
{
    using namespace Rules;
    static const std::vector<Rule> rules = {
        ParseError,        StrictJson,         RootNoObject,    DuplicateKey,     UnknownKey,
        PresetsMissing,    PresetsNoArray,     EntryNoText,     EntryTwice,       FixedNameSpelling,
        PresetMissing,     PresetNoObject,     NeverOffered,    TooltipNoText,    ExecuteNoText,
        SettingNoObject,   ListEmpty,          ElementNoObject, ValueMissing,     ValueNotPlain,
        DependentNotPlain, NumberLost,         AllInList,       AllAsDependent,   AllNoEntry,
        AllMalformed,      UnknownPlaceholder, UnknownFeature,  NotSettable,      ReadOnly,
        NotWritableNow,    WrongType,          UnknownEntry,    UnavailableEntry, OutOfRange,
        OffIncrement,      AllNoEnumeration,   AllNoSelector,   NotSelected,      ExecuteNoCommand};
    return rules;
}

} // namespace PresetCheck
