#pragma once

#include <arv.h>

#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace ZalCPP {

/// Which nodes of a GenICam description change when another one is written.
///
/// A node depends on every node that it names in a p-property: its value, address, index, limits,
/// formula variables, lock, availability and invalidators. A selected feature depends on its
/// selector.
class DependencyGraph
{
public:
    /// Reads the description and asks the camera nothing. The nodes remain the description's.
    explicit DependencyGraph(ArvGc* genicam);

    /// All nodes that may change when `node` is written, `node` and the registers that it writes
    /// through included.
    std::unordered_set<ArvGcNode*> affectedBy(ArvGcNode* node) const;

    /// The registers that the description says change without being written, each with the nodes
    /// that depend on it, itself included.
    std::vector<std::pair<ArvGcRegister*, std::unordered_set<ArvGcNode*>>>
    volatileRegisters() const;

private:
    void addNode(ArvDomNode* node, ArvGcNode* owner);
    void addProperties(ArvDomNode* node, ArvGcNode* owner);
    void addReference(ArvGcPropertyNode* property, ArvGcPropertyNodeType type, ArvGcNode* owner);
    std::unordered_set<ArvGcNode*> withDependents(std::unordered_set<ArvGcNode*> nodes) const;

    std::unordered_map<ArvGcNode*, std::vector<ArvGcNode*>> m_dependents;
    std::vector<ArvGcNode*> m_volatileNodes;
};

} // namespace ZalCPP
