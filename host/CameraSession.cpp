#include "host/CameraSession.h"

#include <QCoreApplication>

#include <utility>

namespace {

QString reason(ZalErrorType status)
{
    return QCoreApplication::translate("ZalCPP", ZalCPP::ErrorText(status));
}

} // namespace

CameraSession::CameraSession(std::unique_ptr<CameraDevice> camera) : m_device(std::move(camera))
{
    const auto report = [this] {
        QMetaObject::invokeMethod(this, &CameraSession::onLost, Qt::QueuedConnection);
    };
    m_device->setLostHandler(report);
    if (m_device->isLost()) // Lost before the handler was in place.
        report();
}

CameraSession::~CameraSession() = default;

void CameraSession::setAcquiring(bool on)
{
    if (on == m_acquiring || m_lost)
        return;
    if (on)
        start();
    else
        stop();
}

void CameraSession::start()
{
    {
        const std::lock_guard<std::mutex> lock(m_inbox.mutex);
        m_inbox.count = 0;
    }
    m_frameCount = 0;
    const ZalErrorType status =
        m_device->start([this](const ZalCPP::Frame& frame) { receive(frame); });
    if (status == ZalErrorSuccess)
        setState(true);
    else
        emit failed(tr("The acquisition could not be started. %1").arg(reason(status)));
}

void CameraSession::stop()
{
    const ZalErrorType status = m_device->stop();
    setState(false);
    if (status != ZalErrorSuccess)
        emit failed(tr("The acquisition did not stop cleanly. %1").arg(reason(status)));
}

void CameraSession::setState(bool acquiring)
{
    if (m_acquiring == acquiring)
        return;
    m_acquiring = acquiring;
    emit acquisitionChanged(acquiring);
}

// Runs on the camera's thread.
void CameraSession::receive(const ZalCPP::Frame& frame)
{
    const std::lock_guard<std::mutex> lock(m_inbox.mutex);
    m_inbox.newest = frame;
    ++m_inbox.count;
    if (std::exchange(m_inbox.announced, true))
        return;
    QMetaObject::invokeMethod(this, &CameraSession::deliver, Qt::QueuedConnection);
}

void CameraSession::deliver()
{
    {
        const std::lock_guard<std::mutex> lock(m_inbox.mutex);
        m_inbox.announced = false;
        // The frame was the last one before a restart.
        if (m_inbox.count == 0)
            return;
        std::swap(m_frame, m_inbox.newest);
        m_frameCount = m_inbox.count;
    }
    emit frameArrived(m_frame);
}

void CameraSession::onLost()
{
    if (std::exchange(m_lost, true))
        return;
    setState(false);
    emit lost();
}
