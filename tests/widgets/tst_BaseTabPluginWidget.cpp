#include "widgets/BaseTabPluginWidget.h"

#include "features/FeatureManager.h"
#include "features/PluginFeatureObserver.h"
#include "plugin/TabExtensionException.h"
#include "tests/support/FakeCamera.h"
#include "tests/support/LogCapture.h"
#include "tests/widgets/TestTabWidget.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QTranslator>
#include <QVBoxLayout>

#include <functional>
#include <memory>
#include <optional>

namespace {

/// Answers one source text of one context.
class FixedTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        const bool known =
            qstrcmp(context, "BaseTabPluginWidget") == 0 &&
            qstrcmp(source, "Vendor not supported for plugins, widget not created.") == 0;
        return known ? QStringLiteral("Hersteller nicht unterstützt.") : QString();
    }
};

std::optional<TabExtensionException> refusalOf(const ZalCPP::FeatureList& features,
                                               QWidget* parent = nullptr)
{
    try {
        const TestTabWidget widget(features, parent);
    } catch (const TENotSupported& refusal) {
        return refusal;
    }
    return std::nullopt;
}

/// The list with null pointers before, among and behind its features.
ZalCPP::FeatureList withNullFeatures(std::vector<ZalCPP::FeaturePtr> features)
{
    for (const std::size_t position : {features.size(), features.size() / 2, std::size_t(0)})
        features.insert(features.begin() + std::ptrdiff_t(position), nullptr);
    return std::make_shared<std::vector<ZalCPP::FeaturePtr>>(std::move(features));
}

QStringList namesOf(const Fake::FakeCamera& camera)
{
    QStringList names;
    for (const ZalCPP::FeaturePtr& feature : *camera.features())
        names << QString::fromStdString(static_cast<Fake::FakeFeature&>(*feature).name);
    return names;
}

} // namespace

using FeatureListMaker = std::function<ZalCPP::FeatureList(Fake::FakeCamera&)>;
Q_DECLARE_METATYPE(FeatureListMaker)

class tst_BaseTabPluginWidget : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void startsIdle();
    void takesParentAndDefaultFlags();
    void sharesTheFeatureList();
    void managerKeepsTheHostsOrder();
    void nullFeaturesOfTheHostAreSkipped();
    void managerOutlivesTheWidget();
    void constructionOnlyReadsTheVendor();
    void vendorRule_data();
    void vendorRule();
    void cameraWithoutVendorIsRefused_data();
    void cameraWithoutVendorIsRefused();
    void refusalSaysWhoWhyAndCode();
    void refusalIsTranslated();
    void refusedWidgetLeavesItsParent();
    void constructionSilencesTheLog();
    void refusalSilencesTheLogToo();
    void takesFocusByTabAndClick();
    void styleSheetGreysDisabledControls();
    void metaObjectOffersSignalAndSlots();
    void ownVirtualFunctionsStandInOrder();
    void darkModeByLightness_data();
    void darkModeByLightness();
    void darkModeLooksAtTheCurrentColourGroup();
    void paletteChangeRecoloursControls();
    void otherChangesDoNotRecolour_data();
    void otherChangesDoNotRecolour();
    void changesReachTheBaseClass();

private:
    std::unique_ptr<Fake::FakeCamera> m_camera;
};

void tst_BaseTabPluginWidget::init()
{
    m_camera = Fake::FakeCamera::standard();
}

void tst_BaseTabPluginWidget::startsIdle()
{
    const TestTabWidget widget(m_camera->features());
    QVERIFY(!widget.m_updateTimer->isActive());
    QCOMPARE(widget.m_updateTimer->interval(), 0);
    QCOMPARE(widget.m_updateTimer->parent(), &widget);
    QCOMPARE(*widget.m_changedFeatures, QStringList());
    QCOMPARE(widget.m_observedFeatures, QStringList());
    QCOMPARE(widget.refreshes, 0);
    QCOMPARE(widget.recolourings, 0);
    QVERIFY(!widget.m_mutex->isRecursive());
}

void tst_BaseTabPluginWidget::takesParentAndDefaultFlags()
{
    QWidget parent;
    const TestTabWidget widget(m_camera->features(), &parent);
    QCOMPARE(widget.parentWidget(), &parent);
    QCOMPARE(widget.windowFlags(), QWidget(&parent).windowFlags());
}

void tst_BaseTabPluginWidget::sharesTheFeatureList()
{
    const TestTabWidget widget(m_camera->features());
    QCOMPARE(widget.m_features, m_camera->features());
}

void tst_BaseTabPluginWidget::managerKeepsTheHostsOrder()
{
    const TestTabWidget widget(m_camera->features());
    QCOMPARE(widget.m_featureManager->GetFeaturesList(), namesOf(*m_camera));
}

