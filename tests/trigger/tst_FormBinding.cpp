// What the first binding makes of the widgets of a form; line edits have a test of their own.
#include "tests/support/LogCapture.h"
#include "tests/support/Rows.h"
#include "tests/trigger/PlainForm.h"
#include "tests/trigger/WidgetClasses.h"

#include <QGroupBox>
#include <QHelpEvent>
#include <QLabel>

class tst_FormBinding : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void unavailableFeatureDisablesItsWidget_data() { everyBindableClass(); }
    void unavailableFeatureDisablesItsWidget();
    void exemptWidgetIsLeftAlone_data() { everyBindableClass(); }
    void exemptWidgetIsLeftAlone();
    void exemptionIsByFullObjectName();
    void exemptWidgetOfAnAvailableFeatureIsBound();
    void readOnlyFeatureDisablesItsWidget_data() { everyBindableClass(); }
    void readOnlyFeatureDisablesItsWidget();
    void writableFeatureEnablesItsWidget_data() { everyBindableClass(); }
    void writableFeatureEnablesItsWidget();

    void featureIsTheNameWithoutItsFirstThreeCharacters_data();
    void featureIsTheNameWithoutItsFirstThreeCharacters();
    void twoWidgetsOfOneNameAreBothBound();
    void classDecidesAndNotThePrefix();
    void comboBoxOfANumberIsBoundEmpty();
    void widgetsDeepInTheFormAreBound();
    void lineEditInsideASpinBoxIsNeverBound();
    void lineEditInsideAnEditableComboBoxIsTreatedByTheRule();
    void labelsAndOtherClassesAreNotTouched();

    void passesRunInOrderOfClasses();
    void everyBoundFeatureIsReported();
    void buttonsAreNotReported();
    void bindingWritesNothing();
    void editsWithoutSenderDoNothing();

    void comboBoxesTakeFocusByClickAvailableOrNot();
    void spinBoxesTakeFocusByClickWhereAvailable_data();
    void spinBoxesTakeFocusByClickWhereAvailable();
    void eventFilterIsInstalled_data();
    void eventFilterIsInstalled();

private:
    bool isFiltered(QWidget& widget);

    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<PlainForm> m_form;
};

void tst_FormBinding::init()
{
    m_camera = std::make_unique<Fake::FakeCamera>();
    m_camera->addInteger("Known", 5);
    m_form = std::make_unique<PlainForm>(*m_camera);
}

void tst_FormBinding::cleanup()
{
    m_form.reset();
    m_camera.reset();
}

void tst_FormBinding::unavailableFeatureDisablesItsWidget()
{
    QFETCH(AddWidget, add);
    QWidget* widget = add(*m_form, "xxxUnknown");
    m_form->bind();
    QVERIFY(!widget->isEnabled());
    QVERIFY(m_form->boundFeatures.isEmpty());
}

void tst_FormBinding::exemptWidgetIsLeftAlone()
{
    QFETCH(AddWidget, add);
    QWidget* enabled = add(*m_form, "xxxUnknown");
    QWidget* disabled = add(*m_form, "xxxOther");
    disabled->setEnabled(false);
    m_form->exemptWidgets << "xxxUnknown"
                          << "xxxOther";
    m_form->bind();
    QVERIFY(enabled->isEnabled());
    QVERIFY(!disabled->isEnabled());
    QVERIFY(m_form->boundFeatures.isEmpty());
}

void tst_FormBinding::exemptionIsByFullObjectName()
{
    auto& box = m_form->add<QComboBox>("cmbUnknown");
    m_form->exemptWidgets << "Unknown"
                          << "cmb"
                          << "cmbUnknownToo";
    m_form->bind();
    QVERIFY(!box.isEnabled());
}

void tst_FormBinding::exemptWidgetOfAnAvailableFeatureIsBound()
{
    m_form->add<QSpinBox>("spbKnown");
    m_form->exemptWidgets << "spbKnown";
    m_form->bind();
    QCOMPARE(m_form->boundFeatures, QStringList("Known"));
}

void tst_FormBinding::readOnlyFeatureDisablesItsWidget()
{
    QFETCH(AddWidget, add);
    m_camera->find("Known")->state().writable = false;
    QWidget* widget = add(*m_form, "xxxKnown");
    m_form->bind();
    QVERIFY(!widget->isEnabled());
}

void tst_FormBinding::writableFeatureEnablesItsWidget()
{
    QFETCH(AddWidget, add);
    QWidget* widget = add(*m_form, "xxxKnown");
    widget->setEnabled(false);
    m_form->bind();
    QVERIFY(widget->isEnabled());
}

