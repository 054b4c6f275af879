#include "sdk/simulator/BehaviourLines.h"
#include "tests/sdk/simulator/Bench.h"

#include <QtTest>

using namespace ZalSim;
using namespace ZalSim::Registers;

namespace {
constexpr std::uint32_t InputMode = 0;
constexpr std::uint32_t OutputMode = 1;
constexpr std::uint32_t Deglitch = 1;
constexpr std::uint32_t Debounce = 2;
} // namespace

class tst_BehaviourLines : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_bench = std::make_unique<BenchOf<BehaviourLines>>(); }

    void startsWithTwoInputsAndTwoOutputs();
    void inputsToggleByThemselves_data();
    void inputsToggleByThemselves();
    void unconnectedInputStaysLow();
    void drivenInputFollowsTheDriverOnly();
    void drivingALineThatDoesNotExistDoesNothing();
    void inverterInvertsInputsAndOutputs_data();
    void inverterInvertsInputsAndOutputs();
    void outputFollowsItsSource();
    void outputWithoutSourceIsLow();
    void outputIgnoresTheOutside();
    void inputIgnoresItsSource();
    void statusOfAllLinesIsOneBitEach();
    void edgesOfALineAreSignals();
    void pulsesOfTheSourceReachTheWire();
    void deglitchDropsShortChanges();
    void deglitchPassesLastingChanges();
    void debouncePassesTheFirstChangeAndHoldsIt();

private:
    std::uint32_t status(unsigned line) const;
    void write(unsigned line, Address offset, std::uint32_t value) const;
    void setDebounce(unsigned line, std::uint32_t mode, double duration) const;

    std::unique_ptr<BenchOf<BehaviourLines>> m_bench;
};

std::uint32_t tst_BehaviourLines::status(unsigned line) const
{
    return m_bench->registers().read(Line + line * BlockSize + LineBlock::Status);
}

void tst_BehaviourLines::write(unsigned line, Address offset, std::uint32_t value) const
{
    m_bench->registers().write(Line + line * BlockSize + offset, value);
}

void tst_BehaviourLines::setDebounce(unsigned line, std::uint32_t mode, double duration) const
{
    write(line, LineBlock::DebounceMode, mode);
    m_bench->registers().writeDouble(Line + line * BlockSize + LineBlock::DebounceDuration,
                                     duration);
}

void tst_BehaviourLines::startsWithTwoInputsAndTwoOutputs()
{
    const auto mode = [this](unsigned line) {
        return m_bench->registers().read(Line + line * BlockSize + LineBlock::Mode);
    };
    QCOMPARE(mode(0), InputMode);
    QCOMPARE(mode(1), InputMode);
    QCOMPARE(mode(2), OutputMode);
    QCOMPARE(mode(3), OutputMode);
    QCOMPARE(m_bench->registers().read(Line + 2 * BlockSize + LineBlock::Source),
             std::uint32_t(SignalExposureActive));
}

void tst_BehaviourLines::inputsToggleByThemselves_data()
{
    QTest::addColumn<unsigned>("line");
    QTest::addColumn<int>("levelTime");
    QTest::newRow("Line0, once a second") << 0U << 1000;
    QTest::newRow("Line1, slower") << 1U << 1500;
}

void tst_BehaviourLines::inputsToggleByThemselves()
{
    QFETCH(unsigned, line);
    QFETCH(int, levelTime);
    m_bench->steps(levelTime - 1);
    QCOMPARE(status(line), 0U);
    m_bench->steps(1);
    QCOMPARE(status(line), 1U);
    m_bench->steps(levelTime - 1);
    QCOMPARE(status(line), 1U);
    m_bench->steps(1);
    QCOMPARE(status(line), 0U);
}

void tst_BehaviourLines::unconnectedInputStaysLow()
{
    write(2, LineBlock::Mode, InputMode);
    for (int i = 0; i < 4000; ++i) {
        m_bench->step();
        QCOMPARE(status(2), 0U);
    }
}

void tst_BehaviourLines::drivenInputFollowsTheDriverOnly()
{
    m_bench->subject.drive(0, true);
    for (int i = 0; i < 2500; ++i) {
        m_bench->step();
        QCOMPARE(status(0), 1U);
    }
    m_bench->subject.drive(0, false);
    m_bench->step();
    QCOMPARE(status(0), 0U);
}

void tst_BehaviourLines::drivingALineThatDoesNotExistDoesNothing()
{
    m_bench->subject.drive(LineCount, true);
    m_bench->step();
    QCOMPARE(m_bench->registers().read(LineStatusAll), 0U);
}

