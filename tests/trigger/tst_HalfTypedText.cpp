// What becomes of text that the user is typing while the camera reports changes.
#include "tests/trigger/TypingTest.h"

#include <QFocusEvent>
#include <QMenu>
#include <QShortcut>
#include <QSignalSpy>

class tst_HalfTypedText : public TypingTest
{
    Q_OBJECT

private slots:
    void init() { openForm(); }
    void cleanup() { closeForm(); }

    void refreshLeavesTheTextAlone_data() { kinds(); }
    void refreshLeavesTheTextAlone();
    void refreshBetweenTheKeysLosesNone_data() { kinds(); }
    void refreshBetweenTheKeysLosesNone();
    void refreshLeavesAnEmptiedFieldEmpty_data() { kinds(); }
    void refreshLeavesAnEmptiedFieldEmpty();
    void cursorAndSelectionStay_data();
    void cursorAndSelectionStay();
    void refreshStillReportsTheCamerasValue_data() { kinds(); }
    void refreshStillReportsTheCamerasValue();
    void refreshStillSetsTheRange_data();
    void refreshStillSetsTheRange();
    void refreshStillShowsTheOtherFields();

    void finishingWritesTheTypedNumberOnce_data();
    void finishingWritesTheTypedNumberOnce();
    void numberThatTheCameraHasByNowIsNotWritten_data();
    void numberThatTheCameraHasByNowIsNotWritten();
    void numberOfBeforeIsWrittenOverTheCamerasNewOne();
    void refreshShowsAgainAfterwards_data();
    void refreshShowsAgainAfterwards();
    void numberOutOfTheNewRangeBecomesTheLimit_data();
    void numberOutOfTheNewRangeBecomesTheLimit();

    void escapeBringsTheCamerasValueBack_data() { kinds(); }
    void escapeBringsTheCamerasValueBack();
    void escapeOverrulesAShortcut_data() { kinds(); }
    void escapeOverrulesAShortcut();
    void escapeBringsBackWhatWasFinishedLast();
    void escapeGoesOnWhereNothingIsTyped_data();
    void escapeGoesOnWhereNothingIsTyped();

    void fieldThatIsDisabledShowsTheCamerasValue_data() { kinds(); }
    void fieldThatIsDisabledShowsTheCamerasValue();
    void contextMenuKeepsALineEditsText();
    void textOfAnUnfocusedFieldGivesWay_data() { kinds(); }
    void textOfAnUnfocusedFieldGivesWay();
};

void tst_HalfTypedText::refreshLeavesTheTextAlone()
{
    const QString kind = QTest::currentDataTag();
    begin();
    const QString typed = text(kind);
    for (int second = 0; second < 3; ++second) {
        report(kind);
        QCOMPARE(text(kind), typed);
    }
    if (auto* box = qobject_cast<QAbstractSpinBox*>(&m_form->field(kind)))
        QCOMPARE(box->property("value").toDouble(), 7.0);
    QVERIFY(m_form->field(kind).isEnabled());
    QVERIFY(m_form->field(kind).hasFocus());
    QCOMPARE(writes(), QStringList());
}

void tst_HalfTypedText::refreshBetweenTheKeysLosesNone()
{
    const QString kind = QTest::currentDataTag();
    begin();
    const QString first = text(kind);
    report(kind);
    QTest::keyClicks(&m_form->field(kind), "3");
    report(kind);
    QCOMPARE(text(kind), first + "3");
    press(kind, Qt::Key_Backspace);
    report(kind);
    QTest::keyClicks(&m_form->field(kind), "4");
    QCOMPARE(text(kind), first + "4");
}

void tst_HalfTypedText::refreshLeavesAnEmptiedFieldEmpty()
{
    const QString kind = QTest::currentDataTag();
    enter(kind);
    press(kind, Qt::Key_Delete);
    report(kind);
    QCOMPARE(text(kind), QString());
}

void tst_HalfTypedText::cursorAndSelectionStay_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QVector<int>>("moves");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<int>("cursor");
    for (const char* kind : {"double spin box", "spin box", "line edit", "table cell"}) {
        const auto row = [&](const char* name, const QVector<int>& moves, const char* selected,
                             int cursor) {
            QTest::addRow("%s, %s", kind, name) << kind << moves << selected << cursor;
        };
        const int left = Qt::Key_Left;
        const int home = Qt::Key_Home;
        const int selectLeft = Qt::Key_Left | int(Qt::SHIFT);
        const int selectRight = Qt::Key_Right | int(Qt::SHIFT);
        row("at the end", {}, "", 3);
        row("at the start", {home}, "", 0);
        row("within", {left}, "", 2);
        row("selected to the left", {left, selectLeft, selectLeft}, "12", 0);
        row("selected to the right", {home, selectRight, selectRight}, "12", 2);
    }
}

