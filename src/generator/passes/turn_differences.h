// Signs of outputs, without an operation.
#pragma once

#include "generator/graph/graph.h"

namespace rvn::generator
{

// Where a negated output is a difference that nothing else uses, the difference is turned round:
// -(a - b) becomes b - a.
Graph turnDifferences(Graph graph);

} // namespace rvn::generator
