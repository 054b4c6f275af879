#include "plugin/TabExtensionException.h"
#include "tests/trigger/TestEngine.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHelpEvent>
#include <QLabel>
#include <QMetaMethod>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolTip>

class tst_AdvTriggerBase : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void presetNamesAreFixed();
    void engineStartsWithSixKnownFeatures();
    void observesWhatItKnows();
    void boundFeaturesAreKnownAndObserved();
    void buttonsAreNotKnownFeatures();
    void writesOneFeatureForPresets();
    void keepsTheFeatureListAlive();
    void styleSheetEndsWithTheToolTipStyle();
    void refusesCamerasOfOtherVendors();
    void offersItsSignalsAndSlotsInOrder();

    void tooltipsStartSuppressed();
    void suppressedTooltipsAreSwallowedOnExemptWidgetsToo();
    void anyNonZeroStateActivatesTooltips_data();
    void anyNonZeroStateActivatesTooltips();
    void tooltipTellsAboutTheFeature();
    void tooltipShowsTheFreshText();
    void exemptWidgetKeepsItsOwnTooltip();
    void tooltipOfUnavailableFeatureIsEmpty();
    void firstTooltipIsKeptForEver();
    void unavailableFeatureIsNotCached();
    void twoPartNameGoesByItsSecondPart_data();
    void twoPartNameGoesByItsSecondPart();
    void knownFeatureWithUnderscoreGoesByItsWholeName();
    void tooltipEventOfAnObjectThatIsNoWidgetPasses();
    void otherEventsPass();

private:
    /// Delivers a tooltip event as the window system's hover timer does.
    static void hover(QWidget& widget);

    std::unique_ptr<Fake::FakeCamera> camera;
    std::unique_ptr<TestEngine> engine;
};

void tst_AdvTriggerBase::init()
{
    camera = Fake::FakeCamera::standard();
    engine = std::make_unique<TestEngine>(*camera);
}

void tst_AdvTriggerBase::cleanup()
{
    // A tooltip still on screen would show through into the next test.
    QToolTip::hideText();
    engine.reset();
    camera.reset();
}

