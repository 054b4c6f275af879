#pragma once

#include "tests/faults/FaultyCamera.h"
#include "tests/faults/Portrait.h"

namespace Faults {

/// What went wrong while a form lived.
struct FormLife
{
    bool isDialog = false;
    Failures whileBuilt; ///< While its widgets were bound and its table made.
    Failures sinceBuilt;
    Failures sinceOverview; ///< Since the step in which its overview was last read as a whole.
    QStringList lines;      ///< Those that its table has rows for.
};

/// A widget that may show something else than that of a new form, because a rule has it made or
/// filled once. It counts only where the question failed that the rule speaks of.
struct Remnant
{
    const char* rule;
    bool (*covers)(const Difference& difference, const FormLife& life);
};

/// All of them.
const std::vector<Remnant>& remnants();

/// Those differences that no rule explains.
std::vector<Difference> unexplained(const std::vector<Difference>& differences,
                                    const FormLife& life);

} // namespace Faults
