#include "features/PluginFeatureObserver.h"

#include "features/TwoCallRead.h"

#include <ZalCPP/Feature.h>

namespace {

using ZalCPP::Feature;

bool readName(const Feature& feature, QString& name)
{
    std::string text;
    const auto call = [&](char* buffer, std::uint32_t& count) {
        return feature.GetName(buffer, count);
    };
    if (TwoCallRead::readText(call, text) != ZalErrorSuccess)
        return false;
    name = QString::fromStdString(text);
    return true;
}

QString stringText(const Feature& feature)
{
    std::string text;
    TwoCallRead::readText(
        [&](char* buffer, std::uint32_t& count) { return feature.GetStringValue(buffer, count); },
        text);
    return QString::fromStdString(text);
}

QString integerText(const Feature& feature)
{
    long long value = 0;
    const bool known = feature.GetIntegerValue(value) == ZalErrorSuccess;
    return known ? QString::number(value, 10) : QString();
}

QString floatText(const Feature& feature)
{
    double value = 0.0;
    const bool known = feature.GetFloatValue(value) == ZalErrorSuccess;
    return known ? QString::number(value, 'g', 6) : QString();
}

QString boolText(const Feature& feature)
{
    bool value = false;
    if (feature.GetBoolValue(value) != ZalErrorSuccess)
        return QString();
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

QString valueText(const Feature& feature, ZalFeatureDataType type)
{
    switch (type) {
    case ZalFeatureInteger:
        return integerText(feature);
    case ZalFeatureFloat:
        return floatText(feature);
    case ZalFeatureEnum:
    case ZalFeatureString:
        return stringText(feature);
    case ZalFeatureBool:
        return boolText(feature);
    case ZalFeatureCommand:
        return QStringLiteral("[COMMAND]");
    case ZalFeatureRaw:
        return QStringLiteral("Click here to open");
    default:
        return QString();
    }
}

} // namespace

PluginFeatureObserver::PluginFeatureObserver() = default;

PluginFeatureObserver::~PluginFeatureObserver() = default;

void PluginFeatureObserver::FeatureChanged(const std::shared_ptr<ZalCPP::Feature>& feature)
{
    QString name;
    ZalFeatureDataType type = ZalFeatureUnknown;
    if (!feature || !readName(*feature, name) || feature->GetDataType(type) != ZalErrorSuccess)
        return;
    emit setChangedFeature(name, valueText(*feature, type));
}
