#include "generator/graph/graph.h"

namespace rvn::generator
{

std::vector<int> useCounts(const Graph& graph)
{
    std::vector<int> uses(graph.nodes.size());
    for (const Node& node : graph.nodes)
        for (const int operand : operands(node))
            ++uses[operand];
    for (const Output& output : graph.outputs)
        ++uses[output.node];
    return uses;
}

} // namespace rvn::generator
