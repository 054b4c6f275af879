// The table of the camera's I/O lines: one row per line, one cell widget per setting of the line.
#include "features/FeatureManager.h"
#include "trigger/AdvTriggerBase.h"
#include "trigger/BoundWidget.h"
#include "trigger/NumberInput.h"
#include "trigger/TypedText.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPointer>
#include <QSignalBlocker>
#include <QTableWidget>

#include <array>

static const QString LINE_SELECTOR = QStringLiteral("LineSelector");

struct AdvTriggerBase::TableCell
{
    QTableWidget& table;
    int row;
    int column;
    QString feature;
    QString objectName;
};

struct AdvTriggerBase::TableColumn
{
    const char* prefix;
    const char* feature;
    void (AdvTriggerBase::*create)(const TableCell& cell);
    void (AdvTriggerBase::*show)(QWidget& widget, const QString& feature);

    QString cellName(const QString& line) const
    {
        return QStringLiteral("%1%2_%3").arg(QLatin1String(prefix), line, QLatin1String(feature));
    }
};

namespace {

constexpr int BasicColumns = 4;
constexpr int AllColumns = 6;
constexpr int StatusColumn = 3;
/// Of a range that the camera has not told.
constexpr double UnknownLimit = -1.0;

/// A table without place for the debounce columns has the first ones only.
int ShownColumns(const QTableWidget& table)
{
    return table.columnCount() > BasicColumns ? AllColumns : BasicColumns;
}

/// A picture does not look by itself for the dense one beside it.
QPixmap LedImage(const QWidget& shownOn)
{
    return QPixmap(shownOn.devicePixelRatioF() > 1.0
                       ? QStringLiteral(":/AdvTriggerWidget/ledon@2x.png")
                       : QStringLiteral(":/AdvTriggerWidget/ledon.png"));
}

/// Stands behind a cell's widget: assistive technology that walks through the table meets cells and
/// no widgets, and hears of the widget by the cell's text for it.
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

/// The tab key goes through the cells row by row and then on to what follows the table. By default
/// it would go round in the table for ever, and pass over the check boxes.
void ChainFocus(QTableWidget& table)
{
    table.setTabKeyNavigation(false);
    QWidget* before = &table;
    for (int cell = 0; cell < table.rowCount() * table.columnCount(); ++cell) {
        QWidget* placed = table.cellWidget(cell / table.columnCount(), cell % table.columnCount());
        QWidget* box = placed ? placed->findChild<QCheckBox*>() : nullptr;
        QWidget* editor = box ? box : placed;
        if (!editor || editor->focusPolicy() == Qt::NoFocus)
            continue;
        QWidget::setTabOrder(before, editor);
        before = editor;
    }
}

/// What the column's header says, in one line.
QString HeaderText(const QTableWidget& table, int column, const QString& otherwise)
{
    const QTableWidgetItem* header = table.horizontalHeaderItem(column);
    return header ? header->text().simplified() : otherwise;
}

void FitToContents(QTableWidget& table)
{
    for (QHeaderView* header : {table.horizontalHeader(), table.verticalHeader()}) {
        header->setSectionResizeMode(QHeaderView::ResizeToContents);
        header->resizeSections(QHeaderView::ResizeToContents);
    }
    table.resizeColumnsToContents();
    table.resizeRowsToContents();
}

/// Assistive technology remembers what a cell is called until it is told that this has changed.
void AnnounceCell(const QWidget& led)
{
    auto* table = qobject_cast<QTableWidget*>(led.parentWidget()->parentWidget());
    if (!table || !QAccessible::isActive())
        return;
    auto& cells = *QAccessible::queryAccessibleInterface(table);
    for (int row = 0; row < table->rowCount(); ++row) {
        if (table->cellWidget(row, StatusColumn) != &led)
            continue;
        QAccessibleInterface* cell = cells.tableInterface()->cellAt(row, StatusColumn);
        QAccessibleEvent event(cell, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&event);
    }
}

/// As for a widget of the form, with the feature of the cell; without one nothing happens.
template <class Widget, class Edit>
void EditCell(QObject* sender, const QString& feature, const Edit& edit)
{
    if (!feature.isEmpty())
        EditBoundWidget<Widget>(sender, [&](Widget& widget) { edit(widget, feature); });
}

} // namespace

