#pragma once

#include "features/Answer.h"
#include "features/ZalFeatureWrapper.h"

#include <QSharedPointer>
#include <QString>
#include <QStringList>
#include <QVector>

#include <string>
#include <type_traits>

/// An entry of an enumeration, and whether it can be chosen at this moment.
struct OfferedEntry
{
    QString name;
    Answer<bool> available;
};

/// The limits of a number; -1 where there are none.
struct FeatureRange
{
    double min = -1.0;
    double max = -1.0;
};

/// The one access path to the camera's features, by name.
///
/// Several names in one call are alternatives for one feature, not a selector and its value: the
/// first that exists on the camera wins. An empty alternative is never looked up, and `altName2` is
/// tried only when `altName` is not empty. Names are compared case-sensitively.
///
///     GetValue("TriggerDelay")                          // this feature
///     GetValue("TriggerDelay", "TriggerDelayAbs")       // the second where the first is missing
///     GetValue("TriggerDelay", "", "TriggerDelayRaw")   // only ever the first
///
/// To reach one instance of a selected feature, write its selector first. The manager never does.
///
/// Numbers cross this interface as double: integers converted, booleans as 0.0 and 1.0, and -1.0
/// for a value that is missing or cannot be read (0.0 for an unreadable boolean). Nothing is
/// cached: each call walks the list and asks the camera. Nothing throws; failures give neutral
/// results (null, false, -1.0, empty).
///
/// Every public operation on names but the lookups is virtual, in an order that is part of the
/// interface. A shorter form calls a longer one through the virtual table; the two-name forms of
/// GetIsWritable and GetDisplayName stand alone. GUI thread only.
class FeatureManager
{
public:
    /// Shares the list, which must not be null; the manager never changes it.
    explicit FeatureManager(const QSharedPointer<QVector<ZalFeatureWrapperPtr>>& wrappers);
    FeatureManager(const FeatureManager&) = delete;
    FeatureManager& operator=(const FeatureManager&) = delete;
    virtual ~FeatureManager();

    /// The value of an integer, float or boolean feature; -1.0 for any other.
    virtual double GetValue(const QString& name, const QString& altName,
                            const QString& altName2) const;
    virtual double GetValue(const QString& name, const QString& altName) const;
    virtual double GetValue(const QString& name) const;

    /// The text of a string feature or the current entry of an enumeration.
    virtual QString GetStringValue(const QString& name, const QString& altName) const;
    virtual QString GetStringValue(const QString& name) const;

    /// Writable at this moment. The one-name form ends in the two-name form; the three-name form
    /// stands alone.
    virtual bool GetIsWritable(const QString& name, const QString& altName,
                               const QString& altName2) const;
    virtual bool GetIsWritable(const QString& name, const QString& altName) const;
    virtual bool GetIsWritable(const QString& name) const;

    virtual bool GetIsReadable(const QString& name) const;

    /// The step of an integer or float feature; -1.0 for any other and where there is none.
    virtual double GetIncrement(const QString& name, const QString& altName) const;
    virtual double GetIncrement(const QString& name) const;

    /// The camera's own spelling of the first of these names that exists; empty when none does.
    virtual QString GetFeatureName(const QStringList& names) const;
    /// The display name of the first of these features that exists; empty when none does.
    virtual QString GetDisplayName(const QStringList& names) const;

    virtual QString GetDisplayName(const QString& name, const QString& altName,
                                   const QString& altName2) const;
    virtual QString GetDisplayName(const QString& name, const QString& altName) const;
    virtual QString GetDisplayName(const QString& name) const;

    /// Value and limits of an integer or float feature; limits that cannot be read count as -1.
    /// Where the camera has an increment, `max` is reduced to a multiple of it, counted from zero:
    /// a negative `max`, also that of unreadable limits, then becomes 0 or wraps around to a very
    /// large number. Without one `inc` is 1.0 (integer) or 0.01 (float). Any other feature gives
    /// -1.0 all over and is not writable. A missing feature gives -1.0 and leaves the outputs
    /// untouched.
    virtual double GetValueIsWritableRangeIncrement(const QString& name, const QString& altName,
                                                    const QString& altName2, bool* writable,
                                                    double* min, double* max, double* inc) const;
    virtual double GetValueIsWritableRangeIncrement(const QString& name, const QString& altName,
                                                    bool* writable, double* min, double* max,
                                                    double* inc) const;
    virtual double GetValueIsWritableRangeIncrement(const QString& name, bool* writable,
                                                    double* min, double* max, double* inc) const;
    virtual double GetValueRangeIncrement(const QString& name, const QString& altName,
                                          const QString& altName2, double* min, double* max,
                                          double* inc) const;
    virtual double GetValueRangeIncrement(const QString& name, const QString& altName, double* min,
                                          double* max, double* inc) const;
    virtual double GetValueRangeIncrement(const QString& name, double* min, double* max,
                                          double* inc) const;
    virtual double GetValueRange(const QString& name, const QString& altName,
                                 const QString& altName2, double* min, double* max) const;
    virtual double GetValueRange(const QString& name, const QString& altName, double* min,
                                 double* max) const;
    virtual double GetValueRange(const QString& name, double* min, double* max) const;

    /// The text or current entry while the feature can be written, otherwise empty.
    virtual QString GetWritableEnumValue(const QString& name) const;

    /// The entries that can be chosen at this moment, in the camera's order.
    virtual QStringList GetAvailableEnumEntries(const QString& name, const QString& altName) const;
    virtual QStringList GetAvailableEnumEntries(const QString& name) const;

