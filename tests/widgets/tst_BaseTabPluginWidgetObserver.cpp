// Attaching the observer to the features and detaching it: filter, results, log lines.
#include "features/PluginFeatureObserver.h"
#include "tests/support/FakeCamera.h"
#include "tests/support/LogCapture.h"
#include "tests/widgets/TestTabWidget.h"

#include <QTest>
#include <QTimer>

#include <memory>

namespace {

const QString RegisterFailed =
    QStringLiteral("default/debug Could not register feature observer. Error code: %1\n");
const QString UnregisterFailed =
    QStringLiteral("default/debug Could not unregister feature observer. Error code: %1\n");

} // namespace

class tst_BaseTabPluginWidgetObserver : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void attachesToObservedFeaturesOnly();
    void walksTheListInOrderWithTwoCallsPerName();
    void namesAreCaseSensitive();
    void namesAreReadAsUtf8();
    void marksOnlyWhenAskedTo();
    void markingDoesNotLookForDoubles();
    void failedRegistrationIsLoggedMarkedAndPassedOver();
    void resultIsTheStatusOfTheLastCall_data();
    void resultIsTheStatusOfTheLastCall();
    void lastFeaturesOwnStatusIsTheResult();
    void featureWithoutReadableNameIsSkipped_data();
    void featureWithoutReadableNameIsSkipped();
    void detachesFromObservedFeaturesOnly();
    void featureNoLongerObservedStaysAttached();
    void failedDetachingIsLogged_data();
    void failedDetachingIsLogged();
    void pausingToleratesNoFailure();
    void noFeaturesIsMinusThreeWithALogLine_data();
    void noFeaturesIsMinusThreeWithALogLine();
    void nullFeaturesAreSkipped();
    void listOfNullFeaturesHoldsNone();
    void widgetsOwnHandlerHidesTheLogLines();
    void lostCameraEndsQuietly();

private:
    std::size_t observers(const char* feature) const { return (*camera)[feature].observerCount(); }

    std::unique_ptr<Fake::FakeCamera> camera;
    std::unique_ptr<TestTabWidget> widget;
};

// Vendor first; the last feature is one that nobody observes.
void tst_BaseTabPluginWidgetObserver::init()
{
    camera = std::make_unique<Fake::FakeCamera>();
    camera->addString("DeviceVendorName", "Tarsel Imaging GmbH");
    camera->addInteger("Width", 640);
    camera->addFloat("TriggerDelay", 1.0);
    camera->addBool("LineStatus", true);
    widget = std::make_unique<TestTabWidget>(camera->features());
    widget->m_observedFeatures = QStringList{"TriggerDelay", "Width"};
    camera->clearLog();
}

void tst_BaseTabPluginWidgetObserver::attachesToObservedFeaturesOnly()
{
    QCOMPARE(widget->RegisterFeatureObserver(false), 0);
    QCOMPARE(observers("DeviceVendorName"), std::size_t(0));
    QCOMPARE(observers("Width"), std::size_t(1));
    QCOMPARE(observers("TriggerDelay"), std::size_t(1));
    QCOMPARE(observers("LineStatus"), std::size_t(0));
    const std::shared_ptr<ZalCPP::IFeatureObserver> expected = widget->m_observer;
    QCOMPARE((*camera)["Width"].observers().front(), expected);
}

void tst_BaseTabPluginWidgetObserver::walksTheListInOrderWithTwoCallsPerName()
{
    widget->RegisterFeatureObserver(false);
    const std::vector<std::string> expected = {"GetName DeviceVendorName",
                                               "GetName DeviceVendorName",
                                               "GetName Width",
                                               "GetName Width",
                                               "RegisterObserver Width",
                                               "GetName TriggerDelay",
                                               "GetName TriggerDelay",
                                               "RegisterObserver TriggerDelay",
                                               "GetName LineStatus",
                                               "GetName LineStatus"};
    QCOMPARE(camera->calls(), expected);
}

void tst_BaseTabPluginWidgetObserver::namesAreCaseSensitive()
{
    widget->m_observedFeatures = QStringList{"width"};
    QCOMPARE(widget->RegisterFeatureObserver(true), 0);
    QCOMPARE(observers("Width"), std::size_t(0));
    QCOMPARE(*widget->m_changedFeatures, QStringList());
}

void tst_BaseTabPluginWidgetObserver::namesAreReadAsUtf8()
{
    camera->addInteger("Größe", 1);
    widget->m_observedFeatures = QStringList{QStringLiteral("Größe")};
    QCOMPARE(widget->RegisterFeatureObserver(true), 0);
    QCOMPARE(observers("Größe"), std::size_t(1));
}

