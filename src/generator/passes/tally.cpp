#include "generator/passes/tally.h"

#include "generator/passes/formats.h"

#include <algorithm>

namespace rvn::generator
{

Tally tally(const Graph& graph, bool isScaled)
{
    const auto countNodes = [&](auto isCounted) {
        return static_cast<int>(std::ranges::count_if(graph.nodes, isCounted));
    };
    const auto negated =
        static_cast<int>(std::ranges::count(graph.outputs, true, &Output::negated));
    const auto scaled = isScaled ? static_cast<int>(graph.outputs.size()) : 0;
    return {.additions = negated + countNodes([](const Node& node) {
                             return node.op == Op::Add || node.op == Op::Subtract;
                         }),
            .multiplications = scaled + countNodes([](const Node& node) {
                                   return node.op == Op::Multiply || node.op == Op::Product;
                               }),
            .doublings = countNodes(
                [](const Node& node) { return node.op == Op::Multiply && node.constant == 2; }),
            .negatedOutputs = negated,
            .scaledInBinary64 =
                isScaled ? countScaledInBinary64(graph, assignFormats(graph, Format::Binary32))
                         : 0};
}

Tally operator+(const Tally& x, const Tally& y)
{
    return {x.additions + y.additions, x.multiplications + y.multiplications,
            x.doublings + y.doublings, x.negatedOutputs + y.negatedOutputs,
            x.scaledInBinary64 + y.scaledInBinary64};
}

Tally operator*(int times, const Tally& x)
{
    return {times * x.additions, times * x.multiplications, times * x.doublings,
            times * x.negatedOutputs, times * x.scaledInBinary64};
}

} // namespace rvn::generator
