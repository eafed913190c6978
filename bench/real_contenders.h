// The contenders of the real DFT: our kernels of the three layouts and their peers.
#pragma once

#include "length_series.h"

#include <cstddef>

// Behind the layouts CCS, Pack and Perm.
inline constexpr std::size_t firstRealPeer = 3;

template <typename Real>
Entrants<Real> realEntrants(Buffers<Real>& buffers, int length, Direction direction,
                            Placement placement);