const AdvTriggerBase::TableColumn& AdvTriggerBase::TableColumnAt(int column)
{
    using Engine = AdvTriggerBase;
    static const std::array<TableColumn, AllColumns> columns = {{
        {"cmb", "LineMode", &Engine::CreateTableComboBox, &Engine::ShowTableComboBox},
        {"chk", "LineInverter", &Engine::CreateTableCheckBox, &Engine::ShowTableCheckBox},
        {"cmb", "LineSource", &Engine::CreateTableComboBox, &Engine::ShowTableComboBox},
        {"lbl", "LineStatus", &Engine::CreateTableLed, &Engine::ShowTableLed},
        {"cmb", "LineDebounceMode", &Engine::CreateTableComboBox, &Engine::ShowTableComboBox},
        {"spb", "LineDebounceDuration", &Engine::CreateTableSpinBox, &Engine::ShowTableSpinBox},
    }};
    return columns[static_cast<std::size_t>(column)];
}

void AdvTriggerBase::CreateIOTable(QTableWidget* table)
{
    const QStringList lines = m_featureManager->GetAvailableEnumEntries(LINE_SELECTOR);
    table->setRowCount(lines.size());
    table->setVerticalHeaderLabels(lines);
    table->setAccessibleName(tr("I/O lines"));
    // Nothing lies behind the cells' widgets that could be typed into.
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    QList<int> hidden;
    for (int row = 0; row < lines.size(); ++row)
        hidden += CreateTableRow(*table, row, lines[row]);
    for (const int column : hidden)
        table->hideColumn(column);
    ChainFocus(*table);
    FitToContents(*table);
}

/// The columns that this line has no use for.
QList<int> AdvTriggerBase::CreateTableRow(QTableWidget& table, int row, const QString& line)
{
    m_featureManager->SetValue(LINE_SELECTOR, line);
    QList<int> unavailable;
    for (int i = 0; i < ShownColumns(table); ++i) {
        const TableColumn& column = TableColumnAt(i);
        const QString feature = QLatin1String(column.feature);
        if (m_featureManager->GetIsFeatureAvailable(feature)) {
            (this->*column.create)({table, row, i, feature, column.cellName(line)});
            m_observedFeatures.append(feature);
        } else {
            unavailable.append(i);
        }
    }
    return unavailable;
}

void AdvTriggerBase::CreateTableComboBox(const TableCell& cell)
{
    auto* box = new QComboBox(&cell.table);
    ShowTableComboBox(*box, cell.feature);
    box->setEnabled(m_featureManager->GetIsWritable(cell.feature));
    PlaceTableEditor(cell, *box, *box, SIGNAL(currentTextChanged(const QString&)),
                     SLOT(OnChangeTableCombobox(const QString&)));
}

void AdvTriggerBase::CreateTableCheckBox(const TableCell& cell)
{
    auto* container = new QWidget(&cell.table);
    auto* layout = new QHBoxLayout(container);
    auto* box = new QCheckBox(container);
    layout->addWidget(box, 0, Qt::AlignCenter);
    layout->setContentsMargins(0, 0, 0, 0);
    container->setContentsMargins(0, 0, 0, 0);
    ShowTableCheckBox(*box, cell.feature);
    PlaceTableEditor(cell, *box, *container, SIGNAL(stateChanged(int)),
                     SLOT(OnChangeTableCheckbox(int)));
}

