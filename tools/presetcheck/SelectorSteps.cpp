#include "tools/presetcheck/SelectorSteps.h"

#include "features/FeatureManager.h"

namespace PresetCheck {

SelectorSteps::SelectorSteps(const FeatureManager& manager) : camera(manager) {}

SelectorSteps::~SelectorSteps()
{
    putBack();
}

bool SelectorSteps::isSelector(const QString& feature) const
{
    return !camera.GetSelectedFeatures(feature).isEmpty();
}

bool SelectorSteps::move(const QString& selector, const QString& value)
{
    if (!isSelector(selector))
        return false;
    const QString before = valueOf(selector);
    if (before == value)
        return true;
    if (!camera.GetIsWritable(selector))
        return false;
    moves.push_back({selector, before});
    return write(selector, value);
}

bool SelectorSteps::putBack()
{
    bool done = true;
    for (; !moves.empty(); moves.pop_back())
        done = write(moves.back().selector, moves.back().before) && done;
    return done;
}

QString SelectorSteps::valueOf(const QString& selector) const
{
    return camera.GetDataType(selector) == ZalFeatureInteger
               ? QString::number(camera.GetValue(selector), 'f', 0)
               : camera.GetStringValue(selector);
}

bool SelectorSteps::write(const QString& selector, const QString& value) const
{
    if (camera.GetDataType(selector) == ZalFeatureInteger)
        return camera.SetValue(selector, value.toDouble()) == value.toDouble();
    return camera.SetValue(selector, value) == value;
}

} // namespace PresetCheck
