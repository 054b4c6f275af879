// How numbers may be typed and pasted: with a comma or a point before the decimals, and no groups.
#include "tests/trigger/TypingTest.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLocale>

namespace {

const QStringList Desktops = {"C", "en_US", "de_DE", "de_CH", "fr_FR", "sv_SE", "hi_IN", "ar_EG"};

void emptyField(QLineEdit& edit)
{
    edit.selectAll();
    edit.del();
}

} // namespace

class tst_NumberInput : public TypingTest
{
    Q_OBJECT

private slots:
    void init() { m_camera = numberCamera(); }
    void cleanup();

    void typedCommaActsAsThePoint_data();
    void typedCommaActsAsThePoint();
    void commaIsShownAsThePoint_data();
    void commaIsShownAsThePoint();
    void fractionIsNoWholeNumber_data();
    void fractionIsNoWholeNumber();
    void commaOfAnInputMethodActsAsThePoint_data();
    void commaOfAnInputMethodActsAsThePoint();
    void pastedNumber_data();
    void pastedNumber();
    void pastedWholeNumber_data();
    void pastedWholeNumber();
    void refusedPasteLeavesTheTextAlone_data();
    void refusedPasteLeavesTheTextAlone();
    void pasteBesideDigitsJoinsThem_data();
    void pasteBesideDigitsJoinsThem();
    void fieldInTheDesktopsNotationTakesBothMarks_data();
    void fieldInTheDesktopsNotationTakesBothMarks();
    void prefixAndSuffixAreNoPartOfTheNumber();
    void textsKeepTheirCommas();
    void hexadecimalFieldsTakeNoMark_data();
    void hexadecimalFieldsTakeNoMark();

private:
    void build(const QString& desktop = QStringLiteral("C"));
    void paste(QLineEdit& edit, const QString& text) const;
};

void tst_NumberInput::cleanup()
{
    closeForm();
    QLocale::setDefault(QLocale::c());
}

void tst_NumberInput::build(const QString& desktop)
{
    QLocale::setDefault(QLocale(desktop));
    m_form = std::make_unique<NumberForm>(*m_camera);
}

void tst_NumberInput::paste(QLineEdit& edit, const QString& text) const
{
    QGuiApplication::clipboard()->setText(text);
    edit.paste();
}

void tst_NumberInput::typedCommaActsAsThePoint_data()
{
    QTest::addColumn<QString>("desktop");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("writes");
    for (const QString& desktop : Desktops) {
        const auto row = [&](const char* kind, const char* typed, const char* write) {
            QTest::addRow("%s, %s, %s", qPrintable(desktop), kind, typed)
                << desktop << kind << typed << QStringList(write);
        };
        for (const char* kind : {"double spin box", "line edit"}) {
            row(kind, "2,5", "Real=2.5");
            row(kind, "2.5", "Real=2.5");
            row(kind, "-0,125", "Real=-0.125");
            row(kind, ",5", "Real=0.5");
        }
        // A number below the duration halves it; 75 would double it.
        row("table cell", "7,5", "LineDebounceDuration=4");
        row("table cell", "7.5", "LineDebounceDuration=4");
    }
}

void tst_NumberInput::typedCommaActsAsThePoint()
{
    QFETCH(QString, desktop);
    QFETCH(QString, kind);
    QFETCH(QString, typed);
    build(desktop);
    m_form->textOf(kind).selectAll();
    QTest::keyClicks(&m_form->field(kind), typed);
    QTEST(finish(kind), "writes");
}

void tst_NumberInput::commaIsShownAsThePoint_data()
{
    QTest::addColumn<QString>("desktop");
    QTest::addColumn<QString>("kind");
    for (const QString& desktop : Desktops)
        for (const char* kind : {"double spin box", "line edit", "table cell"})
            QTest::addRow("%s, %s", qPrintable(desktop), kind) << desktop << kind;
}

void tst_NumberInput::commaIsShownAsThePoint()
{
    QFETCH(QString, desktop);
    QFETCH(QString, kind);
    build(desktop);
    QLineEdit& edit = m_form->textOf(kind);
    edit.selectAll();
    QTest::keyClicks(&m_form->field(kind), "12,");
    QCOMPARE(edit.text(), QString("12."));
    QCOMPARE(edit.cursorPosition(), 3);
    QTest::keyClicks(&m_form->field(kind), "5");
    QCOMPARE(edit.text(), QString("12.5"));
    // Between digits that stand there already.
    edit.setCursorPosition(1);
    QTest::keyClick(&m_form->field(kind), Qt::Key_Delete);
    QTest::keyClicks(&m_form->field(kind), "5");
    edit.setText("1250");
    edit.setCursorPosition(2);
    QTest::keyClicks(&m_form->field(kind), ",");
    QCOMPARE(edit.text(), QString("12.50"));
    QCOMPARE(edit.cursorPosition(), 3);
}

