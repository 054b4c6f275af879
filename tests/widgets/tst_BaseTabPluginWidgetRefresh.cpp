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
    std::size_t observers(const char* feature) const { return (*camera)[feature].observerCount(); }

    std::unique_ptr<Fake::FakeCamera> camera;
    std::unique_ptr<TestTabWidget> widget;
};

void tst_BaseTabPluginWidgetRefresh::init()
{
    camera = Fake::FakeCamera::standard();
    widget = std::make_unique<TestTabWidget>(camera->features());
    widget->m_observedFeatures = Observed;
}

void tst_BaseTabPluginWidgetRefresh::cleanup()
{
    widget.reset();
}

void tst_BaseTabPluginWidgetRefresh::showRefreshesThenStartsAndAttaches()
{
    QStringList changedAtRefresh = {"not called"};
    bool activeAtRefresh = true;
    std::size_t observersAtRefresh = 1;
    widget->onRefresh = [&] {
        changedAtRefresh = *widget->m_changedFeatures;
        activeAtRefresh = widget->m_updateTimer->isActive();
        observersAtRefresh = observers("TriggerMode");
    };
    widget->show();

    QCOMPARE(widget->refreshes, 1);
    QCOMPARE(changedAtRefresh, QStringList());
    QVERIFY(!activeAtRefresh);
    QCOMPARE(observersAtRefresh, std::size_t(0));
    QVERIFY(widget->m_updateTimer->isActive());
    QCOMPARE(widget->m_updateTimer->interval(), 1000);
    QVERIFY(!widget->m_updateTimer->isSingleShot());
    for (const char* feature : {"TriggerMode", "TriggerDelay", "LineInverter"})
        QCOMPARE(observers(feature), std::size_t(1));
    QCOMPARE(observers("TriggerSource"), std::size_t(0));
}

// The names come in the order of the camera's list, not in that of the observed ones.
void tst_BaseTabPluginWidgetRefresh::showMarksEveryObservedFeatureOfTheCamera()
{
    widget->m_observedFeatures = QStringList{"LineInverter", "NotOnThisCamera", "TriggerMode"};
    widget->show();
    QCOMPARE(*widget->m_changedFeatures, QStringList({"TriggerMode", "LineInverter"}));
}

void tst_BaseTabPluginWidgetRefresh::tickRefreshesWithTheNamesAndForgetsThem()
{
    widget->show();
    QStringList changedAtTick;
    widget->onRefresh = [&] { changedAtTick = *widget->m_changedFeatures; };
    tick(*widget);
    QCOMPARE(widget->refreshes, 2);
    QCOMPARE(changedAtTick, Observed);
    QCOMPARE(*widget->m_changedFeatures, QStringList());

    tick(*widget);
    QCOMPARE(widget->refreshes, 3);
    QCOMPARE(changedAtTick, QStringList());
}

void tst_BaseTabPluginWidgetRefresh::timerTicks()
{
    widget->show();
    QTRY_COMPARE(widget->refreshes, 3);
    QCOMPARE(*widget->m_changedFeatures, QStringList());
}

void tst_BaseTabPluginWidgetRefresh::idleTickAsksTheCameraNothing()
{
    widget->show();
    tick(*widget);
    camera->clearLog();
    tick(*widget);
    QVERIFY(camera->calls().empty());
}

void tst_BaseTabPluginWidgetRefresh::everyRefreshHoldsTheMutex()
{
    int held = 0;
    widget->onRefresh = [&] {
        if (widget->m_mutex->tryLock())
            widget->m_mutex->unlock();
        else
            ++held;
    };
    widget->show();
    tick(*widget);
    QCOMPARE(held, 2);
    QVERIFY2(widget->m_mutex->tryLock(), "free between refreshes");
    widget->m_mutex->unlock();
}

void tst_BaseTabPluginWidgetRefresh::changeWaitsForTheMutex()
{
    widget->m_mutex->lock();
    auto other = std::async(std::launch::async, [&] { change(*widget, "TriggerMode"); });
    const auto state = other.wait_for(std::chrono::milliseconds(50));
    widget->m_mutex->unlock();
    other.wait();
    QVERIFY2(state == std::future_status::timeout, "added while somebody else held the mutex");
    QCOMPARE(*widget->m_changedFeatures, QStringList{"TriggerMode"});
}

void tst_BaseTabPluginWidgetRefresh::notificationArrivesQueued()
{
    widget->show();
    tick(*widget);
    camera->notify("TriggerMode");
    QCOMPARE(*widget->m_changedFeatures, QStringList());
    QTRY_COMPARE(*widget->m_changedFeatures, QStringList{"TriggerMode"});
}

