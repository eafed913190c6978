// The graph of a Walsh-Hadamard transform.
#pragma once

#include "generator/graph/builder.h"

namespace rvn::generator
{

// y[i] = sum over j of (-1)^(ones in i AND j) x[j], for a power of two elements.
Values walshHadamard(ValuesView x);

} // namespace rvn::generator
