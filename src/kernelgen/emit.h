// From a graph to the C++ text of a kernel.
#pragma once

#include "kernelgen/precision.h"
#include "kernelgen/schedule.h"

#include <string>

namespace rvn::kernelgen
{

// The factor S under each flag.
struct ScaleFactors {
    double none;
    double bySqrtN;
    double fwdByN;
    double invByN;
};

// 1, 1/N and 1/sqrt(N) for a forward or an inverse DFT kernel of length N.
ScaleFactors forwardScale(int length);
ScaleFactors inverseScale(int length);

// One exported function: its name and element type, where the graph's inputs lie in src and its
// outputs in dst, and the factors that its flags select.
struct Kernel {
    std::string name;
    std::string elementType; // of the prototype: Rvn64fc and the like
    Format format;           // of its scalars
    std::vector<int> sourceSlot;
    std::vector<int> destinationSlot;
    ScaleFactors scale;
};

// The kernel's definition: argument checks, the choice of S, then straight-line loads, arithmetic
// and stores, one operation a line.
std::string emitKernel(const Kernel& kernel, const Graph& graph, const Schedule& schedule);

} // namespace rvn::kernelgen
