// The kernels that can be tuned: each generated file with the exported functions in it.
#pragma once

#include <string>
#include <vector>

namespace rvn::bench
{

struct TunedKernel {
    std::string file; // as in the table, without ".cpp"
    std::vector<std::string> functions;
    bool isDouble;
    bool takesBuffer;
};

std::vector<TunedKernel> tunedKernels();

} // namespace rvn::bench
