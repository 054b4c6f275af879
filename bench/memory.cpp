// advtrigger_memory [OPENINGS]: what stays in memory of the dialog. Opens it, edits, hears of a
// change, closes it, and prints every hundred times how much memory the process holds.
#include "bench/BenchCamera.h"
#include "bench/ShownTab.h"

#include <QApplication>
#include <QDoubleSpinBox>

#include <cstdio>
#include <cstdlib>
#include <fstream>

#include <malloc.h>
#include <unistd.h>

namespace {

constexpr std::size_t FeatureCount = 100;
constexpr int DefaultOpenings = 600;
constexpr int Step = 100;
constexpr double BytesPerMegabyte = 1e6;

/// Without what the allocator only keeps for later.
double residentBytes()
{
    malloc_trim(0);
    std::ifstream statistics("/proc/self/statm");
    double pages = 0.0;
    statistics >> pages >> pages;
    if (!statistics)
        qFatal("/proc/self/statm cannot be read");
    return pages * static_cast<double>(sysconf(_SC_PAGESIZE));
}

double heapBytes()
{
    return static_cast<double>(mallinfo2().uordblks);
}

void useDialogOnce(Bench::ShownTab& tab, const Bench::BenchCamera& camera)
{
    tab.openDialog();
    auto& delay = tab.control<QDoubleSpinBox>("spbTimerDelay");
    delay.setValue(delay.value() < 150.0 ? 200.0 : 100.0);
    camera.notify("TimerDelay");
    QCoreApplication::processEvents();
    tab.closeDialog();
}

void measure(int openings)
{
    const auto camera = Bench::BenchCamera::fake(FeatureCount);
    Bench::ShownTab tab(camera->features());
    std::puts("| Openings | Resident | Heap | Heap per opening |\n|---:|---:|---:|---:|");
    double before = heapBytes();
    for (int opening = 0; opening <= openings; ++opening) {
        if (opening % Step == 0) {
            const double heap = heapBytes();
            std::printf("| %d | %.1f MB | %.2f MB | %.1f kB |\n", opening,
                        residentBytes() / BytesPerMegabyte, heap / BytesPerMegabyte,
                        (heap - before) / Step / 1000.0);
            before = heap;
        }
        useDialogOnce(tab, *camera);
    }
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    measure(argc > 1 ? std::atoi(argv[1]) : DefaultOpenings);
    return 0;
}
