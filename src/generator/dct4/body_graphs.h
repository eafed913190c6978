// The graphs of the fixed bodies.
#pragma once

#include "generator/dct4/body_plans.h"
#include "generator/graph/graph.h"

#include <string>

namespace rvn::generator
{

// "direct", "odd", "topRow" or "innerRow", as in the names of the functions.
std::string nameOf(BodyKind kind);

// Its inputs and outputs: engineKernel() of families.h.
Graph bodyGraph(const BodyPlan& plan);

} // namespace rvn::generator
