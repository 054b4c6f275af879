#pragma once

#include <QByteArray>
#include <QString>

#include <sys/types.h>

namespace Faults {

/// A copy of this process that goes its own way from where it is made: what it does to the camera
/// and to the windows, the original never sees. It ends with the original at the latest.
class ProcessCopy
{
public:
    /// Returns twice, once on each side.
    ProcessCopy();
    ProcessCopy(const ProcessCopy&) = delete;
    ProcessCopy& operator=(const ProcessCopy&) = delete;

    bool isOriginal() const { return m_pid > 0; }

    /// In the copy: ends it, and leaves a message.
    [[noreturn]] void end(const QByteArray& message) const;

    /// In the original, once: blocks until the copy has ended, and gives its message.
    QByteArray wait();
    /// In the original, after the wait: how the copy ended if not by end(); else empty.
    QString failure() const { return m_failed; }

private:
    int m_readEnd = -1;
    int m_writeEnd = -1;
    pid_t m_pid = -1;
    QString m_failed;
};

} // namespace Faults
