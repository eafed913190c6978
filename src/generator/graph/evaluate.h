// Interpreting a graph: on a wide type it proves the plan, in the formats of a kernel it must equal
// the compiled kernel bit for bit, which tells a generator's fault from a compiler's.
#pragma once

#include "generator/passes/formats.h"

namespace rvn::generator
{

// The outputs, unscaled, with every operation in T.
template <typename T> std::vector<T> evaluate(const Graph& graph, std::span<const T> inputs)
{
    std::vector<T> value;
    for (const Node& node : graph.nodes) {
        const auto [left, right] = node.operand;
        switch (node.op) {
        case Op::Load:
            value.push_back(inputs[node.input]);
            break;
        case Op::Add:
            value.push_back(value[left] + value[right]);
            break;
        case Op::Subtract:
            value.push_back(value[left] - value[right]);
            break;
        case Op::Multiply:
            value.push_back(static_cast<T>(node.constant) * value[left]);
            break;
        case Op::Product:
            value.push_back(value[left] * value[right]);
            break;
        }
    }
    std::vector<T> outputs;
    for (const Output& output : graph.outputs)
        outputs.push_back(output.negated ? -value[output.node] : value[output.node]);
    return outputs;
}

// The outputs, unscaled, with every operation in the format that a kernel uses; binary32 values
// are held in doubles.
std::vector<double> evaluate(const Graph& graph, const std::vector<NodeFormat>& formats,
                             std::span<const double> inputs);

} // namespace rvn::generator
