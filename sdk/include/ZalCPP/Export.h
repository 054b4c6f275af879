#pragma once

/// Marks what the SDK's library shows to those who link it. Everything else in there is hidden.
#define ZALCPP_EXPORT __attribute__((visibility("default")))

/// Marks what is hidden all the same within a class that is shown.
#define ZALCPP_HIDDEN __attribute__((visibility("hidden")))
