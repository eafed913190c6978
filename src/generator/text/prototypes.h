// The public prototypes of all kernels and their dispatchers: include/rvngenmx_functions.h.
#pragma once

#include "generator/kernel.h"

namespace rvn::generator
{

std::string prototypesText(const std::vector<Kernel>& kernels);

} // namespace rvn::generator
