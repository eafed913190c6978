// Signs of outputs, without an operation.
#pragma once

#include "kernelgen/graph.h"

namespace rvn::kernelgen
{

// Where a negated output is a difference that nothing else uses, the difference is turned round:
// -(a - b) becomes b - a.
Graph turnDifferences(Graph graph);

} // namespace rvn::kernelgen
