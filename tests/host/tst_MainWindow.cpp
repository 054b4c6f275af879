#include "host/Appearance.h"
#include "tests/host/WindowTest.h"

#include <QApplication>
#include <QPointer>
#include <QSplitter>
#include <QStyle>
#include <QTabWidget>
#include <QToolButton>

namespace {

/// Whether the icon fills the corner that a triangle pointing to the right leaves free.
bool isSquare(const QIcon& icon)
{
    return icon.pixmap(32, 32).toImage().pixelColor(24, 8).alpha() == 255;
}

} // namespace

class tst_MainWindow : public WindowTest
{
    Q_OBJECT

private slots:
    void init()
    {
        m_camera = std::make_shared<FakeCameraState>();
        m_session = std::make_unique<CameraSession>(std::make_unique<FakeDevice>(m_camera));
        m_window = std::make_unique<MainWindow>(*m_session);
        m_window->resize(1024, 768);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    }

    void cleanup()
    {
        m_window.reset();
        m_session.reset();
    }

    void beginsStopped()
    {
        QCOMPARE(m_window->windowTitle(), QString("Tarsel Imaging Fake (F001) - ZalViewer"));
        QCOMPARE(label("cameraName").text(), QString("Tarsel Imaging Fake (F001)"));
        QCOMPARE(label("acquisitionState").text(), QString("Stopped"));
        QCOMPARE(label("frameCounter").text(), QString("Frames: 0"));
        QVERIFY(isTextShown("No image yet. Start the acquisition to see one."));
        QCOMPARE(acquire().text(), QString("Start"));
        QVERIFY(!acquire().isChecked());
        QVERIFY(label("notice").isHidden());
    }

    void clicksStartAndStopTheAcquisition()
    {
        clickAcquire();
        QVERIFY(m_session->isAcquiring());
        QVERIFY(acquire().isChecked());
        QCOMPARE(acquire().text(), QString("Stop"));
        QCOMPARE(label("acquisitionState").text(), QString("Acquiring"));
        clickAcquire();
        QVERIFY(!m_session->isAcquiring());
        QVERIFY(!acquire().isChecked());
        QCOMPARE(acquire().text(), QString("Start"));
        QCOMPARE(label("acquisitionState").text(), QString("Stopped"));
        QCOMPARE(m_camera->calls, QStringList({"start", "stop"}));
    }

    void shortcutStartsTheAcquisition()
    {
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        QTest::keyClick(m_window.get(), Qt::Key_F5);
        QVERIFY(m_session->isAcquiring());
    }

    void acquisitionStartedElsewhereShowsInTheButton()
    {
        m_session->setAcquiring(true);
        QVERIFY(acquire().isChecked());
        QCOMPARE(m_camera->calls, QStringList{"start"});
    }

    void framesAreShownAndCounted()
    {
        clickAcquire();
        m_camera->sendFrame(90);
        QTRY_COMPARE(label("frameCounter").text(), QString("Frames: 1"));
        QVERIFY(isFrameShown(90));
        m_camera->sendFrame(91);
        QTRY_COMPARE(label("frameCounter").text(), QString("Frames: 2"));
        QVERIFY(isFrameShown(91));
    }

    void stoppingKeepsImageAndCountAndStartingCountsAnew()
    {
        clickAcquire();
        m_camera->sendFrame(90);
        QTRY_COMPARE(label("frameCounter").text(), QString("Frames: 1"));
        clickAcquire();
        QCOMPARE(label("frameCounter").text(), QString("Frames: 1"));
        QVERIFY(isFrameShown(90));
        clickAcquire();
        QCOMPARE(label("frameCounter").text(), QString("Frames: 0"));
    }

    void frameThatCannotBeShownIsCountedAndExplained()
    {
        clickAcquire();
        m_camera->sendFrames({{1, 4, 2, 0x02100032, std::vector<unsigned char>(16)}});
        QTRY_COMPARE(label("frameCounter").text(), QString("Frames: 1"));
        QVERIFY(isTextShown("Images in the pixel format 0x02100032 cannot be shown."));
        m_camera->sendFrame(90);
        QTRY_VERIFY(isFrameShown(90));
    }

    void tabHearsWhenTheAcquisitionStartsAndStops()
    {
        addExtension("GoodTab");
        auto* tabs = m_window->findChild<QTabWidget*>("tabWidget");
        QVERIFY(tabs->isVisible());
        QCOMPARE(tabs->tabText(0), QString("Good Tab"));
        QVERIFY(heardByTheTab().isEmpty());
        clickAcquire();
        QCOMPARE(heardByTheTab(), QStringList{"on"});
        clickAcquire();
        QCOMPARE(heardByTheTab(), QStringList({"on", "off"}));
    }

