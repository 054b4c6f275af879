// What the first binding makes of the widgets of a form; line edits have a test of their own.
#include "tests/trigger/WidgetClasses.h"

#include <QGroupBox>
#include <QHelpEvent>
#include <QLabel>

class tst_AdvTriggerBinding : public QObject
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
    void everyBoundFeatureIsObserved();
    void buttonsAreNotKnownFeatures();
    void bindingWritesNothing();

    void comboBoxesTakeFocusByClickAvailableOrNot();
    void spinBoxesTakeFocusByClickWhereAvailable_data();
    void spinBoxesTakeFocusByClickWhereAvailable();
    void eventFilterIsInstalled_data();
    void eventFilterIsInstalled();

private:
    bool isFiltered(QWidget& widget);

    std::unique_ptr<Fake::FakeCamera> camera;
    std::unique_ptr<TestEngine> engine;
};

void tst_AdvTriggerBinding::init()
{
    camera = acceptedCamera();
    camera->addInteger("Known", 5);
    engine = std::make_unique<TestEngine>(*camera);
}

void tst_AdvTriggerBinding::cleanup()
{
    engine.reset();
    camera.reset();
}

void tst_AdvTriggerBinding::unavailableFeatureDisablesItsWidget()
{
    QFETCH(AddWidget, add);
    QWidget* widget = add(*engine, "xxxUnknown");
    engine->InitBaseWidgets();
    QVERIFY(!widget->isEnabled());
    QVERIFY(engine->boundFeatures().isEmpty());
}

void tst_AdvTriggerBinding::exemptWidgetIsLeftAlone()
{
    QFETCH(AddWidget, add);
    QWidget* enabled = add(*engine, "xxxUnknown");
    QWidget* disabled = add(*engine, "xxxOther");
    disabled->setEnabled(false);
    engine->m_exemptWidgets << "xxxUnknown"
                            << "xxxOther";
    engine->InitBaseWidgets();
    QVERIFY(enabled->isEnabled());
    QVERIFY(!disabled->isEnabled());
    QVERIFY(engine->boundFeatures().isEmpty());
}

void tst_AdvTriggerBinding::exemptionIsByFullObjectName()
{
    auto& box = engine->add<QComboBox>("cmbUnknown");
    engine->m_exemptWidgets << "Unknown"
                            << "cmb"
                            << "cmbUnknownToo";
    engine->InitBaseWidgets();
    QVERIFY(!box.isEnabled());
}

void tst_AdvTriggerBinding::exemptWidgetOfAnAvailableFeatureIsBound()
{
    engine->add<QSpinBox>("spbKnown");
    engine->m_exemptWidgets << "spbKnown";
    engine->InitBaseWidgets();
    QCOMPARE(engine->boundFeatures(), QStringList("Known"));
}

void tst_AdvTriggerBinding::readOnlyFeatureDisablesItsWidget()
{
    QFETCH(AddWidget, add);
    camera->find("Known")->state().writable = false;
    QWidget* widget = add(*engine, "xxxKnown");
    engine->InitBaseWidgets();
    QVERIFY(!widget->isEnabled());
}

void tst_AdvTriggerBinding::writableFeatureEnablesItsWidget()
{
    QFETCH(AddWidget, add);
    QWidget* widget = add(*engine, "xxxKnown");
    widget->setEnabled(false);
    engine->InitBaseWidgets();
    QVERIFY(widget->isEnabled());
}

void tst_AdvTriggerBinding::featureIsTheNameWithoutItsFirstThreeCharacters_data()
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

void tst_AdvTriggerBinding::featureIsTheNameWithoutItsFirstThreeCharacters()
{
    QFETCH(QString, objectName);
    QFETCH(bool, bound);
    auto& box = engine->add<QSpinBox>(objectName);
    engine->InitBaseWidgets();
    QCOMPARE(engine->boundFeatures(), bound ? QStringList("Known") : QStringList());
    QCOMPARE(box.isEnabled(), bound);
}

