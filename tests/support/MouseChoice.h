#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QMouseEvent>
#include <QPointer>
#include <QTest>
#include <QtGlobal>

/// While it lives, clicks follow one another as slowly as anybody could wish: a popup takes a
/// release within the interval for the end of the click that opened it.
class SlowClicks
{
public:
    SlowClicks() { QApplication::setDoubleClickInterval(0); }
    ~SlowClicks() { QApplication::setDoubleClickInterval(m_interval); }
    Q_DISABLE_COPY_MOVE(SlowClicks)

private:
    const int m_interval = QApplication::doubleClickInterval();
};

/// Opens the list of a combo box with a click on the box.
inline QAbstractItemView* openList(QComboBox& box)
{
    const SlowClicks slowly;
    QTest::mouseClick(&box, Qt::LeftButton);
    QAbstractItemView* list = box.view();
    if (!QTest::qWaitForWindowExposed(list->window()))
        qFatal("%s shows no list", qPrintable(box.objectName()));
    // The interval, of no time, ends with a timer.
    QCoreApplication::processEvents();
    return list;
}

/// Moves onto the entry of an open list and clicks it. The list may be gone afterwards.
inline void clickInList(QAbstractItemView& list, int row)
{
    const SlowClicks slowly;
    const QModelIndex entry = list.model()->index(row, 0);
    list.scrollTo(entry);
    QWidget* viewport = list.viewport();
    // Of an entry wider than the list, only a part can be hit.
    const QPoint target = (list.visualRect(entry) & viewport->rect()).center();
    // Straight to the list: a move of the cursor may reach the window below the popup instead.
    QMouseEvent move(QEvent::MouseMove, target, viewport->mapToGlobal(target), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &move);
    QCOMPARE(list.currentIndex(), entry);
    QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, target);
}

/// Picks an entry of a combo box with the mouse: a click on the box, a click on the entry.
inline void chooseWithMouse(QComboBox& box, const QString& entry)
{
    const int row = box.findText(entry);
    if (row < 0 || !box.isEnabled())
        qFatal("%s offers no entry %s", qPrintable(box.objectName()), qPrintable(entry));
    const QPointer<QAbstractItemView> list = openList(box);
    clickInList(*list, row);
    QTRY_VERIFY(!list || !list->isVisible());
}
