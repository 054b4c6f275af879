#pragma once

#include "tests/trigger/PlainForm.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QTableWidget>

/// A form with a line table, like the one of the tab (4 columns) or the dialog (6).
class TableForm : public PlainForm
{
public:
    explicit TableForm(Fake::FakeCamera& fake, int columns = 6) : PlainForm(fake), camera(fake)
    {
        table.setParent(this);
        table.setColumnCount(columns);
    }

    /// Builds the table and forgets the calls for that.
    void build()
    {
        lineTable.build(table);
        camera.clearLog();
    }

    /// Refreshes the table as after changes of these features.
    void refreshTable(const QStringList& changedFeatures)
    {
        lineTable.refresh(table, changedFeatures);
    }

    template <class Widget> Widget& cell(const char* name) const
    {
        auto* widget = findChild<Widget*>(QString::fromLatin1(name));
        if (!widget)
            qFatal("the table has no %s", name);
        return *widget;
    }

    Fake::FakeCamera& camera;
    QTableWidget table;
};

/// A camera whose lines have every setting.
inline std::unique_ptr<Fake::FakeCamera> tableCamera(const std::vector<std::string>& lines = {
                                                         "Line0", "Line1"})
{
    auto camera = std::make_unique<Fake::FakeCamera>();
    camera->addEnum("LineSelector", lines, lines.front());
    camera->addEnum("LineMode", {"Input", "Output"}, "Input");
    camera->addBool("LineInverter", false);
    camera->addEnum("LineSource", {"Off", "ExposureActive"}, "Off");
    camera->addBool("LineStatus", false);
    camera->addEnum("LineDebounceMode", {"Off", "Debounce"}, "Off");
    camera->addFloat("LineDebounceDuration", 8.0, 0.0, 1000.0);
    camera->select("LineSelector", {"LineMode", "LineInverter", "LineSource", "LineStatus",
                                    "LineDebounceMode", "LineDebounceDuration"});
    return camera;
}

/// What was written, with "LineSelector=Line0" for a step of the selector.
inline QStringList tableWrites(const Fake::FakeCamera& camera)
{
    QStringList list;
    for (const QString& write : writesOf(camera))
        list.append(write.section(QLatin1Char(' '), 1));
    return list;
}
