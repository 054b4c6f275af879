#include "host/Appearance.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

namespace {

QPalette makePalette(const QColor& text, const QColor& window, const QColor& base,
                     const QColor& highlight)
{
    QPalette palette(text, window, window.lighter(140), window.darker(160), window.darker(130),
                     text, Qt::white, base, window);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, highlight);
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::ToolTipText, text);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, Qt::gray);
    return palette;
}

} // namespace

void applyPalette(const QString& name)
{
    if (name.isEmpty())
        return;
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (name == QLatin1String("dark"))
        QApplication::setPalette(makePalette("#e6e6e6", "#2f3136", "#3f434a", "#3d7ac8"));
    else
        QApplication::setPalette(makePalette("#1c1c1c", "#f0f0f0", "#ffffff", "#2a6fc4"));
}
