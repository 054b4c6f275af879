// Showing, ticking, hiding: when the widget refreshes and what it collects meanwhile.
#include "features/PluginFeatureObserver.h"
#include "tests/support/FakeCamera.h"
#include "tests/widgets/TestTabWidget.h"

#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <chrono>
#include <future>
#include <memory>

namespace {

const QStringList Observed = {"TriggerMode", "TriggerDelay", "LineInverter"};

void tick(TestTabWidget& widget)
{
    QVERIFY(QMetaObject::invokeMethod(&widget, "updateTimer"));
}

void change(TestTabWidget& widget, const QString& name)
{
    QVERIFY(QMetaObject::invokeMethod(&widget, "OnFeatureChanged", Qt::DirectConnection,
                                      Q_ARG(QString, name), Q_ARG(QString, "value")));
}

} // namespace

class tst_BaseTabPluginWidgetRefresh : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showRefreshesThenStartsAndAttaches();
    void showMarksEveryObservedFeatureOfTheCamera();
    void tickRefreshesWithTheNamesAndForgetsThem();
    void timerTicks();
    void idleTickAsksTheCameraNothing();
    void everyRefreshHoldsTheMutex();
    void changeWaitsForTheMutex();
    void notificationArrivesQueued();
    void threeNotificationsLeaveOneEntry();
    void changedNamesAreCaseSensitive();
    void hideStopsDetachesAndForgets();
    void laterShowAttachesAndMarksAgain();
    void hideDoesNotTakeTheMutex();
    void pauseAndContinueKeepTheInterval();
    void pauseKeepsTheChangedNames();
    void resetFpsIsNeverEmitted();
    void destructionLeavesTheObserverAttached();
    void notificationUnderwayDiesWithTheWidget();
    void hiddenWidgetLeavesNoObserver();

private:
    std::size_t observers(const char* feature) const
    {
        return (*m_camera)[feature].observerCount();
    }

    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<TestTabWidget> m_widget;
};

void tst_BaseTabPluginWidgetRefresh::init()
{
    m_camera = Fake::FakeCamera::standard();
    m_widget = std::make_unique<TestTabWidget>(m_camera->features());
    m_widget->m_observedFeatures = Observed;
}

void tst_BaseTabPluginWidgetRefresh::cleanup()
{
    m_widget.reset();
}

void tst_BaseTabPluginWidgetRefresh::showRefreshesThenStartsAndAttaches()
{
    QStringList changedAtRefresh = {"not called"};
    bool activeAtRefresh = true;
    std::size_t observersAtRefresh = 1;
    m_widget->onRefresh = [&] {
        changedAtRefresh = *m_widget->m_changedFeatures;
        activeAtRefresh = m_widget->m_updateTimer->isActive();
        observersAtRefresh = observers("TriggerMode");
    };
    m_widget->show();

    QCOMPARE(m_widget->refreshes, 1);
    QCOMPARE(changedAtRefresh, QStringList());
    QVERIFY(!activeAtRefresh);
    QCOMPARE(observersAtRefresh, std::size_t(0));
    QVERIFY(m_widget->m_updateTimer->isActive());
    QCOMPARE(m_widget->m_updateTimer->interval(), 1000);
    QVERIFY(!m_widget->m_updateTimer->isSingleShot());
    for (const char* feature : {"TriggerMode", "TriggerDelay", "LineInverter"})
        QCOMPARE(observers(feature), std::size_t(1));
    QCOMPARE(observers("TriggerSource"), std::size_t(0));
}

// The names come in the order of the camera's list, not in that of the observed ones.
void tst_BaseTabPluginWidgetRefresh::showMarksEveryObservedFeatureOfTheCamera()
{
    m_widget->m_observedFeatures = QStringList{"LineInverter", "NotOnThisCamera", "TriggerMode"};
    m_widget->show();
    QCOMPARE(*m_widget->m_changedFeatures, QStringList({"TriggerMode", "LineInverter"}));
}

void tst_BaseTabPluginWidgetRefresh::tickRefreshesWithTheNamesAndForgetsThem()
{
    m_widget->show();
    QStringList changedAtTick;
    m_widget->onRefresh = [&] { changedAtTick = *m_widget->m_changedFeatures; };
    tick(*m_widget);
    QCOMPARE(m_widget->refreshes, 2);
    QCOMPARE(changedAtTick, Observed);
    QCOMPARE(*m_widget->m_changedFeatures, QStringList());

    tick(*m_widget);
    QCOMPARE(m_widget->refreshes, 3);
    QCOMPARE(changedAtTick, QStringList());
}

void tst_BaseTabPluginWidgetRefresh::timerTicks()
{
    m_widget->show();
    QTRY_COMPARE(m_widget->refreshes, 3);
    QCOMPARE(*m_widget->m_changedFeatures, QStringList());
}

void tst_BaseTabPluginWidgetRefresh::idleTickAsksTheCameraNothing()
{
    m_widget->show();
    tick(*m_widget);
    m_camera->clearLog();
    tick(*m_widget);
    QVERIFY(m_camera->calls().empty());
}

void tst_BaseTabPluginWidgetRefresh::everyRefreshHoldsTheMutex()
{
    int held = 0;
    m_widget->onRefresh = [&] {
        if (m_widget->m_mutex->tryLock())
            m_widget->m_mutex->unlock();
        else
            ++held;
    };
    m_widget->show();
    tick(*m_widget);
    QCOMPARE(held, 2);
    QVERIFY2(m_widget->m_mutex->tryLock(), "free between refreshes");
    m_widget->m_mutex->unlock();
}

