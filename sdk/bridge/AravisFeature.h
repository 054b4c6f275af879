#pragma once

#include "sdk/bridge/CameraCore.h"
#include "sdk/bridge/NodeAccess.h"

#include <ZalCPP/Feature.h>

#include <atomic>
#include <initializer_list>

namespace ZalCPP {

/// A handle to one feature of an open camera. Static facts are answered from the description that
/// was read when the camera was opened; everything else is asked on the camera's worker thread.
class AravisFeature : public Feature
{
public:
    /// Shares ownership of the core; the position is that in its description.
    AravisFeature(std::shared_ptr<CameraCore> core, std::size_t position);

    ZalErrorType GetName(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetDisplayName(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetCategory(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetUnit(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetRepresentation(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetToolTip(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetDescription(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetDataType(ZalFeatureDataType& type) const override;
    ZalErrorType GetFlags(ZalFeatureFlagsType& flags) const override;
    ZalErrorType GetVisibility(ZalFeatureVisibilityType& visibility) const override;
    ZalErrorType GetSelectedFeatures(FeaturePtr* buffer, std::uint32_t& count) const override;

    ZalErrorType IsReadable(bool& readable) const override;
    ZalErrorType IsWritable(bool& writable) const override;

    ZalErrorType GetIntegerValue(long long& value) const override;
    ZalErrorType GetFloatValue(double& value) const override;
    ZalErrorType GetBoolValue(bool& value) const override;
    ZalErrorType GetStringValue(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetRawValue(unsigned char* buffer, std::uint32_t& count) const override;

    ZalErrorType SetIntegerValue(long long value) override;
    ZalErrorType SetFloatValue(double value) override;
    ZalErrorType SetBoolValue(bool value) override;
    ZalErrorType SetStringValue(const char* value) override;
    ZalErrorType SetRawValue(const unsigned char* data, std::uint32_t count) override;

    ZalErrorType GetIntegerRange(long long& min, long long& max) const override;
    ZalErrorType GetFloatRange(double& min, double& max) const override;
    ZalErrorType HasIncrement(bool& hasIncrement) const override;
    ZalErrorType GetIntegerIncrement(long long& increment) const override;
    ZalErrorType GetFloatIncrement(double& increment) const override;
    ZalErrorType GetValidValueSet(long long* buffer, std::uint32_t& count) const override;

    ZalErrorType GetEnumValues(long long* buffer, std::uint32_t& count) const override;
    ZalErrorType GetEnumNames(const char** buffer, std::uint32_t& count) const override;
    ZalErrorType GetEntry(EnumEntry& entry, const char* name) const override;
    ZalErrorType GetEntries(EnumEntry* buffer, std::uint32_t& count) const override;
    ZalErrorType IsValueAvailable(const char* name, bool& available) const override;
    ZalErrorType IsValueAvailable(long long value, bool& available) const override;

    ZalErrorType RunCommand() override;
    ZalErrorType IsCommandDone(bool& done) const override;

    ZalErrorType RegisterObserver(const std::shared_ptr<IFeatureObserver>& observer) override;
    ZalErrorType UnregisterObserver(const std::shared_ptr<IFeatureObserver>& observer) override;

private:
    /// The data types that have an operation; a feature of any other type refuses it.
    using Types = std::initializer_list<ZalFeatureDataType>;

    template <typename Work> ZalErrorType ifOfType(Types types, Work work) const;
    template <typename Answer, typename Query>
    ZalErrorType ask(Types types, Answer& answer, Query query,
                     const AccessGuard::Demand& demand = {}) const;
    template <typename Number>
    ZalErrorType askRange(Types types, NodeAccess::Query<Range<Number>> query, Number& min,
                          Number& max) const;
    template <typename Value, typename Element>
    ZalErrorType askElements(Types types, NodeAccess::Query<Value> query, Element* buffer,
                             std::uint32_t& count) const;
    template <typename Write> ZalErrorType change(Types types, Write write);
    template <typename Condition>
    ZalErrorType entryAvailable(Condition condition, bool& available) const;
    const FeatureDescription& facts() const { return m_core->facts(m_position); }

    const std::shared_ptr<CameraCore> m_core;
    const std::size_t m_position;
    /// By the last call for a value in array form.
    mutable std::atomic<bool> m_sizeAsked{false};
};

} // namespace ZalCPP