void tst_BaseTabPluginWidgetObserver::marksOnlyWhenAskedTo()
{
    widget->RegisterFeatureObserver(false);
    QCOMPARE(*widget->m_changedFeatures, QStringList());
    widget->RegisterFeatureObserver(true);
    QCOMPARE(*widget->m_changedFeatures, QStringList({"Width", "TriggerDelay"}));
}

// Doubles are harmless: a refresh shows the same value twice.
void tst_BaseTabPluginWidgetObserver::markingDoesNotLookForDoubles()
{
    widget->RegisterFeatureObserver(true);
    widget->RegisterFeatureObserver(true);
    QCOMPARE(*widget->m_changedFeatures,
             QStringList({"Width", "TriggerDelay", "Width", "TriggerDelay"}));
    QCOMPARE(observers("Width"), std::size_t(1));
}

void tst_BaseTabPluginWidgetObserver::failedRegistrationIsLoggedMarkedAndPassedOver()
{
    camera->failCall("RegisterObserver", "Width", ZalErrorTransport);
    const LogCapture log;
    QCOMPARE(widget->RegisterFeatureObserver(true), 0);
    QCOMPARE(log.lines(), QStringList{RegisterFailed.arg(ZalErrorTransport)});
    QCOMPARE(*widget->m_changedFeatures, QStringList({"Width", "TriggerDelay"}));
    QCOMPARE(observers("TriggerDelay"), std::size_t(1));
}

void tst_BaseTabPluginWidgetObserver::resultIsTheStatusOfTheLastCall_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("feature");
    QTest::addColumn<int>("status");
    QTest::newRow("first name") << "GetName"
                                << "DeviceVendorName" << 0;
    QTest::newRow("an observed name") << "GetName"
                                      << "TriggerDelay" << 0;
    QTest::newRow("a registration") << "RegisterObserver"
                                    << "TriggerDelay" << 0;
    QTest::newRow("last name") << "GetName"
                               << "LineStatus" << -13;
}

void tst_BaseTabPluginWidgetObserver::resultIsTheStatusOfTheLastCall()
{
    QFETCH(QString, operation);
    QFETCH(QString, feature);
    camera->failCall(operation.toStdString(), feature.toStdString(), -13);
    QTEST(widget->RegisterFeatureObserver(false), "status");
}

void tst_BaseTabPluginWidgetObserver::lastFeaturesOwnStatusIsTheResult()
{
    widget->m_observedFeatures << QStringLiteral("LineStatus");
    camera->failCall("RegisterObserver", "LineStatus", ZalErrorNotOpen);
    camera->failCall("UnregisterObserver", "LineStatus", ZalErrorTimeout);
    QCOMPARE(widget->RegisterFeatureObserver(false), -5);
    QCOMPARE(widget->UnRegisterFeatureObserver(false), -12);
}

void tst_BaseTabPluginWidgetObserver::featureWithoutReadableNameIsSkipped_data()
{
    QTest::addColumn<int>("failingCall");
    QTest::newRow("its length") << 3;
    QTest::newRow("its text") << 4;
}

void tst_BaseTabPluginWidgetObserver::featureWithoutReadableNameIsSkipped()
{
    QFETCH(int, failingCall);
    camera->failNthCall(failingCall, ZalErrorTransport);
    const LogCapture log;
    QCOMPARE(widget->RegisterFeatureObserver(true), 0);
    QCOMPARE(*widget->m_changedFeatures, QStringList{"TriggerDelay"});
    QCOMPARE(observers("Width"), std::size_t(0));
    QCOMPARE(log.lines(), QStringList());
}

void tst_BaseTabPluginWidgetObserver::detachesFromObservedFeaturesOnly()
{
    widget->RegisterFeatureObserver(true);
    camera->clearLog();
    QCOMPARE(widget->UnRegisterFeatureObserver(false), 0);
    QCOMPARE(observers("Width"), std::size_t(0));
    QCOMPARE(observers("TriggerDelay"), std::size_t(0));
    QCOMPARE(camera->callCount("UnregisterObserver", "LineStatus"), 0);
    QCOMPARE(*widget->m_changedFeatures, QStringList({"Width", "TriggerDelay"}));
}

void tst_BaseTabPluginWidgetObserver::featureNoLongerObservedStaysAttached()
{
    widget->RegisterFeatureObserver(false);
    widget->m_observedFeatures.removeAll(QStringLiteral("Width"));
    widget->UnRegisterFeatureObserver(false);
    QCOMPARE(observers("Width"), std::size_t(1));
    QCOMPARE(observers("TriggerDelay"), std::size_t(0));
}

