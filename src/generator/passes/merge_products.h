// Merging constants: a product by a constant whose operand has no other use and is itself a
// product, or a sum or difference of products only, is not formed. Its constant goes into the
// constants of those products, as the binary64 product of the two rounded factors.
#pragma once

#include "generator/graph/graph.h"

namespace rvn::generator
{

Graph mergeProducts(Graph graph);

} // namespace rvn::generator
