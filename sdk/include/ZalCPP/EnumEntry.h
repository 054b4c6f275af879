#pragma once

#include <ZalCPP/ZalTypes.h>

#include <string>

namespace ZalCPP {

/// One entry of an enumeration feature. A plain value: copy it, keep it as long as you like.
struct EnumEntry
{
    std::string name;        ///< The entry's name, as written to and read from the feature.
    std::string displayName; ///< The name meant for people.
    std::string description; ///< What choosing the entry does.
    long long value = 0;     ///< The entry's integer value.
    ZalFeatureVisibilityType visibility = ZalFeatureVisibilityUnknown; ///< For whom it is meant.
};

} // namespace ZalCPP
