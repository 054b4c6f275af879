#pragma once

#include "sdk/bridge/Evaluation.h"
#include "sdk/bridge/FeatureDescription.h"

#include <unordered_set>
#include <vector>

namespace ZalCPP {

/// Which features of a description the camera has. What cannot change is asked when the camera is
/// opened, and what is not implemented then is none of its features. What can change, as with a
/// selector, has to be asked each time.
///
/// A register cannot change where the description says so: it is only read, may be cached, has no
/// polling time and no invalidator, no selector selects it, and it lies where nothing that can
/// change puts it. A family of cameras that shares one description tells its members apart by such
/// registers. A value in the description itself changes only where a feature writes it.
class Implementation
{
public:
    /// `features` are all nodes that a program can use.
    Implementation(const Evaluation& evaluation, const std::vector<ArvGcNode*>& features);

    /// Asks the camera where the answer is for good. Otherwise counts as implemented and notes in
    /// `feature` whom to ask. Fails when the camera cannot be asked: a feature would silently be
    /// missing.
    ZalErrorType decide(FeatureDescription& feature, bool& implemented) const;

private:
    void addAll(const std::vector<ArvGcNode*>& nodes);
    bool canChange(ArvGcFeatureNode* node) const;

    const Evaluation& m_evaluation;
    /// What a write to some feature passes through, and what lies behind a selector.
    std::unordered_set<ArvGcNode*> m_changing;
};

} // namespace ZalCPP
