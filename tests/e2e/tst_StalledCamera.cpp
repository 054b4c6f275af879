// A camera that stops answering, or disappears, while its tab is shown: the viewer stays usable.
#include "tests/e2e/RunningViewer.h"
#include "tests/e2e/SimulatorProcess.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QTimer>
#include <QtTest>

namespace {

constexpr qint64 LongestBlockMs = 650;

/// Watches how long the event loop stood still.
class LoopWatch : public QObject
{
public:
    LoopWatch()
    {
        m_sinceTurn.start();
        connect(&m_timer, &QTimer::timeout, this, &LoopWatch::turn);
        m_timer.start(10);
    }

    /// The longest stand-still until now, the present one included.
    qint64 longestMs() const { return qMax(m_longest, m_sinceTurn.elapsed()); }
    /// All stand-stills together that a person can notice, the present one included.
    qint64 noticeableMs() const { return m_noticeable + noticeable(m_sinceTurn.elapsed()); }

private:
    static qint64 noticeable(qint64 gap)
    {
        constexpr qint64 unnoticedMs = 100;
        return gap > unnoticedMs ? gap : 0;
    }

    void turn()
    {
        const qint64 gap = m_sinceTurn.restart();
        m_longest = qMax(m_longest, gap);
        m_noticeable += noticeable(gap);
    }

    QTimer m_timer;
    QElapsedTimer m_sinceTurn;
    qint64 m_longest = 0;
    qint64 m_noticeable = 0;
};

Cameras::Source cameraAt(const QString& address)
{
    return {Cameras::Source::Kind::Found, address.toStdString()};
}

/// Steps a spin box as a person does with the arrow key.
void stepUp(QAbstractSpinBox* box)
{
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Up);
}

} // namespace

class tst_StalledCamera : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void aStalledCameraNeverBlocksTheWindowAndIsRightAgainAfterwards();
    void aVanishedCameraIsReportedAndTheTabStaysUsable();
    void aViewerOnAStalledCameraCanBeClosed();
    void aVanishedCameraWhileAcquiring();
    void anAcquiringViewerIsStoppedAndClosedInTime_data();
    void anAcquiringViewerIsStoppedAndClosedInTime();
    void startingAStalledCameraAndClosingTakesOneStall();

private:
    std::unique_ptr<SimulatorProcess> m_simulator;
    std::unique_ptr<RunningViewer> m_viewer;
};

/// A fresh camera and viewer for every test: a lost camera cannot be used again.
void tst_StalledCamera::init()
{
    m_simulator = std::make_unique<SimulatorProcess>();
    QVERIFY(m_simulator->isRunning());
    m_viewer = std::make_unique<RunningViewer>(cameraAt(m_simulator->address()));
    QVERIFY2(m_viewer->window(), qPrintable(m_viewer->problem));
    m_viewer->waitForTicks(1);
}

void tst_StalledCamera::cleanup()
{
    m_viewer.reset();
    m_simulator.reset();
}

void tst_StalledCamera::aStalledCameraNeverBlocksTheWindowAndIsRightAgainAfterwards()
{
    auto* delay = m_viewer->control<QDoubleSpinBox>("spbTriggerDelay");
    delay->setValue(500.0);
    QCOMPARE(delay->value(), 500.0);
    LoopWatch watch;

    QVERIFY(m_simulator->stall());
    stepUp(delay);
    stepUp(delay);
    m_viewer->waitForTicks(1);
    m_simulator->resume();

    auto* mode = m_viewer->control<QComboBox>("cmbTriggerMode");
    auto* source = m_viewer->control<QComboBox>("cmbTriggerSource");
    QTRY_VERIFY(delay->isEnabled() && delay->value() >= 500.0 && delay->value() <= 502.0);
    QTRY_COMPARE(mode->currentText(), QStringLiteral("Off"));
    QTRY_COMPARE(source->currentText(), QStringLiteral("Software"));
    m_viewer->choose("cmbTriggerMode", QStringLiteral("On"));
    QCOMPARE(mode->currentText(), QStringLiteral("On"));
    QVERIFY2(watch.longestMs() <= LongestBlockMs, qPrintable(QString::number(watch.longestMs())));
    QCOMPARE(m_viewer->notice(), QString());
}

