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
    Failures whileBound;      ///< Those of them while the form in use was bound.
    Failures inDialog;        ///< Those of them since the dialog was bound; none without it.
    Failures whileChosen;     ///< Those of features whose last choice in that form failed.
    bool appliesPreset = false;
    bool hasDialog = false; ///< Whether the dialog was bound in a step before.
};

/// Which form a step binds.
enum class Binding
{
    None,
    Tab,    ///< In several steps, from `get()` to the first show.
    Dialog, ///< In one step; from then on it is the form in use.
};

/// Ends the step: its failures are those of a step before from now on.
void endStep(Circumstances& step, Binding binding);

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

/// Whether a selector that was only looked through may end at another entry: where it could not be
/// read or put back. The table ends with the last line that is offered, which may be another one.
bool mayEndElsewhere(const QString& selector, const Failures& failures);

/// What was asked for and is not among the writes.
QStringList unanswered(const std::vector<Ask>& asks, const std::vector<Write>& writes);

} // namespace Faults
