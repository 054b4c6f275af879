#include "tests/e2e/SimulatorProcess.h"

#include <csignal>

SimulatorProcess::SimulatorProcess(const QStringList& arguments)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral(SIMULATOR), arguments, QIODevice::ReadOnly);
    constexpr int patienceMs = 20000;
    while (!m_listening && m_process.waitForReadyRead(patienceMs))
        m_listening = m_process.readAllStandardOutput().contains("listening");
}

SimulatorProcess::~SimulatorProcess()
{
    resume();
    m_process.terminate();
    if (!m_process.waitForFinished())
        kill();
}

void SimulatorProcess::stall()
{
    ::kill(static_cast<pid_t>(m_process.processId()), SIGSTOP);
}

void SimulatorProcess::resume()
{
    if (m_process.state() == QProcess::Running)
        ::kill(static_cast<pid_t>(m_process.processId()), SIGCONT);
}

void SimulatorProcess::kill()
{
    m_process.kill();
    m_process.waitForFinished();
}
