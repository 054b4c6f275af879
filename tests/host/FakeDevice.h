#pragma once

#include "host/CameraDevice.h"

#include <QStringList>

#include <memory>
#include <thread>
#include <utility>

/// What a test scripts and sees of a fake camera. Handlers run on a thread of their own, as the
/// camera's would.
struct FakeCameraState
{
    ZalErrorType startStatus = ZalErrorSuccess;
    ZalErrorType stopStatus = ZalErrorSuccess;
    bool alreadyLost = false;
    ZalCPP::CameraLoss loss = ZalCPP::CameraLoss::NoAnswer;
    QStringList calls;
    ZalCPP::Camera::FrameHandler frameHandler;
    ZalCPP::Camera::LostHandler lostHandler;

    static ZalCPP::Frame greyFrame(unsigned char shade)
    {
        return {shade, 4, 2, 0x01080001, std::vector<unsigned char>(8, shade)};
    }

    /// Returns when all frames have been handed over; their delivery to the GUI is on its way then.
    void sendFrames(const std::vector<ZalCPP::Frame>& frames) const
    {
        std::thread([&] {
            for (const ZalCPP::Frame& frame : frames)
                frameHandler(frame);
        }).join();
    }

    void sendFrame(unsigned char shade) const { sendFrames({greyFrame(shade)}); }
    void lose() const { std::thread(lostHandler).join(); }
};

/// A camera without hardware.
class FakeDevice : public CameraDevice
{
public:
    explicit FakeDevice(std::shared_ptr<FakeCameraState> script) : m_state(std::move(script)) {}
    ~FakeDevice() override { m_state->calls.append(QStringLiteral("close")); }

    QString name() const override { return QStringLiteral("Tarsel Imaging Fake (F001)"); }
    ZalCPP::FeatureList features() const override
    {
        return std::make_shared<std::vector<ZalCPP::FeaturePtr>>(3);
    }
    ZalErrorType start(ZalCPP::Camera::FrameHandler handler) override
    {
        m_state->calls.append(QStringLiteral("start"));
        m_state->frameHandler = std::move(handler);
        return m_state->startStatus;
    }
    ZalErrorType stop() override
    {
        m_state->calls.append(QStringLiteral("stop"));
        return m_state->stopStatus;
    }
    void setLostHandler(ZalCPP::Camera::LostHandler handler) override
    {
        m_state->lostHandler = std::move(handler);
    }
    bool isLost() const override { return m_state->alreadyLost; }
    ZalCPP::CameraLoss loss() const override { return m_state->loss; }

private:
    std::shared_ptr<FakeCameraState> m_state;
};
