// Copying an image out of a buffer whose measures the camera names.
#include "sdk/bridge/ImagePlace.h"

#include <QtTest>

#include <climits>

using ZalCPP::copyPixels;
using ZalCPP::ImagePlace;
using Bytes = std::vector<unsigned char>;
Q_DECLARE_METATYPE(Bytes)

namespace {

constexpr std::uint32_t Mono8 = 0x01080001;
constexpr std::uint32_t Mono12Packed = 0x010c0006;
constexpr std::uint32_t Rgb8 = 0x02180014;

} // namespace

class tst_ImagePlace : public QObject
{
    Q_OBJECT

private slots:
    void imageNeedsItsBytes_data();
    void imageNeedsItsBytes();
    void rowsLoseTheirPadding_data();
    void rowsLoseTheirPadding();
    void bufferWithoutDataHasNoImage();
};

void tst_ImagePlace::imageNeedsItsBytes_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("paddingX");
    QTest::addColumn<std::uint32_t>("pixelFormat");
    QTest::addColumn<bool>("fits");
    QTest::newRow("fits exactly") << 4 << 3 << 0 << Mono8 << true;
    QTest::newRow("smaller than its buffer") << 4 << 2 << 0 << Mono8 << true;
    QTest::newRow("one row too many") << 4 << 4 << 0 << Mono8 << false;
    QTest::newRow("three bytes for a pixel") << 4 << 3 << 0 << Rgb8 << false;
    QTest::newRow("two pixels in three bytes") << 4 << 2 << 0 << Mono12Packed << true;
    QTest::newRow("packed and too large") << 3 << 3 << 0 << Mono12Packed << false;
    QTest::newRow("product beyond 32 bits") << 65536 << 65536 << 0 << Mono8 << false;
    QTest::newRow("largest measures") << INT_MAX << INT_MAX << 0 << 0x02ff0001U << false;
    QTest::newRow("negative width") << -4 << 3 << 0 << Mono8 << false;
    QTest::newRow("negative height") << 4 << -3 << 0 << Mono8 << false;
    QTest::newRow("no height") << 4 << 0 << 0 << Mono8 << false;
    QTest::newRow("padding beyond the row") << 4 << 3 << 9 << Mono8 << false;
    QTest::newRow("negative padding") << 4 << 3 << -1 << Mono8 << false;
    QTest::newRow("more rows than bytes") << 1 << 100 << 1 << Mono8 << false;
    QTest::newRow("largest measures, padded") << INT_MAX << INT_MAX << 1 << 0x02ff0001U << false;
}

void tst_ImagePlace::imageNeedsItsBytes()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(int, paddingX);
    QFETCH(std::uint32_t, pixelFormat);
    const std::vector<unsigned char> memory(12, 7);
    const ImagePlace place{memory.data(), memory.size(), width, height, paddingX, pixelFormat};
    std::vector<unsigned char> pixels{1};
    QTEST(copyPixels(place, pixels), "fits");
    QFETCH(bool, fits);
    QCOMPARE(pixels, fits ? memory : std::vector<unsigned char>{1});
}

void tst_ImagePlace::rowsLoseTheirPadding_data()
{
    QTest::addColumn<Bytes>("memory");
    QTest::addColumn<int>("width");
    QTest::addColumn<std::uint32_t>("pixelFormat");
    QTest::addColumn<Bytes>("rows");
    QTest::newRow("two rows") << Bytes{1, 2, 0, 3, 4, 0} << 2 << Mono8 << Bytes{1, 2, 3, 4};
    QTest::newRow("no padding behind the last one")
        << Bytes{1, 2, 0, 3, 4} << 2 << Mono8 << Bytes{1, 2, 3, 4};
    QTest::newRow("rows of padding behind them")
        << Bytes{1, 2, 0, 3, 4, 0, 0, 0, 0} << 2 << Mono8 << Bytes{1, 2, 3, 4};
    QTest::newRow("other data behind them")
        << Bytes{1, 2, 0, 3, 4, 0, 9, 9} << 2 << Mono8 << Bytes{1, 2, 3, 4};
    QTest::newRow("rows that end within a byte")
        << Bytes{1, 2, 3, 4, 5, 0, 6, 7, 8, 9, 10, 0} << 3 << Mono12Packed
        << Bytes{1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
}

void tst_ImagePlace::rowsLoseTheirPadding()
{
    QFETCH(Bytes, memory);
    QFETCH(int, width);
    QFETCH(std::uint32_t, pixelFormat);
    Bytes pixels;
    QVERIFY(copyPixels({memory.data(), memory.size(), width, 2, 1, pixelFormat}, pixels));
    QTEST(pixels, "rows");
}

void tst_ImagePlace::bufferWithoutDataHasNoImage()
{
    std::vector<unsigned char> pixels{1};
    QVERIFY(!copyPixels({nullptr, 0, 0, 0, 0, Mono8}, pixels));
    QVERIFY(!copyPixels({nullptr, 12, 4, 3, 0, Mono8}, pixels));
}

QTEST_APPLESS_MAIN(tst_ImagePlace)
#include "tst_ImagePlace.moc"
