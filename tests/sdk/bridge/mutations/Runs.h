// What is done with one mutated description, in a process of its own.
#pragma once

#include <string>

namespace Runs {

enum Outcome
{
    Opened = 0,
    Refused = 10, ///< With a sentence.
    Silent = 11,  ///< Refused without one.
};

/// From now on the in-process camera has 64 KiB of memory, and access beyond that fails. Aravis'
/// own reads and writes any memory of the process instead.
void limitMemory();

/// Opens the camera, asks everything of every feature, writes what was read, observes, acquires.
Outcome throughTheBridge(const std::string& descriptionFile);

/// The same kinds of access without any code of the bridge.
Outcome throughAravisAlone(const std::string& descriptionFile);

} // namespace Runs
