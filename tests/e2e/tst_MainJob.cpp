// The main job, on real input: somebody opens the viewer, sees a camera's trigger settings in the
// tab, changes them, and the camera has them.
#include "tests/e2e/RunningViewer.h"

#include "sdk/simulator/SimulatedCamera.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

namespace {

Cameras::Source simulated(const QString& model)
{
    return {Cameras::Source::Kind::Simulated, model.toStdString()};
}

Cameras::Source at(const QString& address)
{
    return {Cameras::Source::Kind::Found, address.toStdString()};
}

/// What another program on the network reads from the camera.
QString readFromOutside(const QString& feature)
{
    QProcess client;
    client.start(QStringLiteral("arv-tool-0.8"), {QStringLiteral("-a"), QStringLiteral("127.0.0.1"),
                                                  QStringLiteral("control"), feature});
    client.waitForFinished();
    return QString::fromUtf8(client.readAllStandardOutput()).trimmed();
}

/// The description of the model `full` in which the register of TriggerDelay is polled.
bool writeDescriptionWithPolledDelay(const QString& file)
{
    QFile model(QStringLiteral(MODEL_FOLDER "/full.xml"));
    QFile copy(file);
    if (!model.open(QIODevice::ReadOnly) || !copy.open(QIODevice::WriteOnly))
        return false;
    QByteArray text = model.readAll();
    const int reg = text.indexOf("<FloatReg Name=\"TriggerDelayReg\"");
    const int end = text.indexOf("<Endianess>", reg);
    if (reg < 0 || end < 0)
        return false;
    text.insert(end, "<PollingTime>200</PollingTime>");
    return copy.write(text) == text.size();
}

} // namespace

class tst_MainJob : public QObject
{
    Q_OBJECT

private slots:
    void theTabShowsWhatTheCameraHas();
    void everyClickOnExecuteMakesExactlyOneFrame();
    void anOutsideClientReadsWhatTheTabWrote();
    void aValueThatTheViewerWritesShowsWithinTwoTicks();
    void aPolledFeatureThatChangesInTheCameraShowsWithinTwoTicks();
    void theTabLearnsOfAcquisition();
    void aRefusedCameraIsShownWithASentence_data();
    void aRefusedCameraIsShownWithASentence();
};

void tst_MainJob::theTabShowsWhatTheCameraHas()
{
    RunningViewer viewer(simulated(QStringLiteral("full")));
    QVERIFY2(viewer.window(), qPrintable(viewer.problem));
    QCOMPARE(viewer.control<QComboBox>("cmbTriggerSelector")->currentText(),
             QStringLiteral("FrameStart"));
    QCOMPARE(viewer.control<QComboBox>("cmbTriggerMode")->currentText(), QStringLiteral("Off"));
    QVERIFY(viewer.control<QComboBox>("cmbTriggerSource")->count() > 3);
    QVERIFY(viewer.control<QDoubleSpinBox>("spbTriggerDelay")->isEnabled());
}

void tst_MainJob::everyClickOnExecuteMakesExactlyOneFrame()
{
    RunningViewer viewer(simulated(QStringLiteral("full")));
    QVERIFY2(viewer.window(), qPrintable(viewer.problem));
    viewer.waitForTicks(1);
    viewer.choose("cmbTriggerMode", QStringLiteral("On"));
    viewer.choose("cmbTriggerSource", QStringLiteral("Software"));
    QTRY_VERIFY(viewer.control<QPushButton>("btnTriggerSoftware")->isEnabled());
    viewer.clickAcquire();
    QTRY_VERIFY(viewer.session().isAcquiring());
    QCOMPARE(viewer.frames(), 0);

    constexpr int clicks = 5;
    for (int click = 1; click <= clicks; ++click) {
        viewer.click("btnTriggerSoftware");
        QTRY_COMPARE(viewer.frames(), click);
    }
    // A frame too many would arrive within the next ticks.
    viewer.waitForTicks(2);
    QCOMPARE(viewer.frames(), clicks);
    viewer.clickAcquire();
    QTRY_VERIFY(!viewer.session().isAcquiring());
    QCOMPARE(viewer.frames(), clicks);
}

