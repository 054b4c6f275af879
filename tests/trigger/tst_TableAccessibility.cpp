// What assistive technology calls the cells of the table of lines.
#include "tests/trigger/Announcements.h"
#include "tests/trigger/TableForm.h"

#include <QTest>
#include <QTranslator>

namespace {

const QStringList Headers = {"I/O Mode", "Invert",         "I/O Line Source",
                             "Status",   "Debounce\nMode", "Debounce\nDuration (µs)"};

struct NamedTable
{
    explicit NamedTable(std::unique_ptr<Fake::FakeCamera> fake = tableCamera())
        : camera(std::move(fake)), form(*camera)
    {
        form.table.setHorizontalHeaderLabels(Headers);
        form.build();
    }

    QAccessibleTableInterface& table()
    {
        return *QAccessible::queryAccessibleInterface(&form.table)->tableInterface();
    }
    QString cellName(int row, int column)
    {
        return table().cellAt(row, column)->text(QAccessible::Name);
    }
    void setLevel(const char* line, bool high)
    {
        (*camera)["LineStatus"].stateFor(line).boolean = high;
        form.refreshTable({"LineStatus"});
    }

    std::unique_ptr<Fake::FakeCamera> camera;
    TableForm form;
};

QString nameOf(QWidget& widget)
{
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
}

/// Turns every text into its capitals.
class Capitals : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* /*context*/, const char* text, const char* /*disambiguation*/,
                      int /*n*/) const override
    {
        return QString::fromUtf8(text).toUpper();
    }
};

} // namespace

class tst_TableAccessibility : public QObject
{
    Q_OBJECT

private slots:
    void editorIsNamedByLineAndHeader_data();
    void editorIsNamedByLineAndHeader();
    void comboBoxIsDescribedWhereItsChoiceIsItsName();
    void ledSaysTheLevelOfItsLine();
    void ledOfARowInAnotherPlaceSaysItsOwnLine();
    void newLevelIsAnnouncedOnce();
    void cellIsCalledAsItsWidget_data();
    void cellIsCalledAsItsWidget();
    void columnWithoutHeaderIsNamedByItsFeature();
    void namesAreTranslated();
    void tableHasAName();
};

void tst_TableAccessibility::editorIsNamedByLineAndHeader_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("cmbLine0_LineMode") << "Line0, I/O Mode";
    QTest::newRow("chkLine0_LineInverter") << "Line0, Invert";
    QTest::newRow("cmbLine1_LineSource") << "Line1, I/O Line Source";
    QTest::newRow("cmbLine1_LineDebounceMode") << "Line1, Debounce Mode";
    QTest::newRow("spbLine0_LineDebounceDuration") << "Line0, Debounce Duration (µs)";
}

void tst_TableAccessibility::editorIsNamedByLineAndHeader()
{
    QFETCH(QString, name);
    const NamedTable named;
    auto& editor = named.form.cell<QWidget>(QTest::currentDataTag());
    QCOMPARE(editor.accessibleName(), name);
    if (!qobject_cast<QComboBox*>(&editor))
        QCOMPARE(nameOf(editor), name);
}

void tst_TableAccessibility::comboBoxIsDescribedWhereItsChoiceIsItsName()
{
    const NamedTable named;
    auto& box = named.form.cell<QComboBox>("cmbLine1_LineMode");
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&box);
    QCOMPARE(interface->text(QAccessible::Value), QString("Input"));
    QCOMPARE(interface->text(QAccessible::Description), QString("Line1, I/O Mode"));
}

void tst_TableAccessibility::ledSaysTheLevelOfItsLine()
{
    auto camera = tableCamera();
    (*camera)["LineStatus"].stateFor("Line1").boolean = true;
    NamedTable named(std::move(camera));
    auto& led0 = named.form.cell<QLabel>("lblLine0_LineStatus");
    auto& led1 = named.form.cell<QLabel>("lblLine1_LineStatus");
    QCOMPARE(nameOf(led0), QString("Line0: low"));
    QCOMPARE(nameOf(led1), QString("Line1: high"));
    named.setLevel("Line0", true);
    named.setLevel("Line1", false);
    QCOMPARE(nameOf(led0), QString("Line0: high"));
    QCOMPARE(nameOf(led1), QString("Line1: low"));
}

void tst_TableAccessibility::ledOfARowInAnotherPlaceSaysItsOwnLine()
{
    NamedTable named(tableCamera({"Line1", "Line_0", "Line0"}));
    named.setLevel("Line0", true);
    QCOMPARE(nameOf(named.form.cell<QLabel>("lblLine1_LineStatus")), QString("Line1: low"));
    QCOMPARE(nameOf(named.form.cell<QLabel>("lblLine_0_LineStatus")), QString("Line_0: low"));
    QCOMPARE(nameOf(named.form.cell<QLabel>("lblLine0_LineStatus")), QString("Line0: high"));
    QCOMPARE(named.cellName(2, 3), QString("Line0: high"));
}

void tst_TableAccessibility::newLevelIsAnnouncedOnce()
{
    NamedTable named;
    Announcements announcements;
    named.setLevel("Line0", false);
    QCOMPARE(announcements.take(), QStringList());
    named.setLevel("Line0", true);
    // The lamp and the cell that it stands in.
    QCOMPARE(announcements.take(), (QStringList{"Line0: high", "Line0: high"}));
}

void tst_TableAccessibility::cellIsCalledAsItsWidget_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::newRow("Line0, I/O Mode") << 0 << 0;
    QTest::newRow("Line1, Invert") << 1 << 1;
    QTest::newRow("Line0, I/O Line Source") << 0 << 2;
    QTest::newRow("Line1: low") << 1 << 3;
    QTest::newRow("Line0, Debounce Mode") << 0 << 4;
    QTest::newRow("Line1, Debounce Duration (µs)") << 1 << 5;
}

void tst_TableAccessibility::cellIsCalledAsItsWidget()
{
    QFETCH(int, row);
    QFETCH(int, column);
    NamedTable named;
    QCOMPARE(named.cellName(row, column), QString(QTest::currentDataTag()));
}

void tst_TableAccessibility::columnWithoutHeaderIsNamedByItsFeature()
{
    const auto camera = tableCamera();
    TableForm form(*camera);
    form.build();
    QCOMPARE(form.cell<QCheckBox>("chkLine1_LineInverter").accessibleName(),
             QString("Line1, LineInverter"));
}

void tst_TableAccessibility::namesAreTranslated()
{
    Capitals translator;
    QCoreApplication::installTranslator(&translator);
    NamedTable named;
    QCOMPARE(nameOf(named.form.cell<QLabel>("lblLine0_LineStatus")), QString("Line0: LOW"));
    named.setLevel("Line0", true);
    QCOMPARE(nameOf(named.form.cell<QLabel>("lblLine0_LineStatus")), QString("Line0: HIGH"));
}

void tst_TableAccessibility::tableHasAName()
{
    NamedTable named;
    QCOMPARE(nameOf(named.form.table), QString("I/O lines"));
}

QTEST_MAIN(tst_TableAccessibility)
#include "tst_TableAccessibility.moc"
