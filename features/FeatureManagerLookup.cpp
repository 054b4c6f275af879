// FeatureManager: how names become features, and what can be done with a feature.
#include "features/FeatureManager.h"

FeatureManager::FeatureManager(const QSharedPointer<QVector<ZalFeatureWrapperPtr>>& sharedWrappers)
    : wrappers(sharedWrappers)
{
}

FeatureManager::~FeatureManager() = default;

ZalFeatureWrapperPtr FeatureManager::GetFeatureByName(const std::string& name) const
{
    // A copy, so that a change of the shared list during the walk does no harm.
    const QVector<ZalFeatureWrapperPtr> snapshot = *wrappers;
    for (const ZalFeatureWrapperPtr& wrapper : snapshot) {
        std::string found;
        if (wrapper->GetName(found) == ZalErrorSuccess && found == name)
            return wrapper;
    }
    return nullptr;
}

ZalFeatureWrapperPtr FeatureManager::GetFeatureByName(const QString& name) const
{
    return GetFeatureByName(name.toUtf8().toStdString());
}

ZalFeatureWrapperPtr FeatureManager::GetFeatureByName(const QString& name,
                                                      const QString& altName) const
{
    ZalFeatureWrapperPtr result = GetFeatureByName(name);
    if (!altName.isEmpty() && !result)
        result = GetFeatureByName(altName.toStdString());
    return result;
}

ZalFeatureWrapperPtr FeatureManager::GetFeatureByName(const QString& name, const QString& altName,
                                                      const QString& altName2) const
{
    ZalFeatureWrapperPtr result = GetFeatureByName(name, altName);
    // Without a first alternative the second is never tried: callers have to give both.
    if (altName.isEmpty() || result)
        return result;
    // Asking again is part of the defined order of lookups.
    result = GetFeatureByName(altName.toStdString());
    if (altName2.isEmpty() || result)
        return result;
    return GetFeatureByName(altName2.toStdString());
}

// NOLINTBEGIN(performance-unnecessary-value-param): these take their own reference by contract.
ZalFeatureDataType FeatureManager::GetDataType(ZalFeatureWrapperPtr wrapper)
{
    ZalFeatureDataType type = ZalFeatureUnknown;
    return wrapper->GetDataType(type) == ZalErrorSuccess ? type : ZalFeatureUnknown;
}

bool FeatureManager::GetIsWritable(ZalFeatureWrapperPtr wrapper)
{
    bool writable = false;
    return wrapper->IsWritable(writable) == ZalErrorSuccess && writable;
}

bool FeatureManager::GetIsReadable(ZalFeatureWrapperPtr wrapper)
{
    bool readable = false;
    return wrapper->IsReadable(readable) == ZalErrorSuccess && readable;
}

bool FeatureManager::GetIsValueAvailable(ZalFeatureWrapperPtr wrapper, QString entry)
{
    bool available = false;
    const QByteArray name = entry.toUtf8();
    return wrapper->IsValueAvailable(name.constData(), available) == ZalErrorSuccess && available;
}

QStringList FeatureManager::GetEnumEntries(ZalFeatureWrapperPtr wrapper)
{
    std::vector<std::string> names;
    if (wrapper->GetValues(names) != ZalErrorSuccess)
        return QStringList();
    QStringList entries;
    for (const std::string& name : names)
        entries.append(QString::fromStdString(name));
    return entries;
}
// NOLINTEND(performance-unnecessary-value-param)

bool FeatureManager::GetIsWritable(const QString& name, const QString& altName,
                                   const QString& altName2) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name, altName, altName2);
    return wrapper && GetIsWritable(wrapper);
}

bool FeatureManager::GetIsWritable(const QString& name, const QString& altName) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name, altName);
    return wrapper && GetIsWritable(wrapper);
}

bool FeatureManager::GetIsWritable(const QString& name) const
{
    return GetIsWritable(name, QString());
}

bool FeatureManager::GetIsReadable(const QString& name) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name);
    return wrapper && GetIsReadable(wrapper);
}

bool FeatureManager::GetIsFeatureAvailable(const QString& name) const
{
    return GetIsFeatureAvailable(name, QString());
}

bool FeatureManager::GetIsFeatureAvailable(const QString& name, const QString& altName) const
{
    return GetIsFeatureAvailable(name, altName, QString());
}

bool FeatureManager::GetIsFeatureAvailable(const QString& name, const QString& altName,
                                           const QString& altName2) const
{
    return GetFeatureByName(name, altName, altName2) != nullptr;
}

bool FeatureManager::GetIsFeatureWritable(const QString& name) const
{
    return GetIsFeatureWritable(name, QString());
}

bool FeatureManager::GetIsFeatureWritable(const QString& name, const QString& altName) const
{
    return GetIsFeatureWritable(name, altName, QString());
}

bool FeatureManager::GetIsFeatureWritable(const QString& name, const QString& altName,
                                          const QString& altName2) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name, altName, altName2);
    return wrapper && GetIsWritable(wrapper);
}

bool FeatureManager::GetIsFeatureValueAvailable(const QString& name, const QString& entry) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name);
    return wrapper && GetIsValueAvailable(wrapper, entry);
}

QStringList FeatureManager::GetAvailableEnumEntries(const QString& name,
                                                    const QString& altName) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name, altName);
    if (!wrapper)
        return QStringList();
    QStringList available;
    for (const QString& entry : GetEnumEntries(wrapper)) {
        if (GetIsValueAvailable(wrapper, entry))
            available.append(entry);
    }
    return available;
}

QStringList FeatureManager::GetAvailableEnumEntries(const QString& name) const
{
    return GetAvailableEnumEntries(name, QString());
}

QStringList FeatureManager::GetSelectedFeatures(const QString& name) const
{
    const ZalFeatureWrapperPtr wrapper = GetFeatureByName(name);
    std::vector<ZalCPP::FeaturePtr> selected;
    if (!wrapper || wrapper->GetSelectedFeatures(selected) != ZalErrorSuccess)
        return QStringList();
    QStringList names;
    for (const ZalCPP::FeaturePtr& feature : selected) {
        std::string selectedName;
        if (feature && ZalFeatureWrapper(feature).GetName(selectedName) == ZalErrorSuccess)
            names.append(QString::fromStdString(selectedName));
    }
    return names;
}

QStringList FeatureManager::GetFeaturesList() const
{
    const QVector<ZalFeatureWrapperPtr> snapshot = *wrappers;
    QStringList names;
    for (const ZalFeatureWrapperPtr& wrapper : snapshot) {
        std::string name;
        if (wrapper->GetName(name) == ZalErrorSuccess && !name.empty())
            names.append(QString::fromStdString(name));
    }
    return names;
}
