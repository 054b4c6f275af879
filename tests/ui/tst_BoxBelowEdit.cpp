// A host that destroys what it owns while an error box is open below an edit.
#include "tests/support/MouseChoice.h"
#include "tests/trigger/MessageBoxes.h"
#include "tests/ui/OpenedDialog.h"
#include "tests/ui/PresetsFile.h"
#include "ui/AdvTriggerDialog.h"
#include "ui/AdvTriggerWidget.h"

#include <QComboBox>
#include <QGroupBox>
#include <QSignalBlocker>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <functional>

namespace {

using Edit = std::function<void(QWidget&)>;
enum class Doomed
{
    Window,
    Container,
    Tab,
    DialogWindow
};

/// Every manual edit turns the preset to "Custom", and that has a setting that no camera takes.
QByteArray refusedPresets()
{
    return R"({"#presets": ["Custom", "Turn Off All", "Other"],
               "Custom": {"ExposureMode": {"#value": "Never"}},
               "Turn Off All": {"ExposureMode": {"#value": "Off"}},
               "Other": {"ExposureMode": {"#value": "Other"}}})";
}

/// A window with a container for the tab in it.
class Host
{
public:
    Host()
    {
        auto* windowLayout = new QVBoxLayout(window);
        windowLayout->addWidget(container);
        auto* layout = new QVBoxLayout(container);
        layout->addWidget(tab);
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window));
    }
    ~Host() { delete window; }

    AdvTriggerDialog* openDialog() const
    {
        clickOpen(*tab);
        QDialog* dialog = dialogOf(*tab);
        if (!dialog || !QTest::qWaitForWindowActive(dialog))
            qFatal("no dialog");
        return dialog->findChild<AdvTriggerDialog*>();
    }

    QWidget* find(Doomed doomed) const
    {
        switch (doomed) {
        case Doomed::Window:
            return window;
        case Doomed::Container:
            return container;
        case Doomed::Tab:
            return tab;
        default:
            return dialogOf(*tab);
        }
    }

    const std::unique_ptr<Fake::FakeCamera> camera = cameraOfPresetFamily();
    const QPointer<QWidget> window = new QWidget;
    const QPointer<QWidget> container = new QWidget(window);
    const QPointer<AdvTriggerWidget> tab = new AdvTriggerWidget(camera->features(), container);
};

/// Unfolds the section around the widget.
void reveal(const QWidget& widget)
{
    for (QWidget* around = widget.parentWidget(); around && !around->isWindow();
         around = around->parentWidget()) {
        around->setMaximumHeight(QWIDGETSIZE_MAX);
        around->show();
    }
    QCoreApplication::processEvents();
}

Edit key(Qt::Key pressed)
{
    return [=](QWidget& widget) {
        widget.setFocus();
        QTest::keyClick(&widget, pressed);
    };
}

Edit type(const char* text)
{
    return [=](QWidget& widget) {
        widget.setFocus();
        QTest::keyClick(&widget, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&widget, text);
        QTest::keyClick(&widget, Qt::Key_Return);
    };
}

