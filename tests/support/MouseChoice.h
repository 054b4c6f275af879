#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QTest>

/// Picks an entry of a combo box with the mouse: a click on the box, a click on the entry.
inline void chooseWithMouse(QComboBox& box, const QString& entry)
{
    const int row = box.findText(entry);
    if (row < 0 || !box.isEnabled())
        qFatal("%s offers no entry %s", qPrintable(box.objectName()), qPrintable(entry));
    QTest::mouseClick(&box, Qt::LeftButton);
    QAbstractItemView* list = box.view();
    QVERIFY(QTest::qWaitForWindowExposed(list->window()));
    // Within this time, measured coarsely, the popup takes a release for the end of the click that
    // opened it.
    QTest::qWait(2 * QApplication::doubleClickInterval());
    const QModelIndex index = box.model()->index(row, 0);
    list->scrollTo(index);
    // Of an entry wider than the list, only a part can be hit.
    const QPoint target = (list->visualRect(index) & list->viewport()->rect()).center();
    // From elsewhere: the mouse may rest there since the last choice, which would be no move.
    QTest::mouseMove(list->viewport(), QPoint(1, 1));
    QTest::mouseMove(list->viewport(), target);
    QTRY_COMPARE(list->currentIndex().row(), row);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, target);
    QTRY_VERIFY(!list->isVisible());
}
