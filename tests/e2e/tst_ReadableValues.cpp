// Values that the camera reports and nobody can change, measured on the screen: they are there to
// be read, under both of the viewer's palettes.
#include "host/Appearance.h"
#include "tests/e2e/TabOnFakeCamera.h"

#include <QDoubleSpinBox>
#include <QLineEdit>

#include <algorithm>
#include <cmath>

namespace {

/// The relative luminance of WCAG 2.
double luminance(QRgb pixel)
{
    const auto linear = [](int channel) {
        const double part = channel / 255.0;
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(pixel)) + 0.7152 * linear(qGreen(pixel)) +
           0.0722 * linear(qBlue(pixel));
}

double contrast(QRgb one, QRgb other)
{
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

/// The field's pixels inside its frame, without the arrows of a spin box.
QVector<QRgb> pixelsOf(QWidget& field)
{
    constexpr int frame = 4;
    constexpr int arrows = 24;
    const QImage image = field.grab().toImage().convertToFormat(QImage::Format_RGB32);
    QVector<QRgb> pixels;
    for (int y = frame; y < image.height() - frame; ++y)
        for (int x = frame; x < image.width() - arrows; ++x)
            pixels << image.pixel(x, y);
    return pixels;
}

QLineEdit& editOf(QWidget& field)
{
    auto* edit = qobject_cast<QLineEdit*>(&field);
    return edit ? *edit : *field.findChild<QLineEdit*>();
}

/// What the eye has to tell apart: the field without a text, and the text's own colour, seen in a
/// letter without edges.
double contrastOfText(QWidget& field)
{
    QLineEdit& edit = editOf(field);
    const QSignalBlocker silence(&edit);
    edit.setText(QString());
    const QRgb background = pixelsOf(field).first();
    edit.setText(QString(3, QChar(0x2588)));
    double best = 0.0;
    for (const QRgb pixel : pixelsOf(field))
        best = std::max(best, contrast(pixel, background));
    return best;
}

} // namespace

class tst_ReadableValues : public QObject
{
    Q_OBJECT

private slots:
    void reportedValueCanBeRead_data();
    void reportedValueCanBeRead();
};

void tst_ReadableValues::reportedValueCanBeRead_data()
{
    QTest::addColumn<QString>("palette");
    QTest::addColumn<QString>("field");
    for (const char* palette : {"light", "dark"})
        for (const char* field :
             {"txtActionQueueSize", "txtPtpStatus", "txtPtpServoStatus", "txtPtpClockID",
              "txtPtpParentClockID", "txtPtpGrandmasterClockID", "txtPtpClockAccuracy",
              "txtPtpOffsetFromMaster", "txtTimestampLatchValue", "spbCounterValue",
              "txtCounterStatus", "txtCounterValueAtReset", "txtTimerStatus"})
            QTest::addRow("%s %s", palette, field) << QString(palette) << QString(field);
}

void tst_ReadableValues::reportedValueCanBeRead()
{
    QFETCH(QString, palette);
    QFETCH(QString, field);
    applyPalette(palette);
    const TabOnFakeCamera camera;
    const QDialog* dialog = camera.openDialog();
    for (const char* section : {"frmActionCommand", "frmCounterTimer"}) {
        dialog->findChild<QWidget*>(section)->setMaximumHeight(QWIDGETSIZE_MAX);
        dialog->findChild<QWidget*>(section)->show();
    }
    auto* widget = dialog->findChild<QWidget*>(field);
    QTRY_VERIFY(widget->height() >= widget->sizeHint().height());
    widget->setEnabled(false); // Some cameras let the counter be set.
    const double found = contrastOfText(*widget);
    QVERIFY2(found >= 4.5, qPrintable(QString::number(found)));
}

QTEST_MAIN(tst_ReadableValues)
#include "tst_ReadableValues.moc"