void tst_HalfTypedText::cursorAndSelectionStay()
{
    QFETCH(QString, kind);
    QFETCH(QVector<int>, moves);
    begin(kind, "123");
    for (const int move : moves)
        QTest::keyClick(&m_form->field(kind), Qt::Key(move & ~int(Qt::SHIFT)),
                        Qt::KeyboardModifiers(move & int(Qt::SHIFT)));
    report(kind);
    QTEST(m_form->textOf(kind).selectedText(), "selected");
    QTEST(m_form->textOf(kind).cursorPosition(), "cursor");
}

void tst_HalfTypedText::refreshStillReportsTheCamerasValue()
{
    const QString kind = QTest::currentDataTag();
    begin();
    QSignalSpy reports(m_form.get(), SIGNAL(FeatureChanged(QString, QVariant)));
    report(kind);
    // Two widgets show Real; the table reports nothing.
    const int expected = kind == "table cell" ? 0 : featureOf(kind) == "Real" ? 2 : 1;
    QCOMPARE(reports.count(), expected);
    for (const auto& entry : reports) {
        QCOMPARE(entry[0].toString(), featureOf(kind));
        QVERIFY2(QStringList({"7", "0x7", "seven"}).contains(entry[1].toString()),
                 qPrintable(entry[1].toString()));
    }
}

void tst_HalfTypedText::refreshStillSetsTheRange_data()
{
    QTest::addColumn<double>("top");
    QTest::newRow("double spin box") << 20.5;
    QTest::newRow("spin box") << 20.0;
}

void tst_HalfTypedText::refreshStillSetsTheRange()
{
    QFETCH(double, top);
    const QString kind = QTest::currentDataTag();
    begin();
    stateOf(kind).maxReal = 20.5;
    stateOf(kind).maxInteger = 20;
    report(kind);
    QCOMPARE(m_form->field(kind).property("maximum").toDouble(), top);
    QCOMPARE(text(kind), QString("12"));
}

void tst_HalfTypedText::refreshStillShowsTheOtherFields()
{
    begin("line edit", "12");
    report("line edit");
    QCOMPARE(text("line edit"), QString("12"));
    QCOMPARE(text("double spin box"), QString("7.000"));
}

void tst_HalfTypedText::finishingWritesTheTypedNumberOnce_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("way");
    QTest::addColumn<QStringList>("written");
    for (const char* way : {"Return", "focus"}) {
        const auto row = [&](const char* kind, const char* write) {
            QTest::addRow("%s, %s", kind, way) << kind << way << QStringList(write);
        };
        row("double spin box", "Real=12");
        row("spin box", "Whole=12");
        row("line edit", "Real=12");
        row("table cell", "LineDebounceDuration=14"); // doubled
    }
}

void tst_HalfTypedText::finishingWritesTheTypedNumberOnce()
{
    QFETCH(QString, kind);
    QFETCH(QString, way);
    begin(kind, "12");
    report(kind);
    report(kind);
    finish(kind, way);
    QTEST(writes(), "written");
}

void tst_HalfTypedText::numberThatTheCameraHasByNowIsNotWritten_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("way");
    for (const char* kind : {"double spin box", "spin box", "table cell"})
        for (const char* way : {"Return", "focus"})
            QTest::addRow("%s, %s", kind, way) << kind << way;
}

void tst_HalfTypedText::numberThatTheCameraHasByNowIsNotWritten()
{
    QFETCH(QString, kind);
    QFETCH(QString, way);
    begin(kind, "7");
    report(kind);
    finish(kind, way);
    QCOMPARE(writes(), QStringList());
    QCOMPARE(text(kind), seven(kind));
}

void tst_HalfTypedText::numberOfBeforeIsWrittenOverTheCamerasNewOne()
{
    begin("double spin box", "5");
    report("double spin box");
    press("double spin box", Qt::Key_Return);
    QCOMPARE(writes(), QStringList("Real=5"));
}

void tst_HalfTypedText::refreshShowsAgainAfterwards_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("key");
    for (const char* kind : {"double spin box", "spin box", "line edit", "table cell"}) {
        QTest::addRow("%s, Return", kind) << kind << int(Qt::Key_Return);
        QTest::addRow("%s, Esc", kind) << kind << int(Qt::Key_Escape);
    }
    for (const char* kind : {"double spin box", "spin box", "table cell"}) {
        QTest::addRow("%s, step", kind) << kind << int(Qt::Key_Up);
        QTest::addRow("%s, steps", kind) << kind << int(Qt::Key_PageDown);
    }
}

void tst_HalfTypedText::refreshShowsAgainAfterwards()
{
    QFETCH(QString, kind);
    QFETCH(int, key);
    begin(kind, "12");
    press(kind, Qt::Key(key));
    report(kind);
    QCOMPARE(text(kind), seven(kind));
}

void tst_HalfTypedText::numberOutOfTheNewRangeBecomesTheLimit_data()
{
    QTest::addColumn<QString>("way");
    for (const char* kind : {"double spin box", "spin box"})
        for (const char* way : {"Return", "focus"})
            QTest::addRow("%s, %s", kind, way) << way;
}

