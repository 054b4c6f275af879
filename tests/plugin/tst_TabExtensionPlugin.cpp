#include "plugin/TabExtensionPlugin.h"

#include "plugin/TabExtensionException.h"
#include "tests/plugin/AwkwardFeatures.h"
#include "tests/plugin/HostWindow.h"
#include "tests/support/FakeCamera.h"
#include "tests/support/VirtualSlot.h"
#include "ui/AdvTriggerWidget.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <stdexcept>

namespace {

using Options = QMap<QString, QVariant>;

AdvTriggerWidget* tabIn(const QWidget& container)
{
    return container.findChild<AdvTriggerWidget*>(QString(), Qt::FindDirectChildrenOnly);
}

QLabel* noticeIn(const QWidget& container)
{
    return container.findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
}

bool presetsEnabled(const QWidget& container)
{
    return container.findChild<QComboBox*>("cmbSelectPreset")->isEnabled();
}

} // namespace

class tst_TabExtensionPlugin : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void hasNoParent();
    void addsNoSignalsSlotsOrProperties();
    void operationsFollowThoseOfQObjectInOrder();
    void answersToItsNameAndTheInterface_data();
    void answersToItsNameAndTheInterface();
    void getBuildsTabAndNoticeSideBySide();
    void tabFillsItsContainer();
    void noticeIsHiddenAndReady();
    void noticeFollowsTheDialog();
    void streamingReachesTheTab();
    void signatureMayBeAnythingThatBecomesText();
    void withoutUsableSignalTheTabNeverHearsOfStreaming_data();
    void withoutUsableSignalTheTabNeverHearsOfStreaming();
    void connectingIsAttemptedOnlyWithAParent_data();
    void connectingIsAttemptedOnlyWithAParent();
    void containerWithoutParentGetsATabToo();
    void refusedCameraLeavesTheContainerAsItWas_data();
    void refusedCameraLeavesTheContainerAsItWas();
    void nullFeatureListIsRefused();
    void refusalDoesNotSpoilTheNextCamera();
    void everyRefusalGivesItsOwnCode();
    void otherExceptionsReachTheHost();
    void containerOwnsEverything();
    void eachContainerGetsItsOwnTab();
    void connectOperationsConnectNothing();

private:
    int get(Options* options = nullptr)
    {
        return m_plugin.get(m_camera->features(), *m_host->container, options);
    }

    TabExtensionPlugin m_plugin;
    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<HostWindow> m_host;
};

void tst_TabExtensionPlugin::init()
{
    m_camera = Fake::FakeCamera::standard();
    m_host = std::make_unique<HostWindow>();
}

void tst_TabExtensionPlugin::cleanup()
{
    m_host.reset();
}

void tst_TabExtensionPlugin::hasNoParent()
{
    QVERIFY(!m_plugin.parent());
}

void tst_TabExtensionPlugin::addsNoSignalsSlotsOrProperties()
{
    const QMetaObject* meta = m_plugin.metaObject();
    QCOMPARE(meta->className(), "TabExtensionPlugin");
    QCOMPARE(meta->superClass(), &QObject::staticMetaObject);
    QCOMPARE(meta->methodCount(), QObject::staticMetaObject.methodCount());
    QCOMPARE(meta->propertyCount(), QObject::staticMetaObject.propertyCount());
}

// Hosts call by place: they share the header with the plugin, not a build.
void tst_TabExtensionPlugin::operationsFollowThoseOfQObjectInOrder()
{
    constexpr std::size_t QObjectSlots = 12;
    QCOMPARE(virtualSlot(&TabExtensionInterface::get), QObjectSlots);
    QCOMPARE(virtualSlot(&TabExtensionInterface::connectToResetFps), QObjectSlots + 1);
    QCOMPARE(virtualSlot(&TabExtensionInterface::connectFromAcquire), QObjectSlots + 2);
}

