#pragma once

#include "features/FeatureManager.h"

#include <ZalCPP/Camera.h>

#include <QString>

#include <memory>

namespace PresetCheck {

/// Which camera to check against.
struct CameraChoice
{
    enum class Kind
    {
        None,
        ById,
        Simulated
    };
    Kind kind = Kind::None;
    QString name; ///< Its id, serial number or address, "first", or the simulated model.
};

/// An open camera behind the plugin's own access to features.
class CheckCamera
{
public:
    /// On failure returns null and sets `error` to a sentence for the user.
    static std::unique_ptr<CheckCamera> open(const CameraChoice& choice, QString& error);

    const FeatureManager& features() const { return manager; }
    /// Vendor, model and serial number.
    QString name() const;
    bool isLost() const { return camera->IsLost(); }

private:
    explicit CheckCamera(std::shared_ptr<ZalCPP::Camera> openCamera);

    const std::shared_ptr<ZalCPP::Camera> camera;
    FeatureManager manager;
};

} // namespace PresetCheck
