// The graph of a Walsh-Hadamard transform.
#pragma once

#include "kernelgen/builder.h"

namespace rvn::wht
{

// y[i] = sum over j of (-1)^(ones in i AND j) x[j], for a power of two elements.
kernelgen::Values walshHadamard(kernelgen::ValuesView x);

} // namespace rvn::wht
