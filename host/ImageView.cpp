#include "host/ImageView.h"

#include <QPainter>

ImageView::ImageView(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(160, 120);
    setAccessibleName(tr("Live image"));
}

QRect ImageView::imageRect() const
{
    QRect area(QPoint(), m_image.size().scaled(size(), Qt::KeepAspectRatio));
    area.moveCenter(rect().center());
    return area;
}

void ImageView::showImage(const QImage& image)
{
    m_image = image;
    update();
}

void ImageView::showText(const QString& text)
{
    m_image = QImage();
    m_text = text;
    update();
}

QSize ImageView::sizeHint() const
{
    return {640, 480};
}

void ImageView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), backgroundColour());
    if (m_image.isNull()) {
        painter.setPen(Qt::white);
        painter.drawText(rect().adjusted(16, 16, -16, -16), Qt::AlignCenter | Qt::TextWordWrap,
                         m_text);
        return;
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(imageRect(), m_image);
}
