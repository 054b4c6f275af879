// The measures of the dialog's form: they depend on language, font and what the camera offers.
#include "ui/AdvTriggerDialog.h"
#include "ui/EntryWidth.h"

#include <QHeaderView>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>

namespace {

/// Labels stand in the even columns, what they name beside them.
constexpr int Columns = 4;
constexpr int FirstFields = 1;
constexpr int SecondLabels = 2;
constexpr int SecondFields = 3;
/// Keeps the second labels away from the fields before them.
constexpr int ColumnGap = 16;

/// What the widest item of that column wants, leaving out what spans several columns.
int widthOf(const QGridLayout& grid, int column)
{
    int width = 0;
    for (int i = 0; i < grid.count(); ++i) {
        int row = 0;
        int first = 0;
        int rowSpan = 0;
        int columnSpan = 0;
        grid.getItemPosition(i, &row, &first, &rowSpan, &columnSpan);
        if (first == column && columnSpan == 1)
            width = std::max(width, grid.itemAt(i)->sizeHint().width());
    }
    return width;
}

/// A label stands at its own field, however wide the column is.
void alignRight(QLabel& label)
{
    label.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void alignLabels(const QGridLayout& grid)
{
    for (int i = 0; i < grid.count(); ++i)
        if (auto* label = qobject_cast<QLabel*>(grid.itemAt(i)->widget()))
            alignRight(*label);
}

/// The width at which the box shows the longest of its measured entries.
int widthForEntries(const QComboBox& box)
{
    const QFontMetrics metrics = box.fontMetrics();
    const int shortest = box.minimumContentsLength() * metrics.horizontalAdvance(QLatin1Char('X'));
    const int longest = std::max(shortest, EntryWidth::widest(box));
    return box.sizeHint().width() + longest - shortest;
}

/// The width at which the edit shows 64 bits in hexadecimal digits.
int widthForDigits(const QLineEdit& edit)
{
    constexpr int frame = 14;
    const QString digits = QStringLiteral("0x") + QString(16, QLatin1Char('0'));
    return edit.fontMetrics().horizontalAdvance(digits) + frame;
}

/// The width at which the widest field of the grid shows any of its values.
int widthForValues(const QGridLayout& grid)
{
    int width = 0;
    for (int i = 0; i < grid.count(); ++i) {
        const QWidget* field = grid.itemAt(i)->widget();
        if (const auto* box = qobject_cast<const QComboBox*>(field))
            width = std::max(width, widthForEntries(*box));
        if (const auto* edit = qobject_cast<const QLineEdit*>(field))
            width = std::max(width, widthForDigits(*edit));
    }
    return width;
}

/// The last column takes what the others leave; the others, and all that stands in the cells, keep
/// the widths that their contents need.
void fillWidth(QTableWidget& table)
{
    for (auto* box : table.findChildren<QDoubleSpinBox*>())
        box->setMaximumWidth(table.columnWidth(table.columnCount() - 1));
    // From now on the table would ask for whatever width it has got.
    table.setMinimumWidth(table.sizeHint().width());
    table.horizontalHeader()->setStretchLastSection(true);
}

/// Does what the first show would do: each layout measures its widgets, the innermost first.
void activateLayouts(const QWidget& widget)
{
    const auto children = widget.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget* child : children)
        activateLayouts(*child);
    if (widget.layout())
        widget.layout()->activate();
}

} // namespace

std::array<QGridLayout*, 6> AdvTriggerDialog::grids() const
{
    return {gridLayout, gridLayout_2, gridLayout_5, gridLayout_3, gridLayout_6, gridLayout_4};
}

// The columns of all sections have one width each.
void AdvTriggerDialog::layOutColumns()
{
    int widths[Columns] = {};
    for (int column = 0; column < Columns; ++column) {
        for (const QGridLayout* grid : grids())
            widths[column] = std::max(widths[column], widthOf(*grid, column));
        widths[column] += column == SecondLabels ? ColumnGap : 0;
        for (QGridLayout* grid : grids())
            grid->setColumnMinimumWidth(column, widths[column]);
    }
    for (const QGridLayout* grid : grids())
        alignLabels(*grid);
    // One frame deeper than the others.
    gridLayout_4->setColumnMinimumWidth(0, widths[0] - gridLayout_4->contentsMargins().left());
    // This section is a single row; its gap stands where the others have their second labels.
    alignRight(*lblSoftwareSignalSelector);
    lblSoftwareSignalSelector->setMinimumWidth(widths[0]);
    horizontalSpacer_2->changeSize(widths[SecondLabels], 0, QSizePolicy::Fixed);
    cmbSelectPreset->setMaximumWidth(widthForEntries(*cmbSelectPreset));
}

void AdvTriggerDialog::foldSections()
{
    // A section unfolds to the height that it has now, and nothing has been laid out so far.
    scrollAreaWidgetContents->ensurePolished();
    tableWidget->doItemsLayout();
    fillWidth(*tableWidget);
    activateLayouts(*scrollAreaWidgetContents);
    scrollAreaWidgetContents->adjustSize();
    gridLayout_8->setGeometry(scrollAreaWidgetContents->rect());

    limitWidthOfSections();

    btnConfigureTriggerSources->setContent(frmConfigureTriggerSources);
    btnConfigureInputOutput->setContent(frmConfigureInputOutput);
    btnConfigureAcquisitionMode->setContent(frmConfigureAcquisitionMode);
    btnConfigureCounterTimer->setContent(frmCounterTimer);
    btnConfigureSoftwareSignal->setContent(frmSoftwareSignal);
    btnConfigureActionCommand->setContent(frmActionCommand);
}

// The sections get the width at which every field shows its values, as far as the screen leaves
// enough for the overview, which gets the rest.
void AdvTriggerDialog::limitWidthOfSections()
{
    const int needed = scrollAreaWidgetContents->minimumSizeHint().width() +
                       scrollArea->verticalScrollBar()->sizeHint().width();
    int enough = needed;
    for (const int column : {FirstFields, SecondFields})
        enough += std::max(0, widthOfWidestValue() - gridLayout->columnMinimumWidth(column));
    scrollArea->setMinimumWidth(std::min(needed, screen()->availableSize().width() * 4 / 5));
    scrollArea->setMaximumWidth(enough);
}

int AdvTriggerDialog::widthOfWidestValue() const
{
    int width = 0;
    for (const QGridLayout* grid : grids())
        width = std::max(width, widthForValues(*grid));
    return width;
}
