// Typed numbers that the camera's limits do not allow.
#include "tests/trigger/TypingTest.h"

class tst_TypedLimits : public TypingTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { closeForm(); }

    void numberBeyondTheRangeBecomesTheLimit_data();
    void numberBeyondTheRangeBecomesTheLimit();
    void numberBeyondTheRangeOnlyTellsADirectionInTheTable_data();
    void numberBeyondTheRangeOnlyTellsADirectionInTheTable();
    void limitThatTheCameraHasIsNotWritten();
    void fieldThatIsHiddenTakesTheLimit();
    void prefixAndSuffixStayAroundTheLimit();
    void numberOfALargeRangeIsTakenAsItIs_data();
    void numberOfALargeRangeIsTakenAsItIs();
    void pasteBeyondTheRangeBecomesTheLimit();
    void markInAWholeNumberBeyondTheRangeKeepsItFromBeingTaken();
    void numberIsNotTakenWhereTheRangeIsUnknown_data();
    void numberIsNotTakenWhereTheRangeIsUnknown();
    void fieldThatIsDestroyedWritesNothing_data();
    void fieldThatIsDestroyedWritesNothing();
    void surplusDecimalsAreDropped();
    void escapeGivesUpANumberBeyondTheRange();

private:
    /// Has the camera tell limits and a value for both numbers.
    void limit(int min, int max, int value);
};

void tst_TypedLimits::init()
{
    openForm();
    limit(10, 1000, 50);
}

void tst_TypedLimits::limit(int min, int max, int value)
{
    auto& real = m_camera->find("Real")->state();
    real.minReal = min;
    real.maxReal = max;
    real.real = value;
    auto& whole = m_camera->find("Whole")->state();
    whole.minInteger = min;
    whole.maxInteger = max;
    whole.integer = value;
    m_form->refresh({"Real", "Whole"});
    m_camera->clearLog();
}

void tst_TypedLimits::numberBeyondTheRangeBecomesTheLimit_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("way");
    QTest::addColumn<QStringList>("written");
    for (const char* way : {"Return", "focus"}) {
        const auto row = [&](const char* kind, const char* typed, const char* write) {
            QTest::addRow("%s, %s, %s", kind, typed, way)
                << kind << typed << way << QStringList(write);
        };
        row("double spin box", "5000", "Real=1000");
        row("double spin box", "5000.25", "Real=1000");
        row("double spin box", "1000.001", "Real=1000");
        row("double spin box", "-5", "Real=10");
        row("double spin box", "3", "Real=10");
        row("double spin box", "3.5", "Real=10");
        row("spin box", "5000", "Whole=1000");
        row("spin box", "99999999999", "Whole=1000");
        row("spin box", "-50", "Whole=10");
        row("spin box", "3", "Whole=10");
        row("spin box", "1000", "Whole=1000");
    }
}

void tst_TypedLimits::numberBeyondTheRangeBecomesTheLimit()
{
    QFETCH(QString, kind);
    QFETCH(QString, typed);
    QFETCH(QString, way);
    type(kind, typed);
    QCOMPARE(text(kind), typed);
    QCOMPARE(writes(), QStringList());
    finish(kind, way);
    QTEST(writes(), "written");
}

void tst_TypedLimits::numberBeyondTheRangeOnlyTellsADirectionInTheTable_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("written");
    QTest::newRow("above") << "5000" << QStringList("LineDebounceDuration=16");
    QTest::newRow("below") << "-50" << QStringList("LineDebounceDuration=4");
}

void tst_TypedLimits::numberBeyondTheRangeOnlyTellsADirectionInTheTable()
{
    QFETCH(QString, typed);
    type("table cell", typed);
    QCOMPARE(text("table cell"), typed);
    QTEST(finish("table cell"), "written");
}

void tst_TypedLimits::limitThatTheCameraHasIsNotWritten()
{
    limit(10, 1000, 1000);
    type("spin box", "5000");
    QCOMPARE(finish("spin box"), QStringList());
    QCOMPARE(text("spin box"), QString("1000"));
}

void tst_TypedLimits::fieldThatIsHiddenTakesTheLimit()
{
    type("spin box", "5000");
    m_form->field("spin box").hide();
    QCOMPARE(writes(), QStringList("Whole=1000"));
}

