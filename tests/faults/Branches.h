#pragma once

#include "tests/faults/Cases.h"
#include "tests/faults/Gallery.h"
#include "tests/faults/ProcessCopy.h"

#include <map>
#include <optional>
#include <utility>

namespace Faults {

/// Plays many sessions as one: they are all the same until the fault. One session runs without
/// any, and at each call that is to fail a copy of the process branches off, in which it does.
/// Says on the standard output what the sessions find.
class Branches
{
public:
    /// Whole sessions leave nothing out.
    Branches(const QVector<Fault>& faults, bool areWhole, Plant planted);

    /// Does not return: this process ends with the last session.
    [[noreturn]] void play();

private:
    using Call = std::pair<Series, int>;

    void reach(const Call& call);
    void branchOff(const Fault& fault);
    [[noreturn]] void endBranch(const Session& session);
    [[noreturn]] void endTrunk();

    std::map<Call, QVector<Fault>> waiting;
    const bool isWhole;
    const Plant plant;
    FaultyCamera camera;
    Gallery gallery;
    std::unique_ptr<ProcessCopy> branch; ///< This process, when it is one.
};

} // namespace Faults
