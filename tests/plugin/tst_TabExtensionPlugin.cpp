#include "plugin/TabExtensionPlugin.h"

#include "plugin/TabExtensionException.h"
#include "tests/plugin/HostWindow.h"
#include "tests/support/FakeCamera.h"
#include "tests/support/LogCapture.h"
#include "tests/support/VirtualSlot.h"
#include "ui/AdvTriggerWidget.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>

namespace {

using Options = QMap<QString, QVariant>;

/// Throws while a tab is under construction.
template <class Exception> class ThrowingFeature : public Fake::FakeFeature
{
public:
    template <typename... Arguments>
    explicit ThrowingFeature(const Exception& toThrow, Arguments&&... arguments)
        : FakeFeature(std::forward<Arguments>(arguments)...), exception(toThrow)
    {
    }
    ZalErrorType GetName(char*, std::uint32_t&) const override { throw exception; }

private:
    Exception exception;
};

/// Captures the log from its first use on: a tab under construction silences the log, then looks
/// its features up.
class CapturingFeature : public Fake::FakeFeature
{
public:
    using FakeFeature::FakeFeature;
    ZalErrorType GetName(char* buffer, std::uint32_t& count) const override
    {
        if (!capture)
            capture.emplace();
        return FakeFeature::GetName(buffer, count);
    }
    bool sawAConnectionFail() const
    {
        return !capture.value().lines().filter("QObject::connect").isEmpty();
    }

private:
    mutable std::optional<LogCapture> capture;
};

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
        return plugin.get(camera->features(), *host->container, options);
    }

    TabExtensionPlugin plugin;
    std::unique_ptr<Fake::FakeCamera> camera;
    std::unique_ptr<HostWindow> host;
};

void tst_TabExtensionPlugin::init()
{
    camera = Fake::FakeCamera::standard();
    host = std::make_unique<HostWindow>();
}

void tst_TabExtensionPlugin::cleanup()
{
    host.reset();
}

void tst_TabExtensionPlugin::hasNoParent()
{
    QVERIFY(!plugin.parent());
}

void tst_TabExtensionPlugin::addsNoSignalsSlotsOrProperties()
{
    const QMetaObject* meta = plugin.metaObject();
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
    QObject* object = &plugin;
    void* expected = itself ? &plugin : nullptr;
    QCOMPARE(object->qt_metacast(name.constData()), expected);
    QCOMPARE(qobject_cast<TabExtensionInterface*>(object), &plugin);
}

void tst_TabExtensionPlugin::getBuildsTabAndNoticeSideBySide()
{
    Options empty;
    QCOMPARE(get(&empty), 0);

    auto* row = qobject_cast<QHBoxLayout*>(host->container->layout());
    QVERIFY(row);
    QCOMPARE(row->count(), 2);
    QCOMPARE(row->itemAt(0)->widget(), tabIn(*host->container));
    QVERIFY(tabIn(*host->container));

    auto* column = qobject_cast<QVBoxLayout*>(row->itemAt(1)->layout());
    QVERIFY(column);
    QCOMPARE(column->count(), 2);
    QCOMPARE(column->itemAt(0)->widget(), noticeIn(*host->container));
    QVERIFY(column->itemAt(1)->spacerItem());
    QCOMPARE(column->stretch(1), 0);
}

void tst_TabExtensionPlugin::tabFillsItsContainer()
{
    QCOMPARE(get(), 0);
    host->resize(600, 800);
    host->container->resize(600, 800);
    host->show();
    QCOMPARE(tabIn(*host->container)->geometry(), host->container->rect());
}

void tst_TabExtensionPlugin::noticeIsHiddenAndReady()
{
    QCOMPARE(get(), 0);
    const QLabel* notice = noticeIn(*host->container);
    QVERIFY(notice);
    QCOMPARE(notice->parentWidget(), host->container);
    QCOMPARE(notice->text(), QStringLiteral("Please use the Advanced Trigger Dialog."));
    QCOMPARE(notice->alignment(), Qt::AlignCenter);
    QCOMPARE(notice->styleSheet(), QStringLiteral("font: bold 10px;"));
    host->show();
    QVERIFY(!notice->isVisible());
    QVERIFY(tabIn(*host->container)->isVisible());
}

void tst_TabExtensionPlugin::noticeFollowsTheDialog()
{
    QCOMPARE(get(), 0);
    host->show();
    AdvTriggerWidget* tab = tabIn(*host->container);
    emit tab->dialogWindowDisplayed(true);
    QVERIFY(noticeIn(*host->container)->isVisible());
    emit tab->dialogWindowDisplayed(false);
    QVERIFY(!noticeIn(*host->container)->isVisible());
}

void tst_TabExtensionPlugin::streamingReachesTheTab()
{
    Options options = {{"connectWidgetToSignal", SIGNAL(streaming(bool))}};
    QCOMPARE(get(&options), 0);
    QVERIFY(presetsEnabled(*host->container));
    emit host->streaming(true);
    QVERIFY(!presetsEnabled(*host->container));
    emit host->streaming(false);
    QVERIFY(presetsEnabled(*host->container));
}

