// The contenders of the Hartley transform: our kernel and its peers.
#pragma once

#include "length_series.h"

template <typename Real>
Entrants<Real> hartleyEntrants(Buffers<Real>& buffers, int length, Placement placement);