void tst_AdvTriggerBase::hover(QWidget& widget)
{
    QHelpEvent event(QEvent::ToolTip, QPoint(1, 1), widget.mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(&widget, &event);
}

void tst_AdvTriggerBase::presetNamesAreFixed()
{
    QCOMPARE(AdvTriggerBase::CUSTOM_PRESET, QString("Custom"));
    QCOMPARE(AdvTriggerBase::TURN_OFF_PRESET, QString("Turn Off All"));
    QCOMPARE(AdvTriggerBase::RESET_PRESET, QString("Reset All"));
}

void tst_AdvTriggerBase::engineStartsWithSixKnownFeatures()
{
    QCOMPARE(engine->m_knownFeatures,
             QStringList({"TriggerSelector", "TriggerMode", "CounterSelector", "CounterEventSource",
                          "TimerSelector", "TimerTriggerSource"}));
    QVERIFY(engine->m_exemptWidgets.isEmpty());
    QVERIFY(engine->m_tooltipCache.isEmpty());
}

void tst_AdvTriggerBase::observesWhatItKnows()
{
    QCOMPARE(engine->m_observedFeatures, engine->m_knownFeatures);
}

void tst_AdvTriggerBase::boundFeaturesAreKnownAndObserved()
{
    engine->add<QDoubleSpinBox>("spbTriggerDelay");
    engine->add<QComboBox>("cmbTriggerDelay");
    engine->add<QComboBox>("cmbUnknown");
    engine->InitBaseWidgets();
    QCOMPARE(engine->boundFeatures(), QStringList({"TriggerDelay", "TriggerDelay"}));
    QCOMPARE(engine->m_observedFeatures, engine->m_knownFeatures);
}

void tst_AdvTriggerBase::buttonsAreNotKnownFeatures()
{
    engine->add<QPushButton>("btnTriggerSoftware");
    engine->InitBaseWidgets();
    QVERIFY(!engine->m_knownFeatures.contains("TriggerSoftware"));
    QVERIFY(!engine->m_observedFeatures.contains("TriggerSoftware"));
    QVERIFY(!engine->m_observedFeatures.contains("LineSelector"));
}

void tst_AdvTriggerBase::writesOneFeatureForPresets()
{
    camera->clearLog();
    QCOMPARE(engine->SetFeatureValue("TriggerSource", "Line1"), QString());
    QCOMPARE(writesOf(*camera), QStringList("SetStringValue TriggerSource=Line1"));
    QCOMPARE(engine->SetFeatureValue("TriggerSource", "Nowhere"),
             QString("  Failed to set TriggerSource = Nowhere, Current value: 'Line1'\n"));
}

void tst_AdvTriggerBase::keepsTheFeatureListAlive()
{
    const std::weak_ptr<std::vector<ZalCPP::FeaturePtr>> list = engine->m_featureList;
    QCOMPARE(engine->m_featureList, camera->features());
    // Without the camera's own share, the engine holds the list until it goes.
    camera.reset();
    QVERIFY(!list.expired());
    engine.reset();
    QVERIFY(list.expired());
}

void tst_AdvTriggerBase::styleSheetEndsWithTheToolTipStyle()
{
    const QString toolTipStyle(" QToolTip { padding: 3px; color: black; background-color: "
                               "lightyellow; border: 1px solid lightgrey; }");
    const QString style = engine->styleSheet();
    QVERIFY(style.endsWith("QLabel:disabled { color: gray }" + toolTipStyle));
    QCOMPARE(style.count("QToolTip"), 1);
}

void tst_AdvTriggerBase::refusesCamerasOfOtherVendors()
{
    camera->find("DeviceVendorName")->state().text = "Somebody else";
    QVERIFY_EXCEPTION_THROWN(TestEngine refused(*camera), TENotSupported);
}

void tst_AdvTriggerBase::offersItsSignalsAndSlotsInOrder()
{
    const QMetaObject& meta = AdvTriggerBase::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods.append(QString::fromLatin1(meta.method(i).methodSignature()));
    QCOMPARE(methods, QStringList({"FeatureChanged(QString,QVariant)", "CamStreamingOn(bool)",
                                   "OnChangeComboboxSelection(QString)", "OnFinishLineEdit()",
                                   "OnChangeSpinbox(int)", "OnChangeDoubleSpinbox(double)",
                                   "OnChangeCheckbox(int)", "OnExecuteCommandButton()",
                                   "OnSelectPreset(int)", "OnChangeTableSpinbox(double)",
                                   "OnChangeTableCombobox(QString)", "OnChangeTableCheckbox(int)",
                                   "SetCustomPreset()", "ActivateTooltips(int)"}));
}

void tst_AdvTriggerBase::tooltipsStartSuppressed()
{
    auto& box = engine->add<QComboBox>("cmbTriggerMode");
    engine->InitBaseWidgets();
    box.setToolTip("from the form");
    hover(box);
    QCOMPARE(box.toolTip(), QString("from the form"));
    QVERIFY(!QToolTip::isVisible());
}

void tst_AdvTriggerBase::suppressedTooltipsAreSwallowedOnExemptWidgetsToo()
{
    auto& box = engine->add<QComboBox>("cmbSelectPreset");
    engine->m_exemptWidgets << "cmbSelectPreset";
    engine->InitBaseWidgets();
    box.setToolTip("from the form");
    hover(box);
    QVERIFY(!QToolTip::isVisible());
}

void tst_AdvTriggerBase::anyNonZeroStateActivatesTooltips_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("active");
    QTest::newRow("unchecked") << int(Qt::Unchecked) << false;
    QTest::newRow("partially checked") << int(Qt::PartiallyChecked) << true;
    QTest::newRow("checked") << int(Qt::Checked) << true;
    QTest::newRow("negative") << -1 << true;
}

void tst_AdvTriggerBase::anyNonZeroStateActivatesTooltips()
{
    QFETCH(int, state);
    QFETCH(bool, active);
    engine->m_tooltipsActive = !active;
    engine->ActivateTooltips(state);
    QCOMPARE(engine->m_tooltipsActive, active);
}

void tst_AdvTriggerBase::tooltipTellsAboutTheFeature()
{
    auto& box = engine->add<QComboBox>("cmbTriggerMode");
    auto& button = engine->add<QPushButton>("btnTriggerSoftware");
    engine->InitBaseWidgets();
    engine->ActivateTooltips(Qt::Checked);
    hover(box);
    hover(button);
    QVERIFY(box.toolTip().contains("<b>Feature Name:</b> TriggerMode<br/>"));
    QVERIFY(button.toolTip().contains("<b>Feature Name:</b> TriggerSoftware<br/>"));
}

void tst_AdvTriggerBase::tooltipShowsTheFreshText()
{
    auto& box = engine->add<QComboBox>("cmbTriggerMode");
    engine->InitBaseWidgets();
    engine->ActivateTooltips(Qt::Checked);
    engine->show();
    box.setToolTip("from the form");
    hover(box);
    QVERIFY(QToolTip::isVisible());
    QCOMPARE(QToolTip::text(), box.toolTip());
    QVERIFY(QToolTip::text().contains("TriggerMode"));
}