    void refusedCameraIsExplainedAndStillShown()
    {
        addExtension("RefusingTab");
        QVERIFY(m_window->findChild<QTabWidget*>("tabWidget")->isHidden());
        QVERIFY(label("extensionNotice").isVisible());
        QCOMPARE(label("extensionNotice").text(),
                 QString("The tab extension \"RefusingTab\" does not support this camera."));
        clickAcquire();
        m_camera->sendFrame(1);
        QTRY_VERIFY(isFrameShown(1));
    }

    void failedStartIsExplainedAndTheButtonStaysUp()
    {
        m_camera->startStatus = ZalErrorNotWritable;
        clickAcquire();
        QVERIFY(!acquire().isChecked());
        QCOMPARE(acquire().text(), QString("Start"));
        QVERIFY(label("notice").isVisible());
        QCOMPARE(label("notice").text(), QString("The acquisition could not be started. "
                                                 "The feature cannot be written at the moment."));
        m_camera->startStatus = ZalErrorSuccess;
        clickAcquire();
        QVERIFY(label("notice").isHidden());
    }

    void failedStopIsExplained()
    {
        m_camera->stopStatus = ZalErrorTimeout;
        clickAcquire();
        clickAcquire();
        QVERIFY(!acquire().isChecked());
        QVERIFY(label("notice").isVisible());
        QCOMPARE(label("notice").text(), QString("The acquisition did not stop cleanly. "
                                                 "The camera did not answer in time."));
        QCOMPARE(label("acquisitionState").text(), QString("Stopped"));
    }

    void lostCameraIsExplainedAndTheTabHearsThatItStopped()
    {
        addExtension("GoodTab");
        clickAcquire();
        m_camera->lose();
        QTRY_VERIFY(label("notice").isVisible());
        QCOMPARE(label("notice").text(),
                 QString("The connection to the camera Tarsel Imaging Fake (F001) is lost. Close "
                         "the viewer and open it again when the camera is back."));
        QCOMPARE(label("acquisitionState").text(), QString("Camera lost"));
        QVERIFY(!acquire().isEnabled());
        QVERIFY(!acquire().isChecked());
        QCOMPARE(heardByTheTab(), QStringList({"on", "off"}));
    }

    void cameraThatAnotherProgramControlsIsExplained()
    {
        addExtension("GoodTab");
        m_camera->loss = ZalCPP::CameraLoss::ControlTaken;
        m_camera->lose();
        QTRY_VERIFY(label("notice").isVisible());
        QCOMPARE(label("notice").text(),
                 QString("The connection to the camera Tarsel Imaging Fake (F001) is lost. Another "
                         "program controls the camera. Close the viewer and open it again when the "
                         "camera is free."));
    }

    void windowOfALostCameraCloses()
    {
        addExtension("GoodTab");
        clickAcquire();
        m_camera->lose();
        QTRY_VERIFY(m_session->isLost());
        QVERIFY(m_window->close());
        QCOMPARE(m_camera->calls, QStringList{"start"});
    }

    void closingStopsTheAcquisition()
    {
        addExtension("GoodTab");
        clickAcquire();
        QVERIFY(m_window->close());
        QCOMPARE(m_camera->calls, QStringList({"start", "stop"}));
        QCOMPARE(heardByTheTab(), QStringList({"on", "off"}));
    }

    void shortcutClosesTheWindow()
    {
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        QTest::keyClick(m_window.get(), Qt::Key_Q, Qt::ControlModifier);
        QVERIFY(!m_window->isVisible());
    }

    void tabsGoBeforeTheCameraDoes()
    {
        addExtension("GoodTab");
        const QPointer<QWidget> tab = m_window->findChild<QWidget*>("goodTab");
        m_window.reset();
        QVERIFY(!tab);
        QVERIFY(!m_camera->calls.contains("close"));
        m_session.reset();
        QVERIFY(m_camera->calls.contains("close"));
    }