void tst_BaseTabPluginWidgetRefresh::threeNotificationsLeaveOneEntry()
{
    widget->show();
    tick(*widget);
    const QSignalSpy notified(widget->m_observer.get(),
                              SIGNAL(setChangedFeature(QString, QString)));
    for (const char* feature : {"TriggerMode", "TriggerDelay", "TriggerMode", "TriggerMode"})
        camera->notify(feature);
    QTRY_COMPARE(notified.count(), 4);
    QTRY_COMPARE(*widget->m_changedFeatures, QStringList({"TriggerMode", "TriggerDelay"}));
}

void tst_BaseTabPluginWidgetRefresh::changedNamesAreCaseSensitive()
{
    change(*widget, "TriggerMode");
    change(*widget, "triggermode");
    change(*widget, "TriggerMode");
    QCOMPARE(*widget->m_changedFeatures, QStringList({"TriggerMode", "triggermode"}));
}

void tst_BaseTabPluginWidgetRefresh::hideStopsDetachesAndForgets()
{
    widget->show();
    widget->hide();
    QVERIFY(!widget->m_updateTimer->isActive());
    for (const QString& feature : Observed)
        QCOMPARE(observers(qPrintable(feature)), std::size_t(0));
    QCOMPARE(*widget->m_changedFeatures, QStringList());
    QCOMPARE(widget->refreshes, 1);
}

void tst_BaseTabPluginWidgetRefresh::laterShowAttachesAndMarksAgain()
{
    widget->show();
    tick(*widget);
    widget->hide();
    widget->show();
    QCOMPARE(widget->refreshes, 3);
    QVERIFY(widget->m_updateTimer->isActive());
    QCOMPARE(observers("TriggerMode"), std::size_t(1));
    QCOMPARE(*widget->m_changedFeatures, Observed);
}

// A subclass may hide itself from within a refresh, which holds the mutex.
void tst_BaseTabPluginWidgetRefresh::hideDoesNotTakeTheMutex()
{
    widget->show();
    const QMutexLocker locker(widget->m_mutex.get());
    widget->hide();
    QCOMPARE(*widget->m_changedFeatures, QStringList());
}

void tst_BaseTabPluginWidgetRefresh::pauseAndContinueKeepTheInterval()
{
    widget->show();
    tick(*widget);
    widget->m_updateTimer->setInterval(70000);
    widget->pauseUpdateTimer();
    QVERIFY(!widget->m_updateTimer->isActive());
    QCOMPARE(observers("TriggerMode"), std::size_t(0));

    widget->continueUpdateTimer();
    QVERIFY(widget->m_updateTimer->isActive());
    QCOMPARE(widget->m_updateTimer->interval(), 70000);
    QCOMPARE(observers("TriggerMode"), std::size_t(1));
    QCOMPARE(*widget->m_changedFeatures, Observed);
}

void tst_BaseTabPluginWidgetRefresh::pauseKeepsTheChangedNames()
{
    widget->show();
    widget->pauseUpdateTimer();
    QCOMPARE(*widget->m_changedFeatures, Observed);
}

void tst_BaseTabPluginWidgetRefresh::resetFpsIsNeverEmitted()
{
    const QSignalSpy resets(widget.get(), SIGNAL(resetFPS()));
    QVERIFY(resets.isValid());
    widget->show();
    tick(*widget);
    camera->notify("TriggerMode");
    widget->hide();
    QCOMPARE(resets.count(), 0);
}

// Whoever deletes a shown widget leaves the observer with the camera, which shares its ownership.
void tst_BaseTabPluginWidgetRefresh::destructionLeavesTheObserverAttached()
{
    widget->show();
    const std::weak_ptr<PluginFeatureObserver> observer = widget->m_observer;
    camera->clearLog();
    widget.reset();
    QCOMPARE(camera->callCount("UnregisterObserver", "TriggerMode"), 0);
    QCOMPARE(observers("TriggerMode"), std::size_t(1));
    QVERIFY(!observer.expired());
    camera->notify("TriggerMode");
    QCoreApplication::processEvents();
}

void tst_BaseTabPluginWidgetRefresh::notificationUnderwayDiesWithTheWidget()
{
    widget->show();
    camera->notify("TriggerMode");
    widget.reset();
    QCoreApplication::processEvents();
    QCOMPARE(observers("TriggerMode"), std::size_t(1));
}

void tst_BaseTabPluginWidgetRefresh::hiddenWidgetLeavesNoObserver()
{
    widget->show();
    const std::weak_ptr<PluginFeatureObserver> observer = widget->m_observer;
    widget->hide();
    widget.reset();
    QVERIFY(observer.expired());
}

QTEST_MAIN(tst_BaseTabPluginWidgetRefresh)
#include "tst_BaseTabPluginWidgetRefresh.moc"