void tst_AdvTriggerBase::exemptWidgetKeepsItsOwnTooltip()
{
    // The feature exists, so only the list of exempt widgets can keep its text away.
    auto& box = engine->add<QComboBox>("cmbTriggerMode");
    engine->m_exemptWidgets << "cmbTriggerMode";
    engine->InitBaseWidgets();
    engine->ActivateTooltips(Qt::Checked);
    engine->show();
    box.setToolTip("from the form");
    hover(box);
    QCOMPARE(box.toolTip(), QString("from the form"));
    QCOMPARE(QToolTip::text(), QString("from the form"));
}

void tst_AdvTriggerBase::tooltipOfUnavailableFeatureIsEmpty()
{
    auto& box = engine->add<QComboBox>("cmbNoSuchFeature");
    engine->InitBaseWidgets();
    engine->ActivateTooltips(Qt::Checked);
    box.setToolTip("from the form");
    hover(box);
    QVERIFY(box.toolTip().isEmpty());
}

void tst_AdvTriggerBase::firstTooltipIsKeptForEver()
{
    auto& box = engine->add<QDoubleSpinBox>("spbTriggerDelay");
    engine->InitBaseWidgets();
    engine->ActivateTooltips(Qt::Checked);
    hover(box);
    const QString first = box.toolTip();
    QVERIFY(first.contains("<b>Maximum:</b> 1000000<br/>"));

    camera->find("TriggerDelay")->state().maxReal = 5.0;
    camera->clearLog();
    box.setToolTip(QString());
    hover(box);
    QCOMPARE(box.toolTip(), first);
    QVERIFY(camera->calls().empty());
}

void tst_AdvTriggerBase::unavailableFeatureIsNotCached()
{
    auto& box = engine->add<QComboBox>("cmbTriggerMode");
    engine->InitBaseWidgets();
    engine->ActivateTooltips(Qt::Checked);
    camera->failCall("GetName", "TriggerMode");
    hover(box);
    QVERIFY(box.toolTip().isEmpty());
    camera->clearFailures();
    hover(box);
    QVERIFY(box.toolTip().contains("TriggerMode"));
}

void tst_AdvTriggerBase::twoPartNameGoesByItsSecondPart_data()
{
    QTest::addColumn<QString>("objectName");
    QTest::addColumn<QString>("feature");
    QTest::newRow("cell of a line") << "cmbLine0_LineMode"
                                    << "LineMode";
    QTest::newRow("third part is left out") << "cmbLine0_LineMode_2"
                                            << "LineMode";
    QTest::newRow("underscore first") << "cmb_LineMode"
                                      << "LineMode";
    QTest::newRow("known feature in front") << "cmbTriggerMode_LineMode"
                                            << "LineMode";
}

void tst_AdvTriggerBase::twoPartNameGoesByItsSecondPart()
{
    QFETCH(QString, objectName);
    QFETCH(QString, feature);
    auto& box = engine->add<QComboBox>(objectName);
    engine->InitBaseWidgets();
    engine->ActivateTooltips(Qt::Checked);
    hover(box);
    QVERIFY(box.toolTip().contains("<b>Feature Name:</b> " + feature + "<br/>"));
    QCOMPARE(engine->m_tooltipCache.keys(), QStringList(feature));
}

void tst_AdvTriggerBase::knownFeatureWithUnderscoreGoesByItsWholeName()
{
    camera->addEnum("User_LineMode", {"A", "B"}, "A");
    engine = std::make_unique<TestEngine>(*camera);
    auto& box = engine->add<QComboBox>("cmbUser_LineMode");
    engine->InitBaseWidgets();
    engine->ActivateTooltips(Qt::Checked);
    hover(box);
    QVERIFY(box.toolTip().contains("<b>Feature Name:</b> User_LineMode<br/>"));
}

void tst_AdvTriggerBase::tooltipEventOfAnObjectThatIsNoWidgetPasses()
{
    QTimer timer;
    QHelpEvent event(QEvent::ToolTip, QPoint(), QPoint());
    QVERIFY(engine->eventFilter(&timer, &event));
    engine->ActivateTooltips(Qt::Checked);
    QVERIFY(!engine->eventFilter(&timer, &event));
}

void tst_AdvTriggerBase::otherEventsPass()
{
    auto& box = engine->add<QComboBox>("cmbTriggerMode");
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::KeyPress, QEvent::FocusIn,
                                    QEvent::WhatsThis, QEvent::Paint, QEvent::User}) {
        QEvent event(type);
        QVERIFY2(!engine->eventFilter(&box, &event), qPrintable(QString::number(type)));
    }
}

QTEST_MAIN(tst_AdvTriggerBase)
#include "tst_AdvTriggerBase.moc"
