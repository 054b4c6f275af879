#include "tests/faults/Branches.h"

#include "tests/faults/Sweep.h"

#include <cstdlib>

namespace Faults {

Branches::Branches(const QVector<Fault>& faults, bool areWhole, Plant planted)
    : isWhole(areWhole), plant(planted)
{
    for (const Fault& fault : faults)
        waiting[{fault.series, fault.call}].append(fault);
}

void Branches::play()
{
    camera.onCount = [this](Series series, int call) { reach({series, call}); };
    Session session(camera, gallery, plant);
    session.leavesOutTroddenWays = !isWhole;
    session.play();
    if (branch)
        endBranch(session);
    endTrunk();
}

void Branches::reach(const Call& call)
{
    const auto it = waiting.find(call);
    if (branch || it == waiting.end())
        return;
    for (const Fault& fault : it->second) {
        branchOff(fault);
        if (branch)
            return;
    }
    waiting.erase(it);
    if (waiting.empty())
        endTrunk();
}

void Branches::branchOff(const Fault& fault)
{
    sayBegin(fault);
    auto copy = std::make_unique<ProcessCopy>();
    if (!copy->isOriginal()) {
        branch = std::move(copy);
        camera.arm(fault);
        return;
    }
    gallery.learn(copy->wait());
    if (!copy->failure().isEmpty())
        sayFinding(copy->failure());
    sayDone();
}

void Branches::endBranch(const Session& session)
{
    for (const QString& text : session.findings)
        sayFinding(text);
    for (const QString& text : session.notes)
        sayNote(text);
    branch->end(gallery.takeNews());
}

void Branches::endTrunk()
{
    for (const auto& [call, faults] : waiting) {
        for (const Fault& fault : faults) {
            sayBegin(fault);
            sayFinding(noSuchCall());
            sayDone();
        }
    }
    std::_Exit(0);
}

} // namespace Faults
