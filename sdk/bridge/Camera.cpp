#include <ZalCPP/Camera.h>

#include "sdk/bridge/CameraPrivate.h"

#include <utility>

namespace ZalCPP {
namespace {

FeatureList allFeatures(CameraCore& core)
{
    auto list = std::make_shared<std::vector<FeaturePtr>>();
    for (std::size_t position = 0; position < core.description()->features.size(); ++position)
        list->push_back(core.feature(position));
    return list;
}

} // namespace

Camera::Private::Private(CameraInfo cameraInfo, std::shared_ptr<CameraCore> cameraCore)
    : info(std::move(cameraInfo)), core(std::move(cameraCore)), features(allFeatures(*core)),
      acquisition(std::make_unique<Acquisition>(core))
{
}

void Camera::Private::close()
{
    acquisition.reset();
    core->close();
}

Camera::Camera(std::unique_ptr<Private> p) : d(std::move(p)) {}

Camera::~Camera() = default;

const CameraInfo& Camera::Info() const
{
    return d->info;
}

FeatureList Camera::Features() const
{
    return d->features;
}

FeaturePtr Camera::FindFeature(const std::string& name) const
{
    const auto& positions = d->core->description()->positions;
    const auto found = positions.find(name);
    return found == positions.end() ? nullptr : d->features->at(found->second);
}

ZalErrorType Camera::StartAcquisition(FrameHandler handler)
{
    return handler ? d->acquisition->start(std::move(handler)) : ZalErrorBadParameter;
}

ZalErrorType Camera::StopAcquisition()
{
    return d->acquisition->stop();
}

bool Camera::IsAcquiring() const
{
    return d->acquisition->isRunning() && !IsLost();
}

void Camera::SetLostHandler(LostHandler handler)
{
    d->core->notifier().setLostHandler(std::move(handler));
}

bool Camera::IsLost() const
{
    return d->core->worker().isLost();
}

CameraLoss Camera::Loss() const
{
    if (!IsLost())
        return CameraLoss::None;
    return d->core->tap().isTakenOver ? CameraLoss::ControlTaken : CameraLoss::NoAnswer;
}

WireCounts Camera::Counts() const
{
    const RegisterTap& tap = d->core->tap();
    return {tap.reads, tap.writes};
}

} // namespace ZalCPP
