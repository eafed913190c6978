// The complex DFT kernels: their graphs, and the files that are generated for them.
#pragma once

#include "dft_complex/plans.h"
#include "kernelgen/files.h"
#include "kernelgen/tuning.h"

namespace rvn::dft_complex
{

// The graph of the forward transform of a plan: inputs and outputs are scalars, element n being
// 2n and 2n + 1. Throws std::runtime_error when its operation counts differ from the plan's.
kernelgen::Graph complexGraph(const ComplexPlan& plan);

// One file a length and precision, with the forward and the inverse kernel.
kernelgen::GeneratedFile kernelFile(const ComplexPlan& plan, kernelgen::Format format,
                                    const kernelgen::Tuning& tuning);

// A line a length: the table's counts, the graph's, and what a kernel costs in registers and
// conversions. Throws as complexGraph does.
std::string report();

} // namespace rvn::dft_complex
