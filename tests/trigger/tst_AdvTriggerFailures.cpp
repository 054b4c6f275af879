// A camera that fails at any one call, or altogether: nothing breaks, and the form shows the truth
// again at the next refresh.
#include "tests/trigger/TestEngine.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

namespace {

const QStringList Everything = {"TriggerSource", "Mode", "Text", "Key", "Real", "Number", "Flag"};

std::unique_ptr<Fake::FakeCamera> smallCamera()
{
    auto camera = acceptedCamera();
    camera->addEnum("TriggerSource", {"Software", "Line0"}, "Software");
    camera->addCommand("TriggerSoftware");
    camera->addEnum("Mode", {"Off", "On"}, "Off");
    camera->addString("Text", "camera");
    camera->addInteger("Key", 0x10)->representation = "HexNumber";
    camera->addFloat("Real", 5.0);
    camera->addInteger("Number", 5);
    camera->addBool("Flag", false);
    return camera;
}

/// A form with one widget of each kind over the small camera.
struct Form
{
    explicit Form(const Fake::FakeCamera& camera) : engine(camera) { engine.ActivateTooltips(2); }

    /// Binding, one edit of each kind, tooltips and a refresh.
    void use()
    {
        engine.InitBaseWidgets();
        mode.setCurrentIndex(1);
        emit key.editingFinished();
        real.setValue(7.0);
        number.setValue(7);
        flag.setChecked(true);
        trigger.click();
        for (const char* feature : {"Mode", "Real", "Number", "Flag"})
            engine.SetFeatureValue(feature, "1");
        QHelpEvent hover(QEvent::ToolTip, QPoint(), QPoint());
        engine.eventFilter(&mode, &hover);
        engine.refresh(Everything);
    }

    TestEngine engine;
    QComboBox& mode = engine.add<QComboBox>("cmbMode");
    QLineEdit& text = engine.add<QLineEdit>("txtText");
    QLineEdit& key = engine.add<QLineEdit>("txtKey");
    QDoubleSpinBox& real = engine.add<QDoubleSpinBox>("spbReal");
    QSpinBox& number = engine.add<QSpinBox>("spbNumber");
    QCheckBox& flag = engine.add<QCheckBox>("chkFlag");
    QPushButton& trigger = engine.add<QPushButton>("btnTriggerSoftware");
};

int callsOfOneUse()
{
    const auto camera = smallCamera();
    Form form(*camera);
    camera->clearLog();
    form.use();
    return int(camera->calls().size());
}

/// Empty when the form shows what the camera has, else the widget that does not.
QString untrueWidget(const Form& form, const Fake::FakeCamera& camera)
{
    const auto state = [&](const char* name) -> const Fake::State& { return camera[name].state(); };
    if (form.mode.currentText().toStdString() != state("Mode").text)
        return form.mode.objectName();
    if (form.text.text().toStdString() != state("Text").text)
        return form.text.objectName();
    if (form.key.text() != "0x" + QString::number(state("Key").integer, 16).toUpper())
        return form.key.objectName();
    if (form.real.value() != state("Real").real)
        return form.real.objectName();
    if (form.number.value() != state("Number").integer)
        return form.number.objectName();
    if (form.flag.isChecked() != state("Flag").boolean)
        return form.flag.objectName();
    return form.trigger.isEnabled() ? QString() : form.trigger.objectName();
}

} // namespace

class tst_AdvTriggerFailures : public QObject
{
    Q_OBJECT

private slots:
    void anyOneFailingCallIsMendedByTheNextRefresh();
    void lostCameraBreaksNothing();
    void cameraLostFromTheStartLeavesEverythingDisabled();
};

void tst_AdvTriggerFailures::anyOneFailingCallIsMendedByTheNextRefresh()
{
    const int calls = callsOfOneUse();
    QVERIFY(calls > 100);
    for (int n = 1; n <= calls; ++n) {
        const auto camera = smallCamera();
        Form form(*camera);
        camera->failNthCall(n);
        form.use();
        camera->clearFailures();
        form.engine.refresh(Everything);
        const QString untrue = untrueWidget(form, *camera);
        QVERIFY2(untrue.isEmpty(), qPrintable(QString("%1 after call %2").arg(untrue).arg(n)));
    }
}

void tst_AdvTriggerFailures::lostCameraBreaksNothing()
{
    const auto camera = smallCamera();
    Form form(*camera);
    form.use();
    camera->failEverything();
    form.engine.refresh(Everything);
    form.mode.setCurrentIndex(0);
    emit form.key.editingFinished();
    form.number.setValue(9);
    form.flag.setChecked(false);
    form.trigger.click();
    for (const QWidget* widget :
         {static_cast<QWidget*>(&form.mode), static_cast<QWidget*>(&form.key),
          static_cast<QWidget*>(&form.number), static_cast<QWidget*>(&form.trigger)})
        QVERIFY2(!widget->isEnabled(), qPrintable(widget->objectName()));
}

void tst_AdvTriggerFailures::cameraLostFromTheStartLeavesEverythingDisabled()
{
    const auto camera = smallCamera();
    Form form(*camera);
    camera->failEverything();
    form.use();
    QVERIFY(form.engine.boundFeatures().isEmpty());
    QVERIFY(!form.text.isEnabled());
    QVERIFY(!form.trigger.isEnabled());
}

QTEST_MAIN(tst_AdvTriggerFailures)
#include "tst_AdvTriggerFailures.moc"
