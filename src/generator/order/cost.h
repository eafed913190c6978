// What a schedule costs: accesses of memory on a processor with 16 floating-point registers.
#pragma once

#include "generator/order/schedule.h"

namespace rvn::generator
{

// Reads of inputs, constants and spilled values, and writes of outputs and spilled values, when the
// register that is needed again last is always the one given up (Belady 1966): what a good
// allocation comes near to. Constants have their place in memory; whatever else is given up is
// written once.
int memoryAccesses(const Graph& graph, const Schedule& schedule);

} // namespace rvn::generator
