#pragma once

#include <QObject>
#include <QString>

class CameraSession;
class QWidget;

/// Saves a window as a PNG file after a delay and, while the camera acquires, some frames. A camera
/// that delivers none (it may wait for a trigger) delays it by a few seconds at most.
class Screenshot : public QObject
{
    Q_OBJECT

public:
    /// Starts waiting. Window and session must outlive the object.
    Screenshot(QWidget& window, const CameraSession& session, const QString& file, int delay);

signals:
    void finished(bool saved);

private:
    void takeWhenReady();
    void take();

    QWidget& m_window;
    const CameraSession& m_session;
    QString m_file;
    bool m_delayOver = false;
    bool m_taken = false;
};
