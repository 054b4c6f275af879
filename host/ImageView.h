#pragma once

#include <QImage>
#include <QWidget>

/// Shows the live image, as large as fits with its aspect ratio kept, or a text while there is
/// none.
class ImageView : public QWidget
{
    Q_OBJECT

public:
    explicit ImageView(QWidget* parent = nullptr);

    /// What is seen beside the image: dark under every palette, so that the image stands out.
    static QColor backgroundColour() { return {38, 40, 43}; }

    /// Where the image is painted.
    QRect imageRect() const;

    void showImage(const QImage& image);
    void showText(const QString& text);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage m_image;
    QString m_text;
};
