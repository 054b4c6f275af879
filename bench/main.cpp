// What the tab costs: time, SDK calls and wire transactions of its operations, and of the same
// distinct reads and writes made directly on the SDK, below which no tab could go.
#include "bench/BenchCamera.h"
#include "bench/Meter.h"
#include "bench/ShownTab.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace {

using Bench::BenchCamera;
using Bench::Meter;
using Bench::ShownTab;

/// Something that a tab does, made ready anew, unmeasured, before each time it is measured.
struct Operation
{
    std::function<void()> prepare;
    std::function<void()> run;
};

using MakeOperation = Operation (*)(BenchCamera&);

Operation firstShow(BenchCamera& camera)
{
    auto shown = std::make_shared<std::unique_ptr<ShownTab>>();
    return {[shown] { shown->reset(); },
            [shown, &camera, features = camera.features()] {
                *shown = std::make_unique<ShownTab>(features);
            }};
}

/// A tab that has nothing left to refresh.
std::shared_ptr<ShownTab> settledTab(BenchCamera& camera)
{
    auto tab = std::make_shared<ShownTab>(camera.features());
    tab->tick();
    return tab;
}

Operation tickNothingChanged(BenchCamera& camera)
{
    const auto tab = settledTab(camera);
    return {[] {}, [tab] { tab->tick(); }};
}

Operation tickOneChanged(BenchCamera& camera)
{
    const auto tab = settledTab(camera);
    return {[&camera] { camera.notify("TriggerMode"); }, [tab] { tab->tick(); }};
}

Operation tickAllChanged(BenchCamera& camera)
{
    const auto tab = settledTab(camera);
    return {[&camera] { camera.notifyObserved(); }, [tab] { tab->tick(); }};
}

Operation editComboBox(BenchCamera& camera)
{
    const auto tab = settledTab(camera);
    auto* mode = &tab->control<QComboBox>("cmbTriggerMode");
    return {[] {}, [tab, mode] { mode->setCurrentIndex(mode->currentIndex() == 0 ? 1 : 0); }};
}

Operation editSpinBox(BenchCamera& camera)
{
    const auto tab = settledTab(camera);
    auto* delay = &tab->control<QDoubleSpinBox>("spbTriggerDelay");
    return {[] {}, [tab, delay] { delay->setValue(delay->value() < 150.0 ? 200.0 : 100.0); }};
}

Operation openDialog(BenchCamera& camera)
{
    auto shown = std::make_shared<std::unique_ptr<ShownTab>>();
    const auto prepare = [shown, &camera] {
        shown->reset();
        *shown = std::make_unique<ShownTab>(camera.features());
        (*shown)->tick();
    };
    return {prepare, [shown] { (*shown)->openDialog(); }};
}

/// Run once, because the first run may do what is only done once.
Operation makeWarm(BenchCamera& camera, MakeOperation make)
{
    Operation operation = make(camera);
    operation.prepare();
    operation.run();
    operation.prepare();
    return operation;
}

void measureOperation(benchmark::State& state, BenchCamera& camera, MakeOperation make)
{
    const Operation operation = makeWarm(camera, make);
    Meter meter(state, camera);
    for ([[maybe_unused]] auto _ : state) {
        operation.prepare();
        camera.endMoment();
        meter.measure(operation.run);
    }
    meter.reportSdkCalls();
    meter.reportTimeAndWire();
}

/// The operation's distinct reads and its writes, without the tab.
void measureFloor(benchmark::State& state, BenchCamera& camera, MakeOperation make)
{
    {
        const Operation operation = makeWarm(camera, make);
        camera.log().startRecording();
        operation.run();
        camera.log().stopRecording();
    }
    Meter meter(state, camera);
    for ([[maybe_unused]] auto _ : state) {
        camera.endMoment();
        meter.measure([&camera] { camera.log().replay(); });
    }
    meter.reportTimeAndWire();
    state.counters["distinct_reads"] = static_cast<double>(camera.log().distinctReads());
}

struct NamedOperation
{
    const char* name;
    MakeOperation make;
};

constexpr NamedOperation operations[] = {
    {"FirstShow", firstShow},       {"Dialog", openDialog},       {"Tick_0", tickNothingChanged},
    {"Tick_1", tickOneChanged},     {"Tick_all", tickAllChanged}, {"Edit_combo_box", editComboBox},
    {"Edit_spin_box", editSpinBox},
};

/// Opens its camera when a benchmark first needs it: a run of the fake ones alone leaves the
/// network alone.
struct CameraOnDemand
{
    std::string name;
    std::function<std::unique_ptr<BenchCamera>(std::string&)> open;
    int runs; ///< Of each operation; 0 leaves it to the time that they take.
    std::unique_ptr<BenchCamera> camera;
};

using Measure = void (*)(benchmark::State&, BenchCamera&, MakeOperation);

void measureOn(CameraOnDemand& source, Measure measure, MakeOperation make, benchmark::State& state)
{
    std::string error;
    if (!source.camera)
        source.camera = source.open(error);
    if (!source.camera)
        return state.SkipWithError(error.c_str());
    state.counters["features"] = static_cast<double>(source.camera->features()->size());
    measure(state, *source.camera, make);
}

void addBenchmarks(CameraOnDemand& source)
{
    const std::pair<std::string, Measure> measures[] = {{"BM_", measureOperation},
                                                        {"BM_Floor_", measureFloor}};
    for (const NamedOperation& operation : operations) {
        for (const auto& [prefix, measure] : measures) {
            const std::string name = prefix + operation.name + "/" + source.name;
            const auto body = [&source, measure = measure,
                               make = operation.make](benchmark::State& state) {
                measureOn(source, measure, make, state);
            };
            auto* registered = benchmark::RegisterBenchmark(name.c_str(), body);
            registered->UseManualTime()->Unit(benchmark::kMicrosecond);
            if (source.runs > 0)
                registered->Iterations(source.runs);
        }
    }
}

CameraOnDemand fakeCamera(std::size_t featureCount)
{
    const auto open = [featureCount](std::string&) { return BenchCamera::fake(featureCount); };
    return {"fake_" + std::to_string(featureCount), open, 0, nullptr};
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    const QApplication application(argc, argv);

    CameraOnDemand cameras[] = {fakeCamera(100),
                                fakeCamera(1000),
                                fakeCamera(10000),
                                {"simulated", BenchCamera::simulated, 30, nullptr}};
    for (CameraOnDemand& camera : cameras)
        addBenchmarks(camera);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
