// Applies presets over a network that loses datagrams, and prints a table of what became of them:
// presetloss [COUNT]. Exits with 1 when a camera was wrong and nobody was told.
#include "tests/e2e/PresetLoss.h"

#include <QApplication>

#include <array>
#include <cstdio>

namespace {

constexpr int DefaultCount = 200;

struct Row
{
    double loss = 0;
    std::array<int, PresetLoss::OutcomeCount> outcomes{};
    std::uint64_t datagrams = 0;
    std::uint64_t dropped = 0;
    qint64 milliseconds = 0;
};

void describe(const PresetLoss::Result& result)
{
    if (result.outcome == PresetLoss::Right)
        return;
    std::fprintf(stderr, "%s: outcome %d\n%s%s\n", qUtf8Printable(result.preset), result.outcome,
                 qUtf8Printable(result.lines),
                 qUtf8Printable(result.differences.join(QLatin1Char('\n'))));
}

Row applyAll(PresetLoss& presets, double loss, int count)
{
    Row row;
    row.loss = loss;
    for (int number = 0; number < count && presets.problem.isEmpty(); ++number) {
        const auto result = presets.apply(number, loss);
        describe(result);
        ++row.outcomes[result.outcome];
        row.datagrams += result.datagrams.passed + result.datagrams.dropped;
        row.dropped += result.datagrams.dropped;
        row.milliseconds += result.milliseconds;
    }
    return row;
}

void print(const Row& row, int count)
{
    std::printf("| %.1f %% | %d | %d | %d | %d | %llu of %llu | %.2f s |\n", row.loss * 100,
                row.outcomes[PresetLoss::Right], row.outcomes[PresetLoss::RightWithLine],
                row.outcomes[PresetLoss::WrongWithLine], row.outcomes[PresetLoss::WrongSilently],
                static_cast<unsigned long long>(row.dropped),
                static_cast<unsigned long long>(row.datagrams),
                double(row.milliseconds) / 1000 / count);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const int count = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : DefaultCount;
    if (count < 1) {
        std::fprintf(stderr, "presetloss: the count must be a number from 1 up\n");
        return 2;
    }
    PresetLoss presets(QStringLiteral(PLUGIN_FOLDER "/.."));
    if (!presets.problem.isEmpty()) {
        std::fprintf(stderr, "presetloss: %s\n", qUtf8Printable(presets.problem));
        return 2;
    }
    std::printf("%d applications at each loss rate.\n\n"
                "| Loss | right | right, told | wrong, told | wrong, not told | datagrams lost | "
                "mean time |\n|---|---|---|---|---|---|---|\n",
                count);
    int silent = 0;
    for (const double loss : {0.0, 0.001, 0.01}) {
        const Row row = applyAll(presets, loss, count);
        print(row, count);
        silent += row.outcomes[PresetLoss::WrongSilently];
    }
    if (!presets.problem.isEmpty())
        std::fprintf(stderr, "presetloss: %s\n", qUtf8Printable(presets.problem));
    return silent > 0 || !presets.problem.isEmpty() ? 1 : 0;
}
