#include "tools/presetcheck/Numbers.h"

#include <QtTest>

/// Which numbers a double cannot hold as they are written.
class tst_PresetNumbers : public QObject
{
    Q_OBJECT

private slots:
    void wholeNumbersWithTooManyDigitsAreLost_data()
    {
        QTest::addColumn<bool>("lost");
        const auto row = [](const char* number, bool lost) { QTest::newRow(number) << lost; };
        row("0", false);
        row("-0", false);
        row("0.0e5", false);
        row("7", false);
        row("-12.50", false);
        row("0.1", false);
        row("1e3", false);
        row("12.5E-1", false);
        row("1500E-2", false);
        row("9007199254740992", false);
        row("9007199254740993", true);
        row("-9007199254740993", true);
        row("9007199254740993.0", true);
        row("0.9007199254740993e16", true);
        row("90071992547409930", true);
        row("9007199254740994", false);
        row("9223372036854775807", true);
        row("9223372036854775808", false);
        row("1e23", false);
        row("100000000000000000000001", true);
        row("0.1000000000000000000000001", false);
        row("3.14159265358979323846", false);
    }
    void wholeNumbersWithTooManyDigitsAreLost()
    {
        QFETCH(bool, lost);
        QCOMPARE(PresetCheck::isNumberLost(QTest::currentDataTag()), lost);
    }

    void aMillionDigitsTakeNoTime()
    {
        QVERIFY(PresetCheck::isNumberLost("1" + QString(100, '0') + "1"));
        QVERIFY(!PresetCheck::isNumberLost("0." + QString(1000000, '0') + "1"));
    }
};

QTEST_APPLESS_MAIN(tst_PresetNumbers)
#include "tst_PresetNumbers.moc"