void tst_BaseTabPluginWidgetRefresh::changeWaitsForTheMutex()
{
    m_widget->m_mutex->lock();
    auto other = std::async(std::launch::async, [&] { change(*m_widget, "TriggerMode"); });
    const auto state = other.wait_for(std::chrono::milliseconds(50));
    m_widget->m_mutex->unlock();
    other.wait();
    QVERIFY2(state == std::future_status::timeout, "added while somebody else held the mutex");
    QCOMPARE(*m_widget->m_changedFeatures, QStringList{"TriggerMode"});
}

void tst_BaseTabPluginWidgetRefresh::notificationArrivesQueued()
{
    m_widget->show();
    tick(*m_widget);
    m_camera->notify("TriggerMode");
    QCOMPARE(*m_widget->m_changedFeatures, QStringList());
    QTRY_COMPARE(*m_widget->m_changedFeatures, QStringList{"TriggerMode"});
}

void tst_BaseTabPluginWidgetRefresh::threeNotificationsLeaveOneEntry()
{
    m_widget->show();
    tick(*m_widget);
    const QSignalSpy notified(m_widget->m_observer.get(),
                              SIGNAL(setChangedFeature(QString, QString)));
    for (const char* feature : {"TriggerMode", "TriggerDelay", "TriggerMode", "TriggerMode"})
        m_camera->notify(feature);
    QTRY_COMPARE(notified.count(), 4);
    QTRY_COMPARE(*m_widget->m_changedFeatures, QStringList({"TriggerMode", "TriggerDelay"}));
}

void tst_BaseTabPluginWidgetRefresh::changedNamesAreCaseSensitive()
{
    change(*m_widget, "TriggerMode");
    change(*m_widget, "triggermode");
    change(*m_widget, "TriggerMode");
    QCOMPARE(*m_widget->m_changedFeatures, QStringList({"TriggerMode", "triggermode"}));
}

void tst_BaseTabPluginWidgetRefresh::hideStopsDetachesAndForgets()
{
    m_widget->show();
    m_widget->hide();
    QVERIFY(!m_widget->m_updateTimer->isActive());
    for (const QString& feature : Observed)
        QCOMPARE(observers(qPrintable(feature)), std::size_t(0));
    QCOMPARE(*m_widget->m_changedFeatures, QStringList());
    QCOMPARE(m_widget->refreshes, 1);
}

void tst_BaseTabPluginWidgetRefresh::laterShowAttachesAndMarksAgain()
{
    m_widget->show();
    tick(*m_widget);
    m_widget->hide();
    m_widget->show();
    QCOMPARE(m_widget->refreshes, 3);
    QVERIFY(m_widget->m_updateTimer->isActive());
    QCOMPARE(observers("TriggerMode"), std::size_t(1));
    QCOMPARE(*m_widget->m_changedFeatures, Observed);
}

// A subclass may hide itself from within a refresh, which holds the mutex.
void tst_BaseTabPluginWidgetRefresh::hideDoesNotTakeTheMutex()
{
    m_widget->show();
    const QMutexLocker locker(m_widget->m_mutex.get());
    m_widget->hide();
    QCOMPARE(*m_widget->m_changedFeatures, QStringList());
}

void tst_BaseTabPluginWidgetRefresh::pauseAndContinueKeepTheInterval()
{
    m_widget->show();
    tick(*m_widget);
    m_widget->m_updateTimer->setInterval(70000);
    m_widget->pauseUpdateTimer();
    QVERIFY(!m_widget->m_updateTimer->isActive());
    QCOMPARE(observers("TriggerMode"), std::size_t(0));

    m_widget->continueUpdateTimer();
    QVERIFY(m_widget->m_updateTimer->isActive());
    QCOMPARE(m_widget->m_updateTimer->interval(), 70000);
    QCOMPARE(observers("TriggerMode"), std::size_t(1));
    QCOMPARE(*m_widget->m_changedFeatures, Observed);
}

void tst_BaseTabPluginWidgetRefresh::pauseKeepsTheChangedNames()
{
    m_widget->show();
    m_widget->pauseUpdateTimer();
    QCOMPARE(*m_widget->m_changedFeatures, Observed);
}

void tst_BaseTabPluginWidgetRefresh::resetFpsIsNeverEmitted()
{
    const QSignalSpy resets(m_widget.get(), SIGNAL(resetFPS()));
    QVERIFY(resets.isValid());
    m_widget->show();
    tick(*m_widget);
    m_camera->notify("TriggerMode");
    m_widget->hide();
    QCOMPARE(resets.count(), 0);
}

// Whoever deletes a shown widget leaves the observer with the camera, which shares its ownership.
void tst_BaseTabPluginWidgetRefresh::destructionLeavesTheObserverAttached()
{
    m_widget->show();
    const std::weak_ptr<PluginFeatureObserver> observer = m_widget->m_observer;
    m_camera->clearLog();
    m_widget.reset();
    QCOMPARE(m_camera->callCount("UnregisterObserver", "TriggerMode"), 0);
    QCOMPARE(observers("TriggerMode"), std::size_t(1));
    QVERIFY(!observer.expired());
    m_camera->notify("TriggerMode");
    QCoreApplication::processEvents();
}

void tst_BaseTabPluginWidgetRefresh::notificationUnderwayDiesWithTheWidget()
{
    m_widget->show();
    m_camera->notify("TriggerMode");
    m_widget.reset();
    QCoreApplication::processEvents();
    QCOMPARE(observers("TriggerMode"), std::size_t(1));
}

void tst_BaseTabPluginWidgetRefresh::hiddenWidgetLeavesNoObserver()
{
    m_widget->show();
    const std::weak_ptr<PluginFeatureObserver> observer = m_widget->m_observer;
    m_widget->hide();
    m_widget.reset();
    QVERIFY(observer.expired());
}

QTEST_MAIN(tst_BaseTabPluginWidgetRefresh)
#include "tst_BaseTabPluginWidgetRefresh.moc"
