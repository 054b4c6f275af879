#include "host/FrameConverter.h"

#include <QTest>

using Bytes = std::vector<unsigned char>;
Q_DECLARE_METATYPE(Bytes)

namespace {

ZalCPP::Frame makeFrame(std::uint32_t format, std::uint32_t width, std::uint32_t height,
                        Bytes pixels)
{
    return {1, width, height, format, std::move(pixels)};
}

/// Two little-endian pixels, the second with all its significant bits set.
Bytes deepPixels(unsigned bits)
{
    const unsigned half = 1U << (bits - 1);
    const unsigned full = (1U << bits) - 1;
    return {static_cast<unsigned char>(half), static_cast<unsigned char>(half >> 8U),
            static_cast<unsigned char>(full), static_cast<unsigned char>(full >> 8U)};
}

} // namespace

class tst_FrameConverter : public QObject
{
    Q_OBJECT

private slots:
    void pixelFormatIsConverted_data()
    {
        QTest::addColumn<uint>("format");
        QTest::addColumn<Bytes>("pixels");
        QTest::addColumn<QColor>("first");
        QTest::addColumn<QColor>("second");
        const QColor half(128, 128, 128);
        const auto row = [](const char* name, uint format, const Bytes& pixels, const QColor& first,
                            const QColor& second) {
            QTest::newRow(name) << format << pixels << first << second;
        };
        row("Mono8", 0x01080001, {128, 255}, half, Qt::white);
        row("Mono10", 0x01100003, deepPixels(10), half, Qt::white);
        row("Mono12", 0x01100005, deepPixels(12), half, Qt::white);
        row("Mono14", 0x01100025, deepPixels(14), half, Qt::white);
        row("Mono16", 0x01100007, deepPixels(16), half, Qt::white);
        row("RGB8", 0x02180014, {1, 2, 3, 4, 5, 6}, QColor(1, 2, 3), QColor(4, 5, 6));
        row("BGR8", 0x02180015, {1, 2, 3, 4, 5, 6}, QColor(3, 2, 1), QColor(6, 5, 4));
        for (const uint format : {0x01080008U, 0x01080009U, 0x0108000AU, 0x0108000BU})
            row(qPrintable(QString("Bayer 8 bit %1").arg(format, 0, 16)), format, {128, 255}, half,
                Qt::white);
        for (const uint format : {0x0110000CU, 0x0110000DU, 0x0110000EU, 0x0110000FU})
            row(qPrintable(QString("Bayer 10 bit %1").arg(format, 0, 16)), format, deepPixels(10),
                half, Qt::white);
        for (const uint format : {0x01100010U, 0x01100011U, 0x01100012U, 0x01100013U})
            row(qPrintable(QString("Bayer 12 bit %1").arg(format, 0, 16)), format, deepPixels(12),
                half, Qt::white);
        for (const uint format : {0x0110002EU, 0x0110002FU, 0x01100030U, 0x01100031U})
            row(qPrintable(QString("Bayer 16 bit %1").arg(format, 0, 16)), format, deepPixels(16),
                half, Qt::white);
    }
    void pixelFormatIsConverted()
    {
        QFETCH(uint, format);
        QFETCH(Bytes, pixels);
        QString problem;
        const QImage image = convertFrame(makeFrame(format, 2, 1, pixels), problem);
        QCOMPARE(problem, QString());
        QCOMPARE(image.size(), QSize(2, 1));
        QTEST(image.pixelColor(0, 0), "first");
        QTEST(image.pixelColor(1, 0), "second");
    }

    void rowsOfOddLengthKeepTheirPlace()
    {
        QString problem;
        const QImage image =
            convertFrame(makeFrame(0x01080001, 3, 2, {10, 20, 30, 40, 50, 60}), problem);
        QCOMPARE(qGray(image.pixel(2, 0)), 30);
        QCOMPARE(qGray(image.pixel(0, 1)), 40);
        QCOMPARE(qGray(image.pixel(2, 1)), 60);
    }

    void deepRowsKeepTheirPlace()
    {
        QString problem;
        const QImage image =
            convertFrame(makeFrame(0x01100007, 1, 2, {0xFF, 0x10, 0xFF, 0x20}), problem);
        QCOMPARE(qGray(image.pixel(0, 0)), 0x10);
        QCOMPARE(qGray(image.pixel(0, 1)), 0x20);
    }

    void bitsAboveTheFormatsOwnAreCutOff()
    {
        QString problem;
        const QImage image = convertFrame(makeFrame(0x01100003, 1, 1, {0x00, 0xFE}), problem);
        QCOMPARE(qGray(image.pixel(0, 0)), 0x80);
    }

    void imageOutlivesTheFrame()
    {
        QString problem;
        QImage image;
        {
            ZalCPP::Frame frame = makeFrame(0x01080001, 2, 1, {7, 9});
            image = convertFrame(frame, problem);
            frame.pixels.assign(2, 0);
        }
        QCOMPARE(qGray(image.pixel(1, 0)), 9);
    }

    void unknownFormatIsNamed()
    {
        QString problem;
        QVERIFY(convertFrame(makeFrame(0x010A0046, 2, 1, {0, 0, 0}), problem).isNull());
        QCOMPARE(problem, QString("Images in the pixel format 0x010a0046 cannot be shown."));
    }

    void incompleteImageIsRefused_data()
    {
        QTest::addColumn<uint>("format");
        QTest::addColumn<uint>("width");
        QTest::addColumn<uint>("height");
        QTest::addColumn<int>("bytes");
        QTest::newRow("no data") << 0x01080001U << 2U << 2U << 0;
        QTest::newRow("one byte short") << 0x01080001U << 2U << 2U << 3;
        QTest::newRow("half of a deep image") << 0x01100003U << 2U << 2U << 4;
        QTest::newRow("third of a colour image") << 0x02180014U << 2U << 2U << 4;
        QTest::newRow("no width") << 0x01080001U << 0U << 2U << 4;
        QTest::newRow("no height") << 0x01080001U << 2U << 0U << 4;
        QTest::newRow("absurd width") << 0x01080001U << 0xFFFFFFFFU << 1U << 4;
        QTest::newRow("absurd height") << 0x01080001U << 1U << 0xFFFFFFFFU << 4;
        // 2^64 and 5492 bytes.
        QTest::newRow("more bytes than can be counted")
            << 0x02180014U << 3000124093U << 2049553452U << 5493;
    }
    void incompleteImageIsRefused()
    {
        QFETCH(uint, format);
        QFETCH(uint, width);
        QFETCH(uint, height);
        QFETCH(int, bytes);
        QString problem;
        const Bytes pixels(static_cast<std::size_t>(bytes));
        QVERIFY(convertFrame(makeFrame(format, width, height, pixels), problem).isNull());
        QCOMPARE(problem, QString("The camera delivered an incomplete image."));
    }

    void imageTooLargeToShowIsRefused()
    {
        constexpr uint width = 1U << 28;
        QString problem;
        const Bytes pixels(width);
        QVERIFY(convertFrame(makeFrame(0x01080001, width, 1, pixels), problem).isNull());
        QCOMPARE(problem, QString("Images of 268435456 x 1 pixels cannot be shown."));
    }

    void surplusBytesAreIgnored()
    {
        QString problem;
        const QImage image = convertFrame(makeFrame(0x01080001, 1, 1, {5, 6, 7}), problem);
        QCOMPARE(image.size(), QSize(1, 1));
        QCOMPARE(qGray(image.pixel(0, 0)), 5);
    }
};

QTEST_GUILESS_MAIN(tst_FrameConverter)
#include "tst_FrameConverter.moc"
