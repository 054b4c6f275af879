#pragma once

#include "trigger/BoundForm.h"
#include "trigger/FeatureDisplay.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

class FeatureManager;
class QDoubleSpinBox;
class QStringList;
class QTableWidget;

/// The table of the camera's I/O lines: a row for each line, a cell for each setting of the line,
/// named by both ("cmbLine0_LineMode"). The camera tells and takes the settings of the line that
/// its LineSelector holds, which the table steps for whatever it shows or writes.
///
/// GUI thread only.
class LineTable
{
    // The catalogues know the engine's texts by the name of its class, whichever part shows them.
    Q_DECLARE_TR_FUNCTIONS(AdvTriggerBase)

public:
    /// The form is told the feature of each cell. Each of its slots for edits in the table passes
    /// its sender to the edit below. Features and form must outlive this object.
    LineTable(const FeatureManager& features, BoundForm form);

    /// Fills the table with one row for each line of the camera: mode, inverter, source and status,
    /// and with more than four columns also debounce mode and duration. Leaves the selector at the
    /// last line.
    void build(QTableWidget& table) const;

    /// Shows the camera's state of those cells whose features have changed. The rows count as
    /// Line0, Line1 and so on. Writes nothing but the selector, which ends as it was before.
    void refresh(const QTableWidget& table, const QStringList& changedFeatures) const;

    /// Selects the line that a cell belongs to and returns the feature that it shows; nothing if
    /// the name has no such parts or the camera does not select the line.
    QString selectLineOf(const QString& objectName) const;

    /// Writes the edit of the cell's widget that sent it and shows what the camera took.
    void editComboBox(QObject* sender, const QString& text) const;
    void editCheckBox(QObject* sender, int state) const;
    /// Doubles or halves the duration; the value tells the direction only.
    void editSpinBox(QObject* sender, double value) const;

private:
    struct Cell;
    struct Column;

    static const Column& columnAt(int column);
    QList<int> buildRow(QTableWidget& table, int row, const QString& line) const;
    void buildComboBox(const Cell& cell) const;
    void buildCheckBox(const Cell& cell) const;
    void buildLed(const Cell& cell) const;
    void buildSpinBox(const Cell& cell) const;
    void placeEditor(const Cell& cell, QWidget& editor, QWidget& placed, const char* signal,
                     const char* slot) const;
    static void nameEditor(const Cell& cell, QWidget& editor);

    void refreshRow(const QString& line, int columnCount, const QStringList& changedFeatures) const;
    void showComboBox(QWidget& widget, const QString& feature) const;
    void showCheckBox(QWidget& widget, const QString& feature) const;
    void showLed(QWidget& widget, const QString& feature) const;
    void showSpinBox(QWidget& widget, const QString& feature) const;
    void limitSpinBox(QDoubleSpinBox& box, const QString& feature) const;

    template <class Widget, class Edit> void edit(QObject* sender, const Edit& edit) const;
    double nextDuration(const QDoubleSpinBox& box, const QString& feature, double value) const;

    const FeatureManager& m_features;
    FeatureDisplay m_display;
    BoundForm m_form;
};
