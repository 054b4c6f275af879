#include "trigger/WidgetTable.h"

#include <QAccessible>
#include <QCheckBox>
#include <QHeaderView>
#include <QPointer>
#include <QTableWidget>

namespace {

/// The item behind a cell's widget: assistive technology that walks through the table meets cells,
/// not widgets, and learns about the widget from the cell's text for it.
class CellOfWidget : public QTableWidgetItem
{
public:
    explicit CellOfWidget(const QWidget& widget) : m_widget(&widget) {}

    QVariant data(int role) const override
    {
        if (role == Qt::AccessibleTextRole && m_widget)
            return m_widget->accessibleName();
        return QTableWidgetItem::data(role);
    }

private:
    QPointer<const QWidget> m_widget;
};

QWidget* editorIn(const QTableWidget& table, int row, int column)
{
    QWidget* placed = table.cellWidget(row, column);
    QWidget* box = placed ? placed->findChild<QCheckBox*>() : nullptr;
    return box ? box : placed;
}

/// Assistive technology remembers what a cell is called until it is told that this has changed.
void announceCell(QTableWidget& table, int row, int column)
{
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&table);
    QAccessibleInterface* cell = interface->tableInterface()->cellAt(row, column);
    QAccessibleEvent event(cell, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

} // namespace

void WidgetTable::place(QTableWidget& table, int row, int column, QWidget& editor, QWidget& placed)
{
    table.setCellWidget(row, column, &placed);
    // The table takes no item for a column that it does not have.
    if (column < table.columnCount())
        table.setItem(row, column, new CellOfWidget(editor));
}

/// By default the key would circle within the table and skip the check boxes.
void WidgetTable::chainFocus(QTableWidget& table)
{
    table.setTabKeyNavigation(false);
    QWidget* before = &table;
    for (int cell = 0; cell < table.rowCount() * table.columnCount(); ++cell) {
        QWidget* editor = editorIn(table, cell / table.columnCount(), cell % table.columnCount());
        if (!editor || editor->focusPolicy() == Qt::NoFocus)
            continue;
        QWidget::setTabOrder(before, editor);
        before = editor;
    }
}

void WidgetTable::fitToContents(QTableWidget& table)
{
    for (QHeaderView* header : {table.horizontalHeader(), table.verticalHeader()}) {
        header->setSectionResizeMode(QHeaderView::ResizeToContents);
        header->resizeSections(QHeaderView::ResizeToContents);
    }
    table.resizeColumnsToContents();
    table.resizeRowsToContents();
}

void WidgetTable::announceName(const QWidget& placed)
{
    const QWidget* viewport = placed.parentWidget();
    auto* table = viewport ? qobject_cast<QTableWidget*>(viewport->parentWidget()) : nullptr;
    if (!table || !QAccessible::isActive())
        return;
    for (int cell = 0; cell < table->rowCount() * table->columnCount(); ++cell) {
        const int row = cell / table->columnCount();
        const int column = cell % table->columnCount();
        if (table->cellWidget(row, column) == &placed)
            announceCell(*table, row, column);
    }
}