void tst_BaseTabPluginWidget::nullFeaturesOfTheHostAreSkipped()
{
    const QStringList names = namesOf(*m_camera);
    const TestTabWidget widget(withNullFeatures(*m_camera->features()));
    QCOMPARE(widget.m_featureManager->GetFeaturesList(), names);
}

void tst_BaseTabPluginWidget::managerOutlivesTheWidget()
{
    auto widget = std::make_unique<TestTabWidget>(m_camera->features());
    const FeatureManager* manager = widget->m_featureManager;
    widget.reset();
    QCOMPARE(manager->GetStringValue("DeviceVendorName"), QStringLiteral("Tarsel Imaging GmbH"));
}

void tst_BaseTabPluginWidget::constructionOnlyReadsTheVendor()
{
    m_camera->clearLog();
    const TestTabWidget widget(m_camera->features());
    QCOMPARE(m_camera->callCount("GetStringValue", "DeviceVendorName"), 2);
    QVERIFY(m_camera->writes().empty());
}

void tst_BaseTabPluginWidget::vendorRule_data()
{
    QTest::addColumn<QString>("vendor");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("the name itself") << "Tarsel Imaging" << true;
    QTest::newRow("with a company suffix") << "Tarsel Imaging GmbH" << true;
    QTest::newRow("with more letters") << "Tarsel Imaging2" << true;
    QTest::newRow("lower case") << "tarsel imaging gmbh" << false;
    QTest::newRow("upper case") << "TARSEL IMAGING" << false;
    QTest::newRow("not at the start") << " Tarsel Imaging" << false;
    QTest::newRow("only its beginning") << "Tarsel" << false;
    QTest::newRow("another vendor") << "Foreign Cameras Inc" << false;
    QTest::newRow("empty") << "" << false;
}

void tst_BaseTabPluginWidget::vendorRule()
{
    QFETCH(QString, vendor);
    QFETCH(bool, accepted);
    (*m_camera)["DeviceVendorName"].state().text = vendor.toStdString();
    QCOMPARE(!refusalOf(m_camera->features()), accepted);
}

void tst_BaseTabPluginWidget::cameraWithoutVendorIsRefused_data()
{
    QTest::addColumn<FeatureListMaker>("features");
    const auto row = [](const char* name, const FeatureListMaker& features) {
        QTest::newRow(name) << features;
    };
    row("no vendor feature", [](Fake::FakeCamera& fake) {
        fake.remove("DeviceVendorName");
        return fake.features();
    });
    row("vendor cannot be read", [](Fake::FakeCamera& fake) {
        fake.failCall("GetStringValue", "DeviceVendorName");
        return fake.features();
    });
    row("empty list",
        [](Fake::FakeCamera&) { return std::make_shared<std::vector<ZalCPP::FeaturePtr>>(); });
    row("null list", [](Fake::FakeCamera&) { return ZalCPP::FeatureList(); });
}

void tst_BaseTabPluginWidget::cameraWithoutVendorIsRefused()
{
    QFETCH(FeatureListMaker, features);
    QVERIFY(refusalOf(features(*m_camera)));
}

void tst_BaseTabPluginWidget::refusalSaysWhoWhyAndCode()
{
    (*m_camera)["DeviceVendorName"].state().text = "Foreign";
    const auto refusal = refusalOf(m_camera->features());
    QVERIFY(refusal);
    QCOMPARE(refusal->className, QStringLiteral("BaseTabPluginWidget"));
    QCOMPARE(refusal->message,
             QStringLiteral("Vendor not supported for plugins, widget not created."));
    QCOMPARE(refusal->code, 4);
}

void tst_BaseTabPluginWidget::refusalIsTranslated()
{
    (*m_camera)["DeviceVendorName"].state().text = "Foreign";
    FixedTranslator translator;
    QCoreApplication::installTranslator(&translator);
    const auto refusal = refusalOf(m_camera->features());
    QCoreApplication::removeTranslator(&translator);
    QVERIFY(refusal);
    QCOMPARE(refusal->message, QStringLiteral("Hersteller nicht unterstützt."));
}

void tst_BaseTabPluginWidget::refusedWidgetLeavesItsParent()
{
    QWidget parent;
    (*m_camera)["DeviceVendorName"].state().text = "Foreign";
    QVERIFY(refusalOf(m_camera->features(), &parent));
    QVERIFY(parent.children().isEmpty());
}

void tst_BaseTabPluginWidget::constructionSilencesTheLog()
{
    const LogCapture log;
    qWarning("before");
    const TestTabWidget widget(m_camera->features());
    qWarning("after");
    QCOMPARE(log.lines(), QStringList{"default/warning before"});
}

// The handler comes before the vendor check and stays although there is no widget.
void tst_BaseTabPluginWidget::refusalSilencesTheLogToo()
{
    (*m_camera)["DeviceVendorName"].state().text = "Foreign";
    const LogCapture log;
    QVERIFY(refusalOf(m_camera->features()));
    qWarning("after");
    QCOMPARE(log.lines(), QStringList());
}

