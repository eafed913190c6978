// Building a graph with ordinary formulas.
//
// A Value refers to a node and carries a sign, so that a builder writes x + y, x - y, -x and c * x
// and the signs cost nothing until they meet: a + (-b) becomes a - b, (-a) + b becomes b - a, and
// constants stay positive magnitudes. Equal operations on equal operands are one node.
#pragma once

#include "generator/graph/graph.h"

#include <map>
#include <tuple>

namespace rvn::generator
{

class GraphBuilder;

struct Value {
    GraphBuilder* builder = nullptr; // null: no value, such as the imaginary part of a real bin
    int node = -1;
    bool negative = false;
};

using Values = std::vector<Value>;
using ValuesView = std::span<const Value>;

Value operator-(Value x);
Value operator+(Value x, Value y);
Value operator-(Value x, Value y);
Value operator*(double constant, Value x); // 1 and -1 make no node; 0 is refused
Value operator*(Value x, Value y);

// A product's operand, with its sign, and its constant; of any other value, itself and 1.
struct Factors {
    Value operand;
    double constant;
};
Factors factors(Value x);

class GraphBuilder
{
public:
    GraphBuilder() = default;
    GraphBuilder(const GraphBuilder&) = delete;
    GraphBuilder& operator=(const GraphBuilder&) = delete;

    Value load(int input);
    Values loads(int count); // the inputs 0 to count - 1

    // The finished graph with these output scalars.
    Graph finish(ValuesView outputs) const;

private:
    friend Value operator+(Value x, Value y);
    friend Value operator*(double constant, Value x);
    friend Value operator*(Value x, Value y);
    friend Factors factors(Value x);

    Value sharedNode(const Node& node);

    using Key = std::tuple<Op, int, int, int, double>;

    std::vector<Node> nodes_;
    std::map<Key, int> known_;
};

} // namespace rvn::generator