void tst_TypedLimits::prefixAndSuffixStayAroundTheLimit()
{
    auto& box = static_cast<QSpinBox&>(m_form->field("spin box"));
    box.setPrefix("n = ");
    box.setSuffix(" lines");
    enter("spin box");
    box.selectAll(); // the number alone
    QTest::keyClicks(&box, "5000");
    QCOMPARE(box.text(), QString("n = 5000 lines"));
    QCOMPARE(finish("spin box"), QStringList("Whole=1000"));
    QCOMPARE(box.text(), QString("n = 1000 lines"));
}

void tst_TypedLimits::numberOfALargeRangeIsTakenAsItIs_data()
{
    QTest::addColumn<QString>("typed");
    for (const char* typed : {"1234567", "-1234567", "-0.5", "-.5", "+7"})
        QTest::newRow(typed) << typed;
}

void tst_TypedLimits::numberOfALargeRangeIsTakenAsItIs()
{
    const QString typed = QTest::currentDataTag();
    limit(-2000000, 2000000, 50);
    type("double spin box", typed);
    const QString write = QStringLiteral("Real=%1").arg(typed.toDouble(), 0, 'g', 10);
    QCOMPARE(finish("double spin box"), QStringList(write));
}

void tst_TypedLimits::pasteBeyondTheRangeBecomesTheLimit()
{
    enter("spin box");
    m_form->textOf("spin box").insert("5000");
    QCOMPARE(text("spin box"), QString("5000"));
    QCOMPARE(finish("spin box"), QStringList("Whole=1000"));
}

void tst_TypedLimits::markInAWholeNumberBeyondTheRangeKeepsItFromBeingTaken()
{
    type("spin box", "5000,");
    QCOMPARE(text("spin box"), QString("5000."));
    QCOMPARE(finish("spin box"), QStringList());
    QCOMPARE(text("spin box"), QString("50"));
}

void tst_TypedLimits::numberIsNotTakenWhereTheRangeIsUnknown_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("hasIncrement");
    for (const char* kind : {"double spin box", "spin box"}) {
        for (const char* typed : {"12", "-12"})
            QTest::addRow("%s, %s", kind, typed) << kind << typed << false;
        // Fitted to an increment, the unknown maximum is another number.
        QTest::addRow("%s with an increment, -12", kind) << kind << "-12" << true;
    }
    QTest::newRow("double spin box with a large increment, 10") << "double spin box"
                                                                << "10" << true;
}

void tst_TypedLimits::numberIsNotTakenWhereTheRangeIsUnknown()
{
    QFETCH(QString, kind);
    QFETCH(QString, typed);
    QFETCH(bool, hasIncrement);
    for (const char* feature : {"Real", "Whole"}) {
        Fake::State& state = m_camera->find(feature)->state();
        state.hasRange = false;
        state.incrementReal.reset();
        state.incrementInteger.reset();
        if (!hasIncrement)
            continue;
        state.incrementReal = 2.0;
        state.incrementInteger = 1;
    }
    m_form->refresh({"Real", "Whole"});
    m_camera->clearLog();
    type(kind, typed);
    QCOMPARE(text(kind), typed);
    QCOMPARE(finish(kind), QStringList());
}

void tst_TypedLimits::fieldThatIsDestroyedWritesNothing_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("double spin box") << "5000";
    QTest::newRow("spin box") << "5000";
    QTest::newRow("table cell") << "5000";
    QTest::newRow("line edit") << "1.2.";
}

void tst_TypedLimits::fieldThatIsDestroyedWritesNothing()
{
    QFETCH(QString, typed);
    type(QTest::currentDataTag(), typed);
    delete &m_form->field(QTest::currentDataTag());
    QCOMPARE(writes(), QStringList());
}

void tst_TypedLimits::surplusDecimalsAreDropped()
{
    type("double spin box", "12.34567");
    QCOMPARE(finish("double spin box"), QStringList("Real=12.345"));
}

void tst_TypedLimits::escapeGivesUpANumberBeyondTheRange()
{
    type("spin box", "5000000");
    press("spin box", Qt::Key_Escape);
    QCOMPARE(text("spin box"), QString("50"));
    leave();
    QCOMPARE(writes(), QStringList());
}

QTEST_MAIN(tst_TypedLimits)
#include "tst_TypedLimits.moc"
