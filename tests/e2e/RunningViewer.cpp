#include "tests/e2e/RunningViewer.h"

#include "host/SdkCamera.h"
#include "host/TabExtensions.h"
#include "tests/support/MouseChoice.h"

#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QTimer>
#include <QToolBar>
#include <QtTest>

RunningViewer::RunningViewer(const Cameras::Source& camera)
{
    std::unique_ptr<CameraDevice> device = openCamera(camera, problem);
    if (!device)
        return;
    m_session = std::make_unique<CameraSession>(std::move(device));
    m_window = std::make_unique<MainWindow>(*m_session);
    m_window->addExtensions(
        loadTabExtensions(QStringLiteral(PLUGIN_FOLDER), m_session->features()));
    m_window->resize(1280, 860);
    m_window->show();
    if (!QTest::qWaitForWindowExposed(m_window.get()))
        problem = QStringLiteral("the window did not appear");
}

QWidget* RunningViewer::tab() const
{
    return m_window->findChild<QWidget*>(QStringLiteral("AdvTriggerWidget"));
}

ZalCPP::FeaturePtr RunningViewer::feature(const std::string& name) const
{
    for (const ZalCPP::FeaturePtr& candidate : *m_session->features()) {
        char text[128] = {};
        std::uint32_t size = sizeof text;
        if (candidate->GetName(text, size) == ZalErrorSuccess && name == text)
            return candidate;
    }
    return nullptr;
}

QTimer* RunningViewer::refreshTimer() const
{
    return tab()->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
}

void RunningViewer::waitForTicks(int ticks) const
{
    QSignalSpy spy(refreshTimer(), &QTimer::timeout);
    QTRY_VERIFY(spy.count() >= ticks);
}

void RunningViewer::choose(const char* comboBox, const QString& entry) const
{
    chooseWithMouse(*control<QComboBox>(comboBox), entry);
}

void RunningViewer::click(const char* button) const
{
    QTest::mouseClick(control<QAbstractButton>(button), Qt::LeftButton);
}

void RunningViewer::clickAcquire() const
{
    auto* bar = m_window->findChild<QToolBar*>(QStringLiteral("toolBar"));
    auto* action = m_window->findChild<QAction*>(QStringLiteral("actionAcquire"));
    QTest::mouseClick(bar->widgetForAction(action), Qt::LeftButton);
}

int RunningViewer::frames() const
{
    const QString text = m_window->findChild<QLabel*>(QStringLiteral("frameCounter"))->text();
    return text.mid(QStringLiteral("Frames: ").size()).toInt();
}

QString RunningViewer::notice() const
{
    return m_window->findChild<QLabel*>(QStringLiteral("notice"))->text();
}

void RunningViewer::close()
{
    if (m_window)
        m_window->close();
    m_window.reset();
    m_session.reset();
}
