// The DCT-IV in binary80: what the results of all contenders are compared with.
#pragma once

#include "direct_sum.h"

inline constexpr int largestDirectDct4 = 1 << 12;

// Of a power of two from 2 up: the direct sum to the size above, beyond it a fast transform.
Numbers referenceDct4(const Numbers& signal);