/// As any number out of range, whichever came first.
void tst_HalfTypedText::numberOutOfTheNewRangeBecomesTheLimit()
{
    QFETCH(QString, way);
    const QString kind = QString(QTest::currentDataTag()).section(',', 0, 0);
    begin(kind, "900");
    stateOf(kind).maxReal = 20.0;
    stateOf(kind).maxInteger = 20;
    report(kind);
    QCOMPARE(text(kind), QString("900"));
    QCOMPARE(finish(kind, way), QStringList(featureOf(kind) + "=20"));
}

void tst_HalfTypedText::escapeBringsTheCamerasValueBack()
{
    const QString kind = QTest::currentDataTag();
    begin();
    report(kind);
    press(kind, Qt::Key_Escape);
    QCOMPARE(text(kind), seven(kind));
    QVERIFY(m_form->field(kind).hasFocus());
    QCOMPARE(writes(), QStringList());
    if (auto* box = qobject_cast<QAbstractSpinBox*>(&m_form->field(kind))) {
        QCOMPARE(box->property("value").toDouble(), 7.0);
        finish(kind, "Return");
        finish(kind, "focus");
        QCOMPARE(writes(), QStringList());
        QCOMPARE(m_form->customPresets, 0);
    }
}

void tst_HalfTypedText::escapeOverrulesAShortcut()
{
    const QString kind = QTest::currentDataTag();
    const QString before = text(kind);
    QShortcut shortcut(Qt::Key_Escape, m_form.get());
    QSignalSpy taken(&shortcut, SIGNAL(activated()));
    begin();
    press(kind, Qt::Key_Escape);
    QCOMPARE(taken.count(), 0);
    QCOMPARE(text(kind), before);
    press(kind, Qt::Key_Escape);
    QCOMPARE(taken.count(), 1);
}

// A field that cannot be read shows what was typed into it, as long as nothing else is known.
void tst_HalfTypedText::escapeBringsBackWhatWasFinishedLast()
{
    stateOf("line edit").readable = false;
    begin("line edit", "12");
    press("line edit", Qt::Key_Return);
    QTest::keyClicks(&m_form->field("line edit"), "34");
    press("line edit", Qt::Key_Escape);
    QCOMPARE(text("line edit"), QString("12"));
}

void tst_HalfTypedText::escapeGoesOnWhereNothingIsTyped_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("key");
    for (const char* kind : {"double spin box", "spin box", "line edit", "table cell"}) {
        QTest::addRow("%s, untouched", kind) << kind << 0;
        QTest::addRow("%s, cursor moved", kind) << kind << int(Qt::Key_Home);
        QTest::addRow("%s, refused key", kind) << kind << int(Qt::Key_Z);
    }
    for (const char* kind : {"double spin box", "spin box", "table cell"})
        QTest::addRow("%s, step", kind) << kind << int(Qt::Key_Up);
}

void tst_HalfTypedText::escapeGoesOnWhereNothingIsTyped()
{
    QFETCH(QString, kind);
    QFETCH(int, key);
    QShortcut shortcut(Qt::Key_Escape, m_form.get());
    QSignalSpy taken(&shortcut, SIGNAL(activated()));
    m_form->field(kind).setFocus();
    if (key != 0)
        QTest::keyClick(&m_form->field(kind), Qt::Key(key));
    press(kind, Qt::Key_Escape);
    QCOMPARE(taken.count(), 1);
}

void tst_HalfTypedText::fieldThatIsDisabledShowsTheCamerasValue()
{
    const QString kind = QTest::currentDataTag();
    begin();
    stateOf(kind).writable = false;
    report(kind);
    QVERIFY(!m_form->field(kind).isEnabled());
    QVERIFY(!m_form->field(kind).hasFocus());
    QCOMPARE(text(kind), seven(kind));
    QCOMPARE(writes(), QStringList());
    // Nor is anything left for the time after.
    stateOf(kind).writable = true;
    report(kind);
    m_form->field(kind).setFocus();
    QCOMPARE(text(kind), seven(kind));
}

void tst_HalfTypedText::contextMenuKeepsALineEditsText()
{
    begin("line edit", "12");
    QWidget& field = m_form->field("line edit");
    // What the field hears when its menu opens.
    QFocusEvent out(QEvent::FocusOut, Qt::PopupFocusReason);
    QMenu menu(&field);
    menu.popup(field.mapToGlobal(QPoint()));
    QCoreApplication::sendEvent(&field, &out);
    report("line edit");
    QCOMPARE(text("line edit"), QString("12"));
    menu.close();
    report("line edit");
    QCOMPARE(text("line edit"), QString("12"));
}

void tst_HalfTypedText::textOfAnUnfocusedFieldGivesWay()
{
    const QString kind = QTest::currentDataTag();
    begin();
    leave();
    report(kind);
    QCOMPARE(text(kind), seven(kind));
}

QTEST_MAIN(tst_HalfTypedText)
#include "tst_HalfTypedText.moc"
