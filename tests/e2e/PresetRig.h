#pragma once

#include "sdk/simulator/SimulatedCamera.h"
#include "trigger/AdvTriggerBase.h"

#include <ZalCPP/Camera.h>

#include <QComboBox>

#include <atomic>
#include <memory>

/// The engine with nothing but a preset box on its form.
class PresetEngine : public AdvTriggerBase
{
public:
    /// With the presets for the camera from `applicationDir`/plugins.
    PresetEngine(const ZalCPP::FeatureList& features, const QString& applicationDir);

    using AdvTriggerBase::m_featureManager;

    /// Picks the preset as a user does; what the error boxes say. False in `found` when the box
    /// does not offer it.
    QString apply(const QString& preset, bool& found);

    QComboBox& box;

protected:
    void updateInit() override {}
    void updateColoredControls() override {}
    void SetCustomPreset() override {}
};

/// A simulated camera, opened over the network, and the engine on it.
class PresetRig
{
public:
    /// Opens the camera under `address`, if given, as where somebody forwards to it. On failure
    /// there is no engine, and `problem` says why.
    PresetRig(const QString& model, const QString& applicationDir, const QString& address = {});
    ~PresetRig();
    PresetRig(const PresetRig&) = delete;
    PresetRig& operator=(const PresetRig&) = delete;

    /// The feature's value as text; selectors before it in the path are written first:
    /// "LineSelector=Line3 LineSource".
    QString read(const QString& path) const;
    /// Writes "Feature=value" in the order given, separated by blanks.
    void write(const QString& path) const;

    bool startAcquisition();
    int frames() const { return m_frameCount; }

    QString problem;
    std::unique_ptr<ZalSim::SimulatedCamera> simulator;
    std::unique_ptr<ZalCPP::Camera> camera;
    std::unique_ptr<PresetEngine> engine;

private:
    QString readFeature(const QString& feature) const;

    std::atomic<int> m_frameCount = 0;
};
