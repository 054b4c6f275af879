// That assistive technology has a word for every control of both forms.
#include "tests/ui/DialogUnderTest.h"
#include "tests/ui/TabUnderTest.h"

#include <QAccessible>
#include <QCheckBox>
#include <QLabel>

namespace {

/// What is said of a control before its value: its own name, or that of the label beside it, which
/// is all that a combo box has where its choice is its name.
QString spokenFor(QWidget& widget)
{
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&widget);
    if (!qobject_cast<QComboBox*>(&widget))
        return interface->text(QAccessible::Name);
    for (const auto& relation : interface->relations(QAccessible::Label))
        return relation.first->text(QAccessible::Name);
    return widget.accessibleName();
}

/// The controls with a name of their own; the others are parts that Qt makes its widgets of.
void addControls(const char* form, const QWidget& root)
{
    for (const QWidget* widget : root.findChildren<QWidget*>())
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && !widget->objectName().isEmpty() &&
            !widget->objectName().startsWith("qt_"))
            QTest::addRow("%s %s", form, qPrintable(widget->objectName()))
                << QString(form) << widget->objectName();
}

} // namespace

class tst_FormAccessibility : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void controlHasAName_data();
    void controlHasAName();
    void cellsAreNamedByTheFormsHeaders_data();
    void cellsAreNamedByTheFormsHeaders();

private:
    QWidget& control(const QString& form, const QString& name) const
    {
        return form == "tab" ? *tab.find(name) : *dialog.find(name);
    }

    TabOnCamera tab;
    DialogOnCamera dialog;
};

void tst_FormAccessibility::initTestCase()
{
    tab.showAndSettle();
    dialog.showAndSettle();
}

void tst_FormAccessibility::controlHasAName_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("name");
    addControls("tab", tab.tab);
    addControls("dialog", *dialog.content);
}

void tst_FormAccessibility::controlHasAName()
{
    QFETCH(QString, form);
    QFETCH(QString, name);
    QVERIFY(!spokenFor(control(form, name)).trimmed().isEmpty());
}

void tst_FormAccessibility::cellsAreNamedByTheFormsHeaders_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("spoken");
    const auto row = [](const char* form, const char* name, const char* spoken) {
        QTest::addRow("%s %s", form, name) << QString(form) << QString(name) << QString(spoken);
    };
    for (const char* form : {"tab", "dialog"}) {
        row(form, "cmbLine0_LineMode", "Line0, I/O Mode");
        row(form, "chkLine1_LineInverter", "Line1, Invert");
        row(form, "cmbLine2_LineSource", "Line2, I/O Line Source");
        row(form, "lblLine0_LineStatus", "Line0: low");
    }
    row("dialog", "cmbLine0_LineDebounceMode", "Line0, Debounce Mode");
    row("dialog", "spbLine1_LineDebounceDuration", "Line1, Debounce Duration (µs)");
}

void tst_FormAccessibility::cellsAreNamedByTheFormsHeaders()
{
    QFETCH(QString, form);
    QFETCH(QString, name);
    QFETCH(QString, spoken);
    QCOMPARE(spokenFor(control(form, name)), spoken);
}

QTEST_MAIN(tst_FormAccessibility)
#include "tst_FormAccessibility.moc"
