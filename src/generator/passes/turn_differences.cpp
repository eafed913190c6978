#include "generator/passes/turn_differences.h"

#include <utility>

namespace rvn::generator
{

Graph turnDifferences(Graph graph)
{
    const std::vector<int> uses = useCounts(graph);
    for (auto& [index, negated] : graph.outputs) {
        Node& node = graph.nodes[index];
        if (!negated || node.op != Op::Subtract || uses[index] != 1)
            continue;
        std::swap(node.operand[0], node.operand[1]);
        negated = false;
    }
    return graph;
}

} // namespace rvn::generator
