#include "generator/graph/evaluate.h"

namespace rvn::generator
{

namespace
{

template <typename T> T apply(const Node& node, double left, double right)
{
    const T a = static_cast<T>(left);
    const T b = static_cast<T>(right);
    switch (node.op) {
    case Op::Add:
        return a + b;
    case Op::Subtract:
        return a - b;
    case Op::Multiply:
        return static_cast<T>(node.constant) * a;
    case Op::Product:
        return a * b;
    case Op::Load:
        break;
    }
    return a;
}

} // namespace

std::vector<double> evaluate(const Graph& graph, const std::vector<NodeFormat>& formats,
                             std::span<const double> inputs)
{
    std::vector<double> value;
    for (std::size_t i = 0; i < graph.nodes.size(); ++i) {
        const Node& node = graph.nodes[i];
        const bool isLoad = node.op == Op::Load;
        const double left = isLoad ? inputs[node.input] : value[node.operand[0]];
        const double right = isLoad ? 0 : value[node.operand[1]];
        double result = formats[i].computed == Format::Binary32 ? apply<float>(node, left, right)
                                                                : apply<double>(node, left, right);
        if (formats[i].held == Format::Binary32)
            result = static_cast<float>(result);
        value.push_back(result);
    }
    std::vector<double> outputs;
    for (const Output& output : graph.outputs)
        outputs.push_back(output.negated ? -value[output.node] : value[output.node]);
    return outputs;
}

} // namespace rvn::generator
