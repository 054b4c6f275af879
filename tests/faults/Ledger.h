#pragma once

#include "tests/faults/FaultyCamera.h"

#include <QStringList>

namespace Faults {

/// A write that the session's user asks for in the step at hand.
struct Ask
{
    QString feature;
    QString value;
    QString entry; ///< The selector entry that the user sees; empty without a selector.
};

/// Where a step stands when its writes are judged.
struct Circumstances
{
    std::vector<Ask> asks;
    Failures failures;        ///< Of this step.
    Failures earlierFailures; ///< Of the steps before.
    Failures whileBound;      ///< Those of them in steps in which a form is bound.
    Failures whileChosen;     ///< Those of features that the user asked to change in that step.
    bool appliesPreset = false;
};

/// A write that nobody asked for and that a rule prescribes all the same. It counts only in the
/// situation that the rule speaks of.
struct Exception
{
    const char* rule;
    bool (*covers)(const Write& write, const Circumstances& step);
};

/// All of them.
const std::vector<Exception>& exceptions();

/// Whether the numbers, or else the texts, are the same.
bool isSameValue(const QString& left, const QString& right);

/// The writes of that step that are neither asked for nor prescribed, one line each.
QStringList unaskedWrites(const std::vector<Write>& writes, const Circumstances& step);

/// What was asked for and is not among the writes.
QStringList unanswered(const std::vector<Ask>& asks, const std::vector<Write>& writes);

} // namespace Faults
