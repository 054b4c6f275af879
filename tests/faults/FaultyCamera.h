#pragma once

#include "tests/faults/Fault.h"
#include "tests/support/FakeCamera.h"

#include <QByteArray>
#include <QMap>
#include <QStringList>

#include <functional>
#include <memory>

namespace Faults {

/// A write or command that the camera took.
struct Write
{
    QString feature;
    QString value; ///< Empty for commands.
    QString entry; ///< Of the feature's selector; empty without one.
    /// For TimerDuration and ActionQueueSize: what they were when the step began.
    QString before = QString();
    QString selector = QString(); ///< Which selector that is; empty without one.
};

struct FailedCall
{
    QString operation;
    QString feature;
    QString entry; ///< Of the feature's selector at that moment.
    ZalErrorType status = ZalErrorSuccess;
};
using Failures = std::vector<FailedCall>;

/// Whether one of these operations of that feature is among the failures.
bool hasFailed(const Failures& failures, const QString& feature, const QStringList& operations);

/// The fake camera of a session. It takes nearly every number: one that nobody chose, such as the
/// -1 for an unreadable value, is not refused by its limits and so comes to light.
class FaultyCamera
{
public:
    /// Of TimerDuration.
    static constexpr double TimerIncrement = 0.5;

    FaultyCamera();

    Fake::FakeCamera& fake() const { return *m_camera; }

    void arm(const Fault& toCome) { m_fault = toCome; }
    /// From here on no call fails any more.
    void recover() { m_failing = false; }
    bool hasStruck() const { return m_struck; }
    bool isLasting() const { return m_fault.mode == Mode::Lasting; }

    int count(Series series) const { return series == Series::Calls ? m_calls : m_names; }
    /// The reads of names that decide something: those that end a look-up or a walk.
    QVector<int> decisiveNames() const { return m_decisive; }

    std::vector<Write> takeWrites() { return std::exchange(m_writes, {}); }
    Failures takeFailures() { return std::exchange(m_failures, {}); }

    /// What comes now, for the list of calls.
    void beginStep(const QString& name);
    /// The calls of the first series so far, each as "step: operation feature".
    QStringList callList() const { return m_list; }

    /// The entry that a selector feature holds.
    QString entryOf(const QString& selector) const;
    /// The selector of a feature; empty when it has none.
    QString selectorOf(const QString& feature) const;

    /// Does what the SDK's notifier does when the writes have been quiet for a while: calls the
    /// observers of every feature that differs from what it was at the report before.
    void reportChanges();

    /// From here on calls are those of a bystander: neither counted nor failed nor recorded.
    void lookAway() { m_aside = true; }

    /// All that the camera holds, under each entry of each selector. Two cameras with the same
    /// digest answer the same.
    QByteArray digest() const;

    /// Called before each call is judged, with its number: the fault may still be armed.
    std::function<void(Series series, int call)> onCount;

private:
    ZalErrorType onCall(const std::string& operation, const std::string& feature);
    void countName(const std::string& feature);
    void endWalk();
    ZalErrorType judge(const std::string& operation, const std::string& feature, bool isTarget);
    void onAccepted(const Fake::Accepted& write);

    std::unique_ptr<Fake::FakeCamera> m_camera;
    Fault m_fault;
    bool m_aside = false;
    bool m_failing = false;
    bool m_struck = false;
    QString m_step;
    QMap<QString, QString> m_before; ///< By feature and entry, when the step began.
    QStringList m_list;
    int m_calls = 0;
    int m_names = 0;
    std::string m_lastName;
    QVector<int> m_lastReads;
    QVector<int> m_decisive;
    std::vector<Write> m_writes;
    Failures m_failures;
    std::map<const Fake::FakeFeature*, std::string> m_reported;
};

} // namespace Faults