void tst_NumberInput::fractionIsNoWholeNumber_data()
{
    QTest::addColumn<QString>("desktop");
    QTest::addColumn<QString>("typed");
    for (const QString& desktop : Desktops)
        for (const char* typed : {"2,5", "2.5", "2,", "1,000", ",5"})
            QTest::addRow("%s, %s", qPrintable(desktop), typed) << desktop << typed;
}

void tst_NumberInput::fractionIsNoWholeNumber()
{
    QFETCH(QString, desktop);
    QFETCH(QString, typed);
    build(desktop);
    m_form->textOf("spin box").selectAll();
    QTest::keyClicks(&m_form->field("spin box"), typed);
    QCOMPARE(finish("spin box"), QStringList());
    QCOMPARE(m_form->textOf("spin box").text(), QString("5"));
}

void tst_NumberInput::commaOfAnInputMethodActsAsThePoint_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("text");
    for (const char* kind : {"double spin box", "line edit"}) {
        QTest::addRow("%s", kind) << "2,5"
                                  << "2.5";
        QTest::addRow("%s, groups", kind) << "1,234.5"
                                          << "";
    }
}

void tst_NumberInput::commaOfAnInputMethodActsAsThePoint()
{
    QFETCH(QString, typed);
    const QString kind = QString(QTest::currentDataTag()).section(',', 0, 0);
    build();
    emptyField(m_form->textOf(kind));
    QInputMethodEvent event;
    event.setCommitString(typed);
    QCoreApplication::sendEvent(&m_form->field(kind), &event);
    QTEST(m_form->textOf(kind).text(), "text");
}

void tst_NumberInput::pastedNumber_data()
{
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<double>("number"); // 5 where it is refused
    const auto row = [](const char* name, const QString& pasted, double number) {
        QTest::newRow(name) << pasted << number;
    };
    constexpr double refused = 5.0;
    row("point", "2.5", 2.5);
    row("comma", "2,5", 2.5);
    row("comma before three digits", "1,234", 1.234);
    row("end of a line", "2,5\n", 2.5);
    row("cell of a spreadsheet", "2.5\r\n", 2.5);
    row("tabulator", "\t2,5\t", 2.5);
    row("blanks", "  2,5 ", 2.5);
    row("no-break spaces", QString::fromUtf8("\u00a02,5\u202f"), 2.5);
    row("minus", "-2,5", -2.5);
    row("exponent", "1e3", 1000.0);
    row("exponent and comma", "1,5e3", 1500.0);
    row("English groups", "1,234.5", refused);
    row("German groups", "1.234,5", refused);
    row("several commas", "1,234,567", refused);
    row("several points", "1.234.567", refused);
    row("groups of blanks", "1 234", refused);
    row("groups of no-break spaces", QString::fromUtf8("1\u00a0234,5"), refused);
    row("groups of narrow no-break spaces", QString::fromUtf8("1\u202f234,5"), refused);
    row("groups of thin spaces", QString::fromUtf8("1\u2009234,5"), refused);
    row("groups of apostrophes", "1'234.5", refused);
    row("groups of right quotes", QString::fromUtf8("1’234.5"), refused);
    row("groups of underscores", "1_234", refused);
    row("groups of Arabic commas", QString::fromUtf8("1٬234"), refused);
    row("two cells", "2,5\t3,5", refused);
    row("two lines", "2\n3", refused);
    row("blanks only", " \n", refused);
    row("text", "abc", refused);
    row("unit", "2,5 s", refused);
    row("Arabic digits", QString::fromUtf8("٢٫٥"), 2.5);
    row("full-width digits", QString::fromUtf8("２．５"), 2.5);
    row("full-width comma", QString::fromUtf8("2，5"), 2.5);
    row("full-width groups", QString::fromUtf8("1，234．5"), refused);
    row("mark of direction", QString::fromUtf8("\u200e25"), refused);
}

void tst_NumberInput::pastedNumber()
{
    QFETCH(QString, pasted);
    QFETCH(double, number);
    for (const char* desktop : {"C", "de_DE", "fr_FR"}) {
        m_camera = numberCamera();
        build(desktop);
        for (const char* kind : {"double spin box", "line edit"}) {
            m_camera->find("Real")->state().real = 5.0;
            emptyField(m_form->textOf(kind));
            paste(m_form->textOf(kind), pasted);
            if (number == 5.0)
                QVERIFY2(m_form->textOf(kind).text().isEmpty(), desktop);
            else
                finish(kind);
            QVERIFY2(m_camera->find("Real")->state().real == number, desktop);
        }
    }
}

