#include "generator/graph/builder.h"

#include <cmath>
#include <stdexcept>

namespace rvn::generator
{

namespace
{

void requirePresent(Value x)
{
    if (x.builder == nullptr)
        throw std::logic_error("a builder used a value that does not exist");
}

} // namespace

Value operator-(Value x)
{
    x.negative = !x.negative;
    return x;
}

Value operator+(Value x, Value y)
{
    requirePresent(x);
    requirePresent(y);
    GraphBuilder& builder = *x.builder;
    if (x.negative == y.negative) {
        Value sum = builder.sharedNode({.op = Op::Add, .operand = {x.node, y.node}});
        sum.negative = x.negative;
        return sum;
    }
    return x.negative ? builder.sharedNode({.op = Op::Subtract, .operand = {y.node, x.node}})
                      : builder.sharedNode({.op = Op::Subtract, .operand = {x.node, y.node}});
}

Value operator-(Value x, Value y)
{
    return x + (-y);
}

Value operator*(double constant, Value x)
{
    requirePresent(x);
    if (constant == 0)
        throw std::logic_error("a builder multiplied by zero");
    const double magnitude = std::fabs(constant);
    Value product = x;
    if (magnitude != 1)
        product = x.builder->sharedNode(
            {.op = Op::Multiply, .operand = {x.node, 0}, .constant = magnitude});
    product.negative = x.negative != std::signbit(constant);
    return product;
}

Value operator*(Value x, Value y)
{
    requirePresent(x);
    requirePresent(y);
    Value product = x.builder->sharedNode({.op = Op::Product, .operand = {x.node, y.node}});
    product.negative = x.negative != y.negative;
    return product;
}

Factors factors(Value x)
{
    const Node& node = x.builder->nodes_[x.node];
    if (node.op != Op::Multiply)
        return {x, 1};
    return {{x.builder, node.operand[0], x.negative}, node.constant};
}

Value GraphBuilder::load(int input)
{
    return sharedNode({.op = Op::Load, .input = input});
}

Values GraphBuilder::loads(int count)
{
    Values values;
    for (int input = 0; input < count; ++input)
        values.push_back(load(input));
    return values;
}

Graph GraphBuilder::finish(ValuesView outputs) const
{
    Graph graph{nodes_, {}};
    for (const Value& output : outputs) {
        requirePresent(output);
        graph.outputs.push_back({output.node, output.negative});
    }
    return graph;
}

Value GraphBuilder::sharedNode(const Node& node)
{
    auto [left, right] = node.operand;
    if ((node.op == Op::Add || node.op == Op::Product) && left > right)
        std::swap(left, right); // a + b and b + a are one node
    const Key key{node.op, left, right, node.input, node.constant};
    const auto [place, isNew] = known_.try_emplace(key, static_cast<int>(nodes_.size()));
    if (isNew)
        nodes_.push_back(node);
    return {this, place->second, false};
}

} // namespace rvn::generator
