#pragma once

#include <memory>

namespace ZalCPP {

class Feature;

/// Receives feature changes. Register it with Feature::RegisterObserver.
class IFeatureObserver
{
public:
    /// The feature's value, its limits, its entries, or what can be done with it changed. Called on
    /// the SDK's notification thread, with no SDK lock held: reading the feature and unregistering
    /// are allowed.
    virtual void FeatureChanged(const std::shared_ptr<Feature>& feature) = 0;
    virtual ~IFeatureObserver() = default;
};

} // namespace ZalCPP
