// What has to hold before a node is read or written. On the camera's worker thread only.
#pragma once

#include "sdk/bridge/FeatureDescription.h"

namespace ZalCPP::NodeAccess {

/// Aravis refuses neither an unavailable nor a locked feature, so ask this before a read. Only what
/// the read needs is asked, because each question may be a register read.
ZalErrorType checkReadable(const FeatureDescription& feature);
/// As checkReadable(), for a write.
ZalErrorType checkWritable(const FeatureDescription& feature);
/// Limits may be asked of what is neither readable nor writable, but not of everything.
ZalErrorType checkAnswerable(const FeatureDescription& feature);

/// checkReadable(), and the lengths of the registers behind the feature: Aravis makes room for
/// whatever length the camera names, and ends the process where there is none.
ZalErrorType prepareRead(const FeatureDescription& feature);
/// As prepareRead(), for a write.
ZalErrorType prepareWrite(const FeatureDescription& feature);

/// In bytes. Fails with ZalErrorOutOfResources where a register of this kind cannot be that long.
ZalErrorType usableLength(ArvGcRegister* node, std::size_t& length);

} // namespace ZalCPP::NodeAccess