void tst_BaseTabPluginWidgetObserver::failedDetachingIsLogged_data()
{
    QTest::addColumn<bool>("tolerateNotOpen");
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("logged");
    QTest::newRow("not open") << false << -5 << true;
    QTest::newRow("not open, tolerated") << true << -5 << false;
    QTest::newRow("another failure") << false << -13 << true;
    QTest::newRow("another failure is not tolerated") << true << -13 << true;
    QTest::newRow("success") << false << 0 << false;
}

void tst_BaseTabPluginWidgetObserver::failedDetachingIsLogged()
{
    QFETCH(bool, tolerateNotOpen);
    QFETCH(int, status);
    QFETCH(bool, logged);
    widget->RegisterFeatureObserver(false);
    camera->failCall("UnregisterObserver", "Width", status);
    const LogCapture log;
    QCOMPARE(widget->UnRegisterFeatureObserver(tolerateNotOpen), 0);
    const QStringList expected = logged ? QStringList{UnregisterFailed.arg(status)} : QStringList();
    QCOMPARE(log.lines(), expected);
    QCOMPARE(observers("TriggerDelay"), std::size_t(0));
}

void tst_BaseTabPluginWidgetObserver::pausingToleratesNoFailure()
{
    widget->RegisterFeatureObserver(false);
    camera->failCall("UnregisterObserver", "Width", ZalErrorNotOpen);
    const LogCapture log;
    widget->pauseUpdateTimer();
    QCOMPARE(log.lines(), QStringList{UnregisterFailed.arg(ZalErrorNotOpen)});
}

void tst_BaseTabPluginWidgetObserver::noFeaturesIsMinusThreeWithALogLine_data()
{
    QTest::addColumn<bool>("nullList");
    QTest::newRow("empty list") << false;
    QTest::newRow("null list") << true;
}

void tst_BaseTabPluginWidgetObserver::noFeaturesIsMinusThreeWithALogLine()
{
    QFETCH(bool, nullList);
    if (nullList)
        widget->m_features = nullptr;
    else
        camera->features()->clear();
    const LogCapture log;
    QCOMPARE(widget->RegisterFeatureObserver(true), -3);
    QCOMPARE(widget->UnRegisterFeatureObserver(true), -3);
    const QString line = "default/debug Could not get features. Error code: -3\n";
    QCOMPARE(log.lines(), QStringList({line, line}));
    QCOMPARE(*widget->m_changedFeatures, QStringList());
    QVERIFY(camera->calls().empty());
}

void tst_BaseTabPluginWidgetObserver::nullFeaturesAreSkipped()
{
    camera->features()->insert(camera->features()->begin() + 1, nullptr);
    camera->features()->push_back(nullptr);
    QCOMPARE(widget->RegisterFeatureObserver(true), 0);
    QCOMPARE(*widget->m_changedFeatures, QStringList({"Width", "TriggerDelay"}));
    QCOMPARE(observers("TriggerDelay"), std::size_t(1));
    QCOMPARE(widget->UnRegisterFeatureObserver(false), 0);
    QCOMPARE(observers("TriggerDelay"), std::size_t(0));
}

void tst_BaseTabPluginWidgetObserver::listOfNullFeaturesHoldsNone()
{
    camera->features()->assign(2, nullptr);
    QCOMPARE(widget->RegisterFeatureObserver(true), -3);
    QCOMPARE(widget->UnRegisterFeatureObserver(false), -3);
}

// Without a capture the process stays silent.
void tst_BaseTabPluginWidgetObserver::widgetsOwnHandlerHidesTheLogLines()
{
    const LogCapture log;
    const TestTabWidget another(camera->features());
    camera->failCall("RegisterObserver", "Width", ZalErrorTransport);
    widget->RegisterFeatureObserver(false);
    QCOMPARE(log.lines(), QStringList());
}

void tst_BaseTabPluginWidgetObserver::lostCameraEndsQuietly()
{
    widget->show();
    camera->failEverything(ZalErrorNotOpen);
    widget->hide();
    QVERIFY(!widget->m_updateTimer->isActive());
    QCOMPARE(*widget->m_changedFeatures, QStringList());
    QCOMPARE(widget->RegisterFeatureObserver(true), -5);
    QCOMPARE(*widget->m_changedFeatures, QStringList());
}

QTEST_MAIN(tst_BaseTabPluginWidgetObserver)
#include "tst_BaseTabPluginWidgetObserver.moc"
