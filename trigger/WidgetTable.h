// Tables whose cells hold widgets.
#pragma once

class QTableWidget;
class QWidget;

/// What Qt's table leaves open where its cells hold widgets: keyboard and assistive technology
/// reach them, and the table is as large as they need.
///
/// GUI thread only.
namespace WidgetTable {

/// Puts the editor into the cell, or `placed`, which contains it. The table takes what is placed.
void place(QTableWidget& table, int row, int column, QWidget& editor, QWidget& placed);

/// Lets the tab key go through the cells row by row and then on to what follows the table.
void chainFocus(QTableWidget& table);

void fitToContents(QTableWidget& table);

/// Tells assistive technology that the widget in a cell has another name now. For what place() put
/// into the cell; for a widget that no table holds, nothing happens.
void announceName(const QWidget& placed);

} // namespace WidgetTable
