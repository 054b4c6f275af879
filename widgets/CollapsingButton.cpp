#include "widgets/CollapsingButton.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPropertyAnimation>

namespace {

constexpr int AnimationMs = 300;
constexpr int SpareHeight = 10;
constexpr QSize ArrowSize(8, 8);

} // namespace

CollapsingButton::CollapsingButton(QWidget* parent) : QToolButton(parent)
{
    setCheckable(true);
    setStyleSheet(QStringLiteral("background:none"));
    setIconSize(ArrowSize);
    setFont(QApplication::font());
    connect(this, &QToolButton::toggled, this, [this](bool checked) { onToggled(checked); });
}

void CollapsingButton::setText(const QString& text)
{
    QToolButton::setText(QLatin1Char(' ') + text);
}

void CollapsingButton::setContent(QWidget* content)
{
    m_content = content;
    setArrowType(isChecked() ? Qt::DownArrow : Qt::RightArrow);
    if (!content)
        return;

    auto* height = new QPropertyAnimation(content, "maximumHeight");
    height->setStartValue(0);
    height->setEasingCurve(QEasingCurve::InOutQuad);
    height->setDuration(AnimationMs);
    height->setEndValue(content->height() + SpareHeight);
    m_animation.addAnimation(height);

    if (!isChecked()) {
        content->setMaximumHeight(0);
        content->hide();
    }
}

void CollapsingButton::showContent()
{
    if (m_content) {
        m_animation.disconnect(m_content);
        m_content->show();
    }
    m_animation.setDirection(QAbstractAnimation::Forward);
    m_animation.start(QAbstractAnimation::KeepWhenStopped);
}

void CollapsingButton::hideContent()
{
    if (m_content) {
        auto* height = static_cast<QPropertyAnimation*>(m_animation.animationAt(0));
        if (height->endValue().toInt() <= m_content->height() - 1)
            height->setEndValue(m_content->height());
        // Without height the content could still be reached with the Tab key.
        connect(&m_animation, SIGNAL(finished()), m_content, SLOT(hide()), Qt::UniqueConnection);
    }
    m_animation.setDirection(QAbstractAnimation::Backward);
    m_animation.start(QAbstractAnimation::KeepWhenStopped);
}

void CollapsingButton::collapse(bool c)
{
    if (c == isChecked())
        toggle();
}

void CollapsingButton::keyPressEvent(QKeyEvent* event)
{
    // A tool button answers only to the space bar by itself, and to a key held down only once.
    const bool entered = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (entered && !event->isAutoRepeat())
        click();
    else
        QToolButton::keyPressEvent(event);
}

void CollapsingButton::onToggled(bool checked)
{
    setArrowType(checked ? Qt::DownArrow : Qt::RightArrow);
    if (checked && m_content)
        showContent();
    else
        hideContent();
}
