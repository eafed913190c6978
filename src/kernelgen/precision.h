// The precision of every operation of a kernel.
//
// In a binary64 kernel everything is binary64. In a binary32 kernel a sum of binary32 values is a
// binary32 operation; an expression with constants is evaluated in binary64, its binary32 operands
// widened exactly, and rounded once where it ends. It ends at a value that is used more than once
// or is an output: no binary64 value is ever used twice.
#pragma once

#include "kernelgen/graph.h"

namespace rvn::kernelgen
{

enum class Format : std::uint8_t { Binary32, Binary64 };

struct NodeFormat {
    Format computed; // the operation itself
    Format held;     // its result, rounded if that is narrower
};

std::vector<NodeFormat> assignFormats(const Graph& graph, Format element);

// The conversions this costs: binary32 operands of binary64 operations, and results rounded.
struct Conversions {
    int widenings = 0;
    int roundings = 0;
};

Conversions countConversions(const Graph& graph, const std::vector<NodeFormat>& formats);

} // namespace rvn::kernelgen
