// The contenders of the Hartley transform: our kernel and its peers.
#pragma once

#include "length_series.h"

namespace rvn::bench
{

template <typename Real>
Entrants<Real> hartleyEntrants(Buffers<Real>& buffers, int length, Placement placement);

} // namespace rvn::bench
