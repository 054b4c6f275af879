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

    bool isOriginal() const { return pid > 0; }

    /// In the copy: ends it, and leaves a message.
    [[noreturn]] void end(const QByteArray& message) const;

    /// In the original, once: blocks until the copy has ended, and gives its message.
    QByteArray wait();
    /// In the original, after the wait: how the copy ended if not by end(); else empty.
    QString failure() const { return failed; }

private:
    int readEnd = -1;
    int writeEnd = -1;
    pid_t pid = -1;
    QString failed;
};

} // namespace Faults
