#include "tests/faults/ProcessCopy.h"

#include <QFile>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Faults {
namespace {

/// Before each message: a copy that leaves none has not come to its end.
constexpr char Mark = '.';

QString failureOf(int status)
{
    if (WIFSIGNALED(status))
        return QStringLiteral("crash, signal %1").arg(WTERMSIG(status));
    const int exitCode = WEXITSTATUS(status);
    return exitCode == 0 ? QString() : QStringLiteral("exit with status %1").arg(exitCode);
}

QString failureOf(int status, const QByteArray& message)
{
    const QString failure = failureOf(status);
    return failure.isEmpty() && !message.startsWith(Mark) ? QStringLiteral("exit before its end")
                                                          : failure;
}

} // namespace

ProcessCopy::ProcessCopy()
{
    int ends[2];
    std::fflush(nullptr); // Or else both sides say what waits to be said.
    if (::pipe(ends) != 0 || (m_pid = ::fork()) < 0)
        qFatal("No copy of the process can be made");
    m_readEnd = ends[0];
    m_writeEnd = ends[1];
    if (isOriginal()) {
        ::close(m_writeEnd);
        return;
    }
    ::close(m_readEnd);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
}

void ProcessCopy::end(const QByteArray& message) const
{
    QFile pipe;
    const QByteArray marked = Mark + message;
    if (!pipe.open(m_writeEnd, QIODevice::WriteOnly) || pipe.write(marked) != marked.size() ||
        !pipe.flush())
        qFatal("The copy of the process cannot leave its message");
    std::fflush(nullptr);
    std::_Exit(0);
}

QByteArray ProcessCopy::wait()
{
    QFile pipe;
    QByteArray message;
    if (pipe.open(m_readEnd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        message = pipe.readAll();
    int status = 0;
    ::waitpid(m_pid, &status, 0);
    m_failed = failureOf(status, message);
    return m_failed.isEmpty() ? message.mid(1) : QByteArray();
}

} // namespace Faults
