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
    : m_isWhole(areWhole), m_plant(planted)
{
    for (const Fault& fault : faults)
        m_waiting[{fault.series, fault.call}].append(fault);
}

void Branches::play()
{
    m_camera.onCount = [this](Series series, int call) { reach({series, call}); };
    Session session(m_camera, m_gallery, m_plant);
    session.leavesOutTroddenWays = !m_isWhole;
    session.play();
    if (m_branch)
        endBranch(session);
    endTrunk();
}

void Branches::reach(const Call& call)
{
    const auto it = m_waiting.find(call);
    if (m_branch || it == m_waiting.end())
        return;
    if (!isOnTheSessionsThread()) {
        m_apart += it->second;
        m_waiting.erase(it);
        return;
    }
    for (const Fault& fault : it->second) {
        branchOff(fault);
        if (m_branch)
            return;
    }
    m_waiting.erase(it);
    if (m_waiting.empty() && m_apart.isEmpty())
        endTrunk();
}

void Branches::branchOff(const Fault& fault)
{
    sayBegin(fault);
    auto copy = std::make_unique<ProcessCopy>();
    if (!copy->isOriginal()) {
        m_branch = std::move(copy);
        m_camera.arm(fault);
        return;
    }
    m_gallery.learn(copy->wait());
    sayEnd(*copy);
}

/// From its beginning, for what cannot branch off.
void Branches::playApart(const Fault& fault)
{
    sayBegin(fault);
    ProcessCopy copy;
    if (!copy.isOriginal()) {
        const Outcome outcome = playCase(fault, m_plant);
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
    m_branch->end(m_gallery.takeNews());
}

void Branches::endTrunk()
{
    for (const Fault& fault : m_apart)
        playApart(fault);
    for (const auto& [call, faults] : m_waiting) {
        for (const Fault& fault : faults) {
            sayBegin(fault);
            sayFinding(noSuchCall());
            sayDone();
        }
    }
    std::_Exit(0);
}

} // namespace Faults
