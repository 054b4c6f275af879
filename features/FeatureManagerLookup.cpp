// FeatureManager: how names become features, and what can be done with a feature.
#include "features/FeatureManager.h"

#include "features/FeatureQuestions.h"

namespace Ask = FeatureQuestions;

namespace {

Answer<QVector<OfferedEntry>> offeredEntries(ZalFeatureWrapper& feature)
{
    const Answer<QStringList> names = Ask::entries(feature);
    Answer<QVector<OfferedEntry>> entries;
    entries.status = names.status;
    for (const QString& name : names.value)
        entries.value.append({name, Ask::isValueAvailable(feature, name)});
    return entries;
}

} // namespace

FeatureManager::FeatureManager(const QSharedPointer<QVector<ZalFeatureWrapperPtr>>& wrappers)
    : m_wrappers(wrappers)
{
}

FeatureManager::~FeatureManager() = default;

Answer<ZalFeatureWrapperPtr> FeatureManager::findFeature(const std::string& name) const
{
    // A copy, so that a change of the shared list during the walk does no harm.
    const QVector<ZalFeatureWrapperPtr> snapshot = *m_wrappers;
    Answer<ZalFeatureWrapperPtr> result;
    for (const ZalFeatureWrapperPtr& wrapper : snapshot) {
        std::string found;
        const ZalErrorType status = wrapper->GetName(found);
        if (status == ZalErrorSuccess && found == name)
            return {wrapper, ZalErrorSuccess};
        // It may have been this one.
        if (isUnanswered(status))
            result.status = status;
    }
    return result;
}

Answer<ZalFeatureWrapperPtr> FeatureManager::findFeature(const QString& name) const
{
    return findFeature(name.toUtf8().toStdString());
}

ZalFeatureWrapperPtr FeatureManager::GetFeatureByName(const std::string& name) const
{
    return findFeature(name).value;
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
    return Ask::dataType(*wrapper).value;
}

bool FeatureManager::GetIsWritable(ZalFeatureWrapperPtr wrapper)
{
    return Ask::isWritable(*wrapper).value;
}

bool FeatureManager::GetIsReadable(ZalFeatureWrapperPtr wrapper)
{
    bool readable = false;
    return wrapper->IsReadable(readable) == ZalErrorSuccess && readable;
}

bool FeatureManager::GetIsValueAvailable(ZalFeatureWrapperPtr wrapper, QString entry)
{
    return Ask::isValueAvailable(*wrapper, entry).value;
}

QStringList FeatureManager::GetEnumEntries(ZalFeatureWrapperPtr wrapper)
{
    return Ask::entries(*wrapper).value;
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
    QStringList available;
    if (!wrapper)
        return available;
    for (const OfferedEntry& entry : offeredEntries(*wrapper).value) {
        if (entry.available.value)
            available.append(entry.name);
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
    const QVector<ZalFeatureWrapperPtr> snapshot = *m_wrappers;
    QStringList names;
    for (const ZalFeatureWrapperPtr& wrapper : snapshot) {
        std::string name;
        if (wrapper->GetName(name) == ZalErrorSuccess && !name.empty())
            names.append(QString::fromStdString(name));
    }
    return names;
}

Answer<bool> FeatureManager::askIsWritable(const QString& name) const
{
    const Answer<ZalFeatureWrapperPtr> found = findFeature(name);
    return found.value ? Ask::isWritable(*found.value) : Answer<bool>{false, found.status};
}

Answer<ZalFeatureDataType> FeatureManager::askDataType(const QString& name) const
{
    const Answer<ZalFeatureWrapperPtr> found = findFeature(name);
    if (!found.value)
        return {ZalFeatureUnknown, found.status};
    return Ask::dataType(*found.value);
}

Answer<QVector<OfferedEntry>> FeatureManager::askEnumEntries(const QString& name) const
{
    const Answer<ZalFeatureWrapperPtr> found = findFeature(name);
    if (!found.value)
        return {QVector<OfferedEntry>(), found.status};
    return offeredEntries(*found.value);
}
