// Candidates for the order of a kernel's operations, loads and stores left aside. None is best for
// all graphs: a kernel takes the one that its cost model prefers (cost.h).
#pragma once

#include "generator/graph/graph.h"

namespace rvn::generator
{

// The nodes that compute, each behind its operands.
using Order = std::vector<int>;

// As the builder made them: each sub-transform whole and its twiddles right behind it.
Order constructionOrder(const Graph& graph);

enum class Side : std::uint8_t { Inputs, Outputs };

// Frigo 1999: what can be had from the inputs and what leads to the outputs grow towards each other
// in turns, beginning on this side, until they meet; first one half, then the other, each split
// again, and parts that do not touch apart. Small parts are left in construction order.
Order bisectionOrder(const Graph& graph, Side first);

} // namespace rvn::generator