void turnWheel(QWidget& widget)
{
    widget.setFocus();
    const QPoint upwards(0, widget.inherits("QComboBox") ? -120 : 120);
    QWheelEvent event(QPointF(5, 5), widget.mapToGlobal(QPoint(5, 5)), QPoint(), upwards,
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
}

void pressUpArrow(QWidget& spinBox)
{
    QTest::mousePress(&spinBox, Qt::LeftButton, Qt::NoModifier, QPoint(spinBox.width() - 5, 5));
}

void clickIndicator(QWidget& checkBox)
{
    QTest::mouseClick(&checkBox, Qt::LeftButton, Qt::NoModifier, QPoint(8, checkBox.height() / 2));
}

void chooseSecond(QWidget& comboBox)
{
    clickInList(*openList(static_cast<QComboBox&>(comboBox)), 1);
}

void enterInList(QWidget& comboBox)
{
    QAbstractItemView* list = openList(static_cast<QComboBox&>(comboBox));
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
}

/// With the calculator on, which follows the timer's spin boxes.
void stepTimerOfPwm(QWidget& spinBox)
{
    auto* pwm = spinBox.window()->findChild<QGroupBox*>("grpPWM");
    {
        const QSignalBlocker silence(pwm);
        pwm->setChecked(true);
    }
    key(Qt::Key_Up)(spinBox);
}

struct Kind
{
    const char* name;
    const char* widget;
    Edit edit;
};

const Kind TabKinds[] = {
    {"combo box, key", "cmbTriggerMode", key(Qt::Key_Down)},
    {"combo box, click in the list", "cmbTriggerMode", chooseSecond},
    {"combo box, Return in the list", "cmbTriggerMode", enterInList},
    {"combo box, wheel", "cmbTriggerMode", turnWheel},
    {"double spin box, key", "spbTriggerDelay", key(Qt::Key_Up)},
    {"double spin box, typed", "spbTriggerDelay", type("17")},
    {"double spin box, wheel", "spbTriggerDelay", turnWheel},
    {"double spin box, arrow", "spbTriggerDelay", pressUpArrow},
    {"table combo box, key", "cmbLine0_LineMode", key(Qt::Key_Down)},
    {"table combo box, wheel", "cmbLine0_LineSource", turnWheel},
    {"table check box, click", "chkLine0_LineInverter", clickIndicator},
    {"table check box, Space", "chkLine0_LineInverter", key(Qt::Key_Space)},
    {"preset box, key", "cmbSelectPreset", key(Qt::Key_Down)},
};

const Kind DialogKinds[] = {
    {"combo box, key", "cmbAcquisitionMode", key(Qt::Key_Down)},
    {"combo box, click in the list", "cmbAcquisitionMode", chooseSecond},
    {"combo box, wheel", "cmbAcquisitionMode", turnWheel},
    {"spin box, key", "spbAcquisitionFrameCount", key(Qt::Key_Up)},
    {"spin box, typed", "spbAcquisitionFrameCount", type("17")},
    {"spin box, wheel", "spbAcquisitionFrameCount", turnWheel},
    {"spin box, arrow", "spbAcquisitionFrameCount", pressUpArrow},
    {"double spin box, key", "spbTriggerDelay", key(Qt::Key_Up)},
    {"double spin box, arrow", "spbTriggerDelay", pressUpArrow},
    {"timer of the PWM, key", "spbTimerDuration", stepTimerOfPwm},
    {"PWM group, Space", "grpPWM", key(Qt::Key_Space)},
    {"check box, click", "chkPtpEnable", clickIndicator},
    {"check box, Space", "chkPtpEnable", key(Qt::Key_Space)},
    {"line edit, typed", "txtActionGroupMask", type("17")},
    {"table combo box, key", "cmbLine0_LineMode", key(Qt::Key_Down)},
    {"table check box, click", "chkLine0_LineInverter", clickIndicator},
    {"table spin box, key", "spbLine0_LineDebounceDuration", key(Qt::Key_Up)},
    {"table spin box, wheel", "spbLine0_LineDebounceDuration", turnWheel},
    {"table spin box, arrow", "spbLine0_LineDebounceDuration", pressUpArrow},
};

void addRows(const char* form, bool inDialog, const Kind& kind, Doomed doomed, const char* what)
{
    for (const bool later : {false, true}) {
        const QByteArray row = QByteArray(form) + ": " + kind.name + "; " + what +
                               (later ? " deleted later" : " deleted at once");
        QTest::newRow(row) << inDialog << QString(kind.widget) << kind.edit << doomed << later;
    }
}

} // namespace

Q_DECLARE_METATYPE(Edit)
Q_DECLARE_METATYPE(Doomed)