void tst_BehaviourLines::inverterInvertsInputsAndOutputs_data()
{
    QTest::addColumn<unsigned>("line");
    QTest::newRow("input") << 0U;
    QTest::newRow("output") << 3U;
}

void tst_BehaviourLines::inverterInvertsInputsAndOutputs()
{
    QFETCH(unsigned, line);
    m_bench->subject.drive(0, false);
    write(line, LineBlock::Inverter, 1);
    m_bench->step();
    QCOMPARE(status(line), 1U);
    write(line, LineBlock::Inverter, 0);
    m_bench->step();
    QCOMPARE(status(line), 0U);
}

void tst_BehaviourLines::outputFollowsItsSource()
{
    write(3, LineBlock::Source, SignalUserOutput0 + 1);
    m_bench->setLevel(SignalUserOutput0 + 1, true);
    m_bench->step();
    QCOMPARE(status(3), 1U);
    m_bench->setLevel(SignalUserOutput0 + 1, false);
    m_bench->step();
    QCOMPARE(status(3), 0U);
}

void tst_BehaviourLines::outputWithoutSourceIsLow()
{
    write(3, LineBlock::Source, SignalOff);
    m_bench->step();
    QCOMPARE(status(3), 0U);
}

void tst_BehaviourLines::outputIgnoresTheOutside()
{
    write(2, LineBlock::Source, SignalOff);
    m_bench->subject.drive(2, true);
    m_bench->step();
    QCOMPARE(status(2), 0U);
}

void tst_BehaviourLines::inputIgnoresItsSource()
{
    m_bench->subject.drive(0, false);
    write(0, LineBlock::Source, SignalUserOutput0);
    m_bench->setLevel(SignalUserOutput0, true);
    m_bench->step();
    QCOMPARE(status(0), 0U);
}

void tst_BehaviourLines::statusOfAllLinesIsOneBitEach()
{
    m_bench->subject.drive(0, false);
    m_bench->subject.drive(1, true);
    write(3, LineBlock::Inverter, 1);
    m_bench->step();
    QCOMPARE(m_bench->registers().read(LineStatusAll), 0b1010U);
}

void tst_BehaviourLines::edgesOfALineAreSignals()
{
    m_bench->subject.drive(0, true);
    m_bench->step();
    QCOMPARE(m_bench->allSignals().edges(SignalLine0, RisingEdge), 1U);
    QCOMPARE(m_bench->allSignals().edges(SignalLine0, FallingEdge), 0U);
    m_bench->step();
    QCOMPARE(m_bench->allSignals().edges(SignalLine0, AnyEdge), 0U);
}

void tst_BehaviourLines::pulsesOfTheSourceReachTheWire()
{
    write(3, LineBlock::Source, SignalSoftwareSignal0);
    m_bench->pulse(SignalSoftwareSignal0, 2);
    m_bench->step();
    QCOMPARE(m_bench->allSignals().edges(SignalLine0 + 3, RisingEdge), 2U);
    QCOMPARE(status(3), 0U);
}

void tst_BehaviourLines::deglitchDropsShortChanges()
{
    setDebounce(0, Deglitch, 5000);
    m_bench->subject.drive(0, false);
    m_bench->steps(10);
    m_bench->subject.drive(0, true);
    m_bench->steps(4);
    m_bench->subject.drive(0, false);
    for (int i = 0; i < 20; ++i) {
        m_bench->step();
        QCOMPARE(status(0), 0U);
    }
}

void tst_BehaviourLines::deglitchPassesLastingChanges()
{
    setDebounce(0, Deglitch, 5000);
    m_bench->subject.drive(0, false);
    m_bench->steps(10);
    m_bench->subject.drive(0, true);
    m_bench->steps(5);
    QCOMPARE(status(0), 0U);
    m_bench->step();
    QCOMPARE(status(0), 1U);
}

void tst_BehaviourLines::debouncePassesTheFirstChangeAndHoldsIt()
{
    setDebounce(0, Debounce, 5000);
    m_bench->subject.drive(0, false);
    m_bench->steps(10);
    m_bench->subject.drive(0, true);
    m_bench->step();
    QCOMPARE(status(0), 1U);
    m_bench->subject.drive(0, false);
    m_bench->steps(4);
    QCOMPARE(status(0), 1U);
    m_bench->step();
    QCOMPARE(status(0), 0U);
}

QTEST_GUILESS_MAIN(tst_BehaviourLines)
#include "tst_BehaviourLines.moc"