void tst_TabExtensionPlugin::answersToItsNameAndTheInterface_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("itself");
    QTest::newRow("class") << QByteArray("TabExtensionPlugin") << true;
    QTest::newRow("interface") << QByteArray("com.tarselimaging.Plugin.TabExtensionInterface/1.0")
                               << true;
    QTest::newRow("base object") << QByteArray("QObject") << true;
    QTest::newRow("interface's class") << QByteArray("TabExtensionInterface") << false;
    QTest::newRow("another version")
        << QByteArray("com.tarselimaging.Plugin.TabExtensionInterface/1.1") << false;
    QTest::newRow("another prefix")
        << QByteArray("org.example.Plugin.TabExtensionInterface/1.0") << false;
    QTest::newRow("empty") << QByteArray("") << false;
}

void tst_TabExtensionPlugin::answersToItsNameAndTheInterface()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, itself);
    QObject* object = &m_plugin;
    void* expected = itself ? &m_plugin : nullptr;
    QCOMPARE(object->qt_metacast(name.constData()), expected);
    QCOMPARE(qobject_cast<TabExtensionInterface*>(object), &m_plugin);
}

void tst_TabExtensionPlugin::getBuildsTabAndNoticeSideBySide()
{
    Options empty;
    QCOMPARE(get(&empty), 0);

    auto* row = qobject_cast<QHBoxLayout*>(m_host->container->layout());
    QVERIFY(row);
    QCOMPARE(row->count(), 2);
    QCOMPARE(row->itemAt(0)->widget(), tabIn(*m_host->container));
    QVERIFY(tabIn(*m_host->container));

    auto* column = qobject_cast<QVBoxLayout*>(row->itemAt(1)->layout());
    QVERIFY(column);
    QCOMPARE(column->count(), 2);
    QCOMPARE(column->itemAt(0)->widget(), noticeIn(*m_host->container));
    QVERIFY(column->itemAt(1)->spacerItem());
    QCOMPARE(column->stretch(1), 0);
}

void tst_TabExtensionPlugin::tabFillsItsContainer()
{
    QCOMPARE(get(), 0);
    m_host->resize(600, 800);
    m_host->container->resize(600, 800);
    m_host->show();
    QCOMPARE(tabIn(*m_host->container)->geometry(), m_host->container->rect());
}

void tst_TabExtensionPlugin::noticeIsHiddenAndReady()
{
    QCOMPARE(get(), 0);
    const QLabel* notice = noticeIn(*m_host->container);
    QVERIFY(notice);
    QCOMPARE(notice->parentWidget(), m_host->container);
    QCOMPARE(notice->text(), QStringLiteral("Please use the Advanced Trigger Dialog."));
    QCOMPARE(notice->alignment(), Qt::AlignCenter);
    QCOMPARE(notice->styleSheet(), QStringLiteral("font: bold 10px;"));
    m_host->show();
    QVERIFY(!notice->isVisible());
    QVERIFY(tabIn(*m_host->container)->isVisible());
}

void tst_TabExtensionPlugin::noticeFollowsTheDialog()
{
    QCOMPARE(get(), 0);
    m_host->show();
    AdvTriggerWidget* tab = tabIn(*m_host->container);
    emit tab->dialogWindowDisplayed(true);
    QVERIFY(noticeIn(*m_host->container)->isVisible());
    emit tab->dialogWindowDisplayed(false);
    QVERIFY(!noticeIn(*m_host->container)->isVisible());
}

void tst_TabExtensionPlugin::streamingReachesTheTab()
{
    Options options = {{"connectWidgetToSignal", SIGNAL(streaming(bool))}};
    QCOMPARE(get(&options), 0);
    QVERIFY(presetsEnabled(*m_host->container));
    emit m_host->streaming(true);
    QVERIFY(!presetsEnabled(*m_host->container));
    emit m_host->streaming(false);
    QVERIFY(presetsEnabled(*m_host->container));
}

void tst_TabExtensionPlugin::signatureMayBeAnythingThatBecomesText()
{
    Options options = {{"connectWidgetToSignal", QByteArray("2otherState(bool)")}};
    QCOMPARE(get(&options), 0);
    emit m_host->streaming(true);
    QVERIFY(presetsEnabled(*m_host->container));
    emit m_host->otherState(true);
    QVERIFY(!presetsEnabled(*m_host->container));
}

