// What the description says of one feature. Asks the camera nothing.
#pragma once

#include "sdk/bridge/FeatureDescription.h"

#include <string>

namespace ZalCPP {

/// As the description gives it; empty where it gives none.
std::string nameOf(ArvGcFeatureNode* node);

/// The texts, and what else the feature's own node says.
FeatureDescription readTexts(ArvGcFeatureNode* node, const std::string& category);

/// What the nodes behind it say. These are followed, so that the feature has to be answerable.
void readFacts(FeatureDescription& feature);

} // namespace ZalCPP
