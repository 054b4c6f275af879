#include "trigger/LineTable.h"

#include "features/FeatureManager.h"
#include "trigger/NumberInput.h"
#include "trigger/TypedText.h"
#include "trigger/WidgetTable.h"
#include "widgets/FeatureComboBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QTableWidget>

#include <array>

static const QString LineSelector = QStringLiteral("LineSelector");

using NumberInput::UnknownLimit;

struct LineTable::Cell
{
    QTableWidget& table;
    int row;
    int column;
    QString feature;
    QString objectName;
};

struct LineTable::Column
{
    const char* prefix;
    const char* feature;
    void (LineTable::*build)(const Cell& cell) const;
    void (LineTable::*show)(QWidget& widget, const QString& feature) const;

    QString cellName(const QString& line) const
    {
        return QStringLiteral("%1%2_%3").arg(QLatin1String(prefix), line, QLatin1String(feature));
    }
};

namespace {

constexpr int BasicColumns = 4;
constexpr int AllColumns = 6;

/// A table without room for the debounce columns has only the first ones.
int shownColumns(const QTableWidget& table)
{
    return table.columnCount() > BasicColumns ? AllColumns : BasicColumns;
}

/// A pixmap does not choose the file for dense screens by itself.
QPixmap ledImage(const QWidget& shownOn)
{
    return QPixmap(shownOn.devicePixelRatioF() > 1.0
                       ? QStringLiteral(":/AdvTriggerWidget/ledon@2x.png")
                       : QStringLiteral(":/AdvTriggerWidget/ledon.png"));
}

/// What the column's header says, in one line.
QString headerText(const QTableWidget& table, int column, const QString& otherwise)
{
    const QTableWidgetItem* header = table.horizontalHeaderItem(column);
    return header ? header->text().simplified() : otherwise;
}

} // namespace

LineTable::LineTable(const FeatureManager& features, BoundForm form)
    : m_features(features), m_display(features), m_form(std::move(form))
{
    // The picture of the lamp: the resources of a static library are registered only on request.
    Q_INIT_RESOURCE(advtrigger);
}

const LineTable::Column& LineTable::columnAt(int column)
{
    static const std::array<Column, AllColumns> columns = {{
        {"cmb", "LineMode", &LineTable::buildComboBox, &LineTable::showComboBox},
        {"chk", "LineInverter", &LineTable::buildCheckBox, &LineTable::showCheckBox},
        {"cmb", "LineSource", &LineTable::buildComboBox, &LineTable::showComboBox},
        {"lbl", "LineStatus", &LineTable::buildLed, &LineTable::showLed},
        {"cmb", "LineDebounceMode", &LineTable::buildComboBox, &LineTable::showComboBox},
        {"spb", "LineDebounceDuration", &LineTable::buildSpinBox, &LineTable::showSpinBox},
    }};
    return columns[static_cast<std::size_t>(column)];
}

void LineTable::build(QTableWidget& table) const
{
    const QStringList lines = m_features.GetAvailableEnumEntries(LineSelector);
    table.setRowCount(lines.size());
    table.setVerticalHeaderLabels(lines);
    table.setAccessibleName(tr("I/O lines"));
    // The cells hold widgets; there is nothing behind them to type into.
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    QList<int> hidden;
    for (int row = 0; row < lines.size(); ++row)
        hidden += buildRow(table, row, lines[row]);
    for (const int column : hidden)
        table.hideColumn(column);
    WidgetTable::chainFocus(table);
    WidgetTable::fitToContents(table);
}

/// Returns the columns whose features the camera lacks.
QList<int> LineTable::buildRow(QTableWidget& table, int row, const QString& line) const
{
    // After a write that got lost, the camera may tell the values of another line.
    if (m_features.trySetValue(LineSelector, line).unanswered)
        m_features.SetValue(LineSelector, line);
    QList<int> unavailable;
    for (int i = 0; i < shownColumns(table); ++i) {
        const Column& column = columnAt(i);
        const QString feature = QLatin1String(column.feature);
        if (m_features.GetIsFeatureAvailable(feature)) {
            (this->*column.build)({table, row, i, feature, column.cellName(line)});
            m_form.addFeature(feature);
        } else {
            unavailable.append(i);
        }
    }
    return unavailable;
}

