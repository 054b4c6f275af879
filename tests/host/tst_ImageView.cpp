#include "host/ImageView.h"

#include <QTest>

namespace {

QImage plainImage(const QSize& size, const QColor& colour)
{
    QImage image(size, QImage::Format_RGB888);
    image.fill(colour);
    return image;
}

QImage paint(ImageView& view)
{
    return view.grab().toImage();
}

} // namespace

class tst_ImageView : public QObject
{
    Q_OBJECT

private slots:
    void imageFillsTheViewInItsAspectRatio_data()
    {
        QTest::addColumn<QSize>("image");
        QTest::addColumn<QRect>("rect");
        QTest::newRow("wide") << QSize(40, 10) << QRect(0, 75, 200, 50);
        QTest::newRow("tall") << QSize(10, 40) << QRect(75, 0, 50, 200);
        QTest::newRow("square") << QSize(20, 20) << QRect(0, 0, 200, 200);
        QTest::newRow("larger than the view") << QSize(4000, 2000) << QRect(0, 50, 200, 100);
    }
    void imageFillsTheViewInItsAspectRatio()
    {
        QFETCH(QSize, image);
        ImageView view;
        view.resize(200, 200);
        view.showImage(plainImage(image, Qt::red));
        QTEST(view.imageRect(), "rect");
    }

    void imageIsPaintedWithBarsBesideIt()
    {
        ImageView view;
        view.resize(200, 200);
        view.showImage(plainImage({40, 10}, Qt::red));
        const QImage painted = paint(view);
        QCOMPARE(painted.pixelColor(100, 100), QColor(Qt::red));
        QCOMPARE(painted.pixelColor(2, 80), QColor(Qt::red));
        QCOMPARE(painted.pixel(100, 10), ImageView::backgroundColour().rgb());
        QCOMPARE(painted.pixel(100, 190), ImageView::backgroundColour().rgb());
    }

    void newImageReplacesTheOldOne()
    {
        ImageView view;
        view.resize(200, 200);
        view.showImage(plainImage({20, 20}, Qt::red));
        view.showImage(plainImage({20, 20}, Qt::blue));
        QCOMPARE(paint(view).pixelColor(100, 100), QColor(Qt::blue));
        QVERIFY(view.text().isEmpty());
    }

    void textReplacesTheImage()
    {
        ImageView view;
        view.resize(200, 200);
        view.showText("First");
        const QImage first = paint(view);
        QCOMPARE(view.text(), QString("First"));
        view.showImage(plainImage({20, 20}, Qt::red));
        QCOMPARE(view.text(), QString());
        view.showText("Second");
        QCOMPARE(view.text(), QString("Second"));
        QVERIFY(view.image().isNull());
        const QImage second = paint(view);
        QCOMPARE(second.pixel(1, 1), ImageView::backgroundColour().rgb());
        QVERIFY(second != first);
    }

    void screenReadersFindIt() { QCOMPARE(ImageView().accessibleName(), QString("Live image")); }
};

QTEST_MAIN(tst_ImageView)
#include "tst_ImageView.moc"
