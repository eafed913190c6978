// The one chain of passes from what a builder made to the graph of a kernel.
#pragma once

#include "generator/graph/builder.h"

namespace rvn::generator
{

// Whether a negated output that is a difference is turned round. The forward real kernels keep
// theirs: their bits are fixed, and 0 - (a - b) is not b - a where a = b.
enum class NegatedDifferences { Turned, Kept };

Graph finished(const GraphBuilder& builder, ValuesView outputs,
               NegatedDifferences negated = NegatedDifferences::Turned);

} // namespace rvn::generator
