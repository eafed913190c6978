// The Hartley kernels: their graphs, and the files that are generated for them.
#pragma once

#include "hartley/plans.h"
#include "kernelgen/files.h"
#include "kernelgen/tuning.h"

namespace rvn::hartley
{

// The graph of a plan. Throws std::runtime_error when a count differs from the plan's.
kernelgen::Graph hartleyGraph(const HartleyPlan& plan);

// One file a length and precision.
kernelgen::GeneratedFile kernelFile(const HartleyPlan& plan, kernelgen::Format format,
                                    const kernelgen::Tuning& tuning);

// A line a length: the counts of the graph beside those of the table.
std::string report();

} // namespace rvn::hartley
