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
    std::size_t observers(const char* feature) const
    {
        return (*m_camera)[feature].observerCount();
    }

    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<TestTabWidget> m_widget;
};

// Vendor first; the last feature is one that nobody observes.
void tst_BaseTabPluginWidgetObserver::init()
{
    m_camera = std::make_unique<Fake::FakeCamera>();
    m_camera->addString("DeviceVendorName", "Tarsel Imaging GmbH");
    m_camera->addInteger("Width", 640);
    m_camera->addFloat("TriggerDelay", 1.0);
    m_camera->addBool("LineStatus", true);
    m_widget = std::make_unique<TestTabWidget>(m_camera->features());
    m_widget->m_observedFeatures = QStringList{"TriggerDelay", "Width"};
    m_camera->clearLog();
}

void tst_BaseTabPluginWidgetObserver::attachesToObservedFeaturesOnly()
{
    QCOMPARE(m_widget->RegisterFeatureObserver(false), 0);
    QCOMPARE(observers("DeviceVendorName"), std::size_t(0));
    QCOMPARE(observers("Width"), std::size_t(1));
    QCOMPARE(observers("TriggerDelay"), std::size_t(1));
    QCOMPARE(observers("LineStatus"), std::size_t(0));
    const std::shared_ptr<ZalCPP::IFeatureObserver> expected = m_widget->m_observer;
    QCOMPARE((*m_camera)["Width"].observers().front(), expected);
}

void tst_BaseTabPluginWidgetObserver::walksTheListInOrderWithTwoCallsPerName()
{
    m_widget->RegisterFeatureObserver(false);
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
    QCOMPARE(m_camera->calls(), expected);
}

void tst_BaseTabPluginWidgetObserver::namesAreCaseSensitive()
{
    m_widget->m_observedFeatures = QStringList{"width"};
    QCOMPARE(m_widget->RegisterFeatureObserver(true), 0);
    QCOMPARE(observers("Width"), std::size_t(0));
    QCOMPARE(*m_widget->m_changedFeatures, QStringList());
}

void tst_BaseTabPluginWidgetObserver::namesAreReadAsUtf8()
{
    m_camera->addInteger("Größe", 1);
    m_widget->m_observedFeatures = QStringList{QStringLiteral("Größe")};
    QCOMPARE(m_widget->RegisterFeatureObserver(true), 0);
    QCOMPARE(observers("Größe"), std::size_t(1));
}

void tst_BaseTabPluginWidgetObserver::marksOnlyWhenAskedTo()
{
    m_widget->RegisterFeatureObserver(false);
    QCOMPARE(*m_widget->m_changedFeatures, QStringList());
    m_widget->RegisterFeatureObserver(true);
    QCOMPARE(*m_widget->m_changedFeatures, QStringList({"Width", "TriggerDelay"}));
}

// Doubles are harmless: a refresh shows the same value twice.
void tst_BaseTabPluginWidgetObserver::markingDoesNotLookForDoubles()
{
    m_widget->RegisterFeatureObserver(true);
    m_widget->RegisterFeatureObserver(true);
    QCOMPARE(*m_widget->m_changedFeatures,
             QStringList({"Width", "TriggerDelay", "Width", "TriggerDelay"}));
    QCOMPARE(observers("Width"), std::size_t(1));
}

void tst_BaseTabPluginWidgetObserver::failedRegistrationIsLoggedMarkedAndPassedOver()
{
    m_camera->failCall("RegisterObserver", "Width", ZalErrorTransport);
    const LogCapture log;
    QCOMPARE(m_widget->RegisterFeatureObserver(true), 0);
    QCOMPARE(log.lines(), QStringList{RegisterFailed.arg(ZalErrorTransport)});
    QCOMPARE(*m_widget->m_changedFeatures, QStringList({"Width", "TriggerDelay"}));
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
    m_camera->failCall(operation.toStdString(), feature.toStdString(), -13);
    QTEST(m_widget->RegisterFeatureObserver(false), "status");
}

void tst_BaseTabPluginWidgetObserver::lastFeaturesOwnStatusIsTheResult()
{
    m_widget->m_observedFeatures << QStringLiteral("LineStatus");
    m_camera->failCall("RegisterObserver", "LineStatus", ZalErrorNotOpen);
    m_camera->failCall("UnregisterObserver", "LineStatus", ZalErrorTimeout);
    QCOMPARE(m_widget->RegisterFeatureObserver(false), -5);
    QCOMPARE(m_widget->UnRegisterFeatureObserver(false), -12);
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
    m_camera->failNthCall(failingCall, ZalErrorTransport);
    const LogCapture log;
    QCOMPARE(m_widget->RegisterFeatureObserver(true), 0);
    QCOMPARE(*m_widget->m_changedFeatures, QStringList{"TriggerDelay"});
    QCOMPARE(observers("Width"), std::size_t(0));
    QCOMPARE(log.lines(), QStringList());
}