void tst_TabExtensionPlugin::withoutUsableSignalTheTabNeverHearsOfStreaming_data()
{
    QTest::addColumn<bool>("nullOptions");
    QTest::addColumn<Options>("options");
    const QString key = "connectWidgetToSignal";
    QTest::newRow("options null") << true << Options();
    QTest::newRow("without the key") << false << Options{{"another", "2streaming(bool)"}};
    QTest::newRow("empty text") << false << Options{{key, ""}};
    QTest::newRow("invalid value") << false << Options{{key, QVariant()}};
    QTest::newRow("no text at all") << false << Options{{key, QVariantList{1, 2}}};
    QTest::newRow("unencoded signature") << false << Options{{key, "streaming(bool)"}};
    QTest::newRow("unknown signal") << false << Options{{key, "2unknown(bool)"}};
    QTest::newRow("encoded as a slot") << false << Options{{key, "1streaming(bool)"}};
}

void tst_TabExtensionPlugin::withoutUsableSignalTheTabNeverHearsOfStreaming()
{
    QFETCH(bool, nullOptions);
    QFETCH(Options, options);
    QCOMPARE(get(nullOptions ? nullptr : &options), 0);
    QVERIFY(tabIn(*m_host->container));
    QVERIFY(noticeIn(*m_host->container));
    emit m_host->streaming(true);
    emit m_host->otherState(true);
    QVERIFY(presetsEnabled(*m_host->container));
}

void tst_TabExtensionPlugin::connectingIsAttemptedOnlyWithAParent_data()
{
    QTest::addColumn<bool>("parent");
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<bool>("fails");
    QTest::newRow("empty signature") << true << QByteArray() << true;
    QTest::newRow("unknown signal") << true << QByteArray("2unknown(bool)") << true;
    QTest::newRow("good signal") << true << QByteArray("2streaming(bool)") << false;
    QTest::newRow("no parent, empty signature") << false << QByteArray() << false;
    QTest::newRow("no parent, good signal") << false << QByteArray("2streaming(bool)") << false;
}

void tst_TabExtensionPlugin::connectingIsAttemptedOnlyWithAParent()
{
    QFETCH(bool, parent);
    QFETCH(QByteArray, signature);
    const auto first = std::make_shared<CapturingFeature>(*m_camera, "First", ZalFeatureInteger);
    m_camera->features()->insert(m_camera->features()->begin(), first);
    QWidget orphan;
    Options options = {{"connectWidgetToSignal", signature}};
    QWidget& container = parent ? *m_host->container : orphan;
    QCOMPARE(m_plugin.get(m_camera->features(), container, &options), 0);
    QTEST(first->sawAConnectionFail(), "fails");
}

void tst_TabExtensionPlugin::containerWithoutParentGetsATabToo()
{
    QWidget container;
    Options options = {{"connectWidgetToSignal", SIGNAL(streaming(bool))}};
    QCOMPARE(m_plugin.get(m_camera->features(), container, &options), 0);
    QVERIFY(tabIn(container));
    QVERIFY(noticeIn(container));
    QVERIFY(presetsEnabled(container));
}

void tst_TabExtensionPlugin::refusedCameraLeavesTheContainerAsItWas_data()
{
    QTest::addColumn<QString>("vendor");
    QTest::addColumn<QString>("missing");
    const QString ours = "Tarsel Imaging GmbH";
    QTest::newRow("another vendor") << "Foreign" << QString();
    QTest::newRow("no vendor") << ours << "DeviceVendorName";
    QTest::newRow("no trigger selector") << ours << "TriggerSelector";
    QTest::newRow("no line selector") << ours << "LineSelector";
    QTest::newRow("no line mode") << ours << "LineMode";
}