void tst_TabExtensionPlugin::signatureMayBeAnythingThatBecomesText()
{
    Options options = {{"connectWidgetToSignal", QByteArray("2otherState(bool)")}};
    QCOMPARE(get(&options), 0);
    emit host->streaming(true);
    QVERIFY(presetsEnabled(*host->container));
    emit host->otherState(true);
    QVERIFY(!presetsEnabled(*host->container));
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
    QVERIFY(tabIn(*host->container));
    QVERIFY(noticeIn(*host->container));
    emit host->streaming(true);
    emit host->otherState(true);
    QVERIFY(presetsEnabled(*host->container));
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
    const auto first = std::make_shared<CapturingFeature>(*camera, "First", ZalFeatureInteger);
    camera->features()->insert(camera->features()->begin(), first);
    QWidget orphan;
    Options options = {{"connectWidgetToSignal", signature}};
    QWidget& container = parent ? *host->container : orphan;
    QCOMPARE(plugin.get(camera->features(), container, &options), 0);
    QTEST(first->sawAConnectionFail(), "fails");
}

void tst_TabExtensionPlugin::containerWithoutParentGetsATabToo()
{
    QWidget container;
    Options options = {{"connectWidgetToSignal", SIGNAL(streaming(bool))}};
    QCOMPARE(plugin.get(camera->features(), container, &options), 0);
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
    (*camera)["DeviceVendorName"].state().text = vendor.toStdString();
    camera->remove(missing.toStdString());
    Options options = {{"connectWidgetToSignal", SIGNAL(streaming(bool))}};
    QCOMPARE(get(&options), 4);
    QVERIFY(!host->container->layout());
    QVERIFY(host->container->children().isEmpty());
    emit host->streaming(true);
}

void tst_TabExtensionPlugin::nullFeatureListIsRefused()
{
    QCOMPARE(plugin.get(nullptr, *host->container, nullptr), 4);
    QVERIFY(host->container->children().isEmpty());
}

void tst_TabExtensionPlugin::refusalDoesNotSpoilTheNextCamera()
{
    QCOMPARE(plugin.get(nullptr, *host->container, nullptr), 4);
    QCOMPARE(get(), 0);
    QVERIFY(tabIn(*host->container));
}

void tst_TabExtensionPlugin::everyRefusalGivesItsOwnCode()
{
    const auto refusing = std::make_shared<ThrowingFeature<TabExtensionException>>(
        TabExtensionException("Widget", "reason", 9), *camera, "Refusing", ZalFeatureInteger);
    camera->features()->insert(camera->features()->begin(), refusing);
    QCOMPARE(get(), 9);
    QVERIFY(host->container->children().isEmpty());
}

void tst_TabExtensionPlugin::otherExceptionsReachTheHost()
{
    const auto broken = std::make_shared<ThrowingFeature<std::runtime_error>>(
        std::runtime_error("broken"), *camera, "Broken", ZalFeatureInteger);
    camera->features()->insert(camera->features()->begin(), broken);
    QVERIFY_EXCEPTION_THROWN(get(), std::runtime_error);
    QVERIFY(!host->container->layout());
    QVERIFY(host->container->children().isEmpty());
}

void tst_TabExtensionPlugin::containerOwnsEverything()
{
    QCOMPARE(get(), 0);
    const QPointer<QWidget> tab(tabIn(*host->container));
    const QPointer<QLabel> notice(noticeIn(*host->container));
    const QPointer<QLayout> layout(host->container->layout());
    host.reset();
    QVERIFY(!tab);
    QVERIFY(!notice);
    QVERIFY(!layout);
}

void tst_TabExtensionPlugin::eachContainerGetsItsOwnTab()
{
    HostWindow second;
    QCOMPARE(get(), 0);
    QCOMPARE(plugin.get(camera->features(), *second.container, nullptr), 0);
    QVERIFY(tabIn(*second.container) != tabIn(*host->container));
    emit tabIn(*host->container)->dialogWindowDisplayed(true);
    QVERIFY(!noticeIn(*host->container)->isHidden());
    QVERIFY(noticeIn(*second.container)->isHidden());
}

void tst_TabExtensionPlugin::connectOperationsConnectNothing()
{
    QCOMPARE(get(), 0);
    host->show();
    const QSignalSpy relayed(host.get(), SIGNAL(streaming(bool)));
    QCOMPARE(plugin.connectToResetFps(host.get(), SLOT(hide())), false);
    QCOMPARE(plugin.connectFromAcquire(host.get(), SIGNAL(streaming(bool))), false);
    QCOMPARE(plugin.connectToResetFps(nullptr, nullptr), false);
    QCOMPARE(plugin.connectFromAcquire(nullptr, nullptr), false);

    AdvTriggerWidget* tab = tabIn(*host->container);
    emit tab->resetFPS();
    emit tab->dialogWindowDisplayed(true);
    QVERIFY(host->isVisible());
    QCOMPARE(relayed.count(), 0);
}

QTEST_MAIN(tst_TabExtensionPlugin)
#include "tst_TabExtensionPlugin.moc"
