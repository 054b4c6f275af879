#pragma once

#include <arv.h>

#include <cstddef>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace ZalCPP {

/// Which nodes of a description can be asked at all.
///
/// Aravis answers a question about a node by asking the nodes that it names, and those in turn. A
/// description may lead it in a circle, through more nodes than a stack has room for, or to a
/// register that says it is longer than the memory: each ends the process. So this is found out
/// from the description alone, before anything is asked.
class Evaluation
{
public:
    /// Reads the description and asks the camera nothing. The nodes remain the description's.
    explicit Evaluation(ArvGc* genicam);

    /// Whether value, limits, lock, availability and implementation of `node` can be asked.
    bool isAnswerable(ArvGcNode* node) const;
    /// As isAnswerable(), for all nodes whose names begin so.
    bool areAnswerable(const char* prefix) const;
    /// Whether the value can.
    bool hasValue(ArvGcNode* node) const;

    /// All nodes that take part in the value, `node` included.
    std::unordered_set<ArvGcNode*> sourcesOf(ArvGcNode* node) const;

private:
    enum Question
    {
        Value,  ///< Also the address and the length of a register.
        Limits, ///< Minimum, maximum, increment and entries.
        Gates,  ///< Whether it is implemented, available and locked.
        QuestionCount
    };

    /// One question about one node. The questions that it leads to are asked as often as they stand
    /// in the list.
    struct State
    {
        std::vector<std::size_t> leadsTo;
        std::vector<std::size_t> askedBy;
        std::size_t open = 0; ///< How many of `leadsTo` are not known to end.
        std::size_t depth = 1;
        std::size_t steps = 1;
        bool isBroken = false; ///< Not to be asked, whatever it leads to.
        bool ends = false;
    };

    void addNode(ArvDomNode* node);
    void addProperties(ArvGcNode* owner, ArvDomNode* node);
    void addReference(ArvGcNode* owner, ArvGcPropertyNode* property, ArvGcPropertyNodeType type);
    void addIndexOffsets(ArvGc* genicam);
    void connect(ArvGcNode* owner, Question question, ArvGcNode* asked, Question askedQuestion);
    void findWhatEnds();
    void settle(State& state) const;
    std::size_t idOf(ArvGcNode* node, Question question);
    bool ends(ArvGcNode* node, Question question) const;

    std::vector<State> m_states;
    std::vector<ArvGcNode*> m_nodes; ///< In the order of their states.
    std::unordered_map<ArvGcNode*, std::size_t> m_positions;
};

/// The longest that a register of this kind may be.
std::size_t longestLength(ArvGcNode* registerNode);

} // namespace ZalCPP
