#include "tests/e2e/PresetLoss.h"

#include "features/FeatureManager.h"
#include "sdk/simulator/Registers.h"
#include "tests/e2e/PresetRig.h"

#include <QElapsedTimer>
#include <QThread>

#include <algorithm>
#include <initializer_list>

using namespace ZalSim::Registers;

namespace {

constexpr std::uint32_t MemorySize = 0x10000;
constexpr std::uint32_t RegisterSize = 4;
constexpr int Attempts = 5;

GvcpProxy::Counts difference(const GvcpProxy::Counts& after, const GvcpProxy::Counts& before)
{
    return {after.passed - before.passed, after.dropped - before.dropped,
            after.duplicated - before.duplicated, after.delayed - before.delayed};
}

// What the camera was asked before it answers this has been done.
bool awaitAnswer(const PresetRig& rig)
{
    constexpr int patienceMs = 20000;
    const auto width = rig.camera->FindFeature("Width");
    QElapsedTimer timer;
    timer.start();
    long long value = 0;
    while (width->GetIntegerValue(value) != ZalErrorSuccess && timer.elapsed() < patienceMs) {
        if (rig.camera->IsLost())
            return false;
        QThread::msleep(5);
    }
    return timer.elapsed() < patienceMs;
}

bool isInBlock(std::uint32_t address, std::uint32_t blocks, std::initializer_list<Address> inBlock)
{
    const bool isBlock = address >= blocks && address < blocks + 4 * BlockSize;
    return isBlock &&
           std::find(inBlock.begin(), inBlock.end(), address % BlockSize) != inBlock.end();
}

// What the camera does at the moment, and no preset sets: a timer that runs makes lines go up and
// down, and a command's register holds the command until it is carried out.
bool isActivity(std::uint32_t address)
{
    return address == LineStatusAll || isInBlock(address, Line, {LineBlock::Status}) ||
           isInBlock(address, Counter,
                     {CounterBlock::Reset, CounterBlock::Status, CounterBlock::Value,
                      CounterBlock::Value + 4}) ||
           isInBlock(
               address, Timer,
               {TimerBlock::Reset, TimerBlock::Status, TimerBlock::Value, TimerBlock::Value + 4});
}

std::vector<std::uint32_t> registersOf(const ZalSim::SimulatedCamera& camera)
{
    std::vector<std::uint32_t> registers;
    registers.reserve(MemorySize / RegisterSize);
    for (std::uint32_t address = 0; address < MemorySize; address += RegisterSize)
        registers.push_back(isActivity(address) ? 0 : camera.readRegister(address));
    return registers;
}

QStringList differencesOf(const std::vector<std::uint32_t>& right,
                          const std::vector<std::uint32_t>& now)
{
    QStringList result;
    for (std::size_t i = 0; i < right.size(); ++i) {
        if (right[i] != now[i])
            result.append(QStringLiteral("0x%1: %2, %3")
                              .arg(i * RegisterSize, 4, 16, QLatin1Char('0'))
                              .arg(right[i])
                              .arg(now[i]));
    }
    return result;
}

PresetLoss::Outcome outcomeOf(bool isRight, bool hasLines)
{
    if (isRight)
        return hasLines ? PresetLoss::RightWithLine : PresetLoss::Right;
    return hasLines ? PresetLoss::WrongWithLine : PresetLoss::WrongSilently;
}

} // namespace

PresetLoss::PresetLoss(const QString& applicationDir) : m_applicationDir(applicationDir)
{
    listPresets();
    for (int number = 0; number < m_presets.size() && problem.isEmpty(); ++number)
        learn(number);
}

void PresetLoss::listPresets()
{
    const PresetRig rig(QStringLiteral("full"), m_applicationDir);
    problem = rig.problem;
    if (!rig.engine)
        return;
    for (int i = 0; i < rig.engine->box.count(); ++i)
        m_presets.append(rig.engine->box.itemText(i));
    // It changes nothing, so that there is nothing to lose.
    m_presets.removeAll(PresetEngine::CUSTOM_PRESET);
    if (m_presets.size() < 2)
        problem = QStringLiteral("There are no presets to apply.");
}

// Right is what two applications in a row agree on: a machine under load may be late by itself.
void PresetLoss::learn(int number)
{
    Registers last;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        const Run now = run(number, {});
        problem = now.problem + now.result.lines;
        if (problem.isEmpty() && now.registers == last) {
            m_right[now.result.preset] = last;
            return;
        }
        last = now.registers;
    }
    problem.append(QStringLiteral("No two applications agree."));
}

// Until the preset before it was applied undisturbed.
PresetLoss::Run PresetLoss::run(int number, const GvcpProxy::Weather& weather) const
{
    Run run = runOnce(number, weather);
    for (int attempt = 1; attempt < Attempts && !run.problem.isEmpty(); ++attempt)
        run = runOnce(number, weather);
    return run;
}

PresetLoss::Run PresetLoss::runOnce(int number, const GvcpProxy::Weather& weather) const
{
    const int count = m_presets.size();
    Run run;
    run.result.preset = m_presets[number % count];
    const QString& before = m_presets[(number + count - 1) % count];
    GvcpProxy proxy;
    const PresetRig rig(QStringLiteral("full"), m_applicationDir,
                        QString::fromLatin1(GvcpProxy::Address));
    run.problem = rig.problem;
    if (!rig.engine)
        return run;
    for (const unsigned inputLine : {0U, 1U})
        rig.simulator->setInputLine(inputLine, false);
    bool found = false;
    run.problem = rig.engine->apply(before, found);
    const GvcpProxy::Counts counts = proxy.counts();
    QElapsedTimer timer;
    timer.start();
    proxy.setWeather(weather);
    run.result.lines = rig.engine->apply(run.result.preset, found);
    run.result.milliseconds = timer.elapsed();
    run.result.datagrams = difference(proxy.counts(), counts);
    proxy.setJudge(nullptr);
    awaitAnswer(rig);
    run.registers = registersOf(*rig.simulator);
    return run;
}

PresetLoss::Result PresetLoss::apply(int number, double loss)
{
    GvcpProxy::Weather weather;
    weather.drop = loss;
    weather.seed = static_cast<std::uint32_t>(number);
    Run run = this->run(number, weather);
    problem = run.problem;
    if (!problem.isEmpty())
        return run.result;
    Result& result = run.result;
    result.differences = differencesOf(m_right[result.preset], run.registers);
    result.outcome = outcomeOf(result.differences.isEmpty(), !result.lines.isEmpty());
    return result;
}
