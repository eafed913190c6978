#include "generator/passes/merge_products.h"

#include <algorithm>

namespace rvn::generator
{

namespace
{

// Whether a constant factor on this node can stand in products below it at no cost.
bool isScalable(const Graph& graph, const std::vector<int>& uses, int node)
{
    const Node& n = graph.nodes[node];
    if (uses[node] != 1 || n.op == Op::Load || n.op == Op::Product)
        return false;
    return n.op == Op::Multiply || std::ranges::all_of(operands(n), [&](int operand) {
               return isScalable(graph, uses, operand);
           });
}

void scale(Graph& graph, int node, double factor)
{
    Node& n = graph.nodes[node];
    if (n.op == Op::Multiply) {
        n.constant *= factor;
        return;
    }
    for (const int operand : operands(n))
        scale(graph, operand, factor);
}

} // namespace

Graph mergeProducts(Graph graph)
{
    std::vector<int> uses = useCounts(graph);
    Graph merged;
    std::vector<int> place(graph.nodes.size());     // of a node in the merged graph
    std::vector<int> standsFor(graph.nodes.size()); // the node that holds its value

    // Operands stand before their users, so one pass sees chains of products through to the end.
    for (std::size_t i = 0; i < graph.nodes.size(); ++i) {
        Node& node = graph.nodes[i];
        for (std::size_t o = 0; o < operands(node).size(); ++o)
            node.operand[o] = standsFor[node.operand[o]];
        standsFor[i] = static_cast<int>(i);
        if (node.op == Op::Multiply && isScalable(graph, uses, node.operand[0])) {
            scale(graph, node.operand[0], node.constant);
            standsFor[i] = node.operand[0];
            uses[standsFor[i]] = uses[i];
        }
    }
    // What nothing uses any more is dropped.
    std::vector<bool> isNeeded(graph.nodes.size());
    for (const Output& output : graph.outputs)
        isNeeded[standsFor[output.node]] = true;
    for (std::size_t i = graph.nodes.size(); i-- > 0;)
        if (isNeeded[i] || graph.nodes[i].op == Op::Load)
            for (const int operand : operands(graph.nodes[i]))
                isNeeded[operand] = true;

    for (std::size_t i = 0; i < graph.nodes.size(); ++i) {
        if (!isNeeded[i] && graph.nodes[i].op != Op::Load)
            continue;
        Node node = graph.nodes[i];
        for (std::size_t o = 0; o < operands(node).size(); ++o)
            node.operand[o] = place[node.operand[o]];
        place[i] = static_cast<int>(merged.nodes.size());
        merged.nodes.push_back(node);
    }
    for (const Output& output : graph.outputs)
        merged.outputs.push_back({place[standsFor[output.node]], output.negated});
    return merged;
}

} // namespace rvn::generator
