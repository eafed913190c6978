// The contenders of the complex DFT: our kernel and its peers.
#pragma once

#include "length_series.h"

namespace rvn::bench
{

template <typename Real>
Entrants<Real> complexEntrants(Buffers<Real>& buffers, int length, Direction direction,
                               Placement placement);

} // namespace rvn::bench
