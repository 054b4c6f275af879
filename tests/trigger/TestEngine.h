#pragma once

#include "tests/support/FakeCamera.h"
#include "tests/trigger/CameraWrites.h"
#include "trigger/AdvTriggerBase.h"

#include <memory>

/// The engine with an empty form that a test fills, and with what it offers to forms in the open.
class TestEngine : public AdvTriggerBase
{
public:
    explicit TestEngine(const Fake::FakeCamera& camera) : AdvTriggerBase(camera.features(), nullptr)
    {
    }

    using AdvTriggerBase::ActivateTooltips;
    using AdvTriggerBase::InitBaseWidgets;
    using AdvTriggerBase::m_changedFeatures;
    using AdvTriggerBase::m_exemptWidgets;
    using AdvTriggerBase::m_featureList;
    using AdvTriggerBase::m_knownFeatures;
    using AdvTriggerBase::m_observedFeatures;
    using AdvTriggerBase::m_tooltipCache;
    using AdvTriggerBase::m_tooltipsActive;
    using AdvTriggerBase::SetFeatureValue;
    using AdvTriggerBase::updateTimer;

    /// Adds a widget to the form; the form owns it.
    template <class Widget> Widget& add(const QString& objectName)
    {
        auto* widget = new Widget(this);
        widget->setObjectName(objectName);
        return *widget;
    }

    /// Refreshes as after changes of these features, in this order.
    void refresh(const QStringList& features)
    {
        *m_changedFeatures = features;
        UpdateInitBase();
        m_changedFeatures->clear();
    }

    /// Names bound by the form, without the ones that every engine watches.
    QStringList boundFeatures() const { return m_knownFeatures.mid(SeedCount); }

    static constexpr int SeedCount = 6;
    int customPresets = 0; ///< How often the preset box was told to show "Custom".

protected:
    void updateInit() override
    {
        if (!m_changedFeatures->isEmpty())
            UpdateInitBase();
    }
    void updateColoredControls() override {}
    void SetCustomPreset() override { ++customPresets; }
};

/// A camera that the engine accepts and that has no other features.
inline std::unique_ptr<Fake::FakeCamera> acceptedCamera()
{
    auto camera = std::make_unique<Fake::FakeCamera>();
    camera->addString("DeviceVendorName", "Tarsel Imaging GmbH");
    return camera;
}