void LineTable::buildComboBox(const Cell& cell) const
{
    auto* box = new QComboBox(&cell.table);
    showComboBox(*box, cell.feature);
    box->setEnabled(m_features.GetIsWritable(cell.feature));
    placeEditor(cell, *box, *box, SIGNAL(currentTextChanged(const QString&)),
                m_form.editSlots.tableComboBox);
}

void LineTable::buildCheckBox(const Cell& cell) const
{
    auto* container = new QWidget(&cell.table);
    auto* layout = new QHBoxLayout(container);
    auto* box = new QCheckBox(container);
    layout->addWidget(box, 0, Qt::AlignCenter);
    layout->setContentsMargins(0, 0, 0, 0);
    container->setContentsMargins(0, 0, 0, 0);
    showCheckBox(*box, cell.feature);
    placeEditor(cell, *box, *container, SIGNAL(stateChanged(int)), m_form.editSlots.tableCheckBox);
}

void LineTable::buildLed(const Cell& cell) const
{
    auto* led = new QLabel(&cell.table);
    led->setObjectName(cell.objectName);
    led->setAlignment(Qt::AlignCenter);
    led->setPixmap(ledImage(m_form.widget));
    WidgetTable::place(cell.table, cell.row, cell.column, *led, *led);
    showLed(*led, cell.feature);
    m_form.filterEventsOf(*led);
}

void LineTable::buildSpinBox(const Cell& cell) const
{
    constexpr int decimals = 6;
    auto* box = new QDoubleSpinBox(&cell.table);
    // First, because a range is rounded to the decimals of the box.
    box->setDecimals(decimals);
    box->setRange(UnknownLimit, UnknownLimit);
    showSpinBox(*box, cell.feature);
    placeEditor(cell, *box, *box, SIGNAL(valueChanged(double)), m_form.editSlots.tableSpinBox);
    NumberInput::limit(*box);
    TypedText::watch(*box);
}

/// `placed` is the editor or what contains it.
void LineTable::placeEditor(const Cell& cell, QWidget& editor, QWidget& placed, const char* signal,
                            const char* slot) const
{
    editor.setObjectName(cell.objectName);
    editor.setFocusPolicy(Qt::StrongFocus);
    m_form.filterEventsOf(editor);
    WidgetTable::place(cell.table, cell.row, cell.column, editor, placed);
    nameEditor(cell, editor);
    m_form.connectEdits(editor, signal, slot);
}

/// Only its place tells this editor from the others of its kind.
void LineTable::nameEditor(const Cell& cell, QWidget& editor)
{
    const QString line = cell.table.verticalHeaderItem(cell.row)->text();
    const QString setting = headerText(cell.table, cell.column, cell.feature);
    const QString name = tr("%1, %2", "line, setting").arg(line, setting);
    editor.setAccessibleName(name);
    // On X11 and Wayland, Qt announces a combo box by its current entry instead.
    if (qobject_cast<QComboBox*>(&editor))
        editor.setAccessibleDescription(name);
}

void LineTable::refresh(const QTableWidget& table, const QStringList& changedFeatures) const
{
    const QString selected = m_features.GetWritableEnumValue(LineSelector);
    for (int row = 0; row < table.rowCount(); ++row) {
        // By the row, not by the label: lines of other names are built, but never refreshed.
        const QString line = QStringLiteral("Line%1").arg(row);
        // After a write that got lost, the camera may tell the values of another line.
        const bool isLost = m_features.trySetValue(LineSelector, line).unanswered;
        const Answer<QString> addressed =
            isLost ? m_features.askStringValue(LineSelector) : Answer<QString>{line};
        if (addressed.isMissing() || addressed.value == line)
            refreshRow(line, shownColumns(table), changedFeatures);
    }
    m_features.SetValue(LineSelector, selected);
}

void LineTable::refreshRow(const QString& line, int columnCount,
                           const QStringList& changedFeatures) const
{
    // Mode, source, inverter and status, then the debounce duration and its mode.
    constexpr std::array<int, AllColumns> order = {0, 2, 1, 3, 5, 4};
    for (int i = 0; i < columnCount; ++i) {
        const Column& column = columnAt(order[static_cast<std::size_t>(i)]);
        const QString feature = QLatin1String(column.feature);
        if (!changedFeatures.contains(feature))
            continue;
        if (auto* widget = m_form.widget.findChild<QWidget*>(column.cellName(line))) {
            // Showing a value must not write it back to the camera.
            const QSignalBlocker silence(widget);
            (this->*column.show)(*widget, feature);
        }
    }
}

