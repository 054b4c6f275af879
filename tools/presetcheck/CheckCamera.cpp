#include "tools/presetcheck/CheckCamera.h"

#include "sdk/cameras/Cameras.h"

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

Cameras::Source sourceOf(const CameraChoice& choice)
{
    if (choice.kind == CameraChoice::Kind::Simulated)
        return {Cameras::Source::Kind::Simulated, choice.name.toStdString()};
    const bool isFirst = choice.name == QLatin1String("first");
    return {Cameras::Source::Kind::Found, isFirst ? std::string() : choice.name.toStdString()};
}

} // namespace

std::unique_ptr<CheckCamera> CheckCamera::open(const CameraChoice& choice, QString& error)
{
    std::string reason;
    std::shared_ptr<ZalCPP::Camera> camera = Cameras::open(sourceOf(choice), reason);
    error = QString::fromStdString(reason);
    return camera ? std::unique_ptr<CheckCamera>(new CheckCamera(std::move(camera))) : nullptr;
}

CheckCamera::CheckCamera(std::shared_ptr<ZalCPP::Camera> openCamera)
    : camera(std::move(openCamera)), manager(wrappersOf(*camera))
{
}

QString CheckCamera::name() const
{
    const ZalCPP::CameraInfo& info = camera->Info();
    return QString::fromStdString(info.vendor + ' ' + info.model + ' ' + info.serial).simplified();
}

} // namespace PresetCheck
