// The contenders of the complex DFT: our kernel and its peers.
#pragma once

#include "length_series.h"

template <typename Real>
Entrants<Real> complexEntrants(Buffers<Real>& buffers, int length, Direction direction,
                               Placement placement);
