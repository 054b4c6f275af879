#pragma once

#include "host/CameraSession.h"
#include "host/MainWindow.h"
#include "sdk/cameras/Cameras.h"

#include <QString>

#include <memory>

class QTimer;

/// The viewer with the built plugin, as a person has it on the screen: window, camera, tab.
class RunningViewer
{
public:
    explicit RunningViewer(const Cameras::Source& camera);

    /// Null when the camera could not be opened; `problem` says why.
    MainWindow* window() const { return m_window.get(); }
    CameraSession& session() const { return *m_session; }
    QString problem;

    /// The tab of the plugin; null when it was refused.
    QWidget* tab() const;
    /// A control of the tab by its object name; the test fails when there is none.
    template <class Widget> Widget* control(const char* name) const
    {
        auto* widget = tab() ? tab()->findChild<Widget*>(QString::fromLatin1(name)) : nullptr;
        if (!widget)
            qFatal("The tab has no control %s", name);
        return widget;
    }
    /// The open camera's feature of that name, past the plugin; null when there is none.
    ZalCPP::FeaturePtr feature(const std::string& name) const;
    /// Ticks of the tab's refresh timer come from here.
    QTimer* refreshTimer() const;

    /// Waits for that many more refreshes; the first one after showing refreshes every control.
    void waitForTicks(int ticks) const;

    /// Picks an entry of a combo box with the mouse: a click on the box, a click on the entry.
    void choose(const char* comboBox, const QString& entry) const;
    void click(const char* button) const;
    /// Presses the tool bar's start and stop button.
    void clickAcquire() const;
    /// What the status bar counts.
    int frames() const;
    /// The sentence above the image, empty when there is none.
    QString notice() const;

    /// Closes the window and the camera.
    void close();

private:
    std::unique_ptr<CameraSession> m_session;
    std::unique_ptr<MainWindow> m_window;
};
