#pragma once

#include "plugin/TabExtensionInterface.h"

/// A tab extension that has nothing to connect; the small extensions of the tests say what get()
/// does.
class SmallTab : public TabExtensionInterface
{
public:
    bool connectToResetFps(QObject*, const char*) override { return false; }
    bool connectFromAcquire(QObject*, const char*) override { return false; }
};
