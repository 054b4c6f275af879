#pragma once

#include "tools/presetcheck/Findings.h"
#include "tools/presetcheck/JsonTree.h"
#include "tools/presetcheck/SelectorSteps.h"
#include "trigger/PresetFile.h"

class FeatureManager;

namespace PresetCheck {

/// What a preset does to one camera: goes through the steps that the plugin would take, with the
/// selectors set as they would be, and writes nothing else.
class CameraChecks
{
public:
    CameraChecks(const FeatureManager& camera, Findings& findings);

    /// `node` is the preset's place in the file. False when the camera did not follow when its
    /// selectors were put back.
    bool check(const PresetFile::Preset& preset, const JsonNode& node);

private:
    /// A step and its places in the file.
    struct Placed
    {
        const PresetFile::Step& step;
        std::size_t keyAt;
        const JsonNode& object;
        const JsonNode& value; ///< The object itself when it has no "#value".
    };

    void checkStep(const PresetFile::Step& step, std::size_t keyAt, const JsonNode& object);
    void checkOneValue(const Placed& placed);
    void checkForEveryEntry(const Placed& placed);
    void checkAtEveryEntry(const Placed& placed);
    void checkWithoutSelector(const Placed& placed);
    bool moveSelector(const QString& selector, const JsonNode& value, const QString& situation,
                      Findings& out);
    void checkDependents(const Placed& placed, const QString& situation, Findings& out);
    void checkDependent(const QString& feature, const JsonNode& value, const QString& situation,
                        Findings& out);
    void checkDependentFacts(const Placed& placed);
    void checkSetting(const QString& feature, const JsonNode& value, const QString& situation,
                      Findings& out);
    void checkCommand(const QString& command, const JsonNode& node);
    QString numberFor(const QString& feature, const QString& text) const;
    bool goesWithSelected(const PresetFile::Step& step) const;
    bool governs(const QString& selector, const QString& feature) const;

    const FeatureManager& camera;
    Findings& findings;
    SelectorSteps selectors;
    /// A setting before this one, other than a selector, may have prepared the camera for it.
    bool isPrepared = false;
};

} // namespace PresetCheck
