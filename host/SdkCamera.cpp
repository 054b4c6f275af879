#include "host/SdkCamera.h"

#include "sdk/simulator/SimulatedCamera.h"

#include <ZalCPP/CameraSystem.h>

#include <utility>

namespace {

class SdkCamera : public CameraDevice
{
public:
    SdkCamera(std::unique_ptr<ZalSim::SimulatedCamera> ownSimulator,
              std::unique_ptr<ZalCPP::Camera> openCamera)
        : simulator(std::move(ownSimulator)), camera(std::move(openCamera))
    {
    }

    QString name() const override
    {
        const ZalCPP::CameraInfo& info = camera->Info();
        const QString name = QString::fromStdString(info.vendor + ' ' + info.model).simplified();
        return info.serial.empty()
                   ? name
                   : QStringLiteral("%1 (%2)").arg(name, QString::fromStdString(info.serial));
    }

    ZalCPP::FeatureList features() const override { return camera->Features(); }

    ZalErrorType start(ZalCPP::Camera::FrameHandler handler) override
    {
        return camera->StartAcquisition(std::move(handler));
    }

    ZalErrorType stop() override { return camera->StopAcquisition(); }

    void setLostHandler(ZalCPP::Camera::LostHandler handler) override
    {
        camera->SetLostHandler(std::move(handler));
    }

    bool isLost() const override { return camera->IsLost(); }
    ZalCPP::CameraLoss loss() const override { return camera->Loss(); }

private:
    // In this order: the connection closes before the camera at its other end disappears.
    std::unique_ptr<ZalSim::SimulatedCamera> simulator;
    std::unique_ptr<ZalCPP::Camera> camera;
};

} // namespace

std::unique_ptr<CameraDevice> openCamera(const CameraChoice& choice, QString& error)
{
    std::string reason;
    std::string id = choice.id.toStdString();
    std::unique_ptr<ZalSim::SimulatedCamera> simulator;
    if (choice.kind == CameraChoice::Kind::Simulated) {
        ZalSim::Options options;
        options.model = choice.model.toStdString();
        simulator = ZalSim::SimulatedCamera::Start(options, reason);
        id = simulator ? simulator->CameraId() : std::string();
    }

    std::unique_ptr<ZalCPP::Camera> camera;
    if (simulator || choice.kind != CameraChoice::Kind::Simulated)
        camera = ZalCPP::CameraSystem::Open(id, reason);
    error = QString::fromStdString(reason);
    if (!camera)
        return nullptr;
    return std::make_unique<SdkCamera>(std::move(simulator), std::move(camera));
}
