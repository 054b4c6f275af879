#include "sdk/bridge/DependencyGraph.h"

#include <algorithm>
#include <utility>

namespace ZalCPP {
namespace {

bool isOneOf(ArvGcPropertyNodeType type, std::initializer_list<ArvGcPropertyNodeType> types)
{
    return std::find(types.begin(), types.end(), type) != types.end();
}

// The registers that a node's value comes from.
void collectRegisters(ArvGcNode* node, std::unordered_set<ArvGcNode*>& registers)
{
    for (ArvGcNode* source : reachableNodes(node, {ARV_GC_PROPERTY_NODE_TYPE_P_VALUE,
                                                   ARV_GC_PROPERTY_NODE_TYPE_P_VALUE_INDEXED,
                                                   ARV_GC_PROPERTY_NODE_TYPE_P_VARIABLE})) {
        if (ARV_IS_GC_STRUCT_ENTRY_NODE(source))
            source = ARV_GC_NODE(arv_dom_node_get_parent_node(ARV_DOM_NODE(source)));
        if (ARV_IS_GC_REGISTER(source))
            registers.insert(source);
    }
}

} // namespace

bool saysVolatile(ArvGcPropertyNode* property)
{
    const auto type = arv_gc_property_node_get_node_type(property);
    if (type == ARV_GC_PROPERTY_NODE_TYPE_CACHABLE)
        return arv_gc_property_node_get_cachable(property, ARV_GC_CACHABLE_WRITE_AROUND) ==
               ARV_GC_CACHABLE_NO_CACHE;
    return type == ARV_GC_PROPERTY_NODE_TYPE_POLLING_TIME;
}

std::vector<ArvGcNode*> linkedNodes(ArvDomNode* node,
                                    std::initializer_list<ArvGcPropertyNodeType> types)
{
    std::vector<ArvGcNode*> nodes;
    forEachChild(node, [&](ArvDomNode* child) {
        if (!ARV_IS_GC_PROPERTY_NODE(child))
            return;
        auto* property = ARV_GC_PROPERTY_NODE(child);
        if (!isOneOf(arv_gc_property_node_get_node_type(property), types))
            return;
        if (auto* linked = arv_gc_property_node_get_linked_node(property))
            nodes.push_back(linked);
    });
    return nodes;
}

std::vector<ArvGcNode*> reachableNodes(ArvGcNode* start,
                                       std::initializer_list<ArvGcPropertyNodeType> types)
{
    std::vector<ArvGcNode*> found{start};
    std::unordered_set<ArvGcNode*> known{start};
    for (std::size_t next = 0; next < found.size(); ++next) {
        for (ArvGcNode* linked : linkedNodes(ARV_DOM_NODE(found[next]), types)) {
            if (known.insert(linked).second)
                found.push_back(linked);
        }
    }
    return found;
}

std::vector<ArvGcNode*> writtenNodes(ArvGcNode* node)
{
    return reachableNodes(node, {ARV_GC_PROPERTY_NODE_TYPE_P_VALUE,
                                 ARV_GC_PROPERTY_NODE_TYPE_P_VALUE_INDEXED,
                                 ARV_GC_PROPERTY_NODE_TYPE_P_VALUE_DEFAULT});
}

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
        dependents[owner].push_back(self);
    addProperties(node, self);
    forEachChild(node, [&](ArvDomNode* child) { addNode(child, self); });
}

void DependencyGraph::addProperties(ArvDomNode* node, ArvGcNode* owner)
{
    forEachChild(node, [&](ArvDomNode* child) {
        if (ARV_IS_GC_PROPERTY_NODE(child))
            addReference(ARV_GC_PROPERTY_NODE(child), owner);
    });
}

void DependencyGraph::addReference(ArvGcPropertyNode* property, ArvGcNode* owner)
{
    const auto type = arv_gc_property_node_get_node_type(property);
    if (saysVolatile(property))
        volatileNodes.push_back(owner);
    if (isOneOf(type, {ARV_GC_PROPERTY_NODE_TYPE_P_FEATURE, ARV_GC_PROPERTY_NODE_TYPE_P_PORT}))
        return;
    ArvGcNode* linked = arv_gc_property_node_get_linked_node(property);
    if (!linked)
        return;
    if (type == ARV_GC_PROPERTY_NODE_TYPE_P_SELECTED)
        dependents[owner].push_back(linked);
    else
        dependents[linked].push_back(owner);
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
    for (ArvGcNode* node : volatileNodes)
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
        const auto found = dependents.find(pending.back());
        pending.pop_back();
        if (found == dependents.end())
            continue;
        for (ArvGcNode* dependent : found->second) {
            if (affected.insert(dependent).second)
                pending.push_back(dependent);
        }
    }
    return affected;
}

} // namespace ZalCPP
