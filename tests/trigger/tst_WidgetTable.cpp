// What any table with widgets in its cells needs, on a table of two rows and two columns.
#include "tests/trigger/Announcements.h"
#include "trigger/WidgetTable.h"

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTableWidget>
#include <QTest>
#include <QVBoxLayout>

#include <functional>

using Holder = std::function<QWidget*(QWidget& root)>;
Q_DECLARE_METATYPE(Holder)

class tst_WidgetTable : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }

    void cellHoldsWhatIsPlaced();
    void cellIsCalledAsItsEditor();
    void cellOfADeletedEditorHasNoName();
    void columnThatTheTableLacksGetsNoCell();
    void tabKeyGoesRowByRowAndOn();
    void sectionsFitTheirContents();
    void newNameIsAnnouncedForTheCell();
    void nameOutsideATableIsAnnouncedForNoCell_data();
    void nameOutsideATableIsAnnouncedForNoCell();

private:
    template <class Widget> Widget& place(int row, int column);
    QCheckBox& placeInContainer(int row, int column);
    QString cellName(int row, int column) const;

    std::unique_ptr<QWidget> m_window;
    QTableWidget* m_table = nullptr;
};

void tst_WidgetTable::init()
{
    m_window = std::make_unique<QWidget>();
    m_table = new QTableWidget(2, 2);
    auto* layout = new QVBoxLayout(m_window.get());
    layout->addWidget(m_table);
    layout->addWidget(new QLineEdit);
}

template <class Widget> Widget& tst_WidgetTable::place(int row, int column)
{
    auto* widget = new Widget(m_table);
    widget->setObjectName(QStringLiteral("%1%2").arg(row).arg(column));
    WidgetTable::place(*m_table, row, column, *widget, *widget);
    return *widget;
}

QCheckBox& tst_WidgetTable::placeInContainer(int row, int column)
{
    auto* container = new QWidget(m_table);
    auto* box = new QCheckBox;
    (new QHBoxLayout(container))->addWidget(box);
    box->setObjectName(QStringLiteral("%1%2").arg(row).arg(column));
    WidgetTable::place(*m_table, row, column, *box, *container);
    return *box;
}

QString tst_WidgetTable::cellName(int row, int column) const
{
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(m_table);
    return table->tableInterface()->cellAt(row, column)->text(QAccessible::Name);
}

void tst_WidgetTable::cellHoldsWhatIsPlaced()
{
    const auto& edit = place<QLineEdit>(0, 1);
    const auto& box = placeInContainer(1, 0);
    QCOMPARE(m_table->cellWidget(0, 1), &edit);
    QCOMPARE(m_table->cellWidget(1, 0), box.parentWidget());
}

void tst_WidgetTable::cellIsCalledAsItsEditor()
{
    place<QLineEdit>(0, 1).setAccessibleName("Line0, Mode");
    placeInContainer(1, 0).setAccessibleName("Line1, Invert");
    QCOMPARE(cellName(0, 1), QString("Line0, Mode"));
    QCOMPARE(cellName(1, 0), QString("Line1, Invert"));
}

void tst_WidgetTable::cellOfADeletedEditorHasNoName()
{
    auto& box = placeInContainer(0, 0);
    box.setAccessibleName("Line0, Invert");
    delete &box;
    QCOMPARE(m_table->item(0, 0)->data(Qt::AccessibleTextRole).toString(), QString());
}

void tst_WidgetTable::columnThatTheTableLacksGetsNoCell()
{
    place<QLineEdit>(0, 2);
    QCOMPARE(m_table->columnCount(), 2);
    QVERIFY(!m_table->item(0, 2));
}

void tst_WidgetTable::tabKeyGoesRowByRowAndOn()
{
    // Made in another order than they stand; a label takes no focus.
    place<QLineEdit>(1, 1);
    placeInContainer(1, 0);
    place<QLabel>(0, 1);
    place<QLineEdit>(0, 0);
    WidgetTable::chainFocus(*m_table);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_table->setFocus();
    for (const char* next : {"00", "10", "11", ""}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->objectName(), QString(next));
    }
    QVERIFY(qobject_cast<QLineEdit*>(QApplication::focusWidget()));
}

void tst_WidgetTable::sectionsFitTheirContents()
{
    auto& wide = place<QLabel>(0, 0);
    wide.setFixedSize(321, 123);
    WidgetTable::fitToContents(*m_table);
    for (const QHeaderView* header : {m_table->horizontalHeader(), m_table->verticalHeader()})
        QCOMPARE(header->sectionResizeMode(1), QHeaderView::ResizeToContents);
    QVERIFY(m_table->columnWidth(0) >= 321);
    QVERIFY(m_table->rowHeight(0) >= 123);
}

void tst_WidgetTable::newNameIsAnnouncedForTheCell()
{
    place<QLabel>(0, 0).setAccessibleName("Line0: low");
    auto& lamp = place<QLabel>(1, 1);
    lamp.setAccessibleName("Line1: high");
    Announcements announcements;
    WidgetTable::announceName(lamp);
    QCOMPARE(announcements.take(), QStringList("Line1: high"));
}

void tst_WidgetTable::nameOutsideATableIsAnnouncedForNoCell_data()
{
    QTest::addColumn<Holder>("holder");
    QTest::newRow("no parent") << Holder([](QWidget&) { return nullptr; });
    QTest::newRow("parent without a parent") << Holder([](QWidget& root) { return &root; });
    QTest::newRow("within another widget")
        << Holder([](QWidget& root) { return new QWidget(&root); });
    QTest::newRow("on the table, in no cell")
        << Holder([](QWidget& root) { return (new QTableWidget(1, 1, &root))->viewport(); });
}

void tst_WidgetTable::nameOutsideATableIsAnnouncedForNoCell()
{
    QFETCH(Holder, holder);
    QWidget root;
    QPointer<QLabel> lamp = new QLabel(holder(root));
    Announcements announcements;
    WidgetTable::announceName(*lamp);
    QCOMPARE(announcements.take(), QStringList());
    delete lamp;
}

QTEST_MAIN(tst_WidgetTable)
#include "tst_WidgetTable.moc"
