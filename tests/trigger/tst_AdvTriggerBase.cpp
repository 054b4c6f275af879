#include "plugin/TabExtensionException.h"
#include "tests/support/Rows.h"
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

    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<TestEngine> m_engine;
};

void tst_AdvTriggerBase::init()
{
    m_camera = Fake::FakeCamera::standard();
    m_engine = std::make_unique<TestEngine>(*m_camera);
}

void tst_AdvTriggerBase::cleanup()
{
    // A tooltip still on screen would show through into the next test.
    QToolTip::hideText();
    m_engine.reset();
    m_camera.reset();
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
    QCOMPARE(m_engine->m_knownFeatures,
             QStringList({"TriggerSelector", "TriggerMode", "CounterSelector", "CounterEventSource",
                          "TimerSelector", "TimerTriggerSource"}));
    QVERIFY(m_engine->m_exemptWidgets.isEmpty());
    QVERIFY(m_engine->m_tooltipCache.isEmpty());
}

void tst_AdvTriggerBase::observesWhatItKnows()
{
    QCOMPARE(m_engine->m_observedFeatures, m_engine->m_knownFeatures);
}

void tst_AdvTriggerBase::boundFeaturesAreKnownAndObserved()
{
    m_engine->add<QDoubleSpinBox>("spbTriggerDelay");
    m_engine->add<QComboBox>("cmbTriggerDelay");
    m_engine->add<QComboBox>("cmbUnknown");
    m_engine->InitBaseWidgets();
    QCOMPARE(m_engine->boundFeatures(), QStringList({"TriggerDelay", "TriggerDelay"}));
    QCOMPARE(m_engine->m_observedFeatures, m_engine->m_knownFeatures);
}

void tst_AdvTriggerBase::buttonsAreNotKnownFeatures()
{
    m_engine->add<QPushButton>("btnTriggerSoftware");
    m_engine->InitBaseWidgets();
    QVERIFY(!m_engine->m_knownFeatures.contains("TriggerSoftware"));
    QVERIFY(!m_engine->m_observedFeatures.contains("TriggerSoftware"));
    QVERIFY(!m_engine->m_observedFeatures.contains("LineSelector"));
}

void tst_AdvTriggerBase::writesOneFeatureForPresets()
{
    m_camera->clearLog();
    QCOMPARE(m_engine->SetFeatureValue("TriggerSource", "Line1"), QString());
    QCOMPARE(writesOf(*m_camera), QStringList("SetStringValue TriggerSource=Line1"));
    QCOMPARE(m_engine->SetFeatureValue("TriggerSource", "Nowhere"),
             QString("  Failed to set TriggerSource = Nowhere, Current value: 'Line1'\n"));
}

void tst_AdvTriggerBase::keepsTheFeatureListAlive()
{
    const std::weak_ptr<std::vector<ZalCPP::FeaturePtr>> list = m_engine->m_featureList;
    QCOMPARE(m_engine->m_featureList, m_camera->features());
    // Without the camera's own share, the engine holds the list until it goes.
    m_camera.reset();
    QVERIFY(!list.expired());
    m_engine.reset();
    QVERIFY(list.expired());
}

void tst_AdvTriggerBase::styleSheetEndsWithTheToolTipStyle()
{
    const QString toolTipStyle(" QToolTip { padding: 3px; color: black; background-color: "
                               "lightyellow; border: 1px solid lightgrey; }");
    const QString style = m_engine->styleSheet();
    QVERIFY(style.endsWith("QLabel:disabled { color: gray }" + toolTipStyle));
    QCOMPARE(style.count("QToolTip"), 1);
}

void tst_AdvTriggerBase::refusesCamerasOfOtherVendors()
{
    m_camera->find("DeviceVendorName")->state().text = "Somebody else";
    QVERIFY_EXCEPTION_THROWN(TestEngine refused(*m_camera), TENotSupported);
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
    auto& box = m_engine->add<QComboBox>("cmbTriggerMode");
    m_engine->InitBaseWidgets();
    box.setToolTip("from the form");
    hover(box);
    QCOMPARE(box.toolTip(), QString("from the form"));
    QVERIFY(!QToolTip::isVisible());
}

void tst_AdvTriggerBase::suppressedTooltipsAreSwallowedOnExemptWidgetsToo()
{
    auto& box = m_engine->add<QComboBox>("cmbSelectPreset");
    m_engine->m_exemptWidgets << "cmbSelectPreset";
    m_engine->InitBaseWidgets();
    box.setToolTip("from the form");
    hover(box);
    QVERIFY(!QToolTip::isVisible());
}

void tst_AdvTriggerBase::anyNonZeroStateActivatesTooltips_data()
{
    columns<int, bool>("state", "active");
    row("unchecked", int(Qt::Unchecked), false);
    row("partially checked", int(Qt::PartiallyChecked), true);
    row("checked", int(Qt::Checked), true);
    row("negative", -1, true);
}

void tst_AdvTriggerBase::anyNonZeroStateActivatesTooltips()
{
    QFETCH(int, state);
    QFETCH(bool, active);
    m_engine->m_tooltipsActive = !active;
    m_engine->ActivateTooltips(state);
    QCOMPARE(m_engine->m_tooltipsActive, active);
}

void tst_AdvTriggerBase::tooltipTellsAboutTheFeature()
{
    auto& box = m_engine->add<QComboBox>("cmbTriggerMode");
    auto& button = m_engine->add<QPushButton>("btnTriggerSoftware");
    m_engine->InitBaseWidgets();
    m_engine->ActivateTooltips(Qt::Checked);
    hover(box);
    hover(button);
    QVERIFY(box.toolTip().contains("<b>Feature Name:</b> TriggerMode<br/>"));
    QVERIFY(button.toolTip().contains("<b>Feature Name:</b> TriggerSoftware<br/>"));
}

