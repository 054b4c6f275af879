#pragma once

#include "tools/presetcheck/Findings.h"
#include "tools/presetcheck/JsonTree.h"

class FeatureManager;

namespace PresetCheck {

/// One value for one feature, against the camera as it is at this moment.
class ValueChecks
{
public:
    ValueChecks(const FeatureManager& camera, Findings& findings);

    /// Whether the camera has the feature, as one that can be set.
    bool checkFeature(const QString& feature, std::size_t at);

    /// What never changes while the camera is open: the feature, its type, its entries. False when
    /// the camera cannot take the value in any state, or when the file alone shows it to be wrong.
    bool checkFacts(const QString& feature, const JsonNode& value, std::size_t featureAt);

    /// What may change with other settings: access, availability, range. `situation` says under
    /// which selector's entry; it may be empty.
    void checkState(const QString& feature, const JsonNode& value, const QString& situation);
    /// The same for a value that settings before it may prepare the camera for: range only.
    void checkLimits(const QString& feature, const JsonNode& value, const QString& situation);

    /// Whether the enumeration has that entry, available or not.
    bool checkEntry(const QString& feature, const QString& entry, std::size_t at);

private:
    bool checkType(const QString& feature, const JsonNode& value);
    bool expect(bool fits, const QString& feature, const JsonNode& value, const QString& wanted);
    void checkNumber(const QString& feature, const JsonNode& value, const QString& situation);

    const FeatureManager& camera;
    Findings& findings;
};

} // namespace PresetCheck