void LineTable::showComboBox(QWidget& widget, const QString& feature) const
{
    showFeatureInComboBox(m_features, feature, static_cast<QComboBox&>(widget), false);
}

void LineTable::showCheckBox(QWidget& widget, const QString& feature) const
{
    static_cast<QCheckBox&>(widget).setChecked(FeatureDisplay::isOn(m_display.number(feature)));
    widget.setEnabled(m_features.GetIsWritable(feature));
}

/// The lamp is lit while it is enabled; disabled, the style greys it. Its name says the same to
/// those who cannot see it, and is set only when it changes, because each setting is announced.
void LineTable::showLed(QWidget& widget, const QString& feature) const
{
    const bool high = FeatureDisplay::isOn(m_display.number(feature));
    widget.setEnabled(high);
    const QString line = boundFeatureName(widget.objectName()).chopped(feature.size() + 1);
    const QString name = (high ? tr("%1: high", "line") : tr("%1: low", "line")).arg(line);
    if (widget.accessibleName() == name)
        return;
    widget.setAccessibleName(name);
    WidgetTable::announceName(widget);
}

void LineTable::showSpinBox(QWidget& widget, const QString& feature) const
{
    auto& box = static_cast<QDoubleSpinBox&>(widget);
    {
        const TypedText::Keeper typed(box);
        // Only the minimum tells: an unknown maximum changes when it is fitted to an increment.
        if (box.minimum() == UnknownLimit)
            limitSpinBox(box, feature);
        box.setValue(m_display.number(feature));
    }
    TypedText::setEnabled(box, m_features.GetIsWritable(feature));
}

/// Once, when the table is built; again only for a camera that did not answer then.
void LineTable::limitSpinBox(QDoubleSpinBox& box, const QString& feature) const
{
    const SteppedRange range = m_display.steppedRange(feature);
    box.setRange(range.limits.min, range.limits.max);
    box.setSingleStep(range.step);
}

QString LineTable::selectLineOf(const QString& objectName) const
{
    const QStringList parts = objectName.split(QLatin1Char('_'));
    if (parts.size() < 2) {
        qWarning("Error: cannot parse object name of a table cell widget.");
        return QString();
    }
    const QString line = boundFeatureName(parts[0]);
    return m_features.SetValue(LineSelector, line) == line ? parts[1] : QString();
}

/// As for a widget of the form, with the feature of the cell; without one nothing happens.
template <class Widget, class Edit> void LineTable::edit(QObject* sender, const Edit& edit) const
{
    const QString feature = sender ? selectLineOf(sender->objectName()) : QString();
    if (!feature.isEmpty())
        editBoundWidget<Widget>(sender, [&](Widget& widget) { edit(widget, feature); });
}

void LineTable::editComboBox(QObject* sender, const QString& text) const
{
    edit<QComboBox>(sender, [&](QComboBox& box, const QString& feature) {
        box.setCurrentText(m_features.SetValue(feature, text));
    });
}

void LineTable::editCheckBox(QObject* sender, int state) const
{
    edit<QCheckBox>(sender, [&](QCheckBox& box, const QString& feature) {
        // The check state itself is written: a checked box writes 2, not 1.
        box.setChecked(FeatureDisplay::isOn(m_features.SetValue(feature, double(state))));
    });
}

void LineTable::editSpinBox(QObject* sender, double value) const
{
    edit<QDoubleSpinBox>(sender, [&](QDoubleSpinBox& box, const QString& feature) {
        box.setValue(m_features.SetValue(feature, nextDuration(box, feature, value)));
    });
}

/// Durations span several decades: each step doubles or halves what the camera has. The value in
/// the box only tells the direction.
double LineTable::nextDuration(const QDoubleSpinBox& box, const QString& feature,
                               double value) const
{
    const double current = m_features.GetValue(feature);
    if (value <= current)
        return current * 0.5;
    return current > 0.0 ? current * 2.0 : box.singleStep();
}
