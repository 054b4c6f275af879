#pragma once

#include "tests/faults/Cases.h"
#include "tests/faults/Gallery.h"
#include "tests/faults/ProcessCopy.h"

#include <map>
#include <optional>
#include <utility>

namespace Faults {

/// Plays many sessions as one: they are all the same until the fault. One session runs without
/// any, and at each call that is to fail a copy of the process branches off, in which it does. What
/// the camera's own thread calls is tried in sessions of their own, afterwards. Says on the
/// standard output what the sessions find.
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
    void playApart(const Fault& fault);
    static void sayEnd(const ProcessCopy& copy);
    [[noreturn]] void endBranch(const Session& session);
    [[noreturn]] void endTrunk();

    std::map<Call, QVector<Fault>> m_waiting;
    QVector<Fault> m_apart; ///< Of calls that the camera's thread makes.
    const bool m_isWhole;
    const Plant m_plant;
    FaultyCamera m_camera;
    Gallery m_gallery;
    std::unique_ptr<ProcessCopy> m_branch; ///< This process, when it is one.
};

} // namespace Faults
