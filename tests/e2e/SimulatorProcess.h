#pragma once

#include "tests/support/ChildProcess.h"

#include <QStringList>

/// A simulated camera in a process of its own, which can be stopped, continued and killed.
class SimulatorProcess
{
public:
    /// Starts it and waits until it listens; isRunning() tells whether that went well.
    explicit SimulatorProcess(const QStringList& arguments = {});
    ~SimulatorProcess();

    bool isRunning() const { return m_listening; }
    QString address() const { return QStringLiteral("127.0.0.1"); }
    /// Returns when it has stopped.
    bool stall();
    void resume();
    void kill();

private:
    ChildProcess m_process;
    bool m_listening = false;
};
