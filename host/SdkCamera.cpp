#include "host/SdkCamera.h"

#include <utility>

namespace {

class SdkCamera : public CameraDevice
{
public:
    explicit SdkCamera(std::shared_ptr<ZalCPP::Camera> camera) : m_camera(std::move(camera)) {}

    QString name() const override
    {
        const ZalCPP::CameraInfo& info = m_camera->Info();
        const QString name = QString::fromStdString(info.vendor + ' ' + info.model).simplified();
        return info.serial.empty()
                   ? name
                   : QStringLiteral("%1 (%2)").arg(name, QString::fromStdString(info.serial));
    }

    ZalCPP::FeatureList features() const override { return m_camera->Features(); }

    ZalErrorType start(ZalCPP::Camera::FrameHandler handler) override
    {
        return m_camera->StartAcquisition(std::move(handler));
    }

    ZalErrorType stop() override { return m_camera->StopAcquisition(); }

    void setLostHandler(ZalCPP::Camera::LostHandler handler) override
    {
        m_camera->SetLostHandler(std::move(handler));
    }

    bool isLost() const override { return m_camera->IsLost(); }
    ZalCPP::CameraLoss loss() const override { return m_camera->Loss(); }

private:
    const std::shared_ptr<ZalCPP::Camera> m_camera;
};

} // namespace

std::unique_ptr<CameraDevice> openCamera(const Cameras::Source& source, QString& error)
{
    std::string reason;
    std::shared_ptr<ZalCPP::Camera> camera = Cameras::open(source, reason);
    error = QString::fromStdString(reason);
    return camera ? std::make_unique<SdkCamera>(std::move(camera)) : nullptr;
}
