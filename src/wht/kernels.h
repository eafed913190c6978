// The Walsh-Hadamard kernels: their graphs, and the files that are generated for them.
#pragma once

#include "kernelgen/files.h"
#include "kernelgen/tuning.h"

namespace rvn::wht
{

// The graph of an order. Throws std::runtime_error when its operation counts are not those of
// order * 2^(order - 1) butterflies.
kernelgen::Graph whtGraph(int order);

// One file an order and precision.
kernelgen::GeneratedFile kernelFile(int order, kernelgen::Format format,
                                    const kernelgen::Tuning& tuning);

// A line an order: the counts and the most values live.
std::string report();

} // namespace rvn::wht
