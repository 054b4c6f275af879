// Keys that a field cannot take as they are, or that make no number of its own range: none of them
// may turn what is typed into another number.
#include "tests/trigger/TypingTest.h"

#include <QInputMethodEvent>
#include <QShortcut>
#include <QSignalSpy>

namespace {

/// Key by key, as a keyboard of another script sends them.
void sendCharacters(QWidget& field, const QString& typed)
{
    for (const QChar character : typed)
        QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, QString(character),
                            Qt::NoModifier);
}

const QStringList FieldsWithDecimals = {"double spin box", "line edit", "table cell"};

} // namespace

class tst_TypedNumber : public TypingTest
{
    Q_OBJECT

private slots:
    void init() { openForm(); }
    void cleanup() { closeForm(); }

    void keysOfOtherScripts_data();
    void keysOfOtherScripts();
    void commitOfOtherScripts_data() { keysOfOtherScripts_data(); }
    void commitOfOtherScripts();
    void foreignMarkEndsAWholeNumber_data();
    void foreignMarkEndsAWholeNumber();

    void secondMarkStaysInSight_data();
    void secondMarkStaysInSight();
    void typedGroupsAreNotTaken_data();
    void typedGroupsAreNotTaken();
    void markTypedBetweenDigitsKeepsThemApart();
    void markThatIsDeletedAgainDoesNoHarm();

    void exponentIsUnderstood_data();
    void exponentIsUnderstood();
    void exponentEndsAWholeNumber_data();
    void exponentEndsAWholeNumber();
    void unfinishedExponentIsNotTaken_data();
    void unfinishedExponentIsNotTaken();
    void typedGroupsWithoutMarksCloseUp_data();
    void typedGroupsWithoutMarksCloseUp();

    void escapeAfterALeftTextBringsTheCamerasValueBack_data();
    void escapeAfterALeftTextBringsTheCamerasValueBack();
    void escapeGivesUpALeftTextAtOnce();
};

void tst_TypedNumber::keysOfOtherScripts_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("writes");
    const auto row = [](const char* name, const char* typed, const char* write) {
        for (const char* kind : {"double spin box", "line edit"})
            QTest::addRow("%s, %s", kind, name)
                << kind << QString::fromUtf8(typed) << QStringList(write);
    };
    row("full-width comma", "2，5", "Real=2.5");
    row("full-width point", "2．5", "Real=2.5");
    row("full-width e", "1ｅ1", "Real=10");
    row("ideographic comma", "2、5", "Real=2.5");
    row("ideographic point", "2。5", "Real=2.5");
    row("half-width ideographic comma", "2､5", "Real=2.5");
    row("half-width ideographic point", "2｡5", "Real=2.5");
    row("Arabic comma", "2،5", "Real=2.5");
    row("Arabic decimal mark", "2٫5", "Real=2.5");
    row("minus sign", "−3", "Real=-3");
    row("full-width minus", "－3", "Real=-3");
    row("long vowel on the key of the minus", "ー3", "Real=-3");
    row("full-width plus", "＋3", "Real=3");
    row("full-width digits", "１２", "Real=12");
    row("Arabic digits", "١٢", "Real=12");
    row("Persian digits", "۱۲", "Real=12");
    row("Devanagari digits", "१२", "Real=12");
}

/// Key by key, as a keyboard of that script sends them.
void tst_TypedNumber::keysOfOtherScripts()
{
    QFETCH(QString, kind);
    QFETCH(QString, typed);
    enter(kind);
    sendCharacters(m_form->field(kind), typed);
    QTEST(finish(kind), "writes");
}

void tst_TypedNumber::commitOfOtherScripts()
{
    QFETCH(QString, kind);
    QFETCH(QString, typed);
    enter(kind);
    for (const QChar character : typed) {
        QInputMethodEvent event;
        event.setCommitString(QString(character));
        QCoreApplication::sendEvent(&m_form->field(kind), &event);
    }
    QTEST(finish(kind), "writes");
}

void tst_TypedNumber::foreignMarkEndsAWholeNumber_data()
{
    QTest::addColumn<QString>("typed");
    for (const char* typed : {"2，5", "2．5", "2。5", "2、5", "2،5", "2٫5", "２．５"})
        QTest::newRow(typed) << QString::fromUtf8(typed);
}

void tst_TypedNumber::foreignMarkEndsAWholeNumber()
{
    QFETCH(QString, typed);
    enter("spin box");
    sendCharacters(m_form->field("spin box"), typed);
    QCOMPARE(finish("spin box"), QStringList());
    QCOMPARE(m_form->textOf("spin box").text(), QString("5"));
}

void tst_TypedNumber::secondMarkStaysInSight_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("typed");
    for (const QString& kind : FieldsWithDecimals)
        for (const char* typed : {"1.2,", "1,2.", "1,2,", "1.2."})
            QTest::addRow("%s, %s", qPrintable(kind), typed) << kind << typed;
}

void tst_TypedNumber::secondMarkStaysInSight()
{
    QFETCH(QString, kind);
    QFETCH(QString, typed);
    type(kind, typed);
    QCOMPARE(text(kind), QString("1.2."));
    press(kind, Qt::Key_5);
    QCOMPARE(text(kind), QString("1.2."));
}

void tst_TypedNumber::typedGroupsAreNotTaken_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("way");
    for (const QString& kind : FieldsWithDecimals)
        for (const char* typed : {"1,000.5", "1.234,5", "1,234,567", "1..5"})
            for (const char* way : {"Return", "focus"})
                QTest::addRow("%s, %s, %s", qPrintable(kind), typed, way) << kind << typed << way;
}