void tst_AdvTriggerBase::tooltipShowsTheFreshText()
{
    auto& box = m_engine->add<QComboBox>("cmbTriggerMode");
    m_engine->InitBaseWidgets();
    m_engine->ActivateTooltips(Qt::Checked);
    m_engine->show();
    box.setToolTip("from the form");
    hover(box);
    QVERIFY(QToolTip::isVisible());
    QCOMPARE(QToolTip::text(), box.toolTip());
    QVERIFY(QToolTip::text().contains("TriggerMode"));
}

void tst_AdvTriggerBase::exemptWidgetKeepsItsOwnTooltip()
{
    // The feature exists, so only the list of exempt widgets can keep its text away.
    auto& box = m_engine->add<QComboBox>("cmbTriggerMode");
    m_engine->m_exemptWidgets << "cmbTriggerMode";
    m_engine->InitBaseWidgets();
    m_engine->ActivateTooltips(Qt::Checked);
    m_engine->show();
    box.setToolTip("from the form");
    hover(box);
    QCOMPARE(box.toolTip(), QString("from the form"));
    QCOMPARE(QToolTip::text(), QString("from the form"));
}

void tst_AdvTriggerBase::tooltipOfUnavailableFeatureIsEmpty()
{
    auto& box = m_engine->add<QComboBox>("cmbNoSuchFeature");
    m_engine->InitBaseWidgets();
    m_engine->ActivateTooltips(Qt::Checked);
    box.setToolTip("from the form");
    hover(box);
    QVERIFY(box.toolTip().isEmpty());
}

void tst_AdvTriggerBase::firstTooltipIsKeptForEver()
{
    auto& box = m_engine->add<QDoubleSpinBox>("spbTriggerDelay");
    m_engine->InitBaseWidgets();
    m_engine->ActivateTooltips(Qt::Checked);
    hover(box);
    const QString first = box.toolTip();
    QVERIFY(first.contains("<b>Maximum:</b> 1000000<br/>"));

    m_camera->find("TriggerDelay")->state().maxReal = 5.0;
    m_camera->clearLog();
    box.setToolTip(QString());
    hover(box);
    QCOMPARE(box.toolTip(), first);
    QVERIFY(m_camera->calls().empty());
}

void tst_AdvTriggerBase::unavailableFeatureIsNotCached()
{
    auto& box = m_engine->add<QComboBox>("cmbTriggerMode");
    m_engine->InitBaseWidgets();
    m_engine->ActivateTooltips(Qt::Checked);
    m_camera->failCall("GetName", "TriggerMode");
    hover(box);
    QVERIFY(box.toolTip().isEmpty());
    m_camera->clearFailures();
    hover(box);
    QVERIFY(box.toolTip().contains("TriggerMode"));
}

void tst_AdvTriggerBase::twoPartNameGoesByItsSecondPart_data()
{
    columns<QString, QString>("objectName", "feature");
    row("cell of a line", "cmbLine0_LineMode", "LineMode");
    row("third part is left out", "cmbLine0_LineMode_2", "LineMode");
    row("underscore first", "cmb_LineMode", "LineMode");
    row("known feature in front", "cmbTriggerMode_LineMode", "LineMode");
}

void tst_AdvTriggerBase::twoPartNameGoesByItsSecondPart()
{
    QFETCH(QString, objectName);
    QFETCH(QString, feature);
    auto& box = m_engine->add<QComboBox>(objectName);
    m_engine->InitBaseWidgets();
    m_engine->ActivateTooltips(Qt::Checked);
    hover(box);
    QVERIFY(box.toolTip().contains("<b>Feature Name:</b> " + feature + "<br/>"));
    QCOMPARE(m_engine->m_tooltipCache.keys(), QStringList(feature));
}

void tst_AdvTriggerBase::knownFeatureWithUnderscoreGoesByItsWholeName()
{
    m_camera->addEnum("User_LineMode", {"A", "B"}, "A");
    m_engine = std::make_unique<TestEngine>(*m_camera);
    auto& box = m_engine->add<QComboBox>("cmbUser_LineMode");
    m_engine->InitBaseWidgets();
    m_engine->ActivateTooltips(Qt::Checked);
    hover(box);
    QVERIFY(box.toolTip().contains("<b>Feature Name:</b> User_LineMode<br/>"));
}

void tst_AdvTriggerBase::tooltipEventOfAnObjectThatIsNoWidgetPasses()
{
    QTimer timer;
    QHelpEvent event(QEvent::ToolTip, QPoint(), QPoint());
    QVERIFY(m_engine->eventFilter(&timer, &event));
    m_engine->ActivateTooltips(Qt::Checked);
    QVERIFY(!m_engine->eventFilter(&timer, &event));
}

void tst_AdvTriggerBase::otherEventsPass()
{
    auto& box = m_engine->add<QComboBox>("cmbTriggerMode");
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::KeyPress, QEvent::FocusIn,
                                    QEvent::WhatsThis, QEvent::Paint, QEvent::User}) {
        QEvent event(type);
        QVERIFY2(!m_engine->eventFilter(&box, &event), qPrintable(QString::number(type)));
    }
}

QTEST_MAIN(tst_AdvTriggerBase)
#include "tst_AdvTriggerBase.moc"
