#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <QVector>

#include <functional>

/// Answers the modal message boxes that open while it lives, and remembers them. Without an answer
/// of its own each box is accepted.
class MessageBoxes
{
public:
    struct Shown
    {
        QString title;
        QString text;
        QMessageBox::Icon icon;
        QMessageBox::StandardButtons buttons;
        const QWidget* parent;
        bool modal;
    };
    using Answer = std::function<void(QMessageBox&)>;

    explicit MessageBoxes(Answer toGive = [](QMessageBox& box) { box.accept(); })
        : m_answer(std::move(toGive))
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { look(); });
        m_timer.start(0);
    }

    QVector<Shown> shown;

    QStringList texts() const
    {
        QStringList result;
        for (const Shown& box : shown)
            result.append(box.text);
        return result;
    }

private:
    void look()
    {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || box == m_answered)
            return;
        m_answered = box;
        shown.append({box->windowTitle(), box->text(), box->icon(), box->standardButtons(),
                      box->parentWidget(), box->isModal()});
        m_answer(*box);
    }

    Answer m_answer;
    QPointer<QMessageBox> m_answered;
    QTimer m_timer;
};
