// The real DFT kernels: their graphs, and the files that are generated for them.
#pragma once

#include "dft_real/plans.h"
#include "kernelgen/files.h"
#include "kernelgen/tuning.h"

namespace rvn::dft_real
{

// The graph of a plan. The spectrum's scalars are R(0), R(1), I(1), R(2), I(2), ... and, for even
// length, R(length/2). Both throw std::runtime_error when a count differs from the plan's.
kernelgen::Graph forwardGraph(const ForwardPlan& plan);
kernelgen::Graph inverseGraph(const InversePlan& plan);

// One file a length, direction and precision, with the kernels of the three layouts.
kernelgen::GeneratedFile forwardFile(const ForwardPlan& plan, kernelgen::Format format,
                                     const kernelgen::Tuning& tuning);
kernelgen::GeneratedFile inverseFile(const InversePlan& plan, kernelgen::Format format,
                                     const kernelgen::Tuning& tuning);

// A line a length and direction: the counts of the graph beside those of the table.
std::string report();

} // namespace rvn::dft_real
