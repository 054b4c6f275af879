// What the first binding makes of the widgets of a form; line edits have a test of their own.
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
    void editsWriteAndShowWhatTheCameraTook_data();
    void editsWriteAndShowWhatTheCameraTook();
    void commandsRun();

    void comboBoxesTakeFocusByClickAvailableOrNot();
    void spinBoxesTakeFocusByClickWhereAvailable_data();
    void spinBoxesTakeFocusByClickWhereAvailable();
    void eventFilterIsInstalled_data();
    void eventFilterIsInstalled();

private:
    bool isFiltered(QWidget& widget);

    std::unique_ptr<Fake::FakeCamera> camera;
    std::unique_ptr<PlainForm> form;
};

void tst_FormBinding::init()
{
    camera = std::make_unique<Fake::FakeCamera>();
    camera->addInteger("Known", 5);
    form = std::make_unique<PlainForm>(*camera);
}

void tst_FormBinding::cleanup()
{
    form.reset();
    camera.reset();
}

void tst_FormBinding::unavailableFeatureDisablesItsWidget()
{
    QFETCH(AddWidget, add);
    QWidget* widget = add(*form, "xxxUnknown");
    form->bind();
    QVERIFY(!widget->isEnabled());
    QVERIFY(form->boundFeatures.isEmpty());
}

void tst_FormBinding::exemptWidgetIsLeftAlone()
{
    QFETCH(AddWidget, add);
    QWidget* enabled = add(*form, "xxxUnknown");
    QWidget* disabled = add(*form, "xxxOther");
    disabled->setEnabled(false);
    form->exemptWidgets << "xxxUnknown"
                        << "xxxOther";
    form->bind();
    QVERIFY(enabled->isEnabled());
    QVERIFY(!disabled->isEnabled());
    QVERIFY(form->boundFeatures.isEmpty());
}

void tst_FormBinding::exemptionIsByFullObjectName()
{
    auto& box = form->add<QComboBox>("cmbUnknown");
    form->exemptWidgets << "Unknown"
                        << "cmb"
                        << "cmbUnknownToo";
    form->bind();
    QVERIFY(!box.isEnabled());
}

void tst_FormBinding::exemptWidgetOfAnAvailableFeatureIsBound()
{
    form->add<QSpinBox>("spbKnown");
    form->exemptWidgets << "spbKnown";
    form->bind();
    QCOMPARE(form->boundFeatures, QStringList("Known"));
}

void tst_FormBinding::readOnlyFeatureDisablesItsWidget()
{
    QFETCH(AddWidget, add);
    camera->find("Known")->state().writable = false;
    QWidget* widget = add(*form, "xxxKnown");
    form->bind();
    QVERIFY(!widget->isEnabled());
}

void tst_FormBinding::writableFeatureEnablesItsWidget()
{
    QFETCH(AddWidget, add);
    QWidget* widget = add(*form, "xxxKnown");
    widget->setEnabled(false);
    form->bind();
    QVERIFY(widget->isEnabled());
}

void tst_FormBinding::featureIsTheNameWithoutItsFirstThreeCharacters_data()
{
    QTest::addColumn<QString>("objectName");
    QTest::addColumn<bool>("bound");
    QTest::newRow("usual prefix") << "spbKnown" << true;
    QTest::newRow("prefix of another class") << "lblKnown" << true;
    QTest::newRow("prefix of no class") << "X_9Known" << true;
    QTest::newRow("only starts like the feature") << "spbKnownToo" << false;
    QTest::newRow("only ends like the feature") << "spbUnKnown" << false;
    QTest::newRow("other case") << "spbknown" << false;
    QTest::newRow("shorter prefix") << "spKnown" << false;
    QTest::newRow("no prefix") << "Known" << false;
    QTest::newRow("prefix only") << "spb" << false;
    QTest::newRow("shorter than a prefix") << "s" << false;
    QTest::newRow("no name") << "" << false;
    QTest::newRow("blank behind") << "spbKnown " << false;
}

void tst_FormBinding::featureIsTheNameWithoutItsFirstThreeCharacters()
{
    QFETCH(QString, objectName);
    QFETCH(bool, bound);
    auto& box = form->add<QSpinBox>(objectName);
    form->bind();
    QCOMPARE(form->boundFeatures, bound ? QStringList("Known") : QStringList());
    QCOMPARE(box.isEnabled(), bound);
}

void tst_FormBinding::twoWidgetsOfOneNameAreBothBound()
{
    auto& first = form->add<QSpinBox>("spbKnown");
    auto& second = form->add<QSpinBox>("spbKnown");
    form->bind();
    QCOMPARE(first.value(), 5);
    QCOMPARE(second.value(), 5);
    QCOMPARE(form->boundFeatures, QStringList({"Known", "Known"}));
    camera->clearLog();
    second.setValue(7);
    QCOMPARE(writesOf(*camera), QStringList("SetIntegerValue Known=7"));
}