    /// Whether the camera has the feature, readable or not. Shortest form first.
    virtual bool GetIsFeatureAvailable(const QString& name) const;
    virtual bool GetIsFeatureAvailable(const QString& name, const QString& altName) const;
    virtual bool GetIsFeatureAvailable(const QString& name, const QString& altName,
                                       const QString& altName2) const;

    /// Same answer as GetIsWritable, but every form ends in the three-name form. Shortest first.
    virtual bool GetIsFeatureWritable(const QString& name) const;
    virtual bool GetIsFeatureWritable(const QString& name, const QString& altName) const;
    virtual bool GetIsFeatureWritable(const QString& name, const QString& altName,
                                      const QString& altName2) const;

    virtual bool GetIsFloatFeature(const QString& name, const QString& altName,
                                   const QString& altName2) const;
    virtual bool GetIsFloatFeature(const QString& name, const QString& altName) const;
    virtual bool GetIsFloatFeature(const QString& name) const;

    /// Writes a number, fitted into the range (-1 to -1 when unreadable), an integer also to the
    /// increment, a boolean as true for more than 0, and returns what the camera holds then. A
    /// refused float is tried once more, with the camera's own value in whole increments where it
    /// has increments; a last refusal is logged. A read-only feature is left alone; a missing one
    /// or one of another kind returns `value`.
    virtual double SetValue(const QString& name, const QString& altName, const QString& altName2,
                            double value) const;
    virtual double SetValue(const QString& name, const QString& altName, double value) const;
    virtual double SetValue(const QString& name, double value) const;
    /// Writes a text or an entry name and returns what `name`, not an alternative, holds then.
    virtual QString SetValue(const QString& name, const QString& altName, const QString& altName2,
                             const QString& value) const;
    virtual QString SetValue(const QString& name, const QString& altName,
                             const QString& value) const;
    virtual QString SetValue(const QString& name, const QString& value) const;

    /// Starts the command; true when the camera accepted it. Does not wait for its completion.
    virtual bool RunCommand(const QString& name) const;
    /// Path of categories, separated by '/'.
    virtual QString GetCategory(const QString& name) const;
    virtual bool GetIsFeatureValueAvailable(const QString& name, const QString& entry) const;
    /// Names of the features that this selector governs, in the camera's order.
    virtual QStringList GetSelectedFeatures(const QString& name) const;
    virtual ZalFeatureDataType GetDataType(const QString& name) const;
    /// The camera's hint on how to show a number, for example "HexNumber".
    virtual QString GetRepresentation(const QString& name) const;
    /// What the feature is, as HTML for a tool tip: show it through RichText::forToolTip().
    virtual QString GetInformation(const QString& name) const;
    /// Names of all features, in list order.
    virtual QStringList GetFeaturesList() const;

    // For callers to whom "no" and "no answer" are not the same: questions and writes as above, by
    // one name, with what became of them. That there is no such feature counts as an answer, unless
    // a feature did not tell its name.
    Answer<bool> askIsWritable(const QString& name) const;
    Answer<ZalFeatureDataType> askDataType(const QString& name) const;
    Answer<QString> askStringValue(const QString& name) const;
    /// All entries, in the camera's order.
    Answer<QVector<OfferedEntry>> askEnumEntries(const QString& name) const;
    /// The limits as GetValueRange() gives them.
    Answer<FeatureRange> askRange(const QString& name) const;
    /// As SetValue(), but writes nothing that rests on an answer that did not come.
    Written<double> trySetValue(const QString& name, double value) const;
    Written<QString> trySetValue(const QString& name, const QString& value) const;

    // Lookups: null when there is no such feature.
    ZalFeatureWrapperPtr GetFeatureByName(const std::string& name) const;
    ZalFeatureWrapperPtr GetFeatureByName(const QString& name) const;
    ZalFeatureWrapperPtr GetFeatureByName(const QString& name, const QString& altName) const;
    ZalFeatureWrapperPtr GetFeatureByName(const QString& name, const QString& altName,
                                          const QString& altName2) const;

    // The same questions to one feature, which must not be null unless said otherwise.
    static ZalFeatureDataType GetDataType(ZalFeatureWrapperPtr wrapper);
    static bool GetIsWritable(ZalFeatureWrapperPtr wrapper);
    static bool GetIsReadable(ZalFeatureWrapperPtr wrapper);
    static QString GetStringValue(ZalFeatureWrapperPtr wrapper); ///< Null gives an empty text.
    static bool GetIsValueAvailable(ZalFeatureWrapperPtr wrapper, QString entry);
    /// All entry names, available or not, in the camera's order.
    static QStringList GetEnumEntries(ZalFeatureWrapperPtr wrapper);
    /// Reads into `*value`; a failed read leaves -1 there, or false for bool.
    template <typename T> static void GetValue(ZalFeatureWrapperPtr wrapper, T* value);

private:
    Answer<ZalFeatureWrapperPtr> findFeature(const std::string& name) const;
    Answer<ZalFeatureWrapperPtr> findFeature(const QString& name) const;

    QSharedPointer<QVector<ZalFeatureWrapperPtr>> m_wrappers;
};

// NOLINTNEXTLINE(performance-unnecessary-value-param): takes its own reference by contract.
template <typename T> void FeatureManager::GetValue(ZalFeatureWrapperPtr wrapper, T* value)
{
    if (wrapper->GetValue(*value) != ZalErrorSuccess)
        *value = std::is_same_v<T, bool> ? T(0) : T(-1);
}