void tst_AdvTriggerBinding::twoWidgetsOfOneNameAreBothBound()
{
    auto& first = engine->add<QSpinBox>("spbKnown");
    auto& second = engine->add<QSpinBox>("spbKnown");
    engine->InitBaseWidgets();
    QCOMPARE(first.value(), 5);
    QCOMPARE(second.value(), 5);
    QCOMPARE(engine->boundFeatures(), QStringList({"Known", "Known"}));
    camera->clearLog();
    second.setValue(7);
    QCOMPARE(writesOf(*camera), QStringList("SetIntegerValue Known=7"));
}

void tst_AdvTriggerBinding::classDecidesAndNotThePrefix()
{
    auto& edit = engine->add<QLineEdit>("cmbKnown");
    engine->InitBaseWidgets();
    QCOMPARE(edit.text(), QString("5"));
}

void tst_AdvTriggerBinding::comboBoxOfANumberIsBoundEmpty()
{
    auto& box = engine->add<QComboBox>("cmbKnown");
    engine->InitBaseWidgets();
    QCOMPARE(box.count(), 0);
    QVERIFY(box.isEnabled());
    QCOMPARE(engine->boundFeatures(), QStringList("Known"));
}

void tst_AdvTriggerBinding::widgetsDeepInTheFormAreBound()
{
    auto& group = engine->add<QGroupBox>("grpInner");
    auto* box = new QSpinBox(new QWidget(&group));
    box->setObjectName("spbKnown");
    engine->InitBaseWidgets();
    QCOMPARE(box->value(), 5);
}

void tst_AdvTriggerBinding::lineEditInsideASpinBoxIsNeverBound()
{
    // Even a camera with a feature of that very name does not get the inner line edit bound.
    camera->addString("spinbox_lineedit", "text of the camera");
    engine = std::make_unique<TestEngine>(*camera);
    auto& box = engine->add<QSpinBox>("spbKnown");
    engine->InitBaseWidgets();
    QCOMPARE(engine->boundFeatures(), QStringList("Known"));
    auto* inner = box.findChild<QLineEdit*>("qt_spinbox_lineedit");
    QCOMPARE(inner->text(), QString("5"));
    QVERIFY(inner->isEnabled());
    QVERIFY(!isFiltered(*inner));
}

void tst_AdvTriggerBinding::lineEditInsideAnEditableComboBoxIsTreatedByTheRule()
{
    camera->addEnum("Mode", {"A", "B"}, "A");
    engine = std::make_unique<TestEngine>(*camera);
    auto& box = engine->add<QComboBox>("cmbMode");
    box.setEditable(true);
    engine->InitBaseWidgets();
    // It has no name, so it belongs to no feature.
    QVERIFY(!box.lineEdit()->isEnabled());
    QCOMPARE(engine->boundFeatures(), QStringList("Mode"));
    QCOMPARE(box.currentText(), QString("A"));
}

void tst_AdvTriggerBinding::labelsAndOtherClassesAreNotTouched()
{
    auto& label = engine->add<QLabel>("lblUnknown");
    auto& group = engine->add<QGroupBox>("grpUnknown");
    auto& bound = engine->add<QLabel>("lblKnown");
    engine->InitBaseWidgets();
    QVERIFY(label.isEnabled());
    QVERIFY(group.isEnabled());
    QVERIFY(bound.text().isEmpty());
    QVERIFY(engine->boundFeatures().isEmpty());
}

void tst_AdvTriggerBinding::passesRunInOrderOfClasses()
{
    for (const char* feature : {"A", "B", "C", "D", "E", "F"})
        camera->addInteger(feature, 1);
    engine = std::make_unique<TestEngine>(*camera);
    engine->add<QPushButton>("btnF");
    engine->add<QCheckBox>("chkE");
    engine->add<QSpinBox>("spbD");
    engine->add<QDoubleSpinBox>("spbC");
    engine->add<QLineEdit>("txtB");
    engine->add<QComboBox>("cmbA");
    camera->clearLog();
    engine->InitBaseWidgets();
    QCOMPARE(engine->boundFeatures(), QStringList({"A", "B", "C", "D", "E"}));
    QStringList asked;
    for (const std::string& call : camera->calls()) {
        const QString text = QString::fromStdString(call);
        if (text.startsWith("IsWritable "))
            asked.append(text.section(' ', 1));
    }
    asked.removeDuplicates();
    QCOMPARE(asked, QStringList({"A", "B", "C", "D", "E", "F"}));
}

