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

QString failureOf(int status)
{
    if (WIFSIGNALED(status))
        return QStringLiteral("crash, signal %1").arg(WTERMSIG(status));
    const int exitCode = WEXITSTATUS(status);
    return exitCode == 0 ? QString() : QStringLiteral("exit with status %1").arg(exitCode);
}

} // namespace

ProcessCopy::ProcessCopy()
{
    int ends[2];
    std::fflush(nullptr); // Or else both sides say what waits to be said.
    if (::pipe(ends) != 0 || (pid = ::fork()) < 0)
        qFatal("No copy of the process can be made");
    readEnd = ends[0];
    writeEnd = ends[1];
    if (isOriginal()) {
        ::close(writeEnd);
        return;
    }
    ::close(readEnd);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
}

void ProcessCopy::end(const QByteArray& message) const
{
    QFile pipe;
    if (!pipe.open(writeEnd, QIODevice::WriteOnly) || pipe.write(message) != message.size() ||
        !pipe.flush())
        qFatal("The copy of the process cannot leave its message");
    std::fflush(nullptr);
    std::_Exit(0);
}

QByteArray ProcessCopy::wait()
{
    QFile pipe;
    QByteArray message;
    if (pipe.open(readEnd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        message = pipe.readAll();
    int status = 0;
    ::waitpid(pid, &status, 0);
    failed = failureOf(status);
    return failed.isEmpty() ? message : QByteArray();
}

} // namespace Faults