void tst_TabExtensionPlugin::refusedCameraLeavesTheContainerAsItWas()
{
    QFETCH(QString, vendor);
    QFETCH(QString, missing);
    (*m_camera)["DeviceVendorName"].state().text = vendor.toStdString();
    m_camera->remove(missing.toStdString());
    Options options = {{"connectWidgetToSignal", SIGNAL(streaming(bool))}};
    QCOMPARE(get(&options), 4);
    QVERIFY(!m_host->container->layout());
    QVERIFY(m_host->container->children().isEmpty());
    emit m_host->streaming(true);
}

void tst_TabExtensionPlugin::nullFeatureListIsRefused()
{
    QCOMPARE(m_plugin.get(nullptr, *m_host->container, nullptr), 4);
    QVERIFY(m_host->container->children().isEmpty());
}

void tst_TabExtensionPlugin::refusalDoesNotSpoilTheNextCamera()
{
    QCOMPARE(m_plugin.get(nullptr, *m_host->container, nullptr), 4);
    QCOMPARE(get(), 0);
    QVERIFY(tabIn(*m_host->container));
}

void tst_TabExtensionPlugin::everyRefusalGivesItsOwnCode()
{
    const auto refusing = std::make_shared<ThrowingFeature<TabExtensionException>>(
        TabExtensionException("Widget", "reason", 9), *m_camera, "Refusing", ZalFeatureInteger);
    m_camera->features()->insert(m_camera->features()->begin(), refusing);
    QCOMPARE(get(), 9);
    QVERIFY(m_host->container->children().isEmpty());
}

void tst_TabExtensionPlugin::otherExceptionsReachTheHost()
{
    const auto broken = std::make_shared<ThrowingFeature<std::runtime_error>>(
        std::runtime_error("broken"), *m_camera, "Broken", ZalFeatureInteger);
    m_camera->features()->insert(m_camera->features()->begin(), broken);
    QVERIFY_EXCEPTION_THROWN(get(), std::runtime_error);
    QVERIFY(!m_host->container->layout());
    QVERIFY(m_host->container->children().isEmpty());
}

void tst_TabExtensionPlugin::containerOwnsEverything()
{
    QCOMPARE(get(), 0);
    const QPointer<QWidget> tab(tabIn(*m_host->container));
    const QPointer<QLabel> notice(noticeIn(*m_host->container));
    const QPointer<QLayout> layout(m_host->container->layout());
    m_host.reset();
    QVERIFY(!tab);
    QVERIFY(!notice);
    QVERIFY(!layout);
}

void tst_TabExtensionPlugin::eachContainerGetsItsOwnTab()
{
    HostWindow second;
    QCOMPARE(get(), 0);
    QCOMPARE(m_plugin.get(m_camera->features(), *second.container, nullptr), 0);
    QVERIFY(tabIn(*second.container) != tabIn(*m_host->container));
    emit tabIn(*m_host->container)->dialogWindowDisplayed(true);
    QVERIFY(!noticeIn(*m_host->container)->isHidden());
    QVERIFY(noticeIn(*second.container)->isHidden());
}

void tst_TabExtensionPlugin::connectOperationsConnectNothing()
{
    QCOMPARE(get(), 0);
    m_host->show();
    const QSignalSpy relayed(m_host.get(), SIGNAL(streaming(bool)));
    QCOMPARE(m_plugin.connectToResetFps(m_host.get(), SLOT(hide())), false);
    QCOMPARE(m_plugin.connectFromAcquire(m_host.get(), SIGNAL(streaming(bool))), false);
    QCOMPARE(m_plugin.connectToResetFps(nullptr, nullptr), false);
    QCOMPARE(m_plugin.connectFromAcquire(nullptr, nullptr), false);

    AdvTriggerWidget* tab = tabIn(*m_host->container);
    emit tab->resetFPS();
    emit tab->dialogWindowDisplayed(true);
    QVERIFY(m_host->isVisible());
    QCOMPARE(relayed.count(), 0);
}

QTEST_MAIN(tst_TabExtensionPlugin)
#include "tst_TabExtensionPlugin.moc"
