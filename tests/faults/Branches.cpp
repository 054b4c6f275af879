#include "tests/faults/Branches.h"

#include "tests/faults/Sweep.h"

#include <QCoreApplication>
#include <QThread>

#include <cstdlib>

namespace Faults {
namespace {

void say(const QStringList& findings, const QStringList& notes)
{
    for (const QString& text : findings)
        sayFinding(text);
    for (const QString& text : notes)
        sayNote(text);
}

/// A copy of a process has only the thread that made it.
bool isOnTheSessionsThread()
{
    return QThread::currentThread() == QCoreApplication::instance()->thread();
}

} // namespace

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
    if (!isOnTheSessionsThread()) {
        apart += it->second;
        waiting.erase(it);
        return;
    }
    for (const Fault& fault : it->second) {
        branchOff(fault);
        if (branch)
            return;
    }
    waiting.erase(it);
    if (waiting.empty() && apart.isEmpty())
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
    sayEnd(*copy);
}

/// From its beginning, for what cannot branch off.
void Branches::playApart(const Fault& fault)
{
    sayBegin(fault);
    ProcessCopy copy;
    if (!copy.isOriginal()) {
        const Outcome outcome = playCase(fault, plant);
        say(outcome.findings, outcome.notes);
        copy.end(QByteArray());
    }
    copy.wait();
    sayEnd(copy);
}

void Branches::sayEnd(const ProcessCopy& copy)
{
    if (!copy.failure().isEmpty())
        sayFinding(copy.failure());
    sayDone();
}

void Branches::endBranch(const Session& session)
{
    say(session.findings, session.notes);
    branch->end(gallery.takeNews());
}

void Branches::endTrunk()
{
    for (const Fault& fault : apart)
        playApart(fault);
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
