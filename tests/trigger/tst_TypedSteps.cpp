// Steps from a text that is being typed: by arrow, page key, wheel or button.
#include "tests/trigger/TypingTest.h"

#include <QStyleOptionSpinBox>
#include <QWheelEvent>

namespace {

const QStringList Boxes = {"double spin box", "spin box", "table cell"};

/// Where the button stands that steps upwards.
QPoint upButtonOf(const QWidget& box)
{
    QStyleOptionSpinBox option;
    option.initFrom(&box);
    option.subControls = QStyle::SC_All;
    option.frame = true;
    const QStyle& style = *box.style();
    return style.subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, &box).center();
}

void turnWheel(QWidget& box)
{
    const QPointF middle = box.rect().center();
    const QPoint angle(0, QWheelEvent::DefaultDeltasPerStep);
    QWheelEvent event(middle, box.mapToGlobal(middle.toPoint()), QPoint(), angle, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&box, &event);
}

} // namespace

class tst_TypedSteps : public TypingTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { closeForm(); }

    void stepWithoutRoomEndsTheText_data();
    void stepWithoutRoomEndsTheText();
    void stepWithoutRoomTakesTheTypedNumber_data() { stepWithoutRoomEndsTheText_data(); }
    void stepWithoutRoomTakesTheTypedNumber();
    void stepStartsAtTheTypedNumber_data();
    void stepStartsAtTheTypedNumber();
    void stepFromANumberBeyondTheRangeStartsAtTheLimit();
    void stepFromNoNumberBringsTheCamerasValueBack();
    void keysWithinTheTextAreNoSteps();

private:
    void measure(double value);
    /// One step upwards.
    void step(const QString& kind, const QString& way);
};

/// The values of the camera leave no room upwards.
void tst_TypedSteps::init()
{
    openForm();
    m_camera->find("Real")->state().maxReal = 1000.0;
    m_camera->find("Whole")->state().maxInteger = 1000;
    measure(1000.0);
}

void tst_TypedSteps::measure(double value)
{
    m_camera->find("Real")->state().real = value;
    m_camera->find("Whole")->state().integer = static_cast<long long>(value);
    m_camera->find("LineDebounceDuration")->stateFor("Line0").real = value;
    m_form->refresh({"Real", "Whole"});
    m_form->refreshTable({"LineDebounceDuration"});
    m_camera->clearLog();
}

void tst_TypedSteps::step(const QString& kind, const QString& way)
{
    QWidget& box = m_form->field(kind);
    if (way == "wheel")
        turnWheel(box);
    else if (way == "button")
        QTest::mouseClick(&box, Qt::LeftButton, Qt::NoModifier, upButtonOf(box));
    else
        press(kind, way == "arrow" ? Qt::Key_Up : Qt::Key_PageUp);
}

void tst_TypedSteps::stepWithoutRoomEndsTheText_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("way");
    for (const QString& kind : Boxes)
        for (const char* way : {"arrow", "page", "wheel", "button"})
            QTest::addRow("%s, %s", qPrintable(kind), way) << kind << way;
}

void tst_TypedSteps::stepWithoutRoomEndsTheText()
{
    QFETCH(QString, kind);
    QFETCH(QString, way);
    const QString before = text(kind);
    type(kind, "1000");
    step(kind, way);
    QCOMPARE(text(kind), before);
    measure(500.0);
    QVERIFY2(text(kind).startsWith("500"), qPrintable(text(kind)));
    leave();
    QCOMPARE(writes(), QStringList());
}

void tst_TypedSteps::stepWithoutRoomTakesTheTypedNumber()
{
    QFETCH(QString, kind);
    QFETCH(QString, way);
    static const QMap<QString, QString> expected = {{"double spin box", "Real=3"},
                                                    {"spin box", "Whole=3"},
                                                    {"table cell", "LineDebounceDuration=500"}};
    type(kind, "3");
    step(kind, way);
    QCOMPARE(writes(), QStringList(expected[kind]));
    leave();
    QCOMPARE(writes().size(), 1);
}

void tst_TypedSteps::stepStartsAtTheTypedNumber_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<QStringList>("written");
    for (const char* way : {"arrow", "wheel", "button"})
        QTest::newRow(way) << way << QStringList("Whole=13");
    QTest::newRow("page") << "page" << QStringList("Whole=22");
}

void tst_TypedSteps::stepStartsAtTheTypedNumber()
{
    QFETCH(QString, way);
    measure(500.0);
    type("spin box", "12");
    step("spin box", way);
    QTEST(writes(), "written");
    leave();
    QCOMPARE(writes().size(), 1);
}

void tst_TypedSteps::stepFromANumberBeyondTheRangeStartsAtTheLimit()
{
    type("spin box", "5000");
    press("spin box", Qt::Key_Down);
    QCOMPARE(writes(), QStringList("Whole=999"));
}

void tst_TypedSteps::stepFromNoNumberBringsTheCamerasValueBack()
{
    measure(500.0);
    type("spin box", "12,");
    press("spin box", Qt::Key_Up);
    QCOMPARE(text("spin box"), QString("500"));
    leave();
    QCOMPARE(writes(), QStringList());
}

void tst_TypedSteps::keysWithinTheTextAreNoSteps()
{
    type("spin box", "12");
    press("spin box", Qt::Key_Left);
    press("spin box", Qt::Key_Home);
    measure(500.0);
    QCOMPARE(text("spin box"), QString("12"));
}

QTEST_MAIN(tst_TypedSteps)
#include "tst_TypedSteps.moc"
