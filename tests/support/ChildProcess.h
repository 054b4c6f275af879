#pragma once

#include <QProcess>

#include <csignal>
#include <sys/prctl.h>

/// A process that ends with the test, even when the test is aborted: nobody stays behind and keeps
/// the cameras' port.
class ChildProcess : public QProcess
{
protected:
    // In the child, between fork and exec.
    void setupChildProcess() override { ::prctl(PR_SET_PDEATHSIG, SIGKILL); }
};
