// Turning the wheel over a form, as a user does it.
#include "tests/trigger/TestEngine.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
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
    void typedTextIsKeptFromOtherControlsAndSteppedFromByItsOwn();
    void wheelOverUnavailableComboBoxScrollsTheForm();
    void turningTheWheelGivesNoFocus();
    void filterSwallowsWithoutAccepting();
    void otherClassesKeepTheirWheel_data();
    void otherClassesKeepTheirWheel();

private:
    void turnWheelOver(QWidget& widget);
    QWidget& control(const QString& name) { return *m_engine->findChild<QWidget*>(name); }
    static QVariant valueOf(const QWidget& widget);

    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<QScrollArea> m_area;
    TestEngine* m_engine = nullptr;
};

void tst_AdvTriggerWheel::init()
{
    m_camera = Fake::FakeCamera::standard();
    m_camera->find("CounterDuration")->state().integer = 50;
    m_camera->find("TriggerDelay")->state().real = 50.0;
    m_camera->find("TriggerActivation")->state().text = "AnyEdge";
    m_area = std::make_unique<QScrollArea>();
    m_engine = new TestEngine(*m_camera);
    auto* layout = new QVBoxLayout(m_engine);
    layout->addWidget(&m_engine->add<QSpinBox>("spbCounterDuration"));
    layout->addWidget(&m_engine->add<QDoubleSpinBox>("spbTriggerDelay"));
    layout->addWidget(&m_engine->add<QComboBox>("cmbTriggerActivation"));
    layout->addWidget(&m_engine->add<QComboBox>("cmbNoSuchFeature"));
    layout->addStretch();
    m_engine->setMinimumHeight(2000);
    m_area->setWidgetResizable(true);
    m_area->setWidget(m_engine);
    m_area->resize(300, 400);
    m_engine->InitBaseWidgets();
    m_area->show();
    m_area->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_area.get()));
    // A form starts without a focused control here, so that a test decides what has the focus.
    if (QWidget* focused = QApplication::focusWidget())
        focused->clearFocus();
    m_area->setFocus();
    m_camera->clearLog();
}

void tst_AdvTriggerWheel::cleanup()
{
    m_area.reset();
    m_camera.reset();
}

void tst_AdvTriggerWheel::turnWheelOver(QWidget& widget)
{
    // To the window and spontaneous, as the window system sends it: only then is it offered to the
    // control, its parents and the scroll area in turn.
    const QPoint inWindow = widget.mapTo(m_area.get(), widget.rect().center());
    const QPoint onScreen = m_area->mapToGlobal(inWindow);
    QWheelEvent event(inWindow, onScreen, QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(m_area->windowHandle(), &event);
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
    QVERIFY(m_area->verticalScrollBar()->value() > 0);
    QCOMPARE(writesOf(*m_camera), QStringList());
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
    QCOMPARE(m_area->verticalScrollBar()->value(), 0);
    QCOMPARE(writesOf(*m_camera).size(), 1);
}

void tst_AdvTriggerWheel::typedTextIsKeptFromOtherControlsAndSteppedFromByItsOwn()
{
    QWidget& box = control("spbCounterDuration");
    auto* text = box.findChild<QLineEdit*>("qt_spinbox_lineedit");
    QTest::mouseClick(text, Qt::LeftButton);
    text->selectAll();
    QTest::keyClicks(&box, "12");
    turnWheelOver(control("spbTriggerDelay"));
    QCOMPARE(text->text(), QString("12"));
    QCOMPARE(writesOf(*m_camera), QStringList());
    m_area->verticalScrollBar()->setValue(0);
    turnWheelOver(box);
    QCOMPARE(writesOf(*m_camera), QStringList("SetIntegerValue CounterDuration=11"));
}

void tst_AdvTriggerWheel::wheelOverUnavailableComboBoxScrollsTheForm()
{
    turnWheelOver(control("cmbNoSuchFeature"));
    QVERIFY(m_area->verticalScrollBar()->value() > 0);
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
    QVERIFY(m_engine->eventFilter(&control("spbCounterDuration"), &event));
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
    QVERIFY(!m_engine->eventFilter(watched.get(), &event));
}

QTEST_MAIN(tst_AdvTriggerWheel)
#include "tst_AdvTriggerWheel.moc"
