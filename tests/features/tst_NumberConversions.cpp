#include "features/NumberConversions.h"

#include <QtTest>

#include <climits>
#include <limits>

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
const double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double TwoTo63 = 9223372036854775808.0;
constexpr double TwoTo64 = 18446744073709551616.0;

/// Every bit of it: QCOMPARE takes doubles as equal that are merely close.
QByteArray exact(double value)
{
    return QByteArray::number(value, 'g', 17);
}

} // namespace

static_assert(NumberConversions::toInt64(2.5) == 2, "usable in constant expressions");
static_assert(NumberConversions::toInt(-2.5) == -2, "usable in constant expressions");

class tst_NumberConversions : public QObject
{
    Q_OBJECT

private slots:
    void toInt64TruncatesAndSaturates_data();
    void toInt64TruncatesAndSaturates();
    void toIntTruncatesAndSaturates_data();
    void toIntTruncatesAndSaturates();
    void truncateUnsignedWrapsNegativeQuotients_data();
    void truncateUnsignedWrapsNegativeQuotients();
    void reduceToMultipleCountsFromZero_data();
    void reduceToMultipleCountsFromZero();
};

void tst_NumberConversions::toInt64TruncatesAndSaturates_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<qint64>("expected");
    QTest::newRow("zero") << 0.0 << qint64(0);
    QTest::newRow("negative zero") << -0.0 << qint64(0);
    QTest::newRow("fraction") << 7.9 << qint64(7);
    QTest::newRow("negative fraction") << -7.9 << qint64(-7);
    QTest::newRow("below one") << 0.999 << qint64(0);
    QTest::newRow("above minus one") << -0.999 << qint64(0);
    QTest::newRow("NaN") << NotANumber << qint64(0);
    QTest::newRow("infinity") << Infinity << qint64(LLONG_MAX);
    QTest::newRow("minus infinity") << -Infinity << qint64(LLONG_MIN);
    QTest::newRow("2^63") << TwoTo63 << qint64(LLONG_MAX);
    QTest::newRow("next below 2^63")
        << std::nextafter(TwoTo63, 0.0) << qint64(9223372036854774784LL);
    QTest::newRow("-2^63") << -TwoTo63 << qint64(LLONG_MIN);
    QTest::newRow("next above -2^63")
        << std::nextafter(-TwoTo63, 0.0) << qint64(-9223372036854774784LL);
    QTest::newRow("next below -2^63") << std::nextafter(-TwoTo63, -Infinity) << qint64(LLONG_MIN);
    QTest::newRow("2^53 + 1 rounded") << 9007199254740993.0 << qint64(9007199254740992LL);
    QTest::newRow("largest double") << std::numeric_limits<double>::max() << qint64(LLONG_MAX);
    QTest::newRow("smallest denormal") << std::numeric_limits<double>::denorm_min() << qint64(0);
}

void tst_NumberConversions::toInt64TruncatesAndSaturates()
{
    QFETCH(double, value);
    QFETCH(qint64, expected);
    QCOMPARE(qint64(NumberConversions::toInt64(value)), expected);
}

void tst_NumberConversions::toIntTruncatesAndSaturates_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("expected");
    QTest::newRow("fraction") << 7.9 << 7;
    QTest::newRow("negative fraction") << -7.9 << -7;
    QTest::newRow("NaN") << NotANumber << 0;
    QTest::newRow("infinity") << Infinity << INT_MAX;
    QTest::newRow("minus infinity") << -Infinity << INT_MIN;
    QTest::newRow("largest int") << 2147483647.0 << INT_MAX;
    QTest::newRow("fraction above largest int") << 2147483647.5 << INT_MAX;
    QTest::newRow("2^31") << 2147483648.0 << INT_MAX;
    QTest::newRow("smallest int") << -2147483648.0 << INT_MIN;
    QTest::newRow("fraction below smallest int") << -2147483648.5 << INT_MIN;
    QTest::newRow("fraction above smallest int") << -2147483647.5 << -2147483647;
    QTest::newRow("-2^31 - 1") << -2147483649.0 << INT_MIN;
    QTest::newRow("32 bits unsigned") << 4294967295.0 << INT_MAX;
}

void tst_NumberConversions::toIntTruncatesAndSaturates()
{
    QFETCH(double, value);
    QFETCH(int, expected);
    QCOMPARE(NumberConversions::toInt(value), expected);
}

void tst_NumberConversions::truncateUnsignedWrapsNegativeQuotients_data()
{
    QTest::addColumn<double>("quotient");
    QTest::addColumn<double>("expected");
    QTest::newRow("zero") << 0.0 << 0.0;
    QTest::newRow("fraction") << 63.94 << 63.0;
    QTest::newRow("whole") << 64.0 << 64.0;
    QTest::newRow("below one") << 0.999 << 0.0;
    QTest::newRow("above minus one") << -0.999 << 0.0;
    QTest::newRow("minus one") << -1.0 << static_cast<double>(ULLONG_MAX);
    QTest::newRow("minus one and a half") << -1.5 << static_cast<double>(ULLONG_MAX);
    QTest::newRow("-4096") << -4096.0 << static_cast<double>(0ULL - 4096ULL);
    QTest::newRow("-4096.9") << -4096.9 << static_cast<double>(0ULL - 4096ULL);
    QTest::newRow("-2^62") << -TwoTo63 / 2 << TwoTo63 + TwoTo63 / 2;
    QTest::newRow("-2^63") << -TwoTo63 << TwoTo63;
    QTest::newRow("-2^64") << -TwoTo64 << 0.0;
    QTest::newRow("2^63") << TwoTo63 << TwoTo63;
    QTest::newRow("next below 2^64")
        << std::nextafter(TwoTo64, 0.0) << std::nextafter(TwoTo64, 0.0);
    QTest::newRow("2^64") << TwoTo64 << TwoTo64;
    QTest::newRow("far above 2^64") << 1e300 << 1e300;
    QTest::newRow("infinity") << Infinity << Infinity;
    QTest::newRow("NaN") << NotANumber << 0.0;
}

void tst_NumberConversions::truncateUnsignedWrapsNegativeQuotients()
{
    QFETCH(double, quotient);
    QFETCH(double, expected);
    QCOMPARE(exact(NumberConversions::truncateUnsigned(quotient)), exact(expected));
}

void tst_NumberConversions::reduceToMultipleCountsFromZero_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("step");
    QTest::addColumn<double>("expected");
    QTest::newRow("1023 in steps of 16") << 1023.0 << 16.0 << 1008.0;
    QTest::newRow("a multiple stays") << 1008.0 << 16.0 << 1008.0;
    QTest::newRow("fractional step") << 10.3 << 0.5 << 10.0;
    QTest::newRow("less than one step") << 3.0 << 16.0 << 0.0;
    QTest::newRow("little below zero") << -3.0 << 16.0 << 0.0;
    QTest::newRow("negative wraps around") << -16.0 << 16.0 << 16.0 * TwoTo64;
    QTest::newRow("huge stays") << 1e300 << 0.5 << 1e300;
}

void tst_NumberConversions::reduceToMultipleCountsFromZero()
{
    QFETCH(double, value);
    QFETCH(double, step);
    QFETCH(double, expected);
    QCOMPARE(exact(NumberConversions::reduceToMultiple(value, step)), exact(expected));
}

QTEST_APPLESS_MAIN(tst_NumberConversions)

#include "tst_NumberConversions.moc"
