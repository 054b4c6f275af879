#include "host/Screenshot.h"

#include "host/CameraSession.h"

#include <QPixmap>
#include <QTimer>
#include <QWidget>

#include <utility>

namespace {

constexpr quint64 FramesToAwait = 3;
constexpr int LongestWaitForFrames = 5000; // ms, after the delay

} // namespace

Screenshot::Screenshot(QWidget& window, const CameraSession& session, const QString& file,
                       int delay)
    : m_window(window), m_session(session), m_file(file)
{
    connect(&session, &CameraSession::frameArrived, this, &Screenshot::takeWhenReady);
    connect(&session, &CameraSession::lost, this, &Screenshot::takeWhenReady);
    QTimer::singleShot(delay, this, [this] {
        m_delayOver = true;
        takeWhenReady();
        QTimer::singleShot(LongestWaitForFrames, this, &Screenshot::take);
    });
}

void Screenshot::takeWhenReady()
{
    if (m_delayOver && (!m_session.isAcquiring() || m_session.frameCount() >= FramesToAwait))
        take();
}

void Screenshot::take()
{
    if (!std::exchange(m_taken, true))
        emit finished(m_window.grab().save(m_file, "PNG"));
}
