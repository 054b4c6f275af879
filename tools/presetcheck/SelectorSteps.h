#pragma once

#include <QString>

#include <vector>

class FeatureManager;

namespace PresetCheck {

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

    /// Takes all moves back, the last one first, because what a selector holds may depend on
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
    const FeatureManager& camera;
    std::vector<Move> moves;
};

} // namespace PresetCheck
