#pragma once

#include "widgets/CollapsingButton.h"

#include <QAnimationDriver>
#include <QApplication>
#include <QFrame>
#include <QLineEdit>
#include <QVBoxLayout>

/// A section as the forms have it: the button above its content, which holds a field.
struct Section
{
    Section()
    {
        auto* layout = new QVBoxLayout(&window);
        before = new QLineEdit(&window);
        button = new CollapsingButton(&window);
        content = new QFrame;
        field = new QLineEdit;
        after = new QLineEdit;
        auto* inner = new QVBoxLayout(content);
        inner->setContentsMargins(0, 0, 0, 0);
        inner->addWidget(field);
        content->resize(100, Height);
        for (QWidget* widget : {before, static_cast<QWidget*>(button), content, after})
            layout->addWidget(widget);
        layout->addStretch(1);
    }

    void show()
    {
        window.resize(200, 600);
        window.show();
        QApplication::setActiveWindow(&window);
    }

    /// Whether the content may become this high. Animations count from a moment of the real clock,
    /// which may be a millisecond further: then it is `later`.
    bool mayBecome(int height, int later) const
    {
        return content->maximumHeight() == height || content->maximumHeight() == later;
    }

    /// The content's height before it is folded.
    static constexpr int Height = 60;

    QWidget window;
    QWidget* before;
    CollapsingButton* button;
    QWidget* content;
    QWidget* field;
    QWidget* after;
};

/// A clock for animations that moves only when told to.
class ManualClock : public QAnimationDriver
{
public:
    ManualClock() { install(); }
    ~ManualClock() override { uninstall(); }

    void advanceTo(qint64 ms)
    {
        QCoreApplication::processEvents(); // animations enter the clock's list by a posted call
        m_now = ms;
        advanceAnimation();
    }
    qint64 elapsed() const override { return m_now; }

private:
    qint64 m_now = 0;
};
