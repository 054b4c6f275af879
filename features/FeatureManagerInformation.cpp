// FeatureManager: what a feature is called and how it is described.
#include "features/FeatureManager.h"

#include <QDebug>

namespace {

using TextRead = ZalErrorType (ZalFeatureWrapper::*)(std::string&) const;

/// The text, or an empty one when it cannot be read.
QString readText(const ZalFeatureWrapperPtr& wrapper, TextRead read)
{
    std::string text;
    if (((*wrapper).*read)(text) != ZalErrorSuccess)
        return QString();
    return QString::fromStdString(text);
}

QString descriptionPart(const ZalFeatureWrapperPtr& wrapper)
{
    QString description = readText(wrapper, &ZalFeatureWrapper::GetDescription);
    if (description.isEmpty())
        return QStringLiteral("N/A<br/>");
    return QStringLiteral("<br/>") +
           description.replace(QLatin1String("."), QLatin1String(".<br/>"));
}

QString visibilityText(const ZalFeatureWrapperPtr& wrapper)
{
    // A failed read shows as unknown, so the status does not matter.
    ZalFeatureVisibilityType visibility = ZalFeatureVisibilityUnknown;
    wrapper->GetVisibility(visibility);
    switch (visibility) {
    case ZalFeatureVisibilityUnknown:
        return QStringLiteral("UNKNOWN<br/>");
    case ZalFeatureVisibilityBeginner:
        return QStringLiteral("BEGINNER<br/>");
    case ZalFeatureVisibilityExpert:
        return QStringLiteral("EXPERT<br/>");
    case ZalFeatureVisibilityGuru:
        return QStringLiteral("GURU<br/>");
    case ZalFeatureVisibilityInvisible:
        return QStringLiteral("INVISIBLE<br/>");
    default:
        return QStringLiteral("N/A<br/>");
    }
}

bool showsLimits(const ZalFeatureWrapperPtr& wrapper)
{
    constexpr ZalFeatureFlagsType changing =
        ZalFeatureFlagsWrite | ZalFeatureFlagsVolatile | ZalFeatureFlagsModifyWrite;
    ZalFeatureFlagsType flags = ZalFeatureFlagsNone;
    if (wrapper->GetFlags(flags) != ZalErrorSuccess)
        return false;
    return (flags & changing) != 0 || flags == ZalFeatureFlagsRead;
}

QString rangeText(const char* type, const QString& min, const QString& max)
{
    return QStringLiteral("<b>Type:</b> ") + QLatin1String(type) +
           QStringLiteral("<br/><b>Minimum:</b> ") + min + QStringLiteral("<br/><b>Maximum:</b> ") +
           max + QStringLiteral("<br/>");
}

QString intervalText(const QString& increment)
{
    return QStringLiteral("<b>Interval:</b> ") + increment + QStringLiteral("<br/>");
}

QString integerLimits(const ZalFeatureWrapperPtr& wrapper)
{
    QString text;
    long long min = 0;
    long long max = 0;
    if (wrapper->GetRange(min, max) == ZalErrorSuccess)
        text += rangeText("Integer", QString::number(min), QString::number(max));
    long long increment = 0;
    if (wrapper->GetIncrement(increment) == ZalErrorSuccess && increment != 1)
        text += intervalText(QString::number(increment));
    return text;
}

QString floatLimits(const ZalFeatureWrapperPtr& wrapper)
{
    QString text;
    double min = 0.0;
    double max = 0.0;
    // 9 digits for the minimum and 12 for the maximum: the difference is intended.
    if (wrapper->GetRange(min, max) == ZalErrorSuccess)
        text += rangeText("Float", QString::number(min, 'g', 9), QString::number(max, 'g', 12));
    double increment = 0.0;
    if (wrapper->GetIncrement(increment) == ZalErrorSuccess)
        text += intervalText(QString::number(increment, 'f', 10));
    return text;
}

QString typeBlock(const ZalFeatureWrapperPtr& wrapper)
{
    switch (FeatureManager::GetDataType(wrapper)) {
    case ZalFeatureInteger:
        return showsLimits(wrapper) ? integerLimits(wrapper) : QString();
    case ZalFeatureFloat:
        return showsLimits(wrapper) ? floatLimits(wrapper) : QString();
    case ZalFeatureEnum:
        return QStringLiteral("<b>Type:</b> Enumeration<br/>");
    case ZalFeatureString:
        return QStringLiteral("<b>Type:</b> String<br/>");
    case ZalFeatureBool:
        return QStringLiteral("<b>Type:</b> Boolean<br/>");
    case ZalFeatureCommand:
        return QStringLiteral("<b>Type:</b> Command<br/>");
    case ZalFeatureRaw:
        return QStringLiteral("<b>Type:</b> Raw<br/>");
    default:
        return QString();
    }
}

QString informationPart(const ZalFeatureWrapperPtr& wrapper)
{
    QString info = QStringLiteral("<b>Feature Name:</b> ") +
                   readText(wrapper, &ZalFeatureWrapper::GetName) + QStringLiteral("<br/>");
    info += QStringLiteral("<b>Visibility:</b> ") + visibilityText(wrapper);
    info += typeBlock(wrapper);
    info += QStringLiteral("<b>Category:</b> ") +
            readText(wrapper, &ZalFeatureWrapper::GetCategory) + QStringLiteral("<br/>");
    return info;
}

/// The first wrapper that one of the names finds; later names are not looked up.
ZalFeatureWrapperPtr firstOf(const FeatureManager& manager, const QStringList& names)
{
    for (const QString& name : names) {
        if (ZalFeatureWrapperPtr wrapper = manager.GetFeatureByName(name))
            return wrapper;
    }
    return nullptr;
}

void logNotFound(const char* message, const QString& name)
{
    qDebug() << message << name;
}

} // namespace

