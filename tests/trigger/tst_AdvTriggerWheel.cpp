// Turning the wheel over a form, as a user does it.
#include "tests/trigger/TestEngine.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QWindow>

#include <functional>

class FormSpinBox : public QSpinBox
{
    Q_OBJECT
public:
    using QSpinBox::QSpinBox;
};

using Factory = std::function<QObject*()>;
Q_DECLARE_METATYPE(Factory)

class tst_AdvTriggerWheel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void wheelOverUnfocusedControlScrollsTheForm_data();
    void wheelOverUnfocusedControlScrollsTheForm();
    void afterClickingIntoTheControlTheWheelWorks_data();
    void afterClickingIntoTheControlTheWheelWorks();
    void wheelOverUnavailableComboBoxScrollsTheForm();
    void turningTheWheelGivesNoFocus();
    void filterSwallowsWithoutAccepting();
    void otherClassesKeepTheirWheel_data();
    void otherClassesKeepTheirWheel();

private:
    void turnWheelOver(QWidget& widget);
    QWidget& control(const QString& name) { return *engine->findChild<QWidget*>(name); }
    static QVariant valueOf(const QWidget& widget);

    std::unique_ptr<Fake::FakeCamera> camera;
    std::unique_ptr<QScrollArea> area;
    TestEngine* engine = nullptr;
};

void tst_AdvTriggerWheel::init()
{
    camera = Fake::FakeCamera::standard();
    camera->find("CounterDuration")->state().integer = 50;
    camera->find("TriggerDelay")->state().real = 50.0;
    camera->find("TriggerActivation")->state().text = "AnyEdge";
    area = std::make_unique<QScrollArea>();
    engine = new TestEngine(*camera);
    auto* layout = new QVBoxLayout(engine);
    layout->addWidget(&engine->add<QSpinBox>("spbCounterDuration"));
    layout->addWidget(&engine->add<QDoubleSpinBox>("spbTriggerDelay"));
    layout->addWidget(&engine->add<QComboBox>("cmbTriggerActivation"));
    layout->addWidget(&engine->add<QComboBox>("cmbNoSuchFeature"));
    layout->addStretch();
    engine->setMinimumHeight(2000);
    area->setWidgetResizable(true);
    area->setWidget(engine);
    area->resize(300, 400);
    engine->InitBaseWidgets();
    area->show();
    area->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(area.get()));
    // A form starts without a focused control here, so that a test decides what has the focus.
    if (QWidget* focused = QApplication::focusWidget())
        focused->clearFocus();
    area->setFocus();
    camera->clearLog();
}

void tst_AdvTriggerWheel::cleanup()
{
    area.reset();
    camera.reset();
}

void tst_AdvTriggerWheel::turnWheelOver(QWidget& widget)
{
    // To the window and spontaneous, as the window system sends it: only then is it offered to the
    // control, its parents and the scroll area in turn.
    const QPoint inWindow = widget.mapTo(area.get(), widget.rect().center());
    const QPoint onScreen = area->mapToGlobal(inWindow);
    QWheelEvent event(inWindow, onScreen, QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(area->windowHandle(), &event);
}

QVariant tst_AdvTriggerWheel::valueOf(const QWidget& widget)
{
    if (const auto* box = qobject_cast<const QComboBox*>(&widget))
        return box->currentIndex();
    return widget.property("value");
}

void tst_AdvTriggerWheel::wheelOverUnfocusedControlScrollsTheForm_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("spin box") << "spbCounterDuration";
    QTest::newRow("double spin box") << "spbTriggerDelay";
    QTest::newRow("combo box") << "cmbTriggerActivation";
}

void tst_AdvTriggerWheel::wheelOverUnfocusedControlScrollsTheForm()
{
    QFETCH(QString, name);
    const QVariant before = valueOf(control(name));
    turnWheelOver(control(name));
    QCOMPARE(valueOf(control(name)), before);
    QVERIFY(area->verticalScrollBar()->value() > 0);
    QCOMPARE(writesOf(*camera), QStringList());
}

void tst_AdvTriggerWheel::afterClickingIntoTheControlTheWheelWorks_data()
{
    wheelOverUnfocusedControlScrollsTheForm_data();
}

void tst_AdvTriggerWheel::afterClickingIntoTheControlTheWheelWorks()
{
    QFETCH(QString, name);
    QWidget& widget = control(name);
    // A click into a combo box opens its list; the focus comes with the click either way.
    if (qobject_cast<QComboBox*>(&widget))
        widget.setFocus(Qt::MouseFocusReason);
    else
        QTest::mouseClick(widget.findChild<QWidget*>("qt_spinbox_lineedit"), Qt::LeftButton);
    QVERIFY(widget.hasFocus());
    const QVariant before = valueOf(widget);
    turnWheelOver(widget);
    QVERIFY(valueOf(widget) != before);
    QCOMPARE(area->verticalScrollBar()->value(), 0);
    QCOMPARE(writesOf(*camera).size(), 1);
}

void tst_AdvTriggerWheel::wheelOverUnavailableComboBoxScrollsTheForm()
{
    turnWheelOver(control("cmbNoSuchFeature"));
    QVERIFY(area->verticalScrollBar()->value() > 0);
}

void tst_AdvTriggerWheel::turningTheWheelGivesNoFocus()
{
    turnWheelOver(control("spbCounterDuration"));
    turnWheelOver(control("cmbTriggerActivation"));
    QVERIFY(!control("spbCounterDuration").hasFocus());
    QVERIFY(!control("cmbTriggerActivation").hasFocus());
}

void tst_AdvTriggerWheel::filterSwallowsWithoutAccepting()
{
    QWheelEvent event(QPointF(), QPointF(), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    event.accept();
    QVERIFY(engine->eventFilter(&control("spbCounterDuration"), &event));
    QVERIFY(!event.isAccepted());
}

void tst_AdvTriggerWheel::otherClassesKeepTheirWheel_data()
{
    QTest::addColumn<Factory>("make");
    QTest::newRow("slider") << Factory([] { return new QSlider; });
    QTest::newRow("subclass of a spin box") << Factory([] { return new FormSpinBox; });
    QTest::newRow("no widget") << Factory([] { return new QTimer; });
}

void tst_AdvTriggerWheel::otherClassesKeepTheirWheel()
{
    QFETCH(Factory, make);
    const std::unique_ptr<QObject> watched(make());
    QWheelEvent event(QPointF(), QPointF(), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QVERIFY(!engine->eventFilter(watched.get(), &event));
}

QTEST_MAIN(tst_AdvTriggerWheel)
#include "tst_AdvTriggerWheel.moc"
