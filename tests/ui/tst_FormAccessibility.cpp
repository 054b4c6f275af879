// What both forms do for eyes: a word for every control, and hints in a colour for every palette.
#include "tests/support/Rows.h"
#include "tests/ui/DialogUnderTest.h"
#include "tests/ui/TabUnderTest.h"

#include <QAccessible>
#include <QCheckBox>
#include <QLabel>

namespace {

QPalette paletteOfLightness(int lightness)
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor::fromHsl(0, 0, lightness));
    return palette;
}

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
    void coloursOfTheDialogFollowThePalette_data();
    void coloursOfTheDialogFollowThePalette();
    void hintOfTheTabFollowsThePalette_data();
    void hintOfTheTabFollowsThePalette();

private:
    QWidget& control(const QString& form, const QString& name) const
    {
        return form == "tab" ? *m_tab.find(name) : *m_dialog.find(name);
    }

    TabOnCamera m_tab;
    DialogOnCamera m_dialog;
};

void tst_FormAccessibility::initTestCase()
{
    m_tab.showAndSettle();
    m_dialog.showAndSettle();
}

void tst_FormAccessibility::controlHasAName_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("name");
    addControls("tab", m_tab.tab);
    addControls("dialog", *m_dialog.content);
}

void tst_FormAccessibility::controlHasAName()
{
    QFETCH(QString, form);
    QFETCH(QString, name);
    QVERIFY(!spokenFor(control(form, name)).trimmed().isEmpty());
}

void tst_FormAccessibility::cellsAreNamedByTheFormsHeaders_data()
{
    columns<QString, QString, QString>("form", "name", "spoken");
    const auto add = [](const char* form, const char* name, const char* spoken) {
        row(QByteArray(form) + ' ' + name, form, name, spoken);
    };
    for (const char* form : {"tab", "dialog"}) {
        add(form, "cmbLine0_LineMode", "Line0, I/O Mode");
        add(form, "chkLine1_LineInverter", "Line1, Invert");
        add(form, "cmbLine2_LineSource", "Line2, I/O Line Source");
        add(form, "lblLine0_LineStatus", "Line0: low");
    }
    add("dialog", "cmbLine0_LineDebounceMode", "Line0, Debounce Mode");
    add("dialog", "spbLine1_LineDebounceDuration", "Line1, Debounce Duration (µs)");
}

void tst_FormAccessibility::cellsAreNamedByTheFormsHeaders()
{
    QFETCH(QString, form);
    QFETCH(QString, name);
    QFETCH(QString, spoken);
    QCOMPARE(spokenFor(control(form, name)), spoken);
}

void tst_FormAccessibility::coloursOfTheDialogFollowThePalette_data()
{
    columns<QString, QString>("preset", "hint");
    row("99", "background-color: rgba(58,147,218,255);border: 1px solid lightblue;",
        "color: rgba(56,111,251,255);");
    row("100", "background-color: rgba(192,220,243,255);border: 1px solid lightblue;",
        "color: rgba(50,95,201,255);");
}

void tst_FormAccessibility::coloursOfTheDialogFollowThePalette()
{
    QFETCH(QString, preset);
    QFETCH(QString, hint);
    const DialogOnCamera built;
    // From the palette that it is built with, too.
    QCOMPARE(built.find("lblSelectPreset")->styleSheet().contains("192,220,243"), true);
    built.content->setPalette(paletteOfLightness(QByteArray(QTest::currentDataTag()).toInt()));
    QCOMPARE(built.find("lblSelectPreset")->styleSheet(), preset);
    for (const char* name : {"lbl_notAcquireHint", "lbl_noActionCommandsHint",
                             "lbl_noSoftwareSignalHint", "lbl_noCounterTimerHint"})
        QCOMPARE(built.find(name)->styleSheet(), hint);
}

void tst_FormAccessibility::hintOfTheTabFollowsThePalette_data()
{
    columns<int, QString>("lightness", "styleSheet");
    row("black", 0, "color: rgba(56,111,251,255);");
    row("darkest of the light", 100, "color: rgba(50,95,201,255);");
    row("lightest of the dark", 99, "color: rgba(56,111,251,255);");
    row("white", 255, "color: rgba(50,95,201,255);");
}

void tst_FormAccessibility::hintOfTheTabFollowsThePalette()
{
    QFETCH(int, lightness);
    QFETCH(QString, styleSheet);
    TabOnCamera shown;
    shown.show();
    const QWidget* hint = shown.find("lbl_notAcquireHint");
    // Through the other colour, so that the palette always changes.
    shown.tab.setPalette(paletteOfLightness(lightness < 100 ? 255 : 0));
    QVERIFY(hint->styleSheet() != styleSheet);
    shown.tab.setPalette(paletteOfLightness(lightness));
    QCOMPARE(hint->styleSheet(), styleSheet);
}

QTEST_MAIN(tst_FormAccessibility)
#include "tst_FormAccessibility.moc"
