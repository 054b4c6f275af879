#pragma once

#include "tools/presetcheck/Findings.h"
#include "tools/presetcheck/JsonTree.h"
#include "trigger/PresetFile.h"

#include <QHash>
#include <QString>

#include <vector>

class FeatureManager;

namespace PresetCheck {

/// The members of the file's root by name, as the plugin takes them.
using RootMembers = QHash<QString, const JsonNode*>;

/// Checks what can be told from the file alone. The members point into `root`; there are none
/// unless that is an object.
RootMembers checkFile(const JsonNode& root, Findings& findings);

/// Checks what a preset asks of one camera: goes through the steps that the plugin would take, with
/// the selectors set as they would be, and writes nothing else. `node` is the preset's place in the
/// file. False when the selectors could not be put back.
bool checkOnCamera(const FeatureManager& camera, const PresetFile::Preset& preset,
                   const JsonNode& node, Findings& findings);

/// Whether the text stands for a limit of a feature.
bool isLimit(const QString& text);

/// Whether the text looks like one that stands for something, but does not stand for a limit.
bool isUnknownPlaceholder(const QString& text);

/// Checks one value for one feature against the camera as it is at this moment.
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

    /// The range alone, for a value that earlier settings may prepare the camera for.
    void checkLimits(const QString& feature, const JsonNode& value, const QString& situation);

    /// Whether the enumeration has that entry, available or not.
    bool checkEntry(const QString& feature, const QString& entry, std::size_t at);

private:
    bool checkType(const QString& feature, const JsonNode& value);
    bool expect(bool fits, const QString& feature, const JsonNode& value, const QString& wanted);
    void checkNumber(const QString& feature, const JsonNode& value, const QString& situation);

    const FeatureManager& m_camera;
    Findings& m_findings;
};

/// Moves the camera's selectors, and nothing else, and puts them back.
class SelectorSteps
{
public:
    explicit SelectorSteps(const FeatureManager& camera);
    /// Puts back what is left.
    ~SelectorSteps();
    SelectorSteps(const SelectorSteps&) = delete;
    SelectorSteps& operator=(const SelectorSteps&) = delete;

    /// Whether features depend on this one's value.
    bool isSelector(const QString& feature) const;

    /// False when the selector does not take the value, or is none.
    bool move(const QString& selector, const QString& value);

    /// Takes all moves back, the last one first, because the value of a selector may depend on
    /// another one. False when the camera did not follow.
    bool putBack();

private:
    QString valueOf(const QString& selector) const;
    bool write(const QString& selector, const QString& value) const;

    struct Move
    {
        QString selector;
        QString before;
    };
    const FeatureManager& m_camera;
    std::vector<Move> m_moves;
};

} // namespace PresetCheck