void AdvTriggerBase::CreateTableLed(const TableCell& cell)
{
    auto* led = new QLabel(&cell.table);
    led->setObjectName(cell.objectName);
    led->setAlignment(Qt::AlignCenter);
    led->setPixmap(LedImage(*this));
    cell.table.setCellWidget(cell.row, cell.column, led);
    cell.table.setItem(cell.row, cell.column, new CellOfWidget(*led));
    ShowTableLed(*led, cell.feature);
    led->installEventFilter(this);
}

void AdvTriggerBase::CreateTableSpinBox(const TableCell& cell)
{
    constexpr int decimals = 6;
    auto* box = new QDoubleSpinBox(&cell.table);
    // First of all: a range is rounded to the decimals there are.
    box->setDecimals(decimals);
    box->setRange(UnknownLimit, UnknownLimit);
    ShowTableSpinBox(*box, cell.feature);
    PlaceTableEditor(cell, *box, *box, SIGNAL(valueChanged(double)),
                     SLOT(OnChangeTableSpinbox(double)));
    NumberInput::limit(*box);
    TypedText::watch(*box);
}

/// `placed` is the editor or what contains it.
void AdvTriggerBase::PlaceTableEditor(const TableCell& cell, QWidget& editor, QWidget& placed,
                                      const char* signal, const char* slot)
{
    editor.setObjectName(cell.objectName);
    editor.setFocusPolicy(Qt::StrongFocus);
    editor.installEventFilter(this);
    cell.table.setCellWidget(cell.row, cell.column, &placed);
    cell.table.setItem(cell.row, cell.column, new CellOfWidget(editor));
    NameTableEditor(cell, editor);
    ConnectEdits(editor, signal, slot);
}

/// What tells this editor from the others of its kind is where it stands.
void AdvTriggerBase::NameTableEditor(const TableCell& cell, QWidget& editor)
{
    const QString line = cell.table.verticalHeaderItem(cell.row)->text();
    const QString setting = HeaderText(cell.table, cell.column, cell.feature);
    const QString name = tr("%1, %2", "line, setting").arg(line, setting);
    editor.setAccessibleName(name);
    // Where the desktop is X11 or Wayland, Qt calls a combo box by its choice instead.
    if (qobject_cast<QComboBox*>(&editor))
        editor.setAccessibleDescription(name);
}

void AdvTriggerBase::UpdateInitTable(QTableWidget* table)
{
    const QString selected = m_featureManager->GetWritableEnumValue(LINE_SELECTOR);
    for (int row = 0; row < table->rowCount(); ++row) {
        // By the row, not by the label: lines of other names are built, but never refreshed.
        const QString line = QStringLiteral("Line%1").arg(row);
        m_featureManager->SetValue(LINE_SELECTOR, line);
        RefreshTableRow(line, ShownColumns(*table));
    }
    m_featureManager->SetValue(LINE_SELECTOR, selected);
}

void AdvTriggerBase::RefreshTableRow(const QString& line, int columnCount)
{
    // Mode, source, inverter and status, then the debounce duration and its mode.
    constexpr std::array<int, AllColumns> order = {0, 2, 1, 3, 5, 4};
    for (int i = 0; i < columnCount; ++i) {
        const TableColumn& column = TableColumnAt(order[static_cast<std::size_t>(i)]);
        const QString feature = QLatin1String(column.feature);
        if (!m_changedFeatures->contains(feature))
            continue;
        if (auto* widget = findChild<QWidget*>(column.cellName(line))) {
            // Showing a value must not write it back to the camera.
            const QSignalBlocker silence(widget);
            (this->*column.show)(*widget, feature);
        }
    }
}

void AdvTriggerBase::ShowTableComboBox(QWidget& widget, const QString& feature)
{
    updateComboBox(feature, static_cast<QComboBox*>(&widget), false);
}

