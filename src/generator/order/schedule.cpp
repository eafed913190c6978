#include "generator/order/schedule.h"

#include <algorithm>

namespace rvn::generator
{

using enum Step::Kind;

namespace
{

// The outputs that each node delivers.
std::vector<std::vector<int>> outputsOf(const Graph& graph)
{
    std::vector<std::vector<int>> outputs(graph.nodes.size());
    for (std::size_t o = 0; o < graph.outputs.size(); ++o)
        outputs[graph.outputs[o].node].push_back(static_cast<int>(o));
    return outputs;
}

} // namespace

Schedule scheduleInOrder(const Graph& graph, const Order& order, Stores stores)
{
    const std::vector<std::vector<int>> outputs = outputsOf(graph);
    Schedule schedule;
    Schedule heldBack;
    std::vector<bool> isLoaded(graph.nodes.size());
    auto loadsLeft =
        std::ranges::count_if(graph.nodes, [](const Node& node) { return node.op == Op::Load; });

    const auto storeOutputs = [&](int node) {
        for (const int output : outputs[node])
            (stores == Stores::AfterLoads && loadsLeft > 0 ? heldBack : schedule)
                .push_back({Store, output});
    };
    const auto load = [&](int node) {
        if (graph.nodes[node].op != Op::Load || isLoaded[node])
            return;
        isLoaded[node] = true;
        schedule.push_back({Load, node});
        storeOutputs(node);
        if (--loadsLeft == 0) {
            schedule.insert(schedule.end(), heldBack.begin(), heldBack.end());
            heldBack.clear();
        }
    };
    for (const int node : order) {
        for (const int operand : operands(graph.nodes[node]))
            load(operand);
        schedule.push_back({Compute, node});
        storeOutputs(node);
    }
    // Inputs that are outputs and nothing else.
    for (std::size_t i = 0; i < graph.nodes.size(); ++i)
        load(static_cast<int>(i));
    return schedule;
}

int peakLive(const Graph& graph, const Schedule& schedule)
{
    std::vector<int> usesLeft = useCounts(graph);
    int live = 0;
    int peak = 0;
    const auto use = [&](int node) { live -= --usesLeft[node] == 0; };
    for (const Step& step : schedule) {
        if (step.kind == Store) {
            use(graph.outputs[step.index].node);
            continue;
        }
        for (const int operand : operands(graph.nodes[step.index]))
            use(operand);
        peak = std::max(peak, ++live);
    }
    return peak;
}

} // namespace rvn::generator
