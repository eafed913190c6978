// The expression graph of one transform: loads, additions, subtractions, products by positive
// constants and products of two values (a factor read from a table), in an order in which every
// node stands behind its operands.
//
// A graph is plain data. Builders make it through GraphBuilder; passes take it and return a value.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace rvn::generator
{

enum class Op : std::uint8_t { Load, Add, Subtract, Multiply, Product };

struct Node {
    Op op = Op::Load;
    std::array<int, 2> operand = {}; // the nodes it works on: two, one of a Multiply
    int input = -1;                  // Load: the index of the input scalar
    double constant = 0;             // Multiply: the other factor, above zero
};

// An output scalar: a node, with the sign that is still to be applied.
struct Output {
    int node;
    bool negated;
};

struct Graph {
    std::vector<Node> nodes;
    std::vector<Output> outputs; // by the index of the output scalar
};

inline std::span<const int> operands(const Node& node)
{
    static constexpr std::array<std::size_t, 5> operandCount = {0, 2, 2, 1, 2}; // by Op
    return {node.operand.data(), operandCount[static_cast<std::size_t>(node.op)]};
}

// How often each node is used, as an operand or as an output.
std::vector<int> useCounts(const Graph& graph);

} // namespace rvn::generator
