// What the nodes of a GenICam description say and which others they name. Asks the camera nothing.
#pragma once

#include <arv.h>

#include <initializer_list>
#include <vector>

namespace ZalCPP {

/// Calls `visit(child)` for each child of a node, in the description's order.
template <typename Visitor> void forEachChild(ArvDomNode* node, Visitor visit)
{
    for (auto* child = arv_dom_node_get_first_child(node); child;
         child = arv_dom_node_get_next_sibling(child))
        visit(child);
}

/// Calls `visit(property, type)` for each property of a node, in the description's order.
template <typename Visitor> void forEachProperty(ArvDomNode* node, Visitor visit)
{
    forEachChild(node, [&](ArvDomNode* child) {
        if (!ARV_IS_GC_PROPERTY_NODE(child))
            return;
        auto* property = ARV_GC_PROPERTY_NODE(child);
        visit(property, arv_gc_property_node_get_node_type(property));
    });
}

/// Whether this property says that its node changes without being written.
bool saysVolatile(ArvGcPropertyNode* property);

/// The nodes that `node` names in properties of these types, in the description's order.
std::vector<ArvGcNode*> linkedNodes(ArvDomNode* node,
                                    std::initializer_list<ArvGcPropertyNodeType> types);

/// `start` and all nodes that such properties lead to from there, the nearest first.
std::vector<ArvGcNode*> reachableNodes(ArvGcNode* start,
                                       std::initializer_list<ArvGcPropertyNodeType> types);

/// The nodes that hold a value or take part in its formulas, `node` included, the nearest first.
std::vector<ArvGcNode*> valueNodes(ArvGcNode* node);

/// The nodes that a value written to `node` passes through, itself included.
std::vector<ArvGcNode*> writtenNodes(ArvGcNode* node);

} // namespace ZalCPP
