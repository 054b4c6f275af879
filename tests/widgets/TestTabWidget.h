#pragma once

#include "tests/support/VirtualSlot.h"
#include "widgets/BaseTabPluginWidget.h"

#include <QMutex>

#include <cstddef>
#include <functional>
#include <vector>

/// The least widget that the base class allows, open to the tests.
class TestTabWidget : public BaseTabPluginWidget
{
public:
    explicit TestTabWidget(const ZalCPP::FeatureList& features, QWidget* parent = nullptr)
        : BaseTabPluginWidget(features, parent)
    {
    }

    using BaseTabPluginWidget::isVendorSupported;
    using BaseTabPluginWidget::m_changedFeatures;
    using BaseTabPluginWidget::m_featureManager;
    using BaseTabPluginWidget::m_features;
    using BaseTabPluginWidget::m_mutex;
    using BaseTabPluginWidget::m_observedFeatures;
    using BaseTabPluginWidget::m_observer;
    using BaseTabPluginWidget::m_updateTimer;

    /// The functions that the base class lays down for its subclasses, in its order.
    static std::vector<std::size_t> ownVirtualSlots()
    {
        return {virtualSlot(&TestTabWidget::updateInit),
                virtualSlot(&TestTabWidget::isVendorSupported),
                virtualSlot(&TestTabWidget::updateColoredControls)};
    }

    int refreshes = 0;
    int recolourings = 0;
    /// Called during each refresh.
    std::function<void()> onRefresh;

protected:
    void updateInit() override
    {
        ++refreshes;
        if (onRefresh)
            onRefresh();
    }
    void updateColoredControls() override { ++recolourings; }
};
