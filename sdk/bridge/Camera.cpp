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

Camera::Camera(std::unique_ptr<Private> d) : m_d(std::move(d)) {}

Camera::~Camera() = default;

const CameraInfo& Camera::Info() const
{
    return m_d->info;
}

FeatureList Camera::Features() const
{
    return m_d->features;
}

FeaturePtr Camera::FindFeature(const std::string& name) const
{
    const auto& positions = m_d->core->description()->positions;
    const auto found = positions.find(name);
    return found == positions.end() ? nullptr : m_d->features->at(found->second);
}

ZalErrorType Camera::StartAcquisition(FrameHandler handler)
{
    return handler ? m_d->acquisition->start(std::move(handler)) : ZalErrorBadParameter;
}

ZalErrorType Camera::StopAcquisition()
{
    return m_d->acquisition->stop();
}

bool Camera::IsAcquiring() const
{
    return m_d->acquisition->isRunning() && !IsLost();
}

void Camera::SetLostHandler(LostHandler handler)
{
    m_d->core->notifier().setLostHandler(std::move(handler));
}

bool Camera::IsLost() const
{
    return m_d->core->worker().isLost();
}

CameraLoss Camera::Loss() const
{
    if (!IsLost())
        return CameraLoss::None;
    return m_d->core->tap().isTakenOver ? CameraLoss::ControlTaken : CameraLoss::NoAnswer;
}

WireCounts Camera::Counts() const
{
    const RegisterTap& tap = m_d->core->tap();
    return {tap.reads, tap.writes};
}

} // namespace ZalCPP