void tst_FormBinding::featureIsTheNameWithoutItsFirstThreeCharacters_data()
{
    columns<QString, bool>("objectName", "bound");
    row("usual prefix", "spbKnown", true);
    row("prefix of another class", "lblKnown", true);
    row("prefix of no class", "X_9Known", true);
    row("only starts like the feature", "spbKnownToo", false);
    row("only ends like the feature", "spbUnKnown", false);
    row("other case", "spbknown", false);
    row("shorter prefix", "spKnown", false);
    row("no prefix", "Known", false);
    row("prefix only", "spb", false);
    row("shorter than a prefix", "s", false);
    row("no name", "", false);
    row("blank behind", "spbKnown ", false);
}

void tst_FormBinding::featureIsTheNameWithoutItsFirstThreeCharacters()
{
    QFETCH(QString, objectName);
    QFETCH(bool, bound);
    auto& box = m_form->add<QSpinBox>(objectName);
    m_form->bind();
    QCOMPARE(m_form->boundFeatures, bound ? QStringList("Known") : QStringList());
    QCOMPARE(box.isEnabled(), bound);
}

void tst_FormBinding::twoWidgetsOfOneNameAreBothBound()
{
    auto& first = m_form->add<QSpinBox>("spbKnown");
    auto& second = m_form->add<QSpinBox>("spbKnown");
    m_form->bind();
    QCOMPARE(first.value(), 5);
    QCOMPARE(second.value(), 5);
    QCOMPARE(m_form->boundFeatures, QStringList({"Known", "Known"}));
    m_camera->clearLog();
    second.setValue(7);
    QCOMPARE(writesOf(*m_camera), QStringList("SetIntegerValue Known=7"));
}

void tst_FormBinding::classDecidesAndNotThePrefix()
{
    auto& edit = m_form->add<QLineEdit>("cmbKnown");
    m_form->bind();
    QCOMPARE(edit.text(), QString("5"));
}

void tst_FormBinding::comboBoxOfANumberIsBoundEmpty()
{
    auto& box = m_form->add<QComboBox>("cmbKnown");
    m_form->bind();
    QCOMPARE(box.count(), 0);
    QVERIFY(box.isEnabled());
    QCOMPARE(m_form->boundFeatures, QStringList("Known"));
}

void tst_FormBinding::widgetsDeepInTheFormAreBound()
{
    auto& group = m_form->add<QGroupBox>("grpInner");
    auto* box = new QSpinBox(new QWidget(&group));
    box->setObjectName("spbKnown");
    m_form->bind();
    QCOMPARE(box->value(), 5);
}

void tst_FormBinding::lineEditInsideASpinBoxIsNeverBound()
{
    // Even a camera with a feature of that very name does not get the inner line edit bound.
    m_camera->addString("spinbox_lineedit", "text of the camera");
    m_form = std::make_unique<PlainForm>(*m_camera);
    auto& box = m_form->add<QSpinBox>("spbKnown");
    m_form->bind();
    QCOMPARE(m_form->boundFeatures, QStringList("Known"));
    auto* inner = box.findChild<QLineEdit*>("qt_spinbox_lineedit");
    QCOMPARE(inner->text(), QString("5"));
    QVERIFY(inner->isEnabled());
    QVERIFY(!isFiltered(*inner));
}

void tst_FormBinding::lineEditInsideAnEditableComboBoxIsTreatedByTheRule()
{
    m_camera->addEnum("Mode", {"A", "B"}, "A");
    m_form = std::make_unique<PlainForm>(*m_camera);
    auto& box = m_form->add<QComboBox>("cmbMode");
    box.setEditable(true);
    m_form->bind();
    // It has no name, so it belongs to no feature.
    QVERIFY(!box.lineEdit()->isEnabled());
    QCOMPARE(m_form->boundFeatures, QStringList("Mode"));
    QCOMPARE(box.currentText(), QString("A"));
}

void tst_FormBinding::labelsAndOtherClassesAreNotTouched()
{
    auto& label = m_form->add<QLabel>("lblUnknown");
    auto& group = m_form->add<QGroupBox>("grpUnknown");
    auto& bound = m_form->add<QLabel>("lblKnown");
    m_form->bind();
    QVERIFY(label.isEnabled());
    QVERIFY(group.isEnabled());
    QVERIFY(bound.text().isEmpty());
    QVERIFY(m_form->boundFeatures.isEmpty());
}

void tst_FormBinding::passesRunInOrderOfClasses()
{
    for (const char* feature : {"A", "B", "C", "D", "E", "F"})
        m_camera->addInteger(feature, 1);
    m_form = std::make_unique<PlainForm>(*m_camera);
    m_form->add<QPushButton>("btnF");
    m_form->add<QCheckBox>("chkE");
    m_form->add<QSpinBox>("spbD");
    m_form->add<QDoubleSpinBox>("spbC");
    m_form->add<QLineEdit>("txtB");
    m_form->add<QComboBox>("cmbA");
    m_camera->clearLog();
    m_form->bind();
    QCOMPARE(m_form->boundFeatures, QStringList({"A", "B", "C", "D", "E"}));
    QStringList asked;
    for (const std::string& call : m_camera->calls()) {
        const QString text = QString::fromStdString(call);
        if (text.startsWith("IsWritable "))
            asked.append(text.section(' ', 1));
    }
    asked.removeDuplicates();
    QCOMPARE(asked, QStringList({"A", "B", "C", "D", "E", "F"}));
}