    void tabsHaveRoomInAWindowOfAnySize_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("leastTabWidth");
        QTest::newRow("smallest") << QSize(640, 480) << 350;
        QTest::newRow("1024x768") << QSize(1024, 768) << 517;
        QTest::newRow("1920x1080") << QSize(1920, 1080) << 517;
    }
    void tabsHaveRoomInAWindowOfAnySize()
    {
        QFETCH(QSize, size);
        QFETCH(int, leastTabWidth);
        addExtension("NamelessTab");
        m_window->resize(size);
        auto* tabs = m_window->findChild<QTabWidget*>("tabWidget");
        QTRY_VERIFY(tabs->currentWidget()->width() >= leastTabWidth);
        QCOMPARE(m_window->size(), size);
        QVERIFY(imageView().width() >= imageView().minimumWidth());
    }

    void roomOfALargerWindowGoesToTheImage()
    {
        addExtension("NamelessTab");
        const auto* area = m_window->findChild<QWidget*>("extensionArea");
        QTRY_VERIFY(area->width() > 0);
        const int tabs = area->width();
        const int image = imageView().width();
        m_window->resize(m_window->width() + 300, m_window->height());
        QTRY_COMPARE(imageView().width(), image + 300);
        QCOMPARE(area->width(), tabs);
    }

    void neitherImageNorTabsCanBeDraggedAway()
    {
        auto* splitter = m_window->findChild<QSplitter*>();
        splitter->setSizes({0, 5000});
        QVERIFY(splitter->sizes().at(0) >= 160);
        splitter->setSizes({5000, 0});
        QVERIFY(splitter->sizes().at(1) >= 374);
    }

    void toolBarStaysWhereItIs()
    {
        const auto* bar = m_window->findChild<QToolBar*>("toolBar");
        QVERIFY(!bar->isMovable());
        QCOMPARE(bar->contextMenuPolicy(), Qt::PreventContextMenu);
    }

    void buttonShowsWhatItDoes()
    {
        const auto* bar = m_window->findChild<QToolBar*>("toolBar");
        QCOMPARE(bar->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
        QCOMPARE(acquire().toolTip(), QString("Start the acquisition (F5)"));
        QVERIFY(!isSquare(acquire().icon()));
        clickAcquire();
        QCOMPARE(acquire().toolTip(), QString("Stop the acquisition (F5)"));
        QVERIFY(isSquare(acquire().icon()));
    }

    void statusBarEndsWithTheCamera()
    {
        const int right = label("cameraName").mapTo(m_window.get(), QPoint()).x();
        QVERIFY(right > m_window->width() / 2);
        QVERIFY(label("frameCounter").mapTo(m_window.get(), QPoint()).x() < m_window->width() / 2);
    }

    void textsOfTheCameraAreShownAsTheyAre_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* name : {"acquisitionState", "frameCounter", "cameraName", "notice"})
            QTest::newRow(name) << QString(name);
    }
    void textsOfTheCameraAreShownAsTheyAre()
    {
        QFETCH(QString, name);
        QCOMPARE(label(name.toLatin1()).textFormat(), Qt::PlainText);
    }

    void noticeStandsOut()
    {
        m_camera->startStatus = ZalErrorTimeout;
        clickAcquire();
        const QImage bar = label("notice").grab().toImage();
        QCOMPARE(bar.pixelColor(1, 1), QColor(0xf6, 0xc3, 0x43));
        QVERIFY(label("notice").wordWrap());
    }

    void tabsGrowWithTheFont()
    {
        addExtension("NamelessTab");
        auto* area = m_window->findChild<QWidget*>("extensionArea");
        QFont font = area->font();
        font.setPixelSize(8);
        area->setFont(font);
        QCOMPARE(area->sizeHint().width(), 540);
        font.setPixelSize(40);
        area->setFont(font);
        QVERIFY(area->sizeHint().width() > 1000);
    }

    void paletteIsLightOrDark()
    {
        const QPalette desktop = QApplication::palette();
        applyPalette("");
        QCOMPARE(QApplication::palette(), desktop);
        applyPalette("dark");
        QVERIFY(QApplication::palette().color(QPalette::Window).lightness() <= 99);
        QVERIFY(QApplication::palette().color(QPalette::Text).lightness() > 200);
        applyPalette("light");
        QVERIFY(QApplication::palette().color(QPalette::Window).lightness() > 200);
        QVERIFY(QApplication::palette().color(QPalette::Text).lightness() < 60);
        QApplication::setPalette(desktop);
    }

    void ownPaletteIsCompleteAndOfOneStyle()
    {
        const QPalette desktop = QApplication::palette();
        applyPalette("light");
        const QPalette light = QApplication::palette();
        QApplication::setPalette(desktop);
        QCOMPARE(QApplication::style()->objectName(), QString("fusion"));
        QCOMPARE(light.color(QPalette::Disabled, QPalette::Text), QColor(Qt::gray));
        QCOMPARE(light.color(QPalette::Disabled, QPalette::WindowText), QColor(Qt::gray));
        QCOMPARE(light.color(QPalette::Disabled, QPalette::ButtonText), QColor(Qt::gray));
        QCOMPARE(light.color(QPalette::Highlight), QColor("#2a6fc4"));
        QCOMPARE(light.color(QPalette::Link), QColor("#2a6fc4"));
        QCOMPARE(light.color(QPalette::HighlightedText), QColor(Qt::white));
        QCOMPARE(light.color(QPalette::ToolTipBase), QColor("#ffffff"));
        QCOMPARE(light.color(QPalette::ToolTipText), QColor("#1c1c1c"));
        QCOMPARE(light.color(QPalette::AlternateBase), QColor("#f0f0f0"));
    }
};

QTEST_MAIN(tst_MainWindow)
#include "tst_MainWindow.moc"
