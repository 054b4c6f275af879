#include "sdk/bridge/DependencyGraph.h"

#include "sdk/bridge/DescriptionNodes.h"

#include <utility>

namespace ZalCPP {
namespace {

// The registers that a node's value comes from.
void collectRegisters(ArvGcNode* node, std::unordered_set<ArvGcNode*>& registers)
{
    for (ArvGcNode* source : valueNodes(node)) {
        if (ARV_IS_GC_STRUCT_ENTRY_NODE(source))
            source = ARV_GC_NODE(arv_dom_node_get_parent_node(ARV_DOM_NODE(source)));
        if (ARV_IS_GC_REGISTER(source))
            registers.insert(source);
    }
}

} // namespace

DependencyGraph::DependencyGraph(ArvGc* genicam)
{
    if (auto* root = arv_dom_document_get_document_element(ARV_DOM_DOCUMENT(genicam)))
        forEachChild(ARV_DOM_NODE(root), [this](ArvDomNode* node) { addNode(node, nullptr); });
}

// Groups only hold nodes together. What an entry depends on counts for its enumeration, and what a
// structure register depends on for each of its entries.
void DependencyGraph::addNode(ArvDomNode* node, ArvGcNode* owner)
{
    if (!ARV_IS_GC_NODE(node) || ARV_IS_GC_PROPERTY_NODE(node) || ARV_IS_GC_CATEGORY(node))
        return;
    auto* self = ARV_GC_NODE(node);
    if (ARV_IS_GC_ENUM_ENTRY(node)) {
        addProperties(node, owner);
        return;
    }
    if (ARV_IS_GC_STRUCT_ENTRY_NODE(node) && owner)
        m_dependents[owner].push_back(self);
    addProperties(node, self);
    forEachChild(node, [&](ArvDomNode* child) { addNode(child, self); });
}

void DependencyGraph::addProperties(ArvDomNode* node, ArvGcNode* owner)
{
    forEachProperty(node, [&](ArvGcPropertyNode* property, ArvGcPropertyNodeType type) {
        addReference(property, type, owner);
    });
}

void DependencyGraph::addReference(ArvGcPropertyNode* property, ArvGcPropertyNodeType type,
                                   ArvGcNode* owner)
{
    if (saysVolatile(property))
        m_volatileNodes.push_back(owner);
    if (type == ARV_GC_PROPERTY_NODE_TYPE_P_FEATURE || type == ARV_GC_PROPERTY_NODE_TYPE_P_PORT)
        return;
    ArvGcNode* linked = arv_gc_property_node_get_linked_node(property);
    if (!linked)
        return;
    if (type == ARV_GC_PROPERTY_NODE_TYPE_P_SELECTED)
        m_dependents[owner].push_back(linked);
    else
        m_dependents[linked].push_back(owner);
}

std::unordered_set<ArvGcNode*> DependencyGraph::affectedBy(ArvGcNode* node) const
{
    const auto written = writtenNodes(node);
    return withDependents({written.begin(), written.end()});
}

std::vector<std::pair<ArvGcRegister*, std::unordered_set<ArvGcNode*>>>
DependencyGraph::volatileRegisters() const
{
    std::unordered_set<ArvGcNode*> registers;
    for (ArvGcNode* node : m_volatileNodes)
        collectRegisters(node, registers);
    std::vector<std::pair<ArvGcRegister*, std::unordered_set<ArvGcNode*>>> found;
    found.reserve(registers.size());
    for (ArvGcNode* node : registers)
        found.emplace_back(ARV_GC_REGISTER(node), withDependents({node}));
    return found;
}

std::unordered_set<ArvGcNode*>
DependencyGraph::withDependents(std::unordered_set<ArvGcNode*> affected) const
{
    std::vector<ArvGcNode*> pending(affected.begin(), affected.end());
    while (!pending.empty()) {
        const auto found = m_dependents.find(pending.back());
        pending.pop_back();
        if (found == m_dependents.end())
            continue;
        for (ArvGcNode* dependent : found->second) {
            if (affected.insert(dependent).second)
                pending.push_back(dependent);
        }
    }
    return affected;
}

} // namespace ZalCPP
