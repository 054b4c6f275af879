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

QImage paintText(const QString& text)
{
    ImageView view;
    view.resize(200, 200);
    view.showText(text);
    return paint(view);
}

/// Counts how often a widget is painted.
class PaintCounter : public QObject
{
public:
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }
};

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
    }

    void textReplacesTheImage()
    {
        ImageView view;
        view.resize(200, 200);
        view.showText("First");
        QCOMPARE(paint(view), paintText("First"));
        view.showImage(plainImage({20, 20}, Qt::red));
        QCOMPARE(paint(view).pixelColor(100, 100), QColor(Qt::red));
        view.showText("Second");
        const QImage second = paint(view);
        QCOMPARE(second, paintText("Second"));
        QCOMPARE(second.pixel(1, 1), ImageView::backgroundColour().rgb());
        QVERIFY(second != paintText("First"));
    }

    void newContentIsPaintedByItself_data()
    {
        QTest::addColumn<bool>("image");
        QTest::newRow("image") << true;
        QTest::newRow("text") << false;
    }
    void newContentIsPaintedByItself()
    {
        QFETCH(bool, image);
        PaintCounter paints;
        ImageView view;
        view.installEventFilter(&paints);
        view.show();
        QTRY_VERIFY(paints.count > 0);
        QCoreApplication::processEvents();
        const int before = paints.count;
        if (image)
            view.showImage(plainImage({20, 20}, Qt::red));
        else
            view.showText("Text");
        QTRY_VERIFY(paints.count > before);
    }

    void textIsWhite()
    {
        ImageView view;
        view.resize(200, 200);
        view.showText("\u2588\u2588\u2588\u2588");
        const QImage painted = paint(view);
        bool white = false;
        for (int x = 0; x < painted.width(); ++x)
            white = white || painted.pixelColor(x, 100) == QColor(Qt::white);
        QVERIFY(white);
    }

    void enlargedImageIsSmooth()
    {
        QImage image(2, 1, QImage::Format_RGB888);
        image.setPixelColor(0, 0, Qt::black);
        image.setPixelColor(1, 0, Qt::white);
        ImageView view;
        view.resize(200, 200);
        view.showImage(image);
        const int grey = paint(view).pixelColor(99, 100).lightness();
        QVERIFY2(grey > 20 && grey < 235, qPrintable(QString::number(grey)));
    }

    void hasRoomFromTheStart()
    {
        const ImageView view;
        QCOMPARE(view.sizeHint(), QSize(640, 480));
        QCOMPARE(view.minimumSize(), QSize(160, 120));
    }

    void isNotErasedBeforeItIsPainted()
    {
        QVERIFY(ImageView().testAttribute(Qt::WA_OpaquePaintEvent));
    }

    void screenReadersFindIt() { QCOMPARE(ImageView().accessibleName(), QString("Live image")); }
};

QTEST_MAIN(tst_ImageView)
#include "tst_ImageView.moc"
