#pragma once

#include "host/CameraSession.h"
#include "host/ImageView.h"
#include "host/MainWindow.h"
#include "tests/host/FakeDevice.h"

#include <QAction>
#include <QLabel>
#include <QTest>
#include <QToolBar>

/// Base of tests of the viewer's window on a fake camera.
class WindowTest : public QObject
{
protected:
    QAction& acquire() { return *m_window->findChild<QAction*>("actionAcquire"); }
    QLabel& label(const char* name) { return *m_window->findChild<QLabel*>(name); }
    ImageView& imageView() { return *m_window->findChild<ImageView*>("imageView"); }

    /// Whether the view looks like one of its size that shows this.
    template <class Content> bool isShown(void (ImageView::*show)(const Content&), Content content)
    {
        ImageView expected;
        expected.resize(imageView().size());
        (expected.*show)(content);
        return imageView().grab().toImage() == expected.grab().toImage();
    }
    bool isTextShown(const QString& text) { return isShown(&ImageView::showText, text); }
    bool isFrameShown(int grey)
    {
        QImage frame(4, 2, QImage::Format_Grayscale8);
        frame.fill(qRgb(grey, grey, grey));
        return isShown(&ImageView::showImage, frame);
    }

    QStringList heardByTheTab()
    {
        return m_window->findChild<QWidget*>("goodTab")->property("heard").toStringList();
    }

    void clickAcquire()
    {
        QWidget* button = m_window->findChild<QToolBar*>("toolBar")->widgetForAction(&acquire());
        QTest::mouseClick(button, Qt::LeftButton);
    }

    void addExtension(const QString& name)
    {
        const QString folder = EXTENSIONS_DIR "/" + name;
        m_window->addExtensions(loadTabExtensions(folder, m_session->features()));
    }

    std::shared_ptr<FakeCameraState> m_camera;
    std::unique_ptr<CameraSession> m_session;
    std::unique_ptr<MainWindow> m_window;
};
