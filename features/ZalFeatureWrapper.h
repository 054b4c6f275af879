#pragma once

#include <ZalCPP/Feature.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

/// One camera feature of the SDK behind an interface of the plugin's own. Every operation is
/// virtual, so that a subclass may replace any of them; their order is part of the interface.
///
/// Operations forward to the SDK and pass its status on unchanged (0 success, negative failure).
/// Texts and lists are read whole: ZalErrorOutOfResources when no buffer can be had,
/// ZalErrorUnknown for a list with an entry that has no name. Outputs are filled on success only.
/// Nothing throws.
///
/// The wrapper shares ownership of the feature and adds no locking: it may be used wherever the
/// feature may, and the plugin uses it on the GUI thread only.
class ZalFeatureWrapper
{
public:
    /// `feature` must not be null.
    explicit ZalFeatureWrapper(ZalCPP::FeaturePtr feature);
    ZalFeatureWrapper(const ZalFeatureWrapper&) = delete;
    ZalFeatureWrapper& operator=(const ZalFeatureWrapper&) = delete;
    virtual ~ZalFeatureWrapper();

    /// The wrapped feature; the reference lives as long as the wrapper.
    virtual const ZalCPP::FeaturePtr& GetZalFeaturePtr();

    virtual ZalErrorType GetValue(long long& value) const;
    virtual ZalErrorType GetValue(double& value) const;
    /// The text of a string feature or the name of an enumeration's current entry, UTF-8.
    virtual ZalErrorType GetValue(std::string& value) const;
    virtual ZalErrorType GetValue(bool& value) const;
    virtual ZalErrorType GetValue(std::vector<unsigned char>& value) const;
    /// `sizeFilled` becomes the number of bytes in `value`.
    virtual ZalErrorType GetValue(std::vector<unsigned char>& value,
                                  unsigned int& sizeFilled) const;
    /// The values of all entries of an enumeration, available or not, in the camera's order.
    virtual ZalErrorType GetValues(std::vector<long long>& values);
    /// The names of all entries of an enumeration, available or not, in the camera's order.
    virtual ZalErrorType GetValues(std::vector<std::string>& names);
    virtual ZalErrorType GetEntry(ZalCPP::EnumEntry& entry, const char* name) const;
    virtual ZalErrorType GetEntries(std::vector<ZalCPP::EnumEntry>& entries);
    virtual ZalErrorType GetRange(double& min, double& max) const;
    virtual ZalErrorType GetRange(long long& min, long long& max) const;

    virtual ZalErrorType SetValue(long long value);
    virtual ZalErrorType SetValue(double value);
    virtual ZalErrorType SetValue(bool value);
    /// Sets a string feature, or an enumeration by entry name. UTF-8, terminated.
    virtual ZalErrorType SetValue(const char* value);
    /// Without this, any other pointer would quietly become a bool.
    virtual ZalErrorType SetValue(const void* value) = delete;
    /// Sets the raw bytes. An empty vector is refused with ZalErrorBadParameter without a call.
    virtual ZalErrorType SetValue(std::vector<unsigned char>& value);

    virtual ZalErrorType HasIncrement(bool& hasIncrement) const;
    virtual ZalErrorType GetIncrement(long long& increment) const;
    virtual ZalErrorType GetIncrement(double& increment) const;
    virtual ZalErrorType IsValueAvailable(const char* name, bool& available) const;
    /// A null name is no entry.
    virtual ZalErrorType IsValueAvailable(std::nullptr_t name, bool& available) const = delete;
    virtual ZalErrorType IsValueAvailable(long long value, bool& available) const;

    /// Starts the command and does not wait for its completion.
    virtual ZalErrorType RunCommand();
    virtual ZalErrorType IsCommandDone(bool& done) const;

    virtual ZalErrorType GetName(std::string& name) const;
    virtual ZalErrorType GetDisplayName(std::string& displayName) const;
    virtual ZalErrorType GetDataType(ZalFeatureDataType& type) const;
    virtual ZalErrorType GetFlags(ZalFeatureFlagsType& flags) const;
    virtual ZalErrorType GetCategory(std::string& category) const;
    virtual ZalErrorType GetUnit(std::string& unit) const;
    virtual ZalErrorType GetRepresentation(std::string& representation) const;
    virtual ZalErrorType GetVisibility(ZalFeatureVisibilityType& visibility) const;
    virtual ZalErrorType GetToolTip(std::string& toolTip) const;
    virtual ZalErrorType GetDescription(std::string& description) const;
    /// The features that this selector governs.
    virtual ZalErrorType GetSelectedFeatures(std::vector<ZalCPP::FeaturePtr>& features);
    virtual ZalErrorType GetValidValueSet(std::vector<long long>& values) const;

    virtual ZalErrorType IsReadable(bool& readable);
    virtual ZalErrorType IsWritable(bool& writable);
    /// The feature shares ownership of the observer until it is unregistered.
    virtual ZalErrorType
    RegisterObserver(const std::shared_ptr<ZalCPP::IFeatureObserver>& observer);
    virtual ZalErrorType
    UnregisterObserver(const std::shared_ptr<ZalCPP::IFeatureObserver>& observer);

private:
    const ZalCPP::FeaturePtr m_feature;
};

/// Null means that the camera has no such feature.
using ZalFeatureWrapperPtr = std::shared_ptr<ZalFeatureWrapper>;
