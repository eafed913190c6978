// Interpreting a graph: on a wide type it proves the plan, in the formats of a kernel it must equal
// the compiled kernel bit for bit, which tells a generator's fault from a compiler's.
#pragma once

#include "generator/graph/graph.h"

namespace rvn::generator
{

// The outputs, unscaled, with every operation in T. `round` takes the number of a node and its
// value, and gives the value that it has in a narrower format.
template <typename T, typename Round>
std::vector<T> evaluate(const Graph& graph, std::span<const T> inputs, Round round)
{
    std::vector<T> value;
    for (const Node& node : graph.nodes) {
        const auto result = [&]() -> T {
            const auto [left, right] = node.operand;
            switch (node.op) {
            case Op::Load:
                return inputs[node.input];
            case Op::Add:
                return value[left] + value[right];
            case Op::Subtract:
                return value[left] - value[right];
            case Op::Multiply:
                return static_cast<T>(node.constant) * value[left];
            case Op::Product:
                return value[left] * value[right];
            }
            return {};
        };
        value.push_back(round(value.size(), result()));
    }
    std::vector<T> outputs;
    for (const Output& output : graph.outputs)
        outputs.push_back(output.negated ? -value[output.node] : value[output.node]);
    return outputs;
}

template <typename T> std::vector<T> evaluate(const Graph& graph, std::span<const T> inputs)
{
    return evaluate(graph, inputs, [](std::size_t, T value) { return value; });
}

} // namespace rvn::generator
