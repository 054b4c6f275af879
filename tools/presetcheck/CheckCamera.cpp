#include "tools/presetcheck/CheckCamera.h"

#include <ZalCPP/CameraSystem.h>

#include <utility>

namespace PresetCheck {

namespace {

QSharedPointer<QVector<ZalFeatureWrapperPtr>> wrappersOf(const ZalCPP::Camera& camera)
{
    auto wrappers = QSharedPointer<QVector<ZalFeatureWrapperPtr>>::create();
    const ZalCPP::FeatureList features = camera.Features();
    for (const ZalCPP::FeaturePtr& feature : *features)
        wrappers->append(std::make_shared<ZalFeatureWrapper>(feature));
    return wrappers;
}

} // namespace

std::unique_ptr<CheckCamera> CheckCamera::open(const CameraChoice& choice, QString& error)
{
    std::string reason;
    std::string id =
        choice.name == QLatin1String("first") ? std::string() : choice.name.toStdString();
    std::unique_ptr<ZalSim::SimulatedCamera> simulator;
    if (choice.kind == CameraChoice::Kind::Simulated) {
        ZalSim::Options options;
        options.model = choice.name.toStdString();
        simulator = ZalSim::SimulatedCamera::Start(options, reason);
        id = simulator ? simulator->CameraId() : std::string();
    }
    std::unique_ptr<ZalCPP::Camera> camera;
    if (simulator || choice.kind == CameraChoice::Kind::ById)
        camera = ZalCPP::CameraSystem::Open(id, reason);
    error = QString::fromStdString(reason);
    if (!camera)
        return nullptr;
    return std::unique_ptr<CheckCamera>(new CheckCamera(std::move(simulator), std::move(camera)));
}

CheckCamera::CheckCamera(std::unique_ptr<ZalSim::SimulatedCamera> ownSimulator,
                         std::unique_ptr<ZalCPP::Camera> openCamera)
    : simulator(std::move(ownSimulator)), camera(std::move(openCamera)),
      manager(wrappersOf(*camera))
{
}

QString CheckCamera::name() const
{
    const ZalCPP::CameraInfo& info = camera->Info();
    return QString::fromStdString(info.vendor + ' ' + info.model + ' ' + info.serial).simplified();
}

} // namespace PresetCheck