void tst_FormBinding::classDecidesAndNotThePrefix()
{
    auto& edit = form->add<QLineEdit>("cmbKnown");
    form->bind();
    QCOMPARE(edit.text(), QString("5"));
}

void tst_FormBinding::comboBoxOfANumberIsBoundEmpty()
{
    auto& box = form->add<QComboBox>("cmbKnown");
    form->bind();
    QCOMPARE(box.count(), 0);
    QVERIFY(box.isEnabled());
    QCOMPARE(form->boundFeatures, QStringList("Known"));
}

void tst_FormBinding::widgetsDeepInTheFormAreBound()
{
    auto& group = form->add<QGroupBox>("grpInner");
    auto* box = new QSpinBox(new QWidget(&group));
    box->setObjectName("spbKnown");
    form->bind();
    QCOMPARE(box->value(), 5);
}

void tst_FormBinding::lineEditInsideASpinBoxIsNeverBound()
{
    // Even a camera with a feature of that very name does not get the inner line edit bound.
    camera->addString("spinbox_lineedit", "text of the camera");
    form = std::make_unique<PlainForm>(*camera);
    auto& box = form->add<QSpinBox>("spbKnown");
    form->bind();
    QCOMPARE(form->boundFeatures, QStringList("Known"));
    auto* inner = box.findChild<QLineEdit*>("qt_spinbox_lineedit");
    QCOMPARE(inner->text(), QString("5"));
    QVERIFY(inner->isEnabled());
    QVERIFY(!isFiltered(*inner));
}

void tst_FormBinding::lineEditInsideAnEditableComboBoxIsTreatedByTheRule()
{
    camera->addEnum("Mode", {"A", "B"}, "A");
    form = std::make_unique<PlainForm>(*camera);
    auto& box = form->add<QComboBox>("cmbMode");
    box.setEditable(true);
    form->bind();
    // It has no name, so it belongs to no feature.
    QVERIFY(!box.lineEdit()->isEnabled());
    QCOMPARE(form->boundFeatures, QStringList("Mode"));
    QCOMPARE(box.currentText(), QString("A"));
}

void tst_FormBinding::labelsAndOtherClassesAreNotTouched()
{
    auto& label = form->add<QLabel>("lblUnknown");
    auto& group = form->add<QGroupBox>("grpUnknown");
    auto& bound = form->add<QLabel>("lblKnown");
    form->bind();
    QVERIFY(label.isEnabled());
    QVERIFY(group.isEnabled());
    QVERIFY(bound.text().isEmpty());
    QVERIFY(form->boundFeatures.isEmpty());
}

void tst_FormBinding::passesRunInOrderOfClasses()
{
    for (const char* feature : {"A", "B", "C", "D", "E", "F"})
        camera->addInteger(feature, 1);
    form = std::make_unique<PlainForm>(*camera);
    form->add<QPushButton>("btnF");
    form->add<QCheckBox>("chkE");
    form->add<QSpinBox>("spbD");
    form->add<QDoubleSpinBox>("spbC");
    form->add<QLineEdit>("txtB");
    form->add<QComboBox>("cmbA");
    camera->clearLog();
    form->bind();
    QCOMPARE(form->boundFeatures, QStringList({"A", "B", "C", "D", "E"}));
    QStringList asked;
    for (const std::string& call : camera->calls()) {
        const QString text = QString::fromStdString(call);
        if (text.startsWith("IsWritable "))
            asked.append(text.section(' ', 1));
    }
    asked.removeDuplicates();
    QCOMPARE(asked, QStringList({"A", "B", "C", "D", "E", "F"}));
}

void tst_FormBinding::everyBoundFeatureIsReported()
{
    form->add<QSpinBox>("spbKnown");
    form->add<QLineEdit>("txtKnown");
    form->add<QComboBox>("cmbUnknown");
    form->bind();
    QCOMPARE(form->boundFeatures, QStringList({"Known", "Known"}));
}

void tst_FormBinding::buttonsAreNotReported()
{
    camera->addCommand("Run");
    form = std::make_unique<PlainForm>(*camera);
    form->add<QPushButton>("btnRun");
    form->bind();
    QCOMPARE(form->boundFeatures, QStringList());
}

