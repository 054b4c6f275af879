#pragma once

#include "widgets/BaseTabPluginWidget.h"

#include <QMutex>

#include <functional>

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