void tst_TypedNumber::typedGroupsAreNotTaken()
{
    QFETCH(QString, kind);
    QFETCH(QString, typed);
    QFETCH(QString, way);
    const QString before = text(kind);
    type(kind, typed);
    QCOMPARE(finish(kind, way), QStringList());
    QCOMPARE(text(kind), before);
    QCOMPARE(m_form->customPresets, 0);
}

void tst_TypedNumber::markTypedBetweenDigitsKeepsThemApart()
{
    for (const char* kind : {"double spin box", "line edit"}) {
        m_form->field(kind).setFocus();
        m_form->textOf(kind).setText("12.5");
        m_form->textOf(kind).setCursorPosition(1);
        QTest::keyClicks(&m_form->field(kind), ",3");
        QCOMPARE(text(kind), QString("1.2.5"));
        QCOMPARE(finish(kind), QStringList());
    }
}

void tst_TypedNumber::markThatIsDeletedAgainDoesNoHarm()
{
    for (const char* kind : {"double spin box", "line edit"}) {
        m_camera->find("Real")->state().real = 5.0;
        m_camera->clearLog();
        type(kind, "1,2.");
        press(kind, Qt::Key_Backspace);
        QTest::keyClicks(&m_form->field(kind), "5");
        QCOMPARE(finish(kind), QStringList("Real=1.25"));
    }
}

void tst_TypedNumber::exponentIsUnderstood_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("written");
    const auto row = [](const char* kind, const char* typed, const char* write) {
        QTest::addRow("%s, %s", kind, typed) << kind << typed << QStringList(write);
    };
    for (const char* kind : {"double spin box", "line edit"}) {
        row(kind, "1e3", "Real=1000");
        row(kind, "1E3", "Real=1000");
        row(kind, "1,5e+2", "Real=150");
        row(kind, "25e-1", "Real=2.5");
        row(kind, "-1.234e3", "Real=-1234");
    }
    row("double spin box", "1e9", "Real=100000");
    row("double spin box", "200000e-3", "Real=200");
}

void tst_TypedNumber::exponentIsUnderstood()
{
    QFETCH(QString, kind);
    QFETCH(QString, typed);
    type(kind, typed);
    QCOMPARE(text(kind), QString(typed).replace(',', '.'));
    QTEST(finish(kind), "written");
}

void tst_TypedNumber::exponentEndsAWholeNumber_data()
{
    QTest::addColumn<QString>("shown");
    QTest::newRow("1e3") << "1e";
    QTest::newRow("1E3") << "1E";
    QTest::newRow("1e-3") << "1e-";
    QTest::newRow("9999999e3") << "9999999e";
}

void tst_TypedNumber::exponentEndsAWholeNumber()
{
    type("spin box", QTest::currentDataTag());
    QTEST(text("spin box"), "shown");
    QCOMPARE(finish("spin box"), QStringList());
    QCOMPARE(text("spin box"), QString("5"));
}

void tst_TypedNumber::unfinishedExponentIsNotTaken_data()
{
    QTest::addColumn<bool>("unused");
    for (const char* typed : {"12e", "12e-", "1.5e", "1.23456e", "1e2,", "1e2,5"})
        QTest::newRow(typed) << true;
}

void tst_TypedNumber::unfinishedExponentIsNotTaken()
{
    type("double spin box", QTest::currentDataTag());
    QVERIFY(text("double spin box").contains('e'));
    QCOMPARE(finish("double spin box"), QStringList());
    QCOMPARE(text("double spin box"), QString("5.000"));
}

void tst_TypedNumber::typedGroupsWithoutMarksCloseUp_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("number");
    for (const char* kind : {"double spin box", "spin box", "line edit", "table cell"})
        for (const char* typed : {"1 234", "1\u00a0234", "1\u202f234", "1'234", "1’234"})
            QTest::addRow("%s, %s", kind, typed) << kind << QString::fromUtf8(typed) << "1234";
    for (const QString& kind : FieldsWithDecimals)
        QTest::addRow("%s, decimals", qPrintable(kind)) << kind << "1 234,5"
                                                        << "1234.5";
}

void tst_TypedNumber::typedGroupsWithoutMarksCloseUp()
{
    QFETCH(QString, kind);
    QFETCH(QString, typed);
    enter(kind);
    sendCharacters(m_form->field(kind), typed);
    QTEST(text(kind), "number");
}

void tst_TypedNumber::escapeAfterALeftTextBringsTheCamerasValueBack_data()
{
    QTest::addColumn<QString>("left");
    QTest::newRow("above the top") << "200000";
    QTest::newRow("sign alone") << "-";
}

void tst_TypedNumber::escapeAfterALeftTextBringsTheCamerasValueBack()
{
    QFETCH(QString, left);
    type("line edit", left);
    leave();
    QCOMPARE(text("line edit"), left);
    type("line edit", "3");
    press("line edit", Qt::Key_Escape);
    QCOMPARE(text("line edit"), QString("5"));
    QCOMPARE(writes(), QStringList());
}

/// What was left unfinished still is so when the user comes back.
void tst_TypedNumber::escapeGivesUpALeftTextAtOnce()
{
    QShortcut shortcut(Qt::Key_Escape, m_form.get());
    QSignalSpy taken(&shortcut, SIGNAL(activated()));
    type("line edit", "200000");
    leave();
    m_form->field("line edit").setFocus();
    press("line edit", Qt::Key_Escape);
    QCOMPARE(text("line edit"), QString("5"));
    QCOMPARE(taken.count(), 0);
    // Unless the camera's value took its place meanwhile.
    type("line edit", "200000");
    leave();
    m_form->refresh({"Real"});
    m_form->field("line edit").setFocus();
    press("line edit", Qt::Key_Escape);
    QCOMPARE(taken.count(), 1);
}

QTEST_MAIN(tst_TypedNumber)
#include "tst_TypedNumber.moc"
