#pragma once

struct _ArvFakeCamera; // NOLINT(bugprone-reserved-identifier): named so by Aravis

namespace ZalSim {

/// Lets the camera show a moving gradient with a grid and the number of the frame in its
/// acquisition.
void showTestPicture(_ArvFakeCamera* device);

} // namespace ZalSim