void tst_FormBinding::bindingWritesNothing()
{
    camera = Fake::FakeCamera::standard();
    form = std::make_unique<PlainForm>(*camera);
    form->add<QComboBox>("cmbTriggerSource");
    form->add<QLineEdit>("txtActionGroupKey");
    form->add<QDoubleSpinBox>("spbTriggerDelay");
    form->add<QSpinBox>("spbCounterDuration");
    form->add<QCheckBox>("chkLineInverter");
    form->add<QPushButton>("btnTriggerSoftware");
    form->bind();
    QCOMPARE(writesOf(*camera), QStringList());
    QCOMPARE(form->customPresets, 0);
}

void tst_FormBinding::editsWriteAndShowWhatTheCameraTook_data()
{
    QTest::addColumn<AddWidget>("add");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("edited");
    QTest::addColumn<QString>("written");
    QTest::addColumn<QVariant>("shown");
    QTest::newRow("spin box") << adder<QSpinBox>() << QByteArray("value") << QVariant(7)
                              << "SetIntegerValue Known=7" << QVariant(9);
    QTest::newRow("double spin box") << adder<QDoubleSpinBox>() << QByteArray("value")
                                     << QVariant(7.0) << "SetIntegerValue Known=7" << QVariant(9.0);
    QTest::newRow("check box") << adder<QCheckBox>() << QByteArray("checked") << QVariant(false)
                               << "SetIntegerValue Known=0" << QVariant(true);
}

void tst_FormBinding::editsWriteAndShowWhatTheCameraTook()
{
    QFETCH(AddWidget, add);
    QFETCH(QByteArray, property);
    QFETCH(QVariant, edited);
    QFETCH(QString, written);
    QFETCH(QVariant, shown);
    QWidget* widget = add(*form, "xxxKnown");
    form->bind();
    camera->find("Known")->onWrite = [](Fake::FakeFeature& it) { it.state().integer = 9; };
    widget->setProperty(property, edited);
    QCOMPARE(writesOf(*camera), QStringList(written));
    QCOMPARE(widget->property(property), shown);
    QCOMPARE(form->customPresets, 1);
}

void tst_FormBinding::commandsRun()
{
    camera->addCommand("Run");
    form = std::make_unique<PlainForm>(*camera);
    auto& button = form->add<QPushButton>("btnRun");
    form->bind();
    button.click();
    QCOMPARE(writesOf(*camera), QStringList("RunCommand Run"));
    QCOMPARE(form->customPresets, 0);
}

void tst_FormBinding::comboBoxesTakeFocusByClickAvailableOrNot()
{
    auto& available = form->add<QComboBox>("cmbKnown");
    auto& unavailable = form->add<QComboBox>("cmbUnknown");
    form->bind();
    QCOMPARE(available.focusPolicy(), Qt::StrongFocus);
    QCOMPARE(unavailable.focusPolicy(), Qt::StrongFocus);
}

void tst_FormBinding::spinBoxesTakeFocusByClickWhereAvailable_data()
{
    QTest::addColumn<AddWidget>("add");
    QTest::newRow("double spin box") << adder<QDoubleSpinBox>();
    QTest::newRow("spin box") << adder<QSpinBox>();
}

void tst_FormBinding::spinBoxesTakeFocusByClickWhereAvailable()
{
    QFETCH(AddWidget, add);
    QWidget* available = add(*form, "spbKnown");
    QWidget* unavailable = add(*form, "spbUnknown");
    form->bind();
    QCOMPARE(available->focusPolicy(), Qt::StrongFocus);
    QCOMPARE(unavailable->focusPolicy(), Qt::WheelFocus);
}

bool tst_FormBinding::isFiltered(QWidget& widget)
{
    QHelpEvent event(QEvent::ToolTip, QPoint(), QPoint());
    QApplication::sendEvent(&widget, &event);
    return form->filtered.contains(&widget);
}

void tst_FormBinding::eventFilterIsInstalled_data()
{
    QTest::addColumn<AddWidget>("add");
    QTest::addColumn<bool>("unavailableToo");
    QTest::newRow("combo box") << adder<QComboBox>() << true;
    QTest::newRow("line edit") << adder<QLineEdit>() << true;
    QTest::newRow("double spin box") << adder<QDoubleSpinBox>() << false;
    QTest::newRow("spin box") << adder<QSpinBox>() << false;
    QTest::newRow("check box") << adder<QCheckBox>() << true;
    QTest::newRow("push button") << adder<QPushButton>() << true;
}

void tst_FormBinding::eventFilterIsInstalled()
{
    QFETCH(AddWidget, add);
    QFETCH(bool, unavailableToo);
    QWidget* available = add(*form, "xxxKnown");
    QWidget* unavailable = add(*form, "xxxUnknown");
    form->bind();
    QVERIFY(isFiltered(*available));
    QCOMPARE(isFiltered(*unavailable), unavailableToo);
}

QTEST_MAIN(tst_FormBinding)
#include "tst_FormBinding.moc"
