#pragma once

#include <ZalCPP/EnumEntry.h>
#include <ZalCPP/ZalTypes.h>

#include <arv.h>

#include <chrono>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace ZalCPP {

/// What never changes about one feature while its camera is open. The node pointers belong to the
/// device: use them on the camera's worker thread only.
struct FeatureDescription
{
    std::string name;        ///< As in the description; unique there.
    std::string displayName; ///< For people; the name where the camera gives none.
    std::string category;    ///< Path of categories below Root, separated by '/'.
    std::string unit;        ///< Empty where the camera gives none, as the texts below.
    std::string representation;
    std::string toolTip;
    std::string description;
    ZalFeatureDataType type = ZalFeatureUnknown;
    ZalFeatureFlagsType flags = ZalFeatureFlagsNone;
    ZalFeatureVisibilityType visibility = ZalFeatureVisibilityUnknown;
    std::vector<EnumEntry> entries; ///< Of an enumeration, in the description's order.

    /// How often a feature that changes by itself wants to be read; zero for all others.
    std::chrono::milliseconds pollingTime{0};

    // Positions in CameraDescription::features.
    std::vector<std::size_t> selected; ///< What this selector governs.
    /// What a write to this feature may change, itself included.
    std::vector<std::size_t> affected;

    /// False where Aravis would never come to an end, or would ask for more memory than there is:
    /// such a feature is listed, but nothing of it may be asked.
    bool isAnswerable = true;

    /// What the description calls by this name.
    ArvGcFeatureNode* node = nullptr;
    /// `node` and the nodes behind it that hold its value. A feature is only available, and only
    /// unlocked, when all of them are.
    std::vector<ArvGcFeatureNode*> valueChain;
    /// Those in `valueChain` that may be implemented at one time and not at another.
    std::vector<ArvGcFeatureNode*> sometimesImplemented;
    std::vector<ArvGcFeatureNode*> entryNodes; ///< In step with `entries`.
    /// Registers behind the feature whose length only the camera knows.
    std::vector<ArvGcRegister*> sizedRegisters;
    /// What the feature depends on and the camera says, by a polling time or by forbidding to cache
    /// it, that it changes without being written.
    std::vector<ArvGcRegister*> volatileRegisters;
    // For commands only; null where the description leaves them out.
    ArvGcInteger* commandRegister = nullptr;
    ArvGcPropertyNode* commandValue = nullptr;
};

/// The static facts of one camera's features, in the description's order.
struct CameraDescription
{
    std::vector<FeatureDescription> features;
    std::unordered_map<std::string, std::size_t> positions; ///< By feature name.
    /// False where Aravis would never come to an end when it opens a stream of images.
    bool canStream = true;
};

} // namespace ZalCPP
