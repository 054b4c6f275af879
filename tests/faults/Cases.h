#pragma once

#include "tests/faults/Fault.h"
#include "tests/faults/Session.h"

namespace Faults {

/// How many calls a session makes when nothing fails, and what it then does wrong: nothing.
struct Census
{
    int calls = 0;
    int names = 0;
    QVector<int> decisiveNames;
    QStringList callList; ///< What each of the calls is.
    QStringList findings;
    QStringList notes;
    QStringList unansweredAsks;
};

Census takeCensus();

/// Which of all faults are tried, each once and lasting. A stride of n takes every n-th call.
struct Choice
{
    int callStride = 1;
    int decisiveStride = 1; ///< Reads of names that end a look-up or a walk.
    int nameStride = 100;   ///< The other reads of names.
    /// How many of the statuses each call gets; they take turns from call to call.
    int statusesPerCall = 1;
};

QVector<Fault> casesOf(const Census& census, const Choice& choice);

struct Outcome
{
    QStringList findings;
    QStringList notes;
};

/// What is found when a session is over before the call that was to fail.
QString noSuchCall();

/// Plays a session in which that goes wrong.
Outcome playCase(const Fault& fault, Plant plant = Plant::None);

} // namespace Faults
