#include "generator/passes/formats.h"

#include <algorithm>

namespace rvn::generator
{

using enum Format;

std::vector<NodeFormat> assignFormats(const Graph& graph, Format element)
{
    if (element == Binary64)
        return elementFormats(graph, element);
    const std::vector<int> uses = useCounts(graph);
    std::vector<NodeFormat> formats;
    for (std::size_t i = 0; i < graph.nodes.size(); ++i) {
        const Node& node = graph.nodes[i];
        const bool isDoubling = node.op == Op::Multiply && node.constant == 2;
        const bool isExpression =
            !isDoubling &&
            (node.op == Op::Multiply || std::ranges::any_of(operands(node), [&](int operand) {
                 return formats[operand].held == Binary64;
             }));
        const bool endsHere = uses[i] > 1;
        formats.push_back(
            {isExpression ? Binary64 : Binary32, isExpression && !endsHere ? Binary64 : Binary32});
    }
    return formats;
}

std::vector<NodeFormat> elementFormats(const Graph& graph, Format element)
{
    return {graph.nodes.size(), {element, element}};
}

int countScaledInBinary64(const Graph& graph, const std::vector<NodeFormat>& formats)
{
    return static_cast<int>(std::ranges::count_if(graph.outputs, [&](const Output& output) {
        return formats[output.node].held == Binary64;
    }));
}

Conversions countConversions(const Graph& graph, const std::vector<NodeFormat>& formats)
{
    Conversions conversions;
    std::vector<bool> isWidened(graph.nodes.size());
    for (std::size_t i = 0; i < graph.nodes.size(); ++i) {
        if (formats[i].computed == Binary32)
            continue;
        conversions.roundings += formats[i].held == Binary32;
        for (const int operand : operands(graph.nodes[i])) {
            if (formats[operand].held == Binary64 || isWidened[operand])
                continue;
            isWidened[operand] = true;
            ++conversions.widenings;
        }
    }
    return conversions;
}

} // namespace rvn::generator