void tst_BaseTabPluginWidget::takesFocusByTabAndClick()
{
    QCOMPARE(TestTabWidget(m_camera->features()).focusPolicy(), Qt::StrongFocus);
}

// The run of 44 blanks belongs to the text.
void tst_BaseTabPluginWidget::styleSheetGreysDisabledControls()
{
    const TestTabWidget widget(m_camera->features());
    const QString expected = "QPushButton:disabled, QLineEdit:disabled, QComboBox:disabled, "
                             "QDoubleSpinBox:disabled," +
                             QString(44, ' ') +
                             "QSpinBox:disabled, QwtSlider:disabled, QGroupBox:disabled, "
                             "QLabel:disabled { color: gray }";
    QCOMPARE(widget.styleSheet(), expected);
}

void tst_BaseTabPluginWidget::metaObjectOffersSignalAndSlots()
{
    const QMetaObject& meta = BaseTabPluginWidget::staticMetaObject;
    const auto method = [&](const char* signature) {
        return meta.method(meta.indexOfMethod(signature));
    };
    QCOMPARE(method("resetFPS()").methodType(), QMetaMethod::Signal);
    QCOMPARE(method("resetFPS()").access(), QMetaMethod::Public);
    QCOMPARE(method("updateTimer()").methodType(), QMetaMethod::Slot);
    QCOMPARE(method("updateTimer()").access(), QMetaMethod::Protected);
    QCOMPARE(method("OnFeatureChanged(QString,QString)").methodType(), QMetaMethod::Slot);
    QCOMPARE(method("OnFeatureChanged(QString,QString)").access(), QMetaMethod::Private);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 3);
}

void tst_BaseTabPluginWidget::ownVirtualFunctionsStandInOrder()
{
    const std::vector<std::size_t> places = TestTabWidget::ownVirtualSlots();
    const std::vector<std::size_t> expected = {places[0], places[0] + 1, places[0] + 2};
    QCOMPARE(places, expected);
}

void tst_BaseTabPluginWidget::darkModeByLightness_data()
{
    QTest::addColumn<int>("lightness");
    QTest::addColumn<bool>("dark");
    QTest::newRow("black") << 0 << true;
    QTest::newRow("just dark") << 99 << true;
    QTest::newRow("just light") << 100 << false;
    QTest::newRow("white") << 255 << false;
}

void tst_BaseTabPluginWidget::darkModeByLightness()
{
    QFETCH(int, lightness);
    TestTabWidget widget(m_camera->features());
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Window, QColor(lightness, lightness, lightness));
    widget.setPalette(palette);
    QTEST(widget.isDarkMode(), "dark");
}

void tst_BaseTabPluginWidget::darkModeLooksAtTheCurrentColourGroup()
{
    TestTabWidget widget(m_camera->features());
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Window, Qt::white);
    palette.setColor(QPalette::Disabled, QPalette::Window, Qt::black);
    widget.setPalette(palette);
    QVERIFY(!widget.isDarkMode());
    widget.setEnabled(false);
    QVERIFY(widget.isDarkMode());
}

void tst_BaseTabPluginWidget::paletteChangeRecoloursControls()
{
    TestTabWidget widget(m_camera->features());
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Window, Qt::black);
    widget.setPalette(palette);
    QCOMPARE(widget.recolourings, 1);
}

void tst_BaseTabPluginWidget::otherChangesDoNotRecolour_data()
{
    QTest::addColumn<QEvent::Type>("type");
    QTest::newRow("enabled") << QEvent::EnabledChange;
    QTest::newRow("language") << QEvent::LanguageChange;
    QTest::newRow("application palette") << QEvent::ApplicationPaletteChange;
    QTest::newRow("window title") << QEvent::WindowTitleChange;
}

void tst_BaseTabPluginWidget::otherChangesDoNotRecolour()
{
    QFETCH(QEvent::Type, type);
    TestTabWidget widget(m_camera->features());
    QEvent event(type);
    QCoreApplication::sendEvent(&widget, &event);
    QCOMPARE(widget.recolourings, 0);
}

// QWidget answers a change of font with a new layout of the parent.
void tst_BaseTabPluginWidget::changesReachTheBaseClass()
{
    QWidget parent;
    auto* widget = new TestTabWidget(m_camera->features(), &parent);
    QVBoxLayout layout(&parent);
    layout.addWidget(widget);
    layout.activate();
    QVERIFY2(!layout.activate(), "the layout is up to date");

    QEvent event(QEvent::FontChange);
    QCoreApplication::sendEvent(widget, &event);
    QVERIFY(layout.activate());
}

QTEST_MAIN(tst_BaseTabPluginWidget)
#include "tst_BaseTabPluginWidget.moc"