QString FeatureManager::GetInformation(const QString& name) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name);
    if (!wrapper) {
        logNotFound(
            "Error: FeatureManager::GetInformation() - cannot get ZalFeatureWrapperPtr for ", name);
        return QString();
    }
    const QString description = descriptionPart(wrapper);
    // Two steps on purpose: a place marker in the camera's text takes part in the second one.
    return QStringLiteral("<b>Feature Description:</b> %1<br/>%2")
        .arg(description)
        .arg(informationPart(wrapper));
}

QString FeatureManager::GetRepresentation(const QString& name) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name);
    if (!wrapper) {
        logNotFound(
            "Error: FeatureManager::GetRepresentation() - cannot get ZalFeatureWrapperPtr for ",
            name);
        return QString();
    }
    std::string representation;
    if (wrapper->GetRepresentation(representation) != ZalErrorSuccess) {
        logNotFound("Error: FeatureManager::GetRepresentation() cannot get representaion for ",
                    name);
        return QString();
    }
    return QString::fromStdString(representation);
}

ZalFeatureDataType FeatureManager::GetDataType(const QString& name) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name);
    if (wrapper)
        return GetDataType(wrapper);
    logNotFound("Error: FeatureManager::GetDataType() - cannot get ZalFeatureWrapperPtr for ",
                name);
    return ZalFeatureUnknown;
}

QString FeatureManager::GetCategory(const QString& name) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name);
    return wrapper ? readText(wrapper, &ZalFeatureWrapper::GetCategory) : QString();
}

QString FeatureManager::GetFeatureName(const QStringList& names) const
{
    const ZalFeatureWrapperPtr wrapper = firstOf(*this, names);
    return wrapper ? readText(wrapper, &ZalFeatureWrapper::GetName) : QString();
}

QString FeatureManager::GetDisplayName(const QStringList& names) const
{
    const ZalFeatureWrapperPtr wrapper = firstOf(*this, names);
    return wrapper ? readText(wrapper, &ZalFeatureWrapper::GetDisplayName) : QString();
}

QString FeatureManager::GetDisplayName(const QString& name, const QString& altName,
                                       const QString& altName2) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name, altName, altName2);
    return wrapper ? readText(wrapper, &ZalFeatureWrapper::GetDisplayName) : QString();
}

QString FeatureManager::GetDisplayName(const QString& name, const QString& altName) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name, altName);
    return wrapper ? readText(wrapper, &ZalFeatureWrapper::GetDisplayName) : QString();
}

QString FeatureManager::GetDisplayName(const QString& name) const
{
    return GetDisplayName(name, QString());
}