void tst_MainJob::anOutsideClientReadsWhatTheTabWrote()
{
    RunningViewer viewer(simulated(QStringLiteral("full")));
    QVERIFY2(viewer.window(), qPrintable(viewer.problem));
    viewer.waitForTicks(1);
    viewer.choose("cmbTriggerMode", QStringLiteral("On"));
    viewer.choose("cmbTriggerActivation", QStringLiteral("FallingEdge"));
    auto* delay = viewer.control<QDoubleSpinBox>("spbTriggerDelay");
    QTest::mouseClick(delay, Qt::LeftButton, Qt::NoModifier, QPoint(8, delay->height() / 2));
    delay->selectAll();
    QTest::keyClicks(delay, QStringLiteral("1250"));
    QTest::keyClick(delay, Qt::Key_Tab);

    QCOMPARE(readFromOutside(QStringLiteral("TriggerMode")), QStringLiteral("TriggerMode = On"));
    QCOMPARE(readFromOutside(QStringLiteral("TriggerActivation")),
             QStringLiteral("TriggerActivation = FallingEdge"));
    QVERIFY2(readFromOutside(QStringLiteral("TriggerDelay")).contains(QLatin1String("1250")),
             qPrintable(readFromOutside(QStringLiteral("TriggerDelay"))));
}

void tst_MainJob::aValueThatTheViewerWritesShowsWithinTwoTicks()
{
    RunningViewer viewer(simulated(QStringLiteral("full")));
    QVERIFY2(viewer.window(), qPrintable(viewer.problem));
    auto* delay = viewer.control<QDoubleSpinBox>("spbTriggerDelay");
    // Not the first tick, which refreshes everything anyway.
    viewer.waitForTicks(1);
    QSignalSpy ticks(viewer.refreshTimer(), &QTimer::timeout);
    QCOMPARE(viewer.feature("TriggerDelay")->SetFloatValue(777.0), ZalErrorSuccess);
    QTRY_COMPARE(delay->value(), 777.0);
    QVERIFY2(ticks.count() <= 2, qPrintable(QString::number(ticks.count())));
}

void tst_MainJob::aPolledFeatureThatChangesInTheCameraShowsWithinTwoTicks()
{
    QTemporaryDir folder;
    const QString description = folder.filePath(QStringLiteral("polled.xml"));
    QVERIFY(writeDescriptionWithPolledDelay(description));
    ZalSim::Options options;
    options.descriptionFile = description.toStdString();
    std::string error;
    const auto camera = ZalSim::SimulatedCamera::start(options, error);
    QVERIFY2(camera, error.c_str());
    RunningViewer viewer(at(QString::fromStdString(camera->cameraId())));
    QVERIFY2(viewer.window(), qPrintable(viewer.problem));
    auto* delay = viewer.control<QDoubleSpinBox>("spbTriggerDelay");
    viewer.waitForTicks(1);
    QSignalSpy ticks(viewer.refreshTimer(), &QTimer::timeout);

    // The upper half of 4321.0 as a double; the lower half is zero.
    constexpr std::uint32_t frameStartDelay = 0x4150;
    camera->writeRegister(frameStartDelay, 0x40B0E100);
    QTRY_COMPARE(delay->value(), 4321.0);
    QVERIFY2(ticks.count() <= 2, qPrintable(QString::number(ticks.count())));
}

void tst_MainJob::theTabLearnsOfAcquisition()
{
    RunningViewer viewer(simulated(QStringLiteral("full")));
    QVERIFY2(viewer.window(), qPrintable(viewer.problem));
    auto* hint = viewer.control<QLabel>("lbl_notAcquireHint");
    QVERIFY(!hint->isVisible());
    viewer.clickAcquire();
    QTRY_VERIFY(hint->isVisible());
    QTRY_VERIFY(viewer.frames() > 2);
    viewer.clickAcquire();
    QTRY_VERIFY(!hint->isVisible());
}

void tst_MainJob::aRefusedCameraIsShownWithASentence_data()
{
    QTest::addColumn<QString>("model");
    QTest::newRow("foreign") << QStringLiteral("foreign");
    QTest::newRow("notrigger") << QStringLiteral("notrigger");
}

void tst_MainJob::aRefusedCameraIsShownWithASentence()
{
    QFETCH(QString, model);
    RunningViewer viewer(simulated(model));
    QVERIFY2(viewer.window(), qPrintable(viewer.problem));
    QVERIFY(!viewer.tab());
    auto* sentence = viewer.window()->findChild<QLabel*>(QStringLiteral("extensionNotice"));
    QVERIFY(sentence->isVisible());
    QCOMPARE(sentence->text(),
             QStringLiteral("The tab extension \"advtrigger\" does not support this camera."));
    viewer.clickAcquire();
    QTRY_VERIFY(viewer.frames() > 2);
}

QTEST_MAIN(tst_MainJob)
#include "tst_MainJob.moc"
