#include "sdk/bridge/DescriptionNodes.h"

#include <algorithm>
#include <unordered_set>

namespace ZalCPP {

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
    forEachProperty(node, [&](ArvGcPropertyNode* property, ArvGcPropertyNodeType type) {
        if (std::find(types.begin(), types.end(), type) == types.end())
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

std::vector<ArvGcNode*> valueNodes(ArvGcNode* node)
{
    return reachableNodes(node, {ARV_GC_PROPERTY_NODE_TYPE_P_VALUE,
                                 ARV_GC_PROPERTY_NODE_TYPE_P_VALUE_INDEXED,
                                 ARV_GC_PROPERTY_NODE_TYPE_P_VARIABLE});
}

std::vector<ArvGcNode*> writtenNodes(ArvGcNode* node)
{
    return reachableNodes(node, {ARV_GC_PROPERTY_NODE_TYPE_P_VALUE,
                                 ARV_GC_PROPERTY_NODE_TYPE_P_VALUE_INDEXED,
                                 ARV_GC_PROPERTY_NODE_TYPE_P_VALUE_DEFAULT});
}

} // namespace ZalCPP
