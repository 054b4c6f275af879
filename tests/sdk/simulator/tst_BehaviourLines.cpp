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
    void init() { bench = std::make_unique<BenchOf<BehaviourLines>>(); }

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
    std::uint32_t Status(unsigned line) const;
    void Write(unsigned line, Address offset, std::uint32_t value) const;
    void SetDebounce(unsigned line, std::uint32_t mode, double duration) const;

    std::unique_ptr<BenchOf<BehaviourLines>> bench;
};

std::uint32_t tst_BehaviourLines::Status(unsigned line) const
{
    return bench->Registers().Read(Line + line * BlockSize + LineBlock::Status);
}

void tst_BehaviourLines::Write(unsigned line, Address offset, std::uint32_t value) const
{
    bench->Registers().Write(Line + line * BlockSize + offset, value);
}

void tst_BehaviourLines::SetDebounce(unsigned line, std::uint32_t mode, double duration) const
{
    Write(line, LineBlock::DebounceMode, mode);
    bench->Registers().WriteDouble(Line + line * BlockSize + LineBlock::DebounceDuration, duration);
}

void tst_BehaviourLines::startsWithTwoInputsAndTwoOutputs()
{
    const auto mode = [this](unsigned line) {
        return bench->Registers().Read(Line + line * BlockSize + LineBlock::Mode);
    };
    QCOMPARE(mode(0), InputMode);
    QCOMPARE(mode(1), InputMode);
    QCOMPARE(mode(2), OutputMode);
    QCOMPARE(mode(3), OutputMode);
    QCOMPARE(bench->Registers().Read(Line + 2 * BlockSize + LineBlock::Source),
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
    bench->Steps(levelTime - 1);
    QCOMPARE(Status(line), 0U);
    bench->Steps(1);
    QCOMPARE(Status(line), 1U);
    bench->Steps(levelTime - 1);
    QCOMPARE(Status(line), 1U);
    bench->Steps(1);
    QCOMPARE(Status(line), 0U);
}

void tst_BehaviourLines::unconnectedInputStaysLow()
{
    Write(2, LineBlock::Mode, InputMode);
    for (int i = 0; i < 4000; ++i) {
        bench->Step();
        QCOMPARE(Status(2), 0U);
    }
}

void tst_BehaviourLines::drivenInputFollowsTheDriverOnly()
{
    bench->subject.Drive(0, true);
    for (int i = 0; i < 2500; ++i) {
        bench->Step();
        QCOMPARE(Status(0), 1U);
    }
    bench->subject.Drive(0, false);
    bench->Step();
    QCOMPARE(Status(0), 0U);
}

void tst_BehaviourLines::drivingALineThatDoesNotExistDoesNothing()
{
    bench->subject.Drive(LineCount, true);
    bench->Step();
    QCOMPARE(bench->Registers().Read(LineStatusAll), 0U);
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
    bench->subject.Drive(0, false);
    Write(line, LineBlock::Inverter, 1);
    bench->Step();
    QCOMPARE(Status(line), 1U);
    Write(line, LineBlock::Inverter, 0);
    bench->Step();
    QCOMPARE(Status(line), 0U);
}

void tst_BehaviourLines::outputFollowsItsSource()
{
    Write(3, LineBlock::Source, SignalUserOutput0 + 1);
    bench->SetLevel(SignalUserOutput0 + 1, true);
    bench->Step();
    QCOMPARE(Status(3), 1U);
    bench->SetLevel(SignalUserOutput0 + 1, false);
    bench->Step();
    QCOMPARE(Status(3), 0U);
}

void tst_BehaviourLines::outputWithoutSourceIsLow()
{
    Write(3, LineBlock::Source, SignalOff);
    bench->Step();
    QCOMPARE(Status(3), 0U);
}

void tst_BehaviourLines::outputIgnoresTheOutside()
{
    Write(2, LineBlock::Source, SignalOff);
    bench->subject.Drive(2, true);
    bench->Step();
    QCOMPARE(Status(2), 0U);
}

void tst_BehaviourLines::inputIgnoresItsSource()
{
    bench->subject.Drive(0, false);
    Write(0, LineBlock::Source, SignalUserOutput0);
    bench->SetLevel(SignalUserOutput0, true);
    bench->Step();
    QCOMPARE(Status(0), 0U);
}

void tst_BehaviourLines::statusOfAllLinesIsOneBitEach()
{
    bench->subject.Drive(0, false);
    bench->subject.Drive(1, true);
    Write(3, LineBlock::Inverter, 1);
    bench->Step();
    QCOMPARE(bench->Registers().Read(LineStatusAll), 0b1010U);
}

void tst_BehaviourLines::edgesOfALineAreSignals()
{
    bench->subject.Drive(0, true);
    bench->Step();
    QCOMPARE(bench->AllSignals().Edges(SignalLine0, RisingEdge), 1U);
    QCOMPARE(bench->AllSignals().Edges(SignalLine0, FallingEdge), 0U);
    bench->Step();
    QCOMPARE(bench->AllSignals().Edges(SignalLine0, AnyEdge), 0U);
}

void tst_BehaviourLines::pulsesOfTheSourceReachTheWire()
{
    Write(3, LineBlock::Source, SignalSoftwareSignal0);
    bench->Pulse(SignalSoftwareSignal0, 2);
    bench->Step();
    QCOMPARE(bench->AllSignals().Edges(SignalLine0 + 3, RisingEdge), 2U);
    QCOMPARE(Status(3), 0U);
}

void tst_BehaviourLines::deglitchDropsShortChanges()
{
    SetDebounce(0, Deglitch, 5000);
    bench->subject.Drive(0, false);
    bench->Steps(10);
    bench->subject.Drive(0, true);
    bench->Steps(4);
    bench->subject.Drive(0, false);
    for (int i = 0; i < 20; ++i) {
        bench->Step();
        QCOMPARE(Status(0), 0U);
    }
}

void tst_BehaviourLines::deglitchPassesLastingChanges()
{
    SetDebounce(0, Deglitch, 5000);
    bench->subject.Drive(0, false);
    bench->Steps(10);
    bench->subject.Drive(0, true);
    bench->Steps(5);
    QCOMPARE(Status(0), 0U);
    bench->Step();
    QCOMPARE(Status(0), 1U);
}

void tst_BehaviourLines::debouncePassesTheFirstChangeAndHoldsIt()
{
    SetDebounce(0, Debounce, 5000);
    bench->subject.Drive(0, false);
    bench->Steps(10);
    bench->subject.Drive(0, true);
    bench->Step();
    QCOMPARE(Status(0), 1U);
    bench->subject.Drive(0, false);
    bench->Steps(4);
    QCOMPARE(Status(0), 1U);
    bench->Step();
    QCOMPARE(Status(0), 0U);
}

QTEST_GUILESS_MAIN(tst_BehaviourLines)
#include "tst_BehaviourLines.moc"
