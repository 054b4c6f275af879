// Presets over a network that loses datagrams: the camera is right, or the user is told.
#include "tests/e2e/PresetLoss.h"

#include <QtTest>

class tst_PresetLoss : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void noApplicationIsSilentlyWrong();

private:
    static constexpr int Count = 10;
    std::unique_ptr<PresetLoss> m_presets;
};

void tst_PresetLoss::initTestCase()
{
    m_presets = std::make_unique<PresetLoss>(QStringLiteral(PLUGIN_FOLDER "/.."));
    QVERIFY2(m_presets->problem.isEmpty(), qPrintable(m_presets->problem));
}

void tst_PresetLoss::noApplicationIsSilentlyWrong()
{
    std::uint64_t dropped = 0;
    for (int number = 0; number < Count; ++number) {
        const auto result = m_presets->apply(number, 0.01);
        dropped += result.datagrams.dropped;
        QVERIFY2(result.outcome != PresetLoss::WrongSilently,
                 qPrintable(result.preset + QLatin1String(": ") +
                            result.differences.join(QLatin1String("; "))));
    }
    QVERIFY(dropped > 0);
}

QTEST_MAIN(tst_PresetLoss)
#include "tst_PresetLoss.moc"
