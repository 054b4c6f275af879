#pragma once

#include "host/CameraDevice.h"

#include <QObject>

#include <memory>
#include <mutex>

/// The open camera on the GUI thread: acquisition state, frames and the loss of the camera as
/// signals. Frames never queue up: between two turns of the event loop the newest one wins, but
/// every one is counted.
///
/// Keeps the camera open until destroyed; whoever uses its features goes first.
class CameraSession : public QObject
{
    Q_OBJECT

public:
    explicit CameraSession(std::unique_ptr<CameraDevice> camera);
    ~CameraSession() override;

    QString cameraName() const { return m_device->name(); }
    ZalCPP::FeatureList features() const { return m_device->features(); }
    bool isAcquiring() const { return m_acquiring; }
    bool isLost() const { return m_lost; }
    ZalCPP::CameraLoss loss() const { return m_device->loss(); }
    /// Frames since the last start that frameArrived() has told of.
    quint64 frameCount() const { return m_frameCount; }

    /// Starts or stops acquiring; nothing when it is in that state already.
    void setAcquiring(bool on);

signals:
    void acquisitionChanged(bool acquiring);
    /// The newest frame; valid during the call.
    void frameArrived(const ZalCPP::Frame& frame);
    /// Something did not work, as a sentence for the user.
    void failed(const QString& sentence);
    /// The camera is gone for good. Acquisition has ended before.
    void lost();

private:
    /// Where the camera's thread leaves frames for the GUI thread.
    struct Inbox
    {
        std::mutex mutex;
        ZalCPP::Frame newest;
        quint64 count = 0;
        bool announced = false; ///< A delivery is on its way already.
    };

    void start();
    void stop();
    void setState(bool acquiring);
    void receive(const ZalCPP::Frame& frame);
    void deliver();
    void onLost();

    Inbox m_inbox;
    ZalCPP::Frame m_frame;
    quint64 m_frameCount = 0;
    bool m_acquiring = false;
    bool m_lost = false;
    std::unique_ptr<CameraDevice> m_device; // Last: its threads end before the rest goes.
};
