// How exact a contender is, and the input that all of them get.
#pragma once

#include "contenders.h"

namespace rvn::bench
{

// What the timed calls read. Out of place: random numbers, uniform in [-1, 1). In place a transform
// works on its own result, and without scaling any other input would overflow within a few hundred
// calls: it is zero, which the additions and multiplications of the processor take as long for.
template <typename Element> void fillForTiming(Buffers<Element>& buffers, Placement placement);

// The relative error in the 2-norm over a number of random inputs, the same for every contender:
// the square root of (sum of |found - exact|^2) / (sum of |exact|^2). Exact is a direct sum in
// binary80. Throws std::runtime_error if the error is too large for rounding to be its cause.
template <typename Element>
double relativeRmsError(const Contender& contender, Buffers<Element>& buffers, int length,
                        Direction direction, Placement placement);

} // namespace rvn::bench