void AdvTriggerBase::ShowTableCheckBox(QWidget& widget, const QString& feature)
{
    ShowValue(static_cast<QCheckBox&>(widget), feature);
    widget.setEnabled(m_featureManager->GetIsWritable(feature));
}

/// A lamp is lit while it is enabled; disabled, the style greys it. Its name says it to those who
/// cannot see it, and is set only where it changes: each time it is set, it is announced.
void AdvTriggerBase::ShowTableLed(QWidget& widget, const QString& feature)
{
    const bool high = m_featureManager->GetValue(feature) != 0.0;
    widget.setEnabled(high);
    const QString line = BoundFeatureName(widget.objectName()).chopped(feature.size() + 1);
    const QString name = (high ? tr("%1: high", "line") : tr("%1: low", "line")).arg(line);
    if (widget.accessibleName() == name)
        return;
    widget.setAccessibleName(name);
    AnnounceCell(widget);
}

void AdvTriggerBase::ShowTableSpinBox(QWidget& widget, const QString& feature)
{
    auto& box = static_cast<QDoubleSpinBox&>(widget);
    {
        const TypedText::Keeper typed(box);
        // Fitted to an increment, an unknown maximum does not stay what it was.
        if (box.minimum() == UnknownLimit)
            LimitTableSpinBox(box, feature);
        box.setValue(m_featureManager->GetValue(feature));
    }
    TypedText::setEnabled(box, m_featureManager->GetIsWritable(feature));
}

/// Once, when the table is built; again only for a camera that did not answer then.
void AdvTriggerBase::LimitTableSpinBox(QDoubleSpinBox& box, const QString& feature)
{
    double min = UnknownLimit;
    double max = UnknownLimit;
    double increment = -1.0;
    m_featureManager->GetValueRangeIncrement(feature, &min, &max, &increment);
    box.setRange(min, max);
    box.setSingleStep(increment);
}

QString AdvTriggerBase::SwitchLine_GetFeature(const QString& objectName)
{
    const QStringList parts = objectName.split(QLatin1Char('_'));
    if (parts.size() < 2) {
        qWarning("Error: cannot parse object name of a table cell widget.");
        return QString();
    }
    const QString line = BoundFeatureName(parts[0]);
    return m_featureManager->SetValue(LINE_SELECTOR, line) == line ? parts[1] : QString();
}

/// Selects the line of the cell that sent the signal and returns the cell's feature.
QString AdvTriggerBase::SelectSendersFeature()
{
    return sender() ? SwitchLine_GetFeature(sender()->objectName()) : QString();
}

void AdvTriggerBase::OnChangeTableCombobox(const QString& text)
{
    EditCell<QComboBox>(sender(), SelectSendersFeature(),
                        [&](QComboBox& box, const QString& feature) {
                            box.setCurrentText(m_featureManager->SetValue(feature, text));
                        });
}

void AdvTriggerBase::OnChangeTableCheckbox(int state)
{
    EditCell<QCheckBox>(
        sender(), SelectSendersFeature(), [&](QCheckBox& box, const QString& feature) {
            // The check state itself is written: a checked box writes 2, not 1.
            box.setChecked(m_featureManager->SetValue(feature, double(state)) != 0.0);
        });
}

void AdvTriggerBase::OnChangeTableSpinbox(double value)
{
    EditCell<QDoubleSpinBox>(sender(), SelectSendersFeature(),
                             [&](QDoubleSpinBox& box, const QString& feature) {
                                 const double duration = NextDuration(box, feature, value);
                                 box.setValue(m_featureManager->SetValue(feature, duration));
                             });
}

/// Durations span several decades: each step doubles or halves what the camera has. The value in
/// the box only tells the direction.
double AdvTriggerBase::NextDuration(const QDoubleSpinBox& box, const QString& feature,
                                    double value) const
{
    const double current = m_featureManager->GetValue(feature);
    if (value <= current)
        return current * 0.5;
    return current > 0.0 ? current * 2.0 : box.singleStep();
}