void tst_FormBinding::everyBoundFeatureIsReported()
{
    m_form->add<QSpinBox>("spbKnown");
    m_form->add<QLineEdit>("txtKnown");
    m_form->add<QComboBox>("cmbUnknown");
    m_form->bind();
    QCOMPARE(m_form->boundFeatures, QStringList({"Known", "Known"}));
}

void tst_FormBinding::buttonsAreNotReported()
{
    m_camera->addCommand("Run");
    m_form = std::make_unique<PlainForm>(*m_camera);
    m_form->add<QPushButton>("btnRun");
    m_form->bind();
    QCOMPARE(m_form->boundFeatures, QStringList());
}

void tst_FormBinding::bindingWritesNothing()
{
    m_camera = Fake::FakeCamera::standard();
    m_form = std::make_unique<PlainForm>(*m_camera);
    m_form->add<QComboBox>("cmbTriggerSource");
    m_form->add<QLineEdit>("txtActionGroupKey");
    m_form->add<QDoubleSpinBox>("spbTriggerDelay");
    m_form->add<QSpinBox>("spbCounterDuration");
    m_form->add<QCheckBox>("chkLineInverter");
    m_form->add<QPushButton>("btnTriggerSoftware");
    m_form->bind();
    QCOMPARE(writesOf(*m_camera), QStringList());
    QCOMPARE(m_form->customPresets, 0);
}

void tst_FormBinding::editsWithoutSenderDoNothing()
{
    m_camera->clearLog();
    const LogCapture log;
    const FormBinding& binding = m_form->binding;
    binding.editComboBox(nullptr, "On");
    binding.editLine(nullptr);
    binding.editSpinBox(nullptr, 1);
    binding.editDoubleSpinBox(nullptr, 1.0);
    binding.editCheckBox(nullptr, 2);
    binding.runCommand(nullptr);
    QVERIFY(m_camera->calls().empty());
    QCOMPARE(log.lines(), QStringList());
}

void tst_FormBinding::comboBoxesTakeFocusByClickAvailableOrNot()
{
    auto& available = m_form->add<QComboBox>("cmbKnown");
    auto& unavailable = m_form->add<QComboBox>("cmbUnknown");
    m_form->bind();
    QCOMPARE(available.focusPolicy(), Qt::StrongFocus);
    QCOMPARE(unavailable.focusPolicy(), Qt::StrongFocus);
}

void tst_FormBinding::spinBoxesTakeFocusByClickWhereAvailable_data()
{
    columns<AddWidget>("add");
    row("double spin box", adder<QDoubleSpinBox>());
    row("spin box", adder<QSpinBox>());
}

void tst_FormBinding::spinBoxesTakeFocusByClickWhereAvailable()
{
    QFETCH(AddWidget, add);
    QWidget* available = add(*m_form, "spbKnown");
    QWidget* unavailable = add(*m_form, "spbUnknown");
    m_form->bind();
    QCOMPARE(available->focusPolicy(), Qt::StrongFocus);
    QCOMPARE(unavailable->focusPolicy(), Qt::WheelFocus);
}

bool tst_FormBinding::isFiltered(QWidget& widget)
{
    QHelpEvent event(QEvent::ToolTip, QPoint(), QPoint());
    QApplication::sendEvent(&widget, &event);
    return m_form->filtered.contains(&widget);
}

void tst_FormBinding::eventFilterIsInstalled_data()
{
    columns<AddWidget, bool>("add", "unavailableToo");
    row("combo box", adder<QComboBox>(), true);
    row("line edit", adder<QLineEdit>(), true);
    row("double spin box", adder<QDoubleSpinBox>(), false);
    row("spin box", adder<QSpinBox>(), false);
    row("check box", adder<QCheckBox>(), true);
    row("push button", adder<QPushButton>(), true);
}

void tst_FormBinding::eventFilterIsInstalled()
{
    QFETCH(AddWidget, add);
    QFETCH(bool, unavailableToo);
    QWidget* available = add(*m_form, "xxxKnown");
    QWidget* unavailable = add(*m_form, "xxxUnknown");
    m_form->bind();
    QVERIFY(isFiltered(*available));
    QCOMPARE(isFiltered(*unavailable), unavailableToo);
}

QTEST_MAIN(tst_FormBinding)
#include "tst_FormBinding.moc"