class tst_BoxBelowEdit : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_file = std::make_unique<PresetsFile>(refusedPresets()); }
    void cleanupTestCase() { m_file.reset(); }
    void theEditedWidgetOutlivesItsEdit_data();
    void theEditedWidgetOutlivesItsEdit();
    void theFormGoesOnWhereTheBoxWasAnsweredByKey();
    void theSecondBoxOfAPresetMayBeTheLast();

private:
    std::unique_ptr<PresetsFile> m_file;
};

void tst_BoxBelowEdit::theEditedWidgetOutlivesItsEdit_data()
{
    QTest::addColumn<bool>("inDialog");
    QTest::addColumn<QString>("widget");
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<Doomed>("doomed");
    QTest::addColumn<bool>("later");
    for (const Kind& kind : TabKinds)
        addRows("tab", false, kind, Doomed::Container, "container");
    for (const Kind& kind : DialogKinds) {
        addRows("dialog", true, kind, Doomed::DialogWindow, "dialog");
        addRows("dialog", true, kind, Doomed::Container, "container");
    }
    // What else a host may own is the same to all kinds.
    addRows("tab", false, TabKinds[0], Doomed::Tab, "tab");
    addRows("tab", false, TabKinds[0], Doomed::Window, "window");
    addRows("dialog", true, DialogKinds[0], Doomed::Tab, "tab");
    addRows("dialog", true, DialogKinds[0], Doomed::Window, "window");
}

void tst_BoxBelowEdit::theEditedWidgetOutlivesItsEdit()
{
    QFETCH(bool, inDialog);
    QFETCH(QString, widget);
    QFETCH(Edit, edit);
    QFETCH(Doomed, doomed);
    QFETCH(bool, later);
    const Host host;
    const QWidget* form = inDialog ? static_cast<QWidget*>(host.openDialog()) : host.tab.data();
    const QPointer<QWidget> edited = form->findChild<QWidget*>(widget);
    QVERIFY(edited);
    reveal(*edited);
    const QPointer<QWidget> gone = host.find(doomed);
    const MessageBoxes boxes([&](QMessageBox&) {
        if (later)
            gone->deleteLater();
        else
            delete gone;
    });
    edit(*edited);
    QCOMPARE(boxes.shown.size(), 1);
    QVERIFY(!gone);
    // The edit has only just returned; after that nobody needs the widget.
    QVERIFY(edited);
    QTRY_VERIFY(!edited);
}

void tst_BoxBelowEdit::theFormGoesOnWhereTheBoxWasAnsweredByKey()
{
    const Host host;
    const MessageBoxes boxes([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
    auto* mode = host.tab->findChild<QWidget*>("cmbTriggerMode");
    key(Qt::Key_Down)(*mode);
    QCOMPARE(boxes.shown.size(), 1);
    QCOMPARE((*host.camera)["TriggerMode"].state().text, std::string("On"));
    key(Qt::Key_Up)(*mode);
    // The preset is "Custom" already: no second box.
    QCOMPARE(boxes.shown.size(), 1);
    QCOMPARE((*host.camera)["TriggerMode"].state().text, std::string("Off"));
}

void tst_BoxBelowEdit::theSecondBoxOfAPresetMayBeTheLast()
{
    const Host host;
    const QPointer<QComboBox> presets = host.tab->findChild<QComboBox*>("cmbSelectPreset");
    int boxes = 0;
    const MessageBoxes answers([&](QMessageBox& box) {
        if (++boxes == 1)
            box.accept();
        else
            delete host.container;
    });
    presets->setFocus();
    QTest::keyClick(presets, Qt::Key_End);
    QCOMPARE(boxes, 2);
    QVERIFY(!host.container);
    QVERIFY(presets);
    QTRY_VERIFY(!presets);
}

QTEST_MAIN(tst_BoxBelowEdit)
#include "tst_BoxBelowEdit.moc"