void tst_BaseTabPluginWidgetObserver::detachesFromObservedFeaturesOnly()
{
    m_widget->RegisterFeatureObserver(true);
    m_camera->clearLog();
    QCOMPARE(m_widget->UnRegisterFeatureObserver(false), 0);
    QCOMPARE(observers("Width"), std::size_t(0));
    QCOMPARE(observers("TriggerDelay"), std::size_t(0));
    QCOMPARE(m_camera->callCount("UnregisterObserver", "LineStatus"), 0);
    QCOMPARE(*m_widget->m_changedFeatures, QStringList({"Width", "TriggerDelay"}));
}

void tst_BaseTabPluginWidgetObserver::featureNoLongerObservedStaysAttached()
{
    m_widget->RegisterFeatureObserver(false);
    m_widget->m_observedFeatures.removeAll(QStringLiteral("Width"));
    m_widget->UnRegisterFeatureObserver(false);
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
    m_widget->RegisterFeatureObserver(false);
    m_camera->failCall("UnregisterObserver", "Width", status);
    const LogCapture log;
    QCOMPARE(m_widget->UnRegisterFeatureObserver(tolerateNotOpen), 0);
    const QStringList expected = logged ? QStringList{UnregisterFailed.arg(status)} : QStringList();
    QCOMPARE(log.lines(), expected);
    QCOMPARE(observers("TriggerDelay"), std::size_t(0));
}

void tst_BaseTabPluginWidgetObserver::pausingToleratesNoFailure()
{
    m_widget->RegisterFeatureObserver(false);
    m_camera->failCall("UnregisterObserver", "Width", ZalErrorNotOpen);
    const LogCapture log;
    m_widget->pauseUpdateTimer();
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
        m_widget->m_features = nullptr;
    else
        m_camera->features()->clear();
    const LogCapture log;
    QCOMPARE(m_widget->RegisterFeatureObserver(true), -3);
    QCOMPARE(m_widget->UnRegisterFeatureObserver(true), -3);
    const QString line = "default/debug Could not get features. Error code: -3\n";
    QCOMPARE(log.lines(), QStringList({line, line}));
    QCOMPARE(*m_widget->m_changedFeatures, QStringList());
    QVERIFY(m_camera->calls().empty());
}

void tst_BaseTabPluginWidgetObserver::nullFeaturesAreSkipped()
{
    m_camera->features()->insert(m_camera->features()->begin() + 1, nullptr);
    m_camera->features()->push_back(nullptr);
    QCOMPARE(m_widget->RegisterFeatureObserver(true), 0);
    QCOMPARE(*m_widget->m_changedFeatures, QStringList({"Width", "TriggerDelay"}));
    QCOMPARE(observers("TriggerDelay"), std::size_t(1));
    QCOMPARE(m_widget->UnRegisterFeatureObserver(false), 0);
    QCOMPARE(observers("TriggerDelay"), std::size_t(0));
}

void tst_BaseTabPluginWidgetObserver::listOfNullFeaturesHoldsNone()
{
    m_camera->features()->assign(2, nullptr);
    QCOMPARE(m_widget->RegisterFeatureObserver(true), -3);
    QCOMPARE(m_widget->UnRegisterFeatureObserver(false), -3);
}

// Without a capture the process stays silent.
void tst_BaseTabPluginWidgetObserver::widgetsOwnHandlerHidesTheLogLines()
{
    const LogCapture log;
    const TestTabWidget another(m_camera->features());
    m_camera->failCall("RegisterObserver", "Width", ZalErrorTransport);
    m_widget->RegisterFeatureObserver(false);
    QCOMPARE(log.lines(), QStringList());
}

void tst_BaseTabPluginWidgetObserver::lostCameraEndsQuietly()
{
    m_widget->show();
    m_camera->failEverything(ZalErrorNotOpen);
    m_widget->hide();
    QVERIFY(!m_widget->m_updateTimer->isActive());
    QCOMPARE(*m_widget->m_changedFeatures, QStringList());
    QCOMPARE(m_widget->RegisterFeatureObserver(true), -5);
    QCOMPARE(*m_widget->m_changedFeatures, QStringList());
}

QTEST_MAIN(tst_BaseTabPluginWidgetObserver)
#include "tst_BaseTabPluginWidgetObserver.moc"
