#pragma once

#include <QParallelAnimationGroup>
#include <QPointer>
#include <QToolButton>

/// Header of a folding section: checked, its content is unfolded; unchecked, it is folded away.
/// Both happen as an animation of the content's maximum height. Folded content is hidden, so that
/// the keyboard does not reach it. GUI thread only.
class CollapsingButton : public QToolButton
{
    Q_OBJECT

public:
    explicit CollapsingButton(QWidget* parent = nullptr);

    /// Shows the text with a blank before it, to keep it off the arrow.
    void setText(const QString& text);

    /// Sets the widget to fold, which the button does not own; without one, or once it is
    /// destroyed, only the arrow turns. An unchecked button folds it at once. Call it once.
    void setContent(QWidget* content);

    /// Unfolds the content, animated.
    void showContent();

    /// Folds the content, animated. Content that has grown unfolds to its new height from then on.
    void hideContent();

    /// Checks (false) or unchecks (true) the button if it is not so already.
    void collapse(bool c);

protected:
    /// Return and Enter toggle the button, as the space bar does.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void onToggled(bool checked);

    QPointer<QWidget> m_content;
    QParallelAnimationGroup m_animation;
};
