#include "tests/e2e/SimulatorProcess.h"

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

bool SimulatorProcess::stall()
{
    return m_process.stall();
}

void SimulatorProcess::resume()
{
    m_process.resume();
}

void SimulatorProcess::kill()
{
    m_process.kill();
    m_process.waitForFinished();
}
