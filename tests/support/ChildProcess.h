#pragma once

#include <QProcess>

#include <csignal>
#include <sys/prctl.h>
#include <sys/wait.h>

/// A process that ends with the test, even when the test is aborted: nobody stays behind and keeps
/// the cameras' port.
class ChildProcess : public QProcess
{
public:
    /// Reaches the process, and nobody when it has ended.
    bool signal(int number)
    {
        // The number of a process that has ended is 0, which stands for the test's own group.
        const auto pid = static_cast<pid_t>(processId());
        return pid > 0 && ::kill(pid, number) == 0;
    }

    /// Returns when the last of its threads has stopped; false when the process has ended.
    bool stall()
    {
        siginfo_t info{};
        // What is seen here is left for QProcess to see.
        return signal(SIGSTOP) &&
               ::waitid(P_PID, static_cast<id_t>(processId()), &info,
                        WSTOPPED | WEXITED | WNOWAIT) == 0 &&
               info.si_code == CLD_STOPPED;
    }

    void resume() { signal(SIGCONT); }

protected:
    // In the child, between fork and exec.
    void setupChildProcess() override { ::prctl(PR_SET_PDEATHSIG, SIGKILL); }
};