void tst_NumberInput::pastedWholeNumber_data()
{
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const QString& pasted, const char* text) {
        QTest::newRow(name) << pasted << text;
    };
    row("digits", "1234", "1234");
    row("cell of a spreadsheet", "1234\r\n", "1234");
    row("minus", "-7", "-7");
    row("comma", "2,5", "");
    row("point", "2.5", "");
    row("English groups", "1,234", "");
    row("German groups", "1.234", "");
    row("groups of blanks", "1 234", "");
    row("groups of narrow no-break spaces", QString::fromUtf8("1\u202f234"), "");
    row("groups of apostrophes", "1'234", "");
    row("exponent", "1e3", "");
    row("full-width digits", QString::fromUtf8("２５"), "25");
    row("full-width comma", QString::fromUtf8("2，5"), "");
}

void tst_NumberInput::pastedWholeNumber()
{
    QFETCH(QString, pasted);
    QFETCH(QString, text);
    for (const char* desktop : {"C", "de_DE", "fr_FR"}) {
        build(desktop);
        emptyField(m_form->textOf("spin box"));
        paste(m_form->textOf("spin box"), pasted);
        QVERIFY2(m_form->textOf("spin box").text() == text, desktop);
    }
}

void tst_NumberInput::refusedPasteLeavesTheTextAlone_data()
{
    QTest::addColumn<QString>("before");
    for (const char* kind : {"double spin box", "line edit", "table cell"})
        QTest::newRow(kind) << "1.5";
    QTest::newRow("spin box") << "15";
}

void tst_NumberInput::refusedPasteLeavesTheTextAlone()
{
    QFETCH(QString, before);
    build();
    QLineEdit& edit = m_form->textOf(QTest::currentDataTag());
    edit.setText(before);
    edit.selectAll();
    paste(edit, "1,234.5");
    QCOMPARE(edit.text(), before);
}

void tst_NumberInput::pasteBesideDigitsJoinsThem_data()
{
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("text");
    QTest::newRow("comma between") << ","
                                   << "1.2";
    QTest::newRow("decimals behind") << "5,"
                                     << "15.2";
    QTest::newRow("blank between") << " "
                                   << "12";
    QTest::newRow("line between") << "5\n"
                                  << "12";
}

void tst_NumberInput::pasteBesideDigitsJoinsThem()
{
    QFETCH(QString, pasted);
    build();
    for (const char* kind : {"double spin box", "line edit"}) {
        QLineEdit& edit = m_form->textOf(kind);
        edit.setText("12");
        edit.setCursorPosition(1);
        paste(edit, pasted);
        QTEST(edit.text(), "text");
    }
}

void tst_NumberInput::fieldInTheDesktopsNotationTakesBothMarks_data()
{
    QTest::addColumn<QString>("typed");
    for (const QString& desktop : Desktops)
        for (const char* typed : {"2,5", "2.5"})
            QTest::addRow("%s, %s", qPrintable(desktop), typed) << typed;
}

void tst_NumberInput::fieldInTheDesktopsNotationTakesBothMarks()
{
    QFETCH(QString, typed);
    const QLocale desktop(QString(QTest::currentDataTag()).section(',', 0, 0));
    build();
    auto& box = static_cast<QDoubleSpinBox&>(m_form->field("double spin box"));
    box.setLocale(desktop);
    m_form->textOf("double spin box").selectAll();
    QTest::keyClicks(&box, typed);
    QCOMPARE(finish("double spin box"), QStringList("Real=2.5"));
}

void tst_NumberInput::prefixAndSuffixAreNoPartOfTheNumber()
{
    build();
    auto& box = static_cast<QDoubleSpinBox&>(m_form->field("double spin box"));
    box.setPrefix("t = ");
    box.setSuffix(QString::fromUtf8(" µs"));
    box.selectAll(); // the number alone
    QTest::keyClicks(&box, "2,5");
    QCOMPARE(box.text(), QString::fromUtf8("t = 2.5 µs"));
    QCOMPARE(finish("double spin box"), QStringList("Real=2.5"));
}

void tst_NumberInput::textsKeepTheirCommas()
{
    build();
    m_form->textOf("text field").selectAll();
    QTest::keyClicks(&m_form->field("text field"), "left, 1,5 m ");
    QCOMPARE(m_form->textOf("text field").text(), QString("left, 1,5 m "));
}

void tst_NumberInput::hexadecimalFieldsTakeNoMark_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("comma") << "0x1,";
    QTest::newRow("point") << "0x1.";
    QTest::newRow("blank") << "0x1 ";
}

void tst_NumberInput::hexadecimalFieldsTakeNoMark()
{
    QFETCH(QString, typed);
    build();
    m_form->textOf("hexadecimal field").selectAll();
    QTest::keyClicks(&m_form->field("hexadecimal field"), typed);
    QCOMPARE(m_form->textOf("hexadecimal field").text(), QString("0x1"));
}

QTEST_MAIN(tst_NumberInput)
#include "tst_NumberInput.moc"
