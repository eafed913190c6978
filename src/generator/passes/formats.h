// The precision of every operation of a kernel.
//
// In a binary64 kernel everything is binary64. In a binary32 kernel a sum of binary32 values is a
// binary32 operation, and so is a doubling, which is exact. An expression with constants is
// evaluated in binary64, its binary32 operands widened exactly, and rounded once where it ends. It
// ends at a value that is used more than once: no binary64 value is ever used twice. Where its one
// use is an output, the product by S is its last operation, also in binary64.
#pragma once

#include "generator/graph/graph.h"

namespace rvn::generator
{

enum class Format : std::uint8_t { Binary32, Binary64 };

struct NodeFormat {
    Format computed; // the operation itself
    Format held;     // its result, rounded if that is narrower
};

std::vector<NodeFormat> assignFormats(const Graph& graph, Format element);

// Every operation in the element format, constants rounded to it: what transforms do that take
// their factors from tables of the element type.
std::vector<NodeFormat> elementFormats(const Graph& graph, Format element);

// The outputs of a binary32 kernel that take S in binary64.
int countScaledInBinary64(const Graph& graph, const std::vector<NodeFormat>& formats);

// The conversions this costs: binary32 values that binary64 operations take, each widened once
// however many take it, and results rounded.
struct Conversions {
    int widenings = 0;
    int roundings = 0;
};

Conversions countConversions(const Graph& graph, const std::vector<NodeFormat>& formats);

} // namespace rvn::generator