void tst_StalledCamera::aVanishedCameraIsReportedAndTheTabStaysUsable()
{
    auto* delay = m_viewer->control<QDoubleSpinBox>("spbTriggerDelay");
    LoopWatch watch;

    m_simulator->kill();
    stepUp(delay);
    QTRY_VERIFY_WITH_TIMEOUT(m_viewer->session().isLost(), 30000);
    QTRY_VERIFY(m_viewer->notice().contains(QLatin1String("is lost")));
    stepUp(delay);
    QTest::keyClick(m_viewer->control<QComboBox>("cmbTriggerMode"), Qt::Key_Down);
    m_viewer->waitForTicks(2);
    m_viewer->tab()->hide();
    m_viewer->tab()->show();
    m_viewer->waitForTicks(1);

    QVERIFY2(watch.longestMs() <= LongestBlockMs, qPrintable(QString::number(watch.longestMs())));
    QVERIFY2(watch.noticeableMs() <= LongestBlockMs,
             qPrintable(QString::number(watch.noticeableMs())));
    m_viewer->close();
    QVERIFY2(watch.longestMs() <= LongestBlockMs, qPrintable(QString::number(watch.longestMs())));
}

void tst_StalledCamera::aViewerOnAStalledCameraCanBeClosed()
{
    auto* delay = m_viewer->control<QDoubleSpinBox>("spbTriggerDelay");
    LoopWatch watch;
    QVERIFY(m_simulator->stall());
    stepUp(delay);
    m_viewer->close();
    QVERIFY2(watch.noticeableMs() <= LongestBlockMs,
             qPrintable(QString::number(watch.noticeableMs())));
}

void tst_StalledCamera::aVanishedCameraWhileAcquiring()
{
    m_viewer->clickAcquire();
    QTRY_VERIFY(m_viewer->frames() > 2);
    LoopWatch watch;
    m_simulator->kill();
    stepUp(m_viewer->control<QDoubleSpinBox>("spbTriggerDelay"));
    QTRY_VERIFY_WITH_TIMEOUT(m_viewer->session().isLost(), 30000);
    QVERIFY(!m_viewer->session().isAcquiring());
    m_viewer->close();
    QVERIFY2(watch.longestMs() <= LongestBlockMs, qPrintable(QString::number(watch.longestMs())));
}

void tst_StalledCamera::anAcquiringViewerIsStoppedAndClosedInTime_data()
{
    QTest::addColumn<bool>("killed");
    QTest::addColumn<bool>("stoppedFirst");
    QTest::newRow("stalled, stopped, closed") << false << true;
    QTest::newRow("stalled, closed") << false << false;
    QTest::newRow("killed, stopped, closed") << true << true;
    QTest::newRow("killed, closed") << true << false;
}

// The stand-stills of everything together, closing included.
void tst_StalledCamera::anAcquiringViewerIsStoppedAndClosedInTime()
{
    QFETCH(bool, killed);
    QFETCH(bool, stoppedFirst);
    m_viewer->clickAcquire();
    QTRY_VERIFY(m_viewer->frames() > 2);
    LoopWatch watch;
    if (killed)
        m_simulator->kill();
    else
        QVERIFY(m_simulator->stall());
    if (stoppedFirst) {
        m_viewer->clickAcquire();
        QVERIFY(!m_viewer->session().isAcquiring());
    }
    m_viewer->close();
    QVERIFY2(watch.noticeableMs() <= LongestBlockMs,
             qPrintable(QString::number(watch.noticeableMs())));
}

void tst_StalledCamera::startingAStalledCameraAndClosingTakesOneStall()
{
    LoopWatch watch;
    QVERIFY(m_simulator->stall());
    m_viewer->clickAcquire();
    QVERIFY(!m_viewer->session().isAcquiring());
    m_viewer->close();
    QVERIFY2(watch.noticeableMs() <= LongestBlockMs,
             qPrintable(QString::number(watch.noticeableMs())));
}

QTEST_MAIN(tst_StalledCamera)
#include "tst_StalledCamera.moc"
