// From a kernel to what is made of it: the one chain for every family.
#pragma once

#include "generator/files.h"
#include "generator/kernel.h"
#include "generator/order/tuning.h"

namespace rvn::generator
{

// Its C++ file. Throws std::runtime_error when the kernel does not have its row's tally.
GeneratedFile generate(const Kernel& kernel, const Tuning& tuning);

// Its line of docs/kernels.tsv, and the names of the columns.
std::string statistics(const Kernel& kernel, const Tuning& tuning);
extern const char* const statisticsHead;

// Its line of cmake/kernels.tsv, the list that the build and the tools read: file, options,
// functions.
std::string listed(const Kernel& kernel, const Tuning& tuning);

} // namespace rvn::generator
