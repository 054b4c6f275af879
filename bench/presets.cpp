// advtrigger_presets: what a presets file of many presets costs, as user CPU time of the operations
// that read it. Others that use the processor hardly add to that.
#include "bench/BenchCamera.h"
#include "bench/ShownTab.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <memory>

#include <sys/resource.h>

namespace {

constexpr std::size_t FeatureCount = 100;
constexpr int Runs = 5;
constexpr double MicrosecondsPerSecond = 1e6;

double userSeconds()
{
    struct rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec) +
           static_cast<double>(usage.ru_utime.tv_usec) / MicrosecondsPerSecond;
}

double secondsFor(const std::function<void()>& operation)
{
    const double before = userSeconds();
    operation();
    return userSeconds() - before;
}

QByteArray presets(int count)
{
    QByteArray names;
    QByteArray objects;
    for (int i = 0; i < count; ++i) {
        const QByteArray name = "\"p" + QByteArray::number(i) + '"';
        names += (i > 0 ? "," : "") + name;
        objects += "," + name + R"(:{"#tooltip":"t","LineSelector":{"#value":"Line0"}})";
    }
    return R"({"#presets":[)" + names + "]" + objects + "}";
}

/// The file of the fake camera's family, until destroyed.
class FamilyFile
{
public:
    explicit FamilyFile(const QByteArray& content)
    {
        QDir(QCoreApplication::applicationDirPath()).mkpath(QStringLiteral("plugins"));
        file.setFileName(QCoreApplication::applicationDirPath() +
                         QStringLiteral("/plugins/AdvTrigger_TarselX_Presets.json"));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("Cannot write %s", qUtf8Printable(file.fileName()));
        file.close();
    }
    ~FamilyFile() { file.remove(); }
    FamilyFile(const FamilyFile&) = delete;
    FamilyFile& operator=(const FamilyFile&) = delete;

private:
    QFile file;
};

void measure(int count)
{
    const FamilyFile file(presets(count));
    const auto camera = Bench::BenchCamera::fake(FeatureCount);
    double show = HUGE_VAL;
    double dialog = HUGE_VAL;
    for (int run = 0; run < Runs; ++run) {
        std::unique_ptr<Bench::ShownTab> tab;
        show = std::min(
            show, secondsFor([&] { tab = std::make_unique<Bench::ShownTab>(camera->features()); }));
        dialog = std::min(dialog, secondsFor([&] { tab->openDialog(); }));
        if (tab->control<QComboBox>("cmbSelectPreset").count() != count)
            qFatal("The tab does not offer the presets");
    }
    std::printf("| %d | %.2f s | %.2f s |\n", count, show, dialog);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    std::puts("| Presets | `get()` and first show | Opening the dialog |\n|---:|---:|---:|");
    for (const int count : {100, 1000, 10000, 100000})
        measure(count);
    return 0;
}
