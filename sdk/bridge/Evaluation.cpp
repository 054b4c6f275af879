#include "sdk/bridge/Evaluation.h"

#include "sdk/bridge/AravisStatus.h"
#include "sdk/bridge/DescriptionNodes.h"
#include "sdk/bridge/DescriptionText.h"
#include "sdk/bridge/Limits.h"

#include <algorithm>

namespace ZalCPP {
namespace {

bool isNode(ArvDomNode* node)
{
    return ARV_IS_GC_NODE(node) && !ARV_IS_GC_PROPERTY_NODE(node);
}

// A length that only the camera knows is checked before each access. For numbers that is too late:
// Aravis itself reads one wherever another node depends on it.
bool isUsableLength(ArvGcNode* owner, ArvGcPropertyNode* length, ArvGcPropertyNodeType type)
{
    if (type == ARV_GC_PROPERTY_NODE_TYPE_P_LENGTH)
        return longestLength(owner) > Limits::NumberLength;
    if (type != ARV_GC_PROPERTY_NODE_TYPE_LENGTH)
        return true;
    AravisError error;
    const gint64 bytes = arv_gc_property_node_get_int64(length, error.out());
    return bytes > 0 && static_cast<std::uint64_t>(bytes) <= longestLength(owner);
}

} // namespace

std::size_t longestLength(ArvGcNode* registerNode)
{
    if (ARV_IS_GC_STRING_REG_NODE(registerNode))
        return Limits::TextLength;
    const bool isNumber =
        ARV_IS_GC_INTEGER(registerNode) || ARV_IS_GC_FLOAT(registerNode) ||
        g_str_equal(arv_dom_node_get_node_name(ARV_DOM_NODE(registerNode)), "StructReg");
    return isNumber ? Limits::NumberLength : Limits::RawLength;
}

Evaluation::Evaluation(ArvGc* genicam)
{
    if (auto* root = arv_dom_document_get_document_element(ARV_DOM_DOCUMENT(genicam)))
        addNode(ARV_DOM_NODE(root));
    addIndexOffsets(genicam);
    findWhatEnds();
}

// The nesting of a document's elements is limited by the parser.
void Evaluation::addNode(ArvDomNode* node)
{
    if (isNode(node))
        addProperties(ARV_GC_NODE(node), node);
    forEachChild(node, [this](ArvDomNode* child) {
        if (isNode(child))
            addNode(child);
    });
}

// Asking a part of a structure asks the whole. The entries of an enumeration limit it: its number
// is read without them, and they may well depend on it.
void Evaluation::addProperties(ArvGcNode* owner, ArvDomNode* node)
{
    if (ARV_IS_GC_STRUCT_ENTRY_NODE(node))
        connect(owner, Value, ARV_GC_NODE(arv_dom_node_get_parent_node(node)), Value);
    forEachChild(node, [&](ArvDomNode* child) {
        if (!ARV_IS_GC_ENUM_ENTRY(child))
            return;
        connect(owner, Limits, ARV_GC_NODE(child), Value);
        connect(owner, Limits, ARV_GC_NODE(child), Gates);
    });
    forEachProperty(node, [&](ArvGcPropertyNode* property, ArvGcPropertyNodeType type) {
        addReference(owner, property, type);
    });
}

void Evaluation::addReference(ArvGcNode* owner, ArvGcPropertyNode* property,
                              ArvGcPropertyNodeType type)
{
    if (!isUsableLength(owner, property, type))
        m_states[idOf(owner, Value)].isBroken = true;
    ArvGcNode* linked = arv_gc_property_node_get_linked_node(property);
    if (!linked)
        return;
    switch (type) {
    case ARV_GC_PROPERTY_NODE_TYPE_P_MINIMUM:
    case ARV_GC_PROPERTY_NODE_TYPE_P_MAXIMUM:
    case ARV_GC_PROPERTY_NODE_TYPE_P_INCREMENT:
        return connect(owner, Limits, linked, Value);
    case ARV_GC_PROPERTY_NODE_TYPE_P_IS_IMPLEMENTED:
    case ARV_GC_PROPERTY_NODE_TYPE_P_IS_AVAILABLE:
    case ARV_GC_PROPERTY_NODE_TYPE_P_IS_LOCKED:
        return connect(owner, Gates, linked, Value);
    case ARV_GC_PROPERTY_NODE_TYPE_P_VALUE:
    case ARV_GC_PROPERTY_NODE_TYPE_P_VALUE_INDEXED:
    case ARV_GC_PROPERTY_NODE_TYPE_P_VALUE_DEFAULT:
        // Limits that a node does not give are those of the node behind it.
        connect(owner, Limits, linked, Limits);
        [[fallthrough]];
    case ARV_GC_PROPERTY_NODE_TYPE_P_VARIABLE:
        // A converter's limits pass through its formula.
        connect(owner, Limits, linked, Value);
        [[fallthrough]];
    case ARV_GC_PROPERTY_NODE_TYPE_P_ADDRESS:
    case ARV_GC_PROPERTY_NODE_TYPE_P_INDEX:
    case ARV_GC_PROPERTY_NODE_TYPE_P_LENGTH:
    case ARV_GC_PROPERTY_NODE_TYPE_P_COMMAND_VALUE:
        return connect(owner, Value, linked, Value);
    default:
        return;
    }
}

void Evaluation::addIndexOffsets(ArvGc* genicam)
{
    ArvDevice* device = arv_gc_get_device(genicam);
    if (!device)
        return;
    std::size_t size = 0;
    const char* text = arv_device_get_genicam_xml(device, &size);
    for (const IndexOffset& index : indexOffsetsOf(text, size)) {
        ArvGcNode* owner = arv_gc_get_node(genicam, index.registerName.c_str());
        if (ARV_IS_GC_STRUCT_ENTRY_NODE(owner))
            owner = ARV_GC_NODE(arv_dom_node_get_parent_node(ARV_DOM_NODE(owner)));
        ArvGcNode* offset = arv_gc_get_node(genicam, index.offsetName.c_str());
        if (owner && offset)
            connect(owner, Value, offset, Value);
    }
}

void Evaluation::connect(ArvGcNode* owner, Question question, ArvGcNode* asked,
                         Question askedQuestion)
{
    const std::size_t from = idOf(owner, question);
    const std::size_t to = idOf(asked, askedQuestion);
    m_states[from].leadsTo.push_back(to);
    m_states[to].askedBy.push_back(from);
    ++m_states[from].open;
}

// Goes backwards from the questions that lead to no other: what is never reached runs in a circle,
// or leads into one.
void Evaluation::findWhatEnds()
{
    std::vector<std::size_t> settled;
    for (std::size_t id = 0; id < m_states.size(); ++id) {
        if (m_states[id].open == 0)
            settled.push_back(id);
    }
    while (!settled.empty()) {
        State& state = m_states[settled.back()];
        settled.pop_back();
        settle(state);
        for (const std::size_t id : state.askedBy) {
            if (--m_states[id].open == 0)
                settled.push_back(id);
        }
    }
}

void Evaluation::settle(State& state) const
{
    state.ends = !state.isBroken;
    for (const std::size_t id : state.leadsTo) {
        const State& next = m_states[id];
        state.ends = state.ends && next.ends;
        state.depth = std::max(state.depth, next.depth + 1);
        state.steps = std::min(state.steps + next.steps, Limits::EvaluationSteps + 1);
    }
    state.ends = state.ends && state.depth <= Limits::EvaluationDepth &&
                 state.steps <= Limits::EvaluationSteps;
}

std::size_t Evaluation::idOf(ArvGcNode* node, Question question)
{
    const auto [found, isNew] = m_positions.emplace(node, m_nodes.size());
    if (isNew) {
        m_nodes.push_back(node);
        m_states.resize(m_nodes.size() * QuestionCount);
    }
    return found->second * QuestionCount + question;
}

// A node without a state names no other.
bool Evaluation::ends(ArvGcNode* node, Question question) const
{
    const auto found = m_positions.find(node);
    return found == m_positions.end() || m_states[found->second * QuestionCount + question].ends;
}

bool Evaluation::isAnswerable(ArvGcNode* node) const
{
    return ends(node, Value) && ends(node, Limits) && ends(node, Gates);
}

bool Evaluation::areAnswerable(const char* prefix) const
{
    return std::all_of(m_nodes.begin(), m_nodes.end(), [&](ArvGcNode* node) {
        const char* name = ARV_IS_GC_FEATURE_NODE(node)
                               ? arv_gc_feature_node_get_name(ARV_GC_FEATURE_NODE(node))
                               : nullptr;
        return !name || !g_str_has_prefix(name, prefix) || isAnswerable(node);
    });
}

bool Evaluation::hasValue(ArvGcNode* node) const
{
    return ends(node, Value);
}

std::unordered_set<ArvGcNode*> Evaluation::sourcesOf(ArvGcNode* node) const
{
    std::unordered_set<ArvGcNode*> sources{node};
    std::vector<ArvGcNode*> pending{node};
    while (!pending.empty()) {
        const auto found = m_positions.find(pending.back());
        pending.pop_back();
        if (found == m_positions.end())
            continue;
        for (const std::size_t id : m_states[found->second * QuestionCount + Value].leadsTo) {
            ArvGcNode* source = m_nodes[id / QuestionCount];
            if (sources.insert(source).second)
                pending.push_back(source);
        }
    }
    return sources;
}

} // namespace ZalCPP