void tst_AdvTriggerBinding::everyBoundFeatureIsObserved()
{
    engine->add<QSpinBox>("spbKnown");
    engine->add<QLineEdit>("txtKnown");
    engine->add<QComboBox>("cmbUnknown");
    engine->InitBaseWidgets();
    QCOMPARE(engine->m_observedFeatures, engine->m_knownFeatures);
    QCOMPARE(engine->m_observedFeatures.mid(TestEngine::seedCount),
             QStringList({"Known", "Known"}));
}

void tst_AdvTriggerBinding::buttonsAreNotKnownFeatures()
{
    camera->addCommand("Run");
    engine = std::make_unique<TestEngine>(*camera);
    engine->add<QPushButton>("btnRun");
    engine->InitBaseWidgets();
    QVERIFY(!engine->m_knownFeatures.contains("Run"));
    QVERIFY(!engine->m_observedFeatures.contains("Run"));
    QVERIFY(!engine->m_observedFeatures.contains("LineSelector"));
}

void tst_AdvTriggerBinding::bindingWritesNothing()
{
    camera = Fake::FakeCamera::standard();
    engine = std::make_unique<TestEngine>(*camera);
    // The overview, which the engine has built, steps its selectors.
    camera->clearLog();
    engine->add<QComboBox>("cmbTriggerSource");
    engine->add<QLineEdit>("txtActionGroupKey");
    engine->add<QDoubleSpinBox>("spbTriggerDelay");
    engine->add<QSpinBox>("spbCounterDuration");
    engine->add<QCheckBox>("chkLineInverter");
    engine->add<QPushButton>("btnTriggerSoftware");
    engine->InitBaseWidgets();
    QCOMPARE(writesOf(*camera), QStringList());
    QCOMPARE(engine->customPresets, 0);
}

void tst_AdvTriggerBinding::comboBoxesTakeFocusByClickAvailableOrNot()
{
    auto& available = engine->add<QComboBox>("cmbKnown");
    auto& unavailable = engine->add<QComboBox>("cmbUnknown");
    engine->InitBaseWidgets();
    QCOMPARE(available.focusPolicy(), Qt::StrongFocus);
    QCOMPARE(unavailable.focusPolicy(), Qt::StrongFocus);
}

void tst_AdvTriggerBinding::spinBoxesTakeFocusByClickWhereAvailable_data()
{
    QTest::addColumn<AddWidget>("add");
    QTest::newRow("double spin box") << adder<QDoubleSpinBox>();
    QTest::newRow("spin box") << adder<QSpinBox>();
}

void tst_AdvTriggerBinding::spinBoxesTakeFocusByClickWhereAvailable()
{
    QFETCH(AddWidget, add);
    QWidget* available = add(*engine, "spbKnown");
    QWidget* unavailable = add(*engine, "spbUnknown");
    engine->InitBaseWidgets();
    QCOMPARE(available->focusPolicy(), Qt::StrongFocus);
    QCOMPARE(unavailable->focusPolicy(), Qt::WheelFocus);
}

/// The engine's filter replaces a widget's tooltip; without the filter the form's text stays.
bool tst_AdvTriggerBinding::isFiltered(QWidget& widget)
{
    engine->ActivateTooltips(Qt::Checked);
    widget.setToolTip("from the form");
    QHelpEvent event(QEvent::ToolTip, QPoint(), QPoint());
    QApplication::sendEvent(&widget, &event);
    return widget.toolTip() != "from the form";
}

void tst_AdvTriggerBinding::eventFilterIsInstalled_data()
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

void tst_AdvTriggerBinding::eventFilterIsInstalled()
{
    QFETCH(AddWidget, add);
    QFETCH(bool, unavailableToo);
    QWidget* available = add(*engine, "xxxKnown");
    QWidget* unavailable = add(*engine, "xxxUnknown");
    engine->InitBaseWidgets();
    QVERIFY(isFiltered(*available));
    QCOMPARE(isFiltered(*unavailable), unavailableToo);
}

QTEST_MAIN(tst_AdvTriggerBinding)
#include "tst_AdvTriggerBinding.moc"
