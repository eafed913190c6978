// How exact a contender of the complex DFT is.
#pragma once

#include "complex_contenders.h"

namespace rvn::bench
{

// The relative error in the 2-norm over a number of random inputs, the same for every contender:
// the square root of (sum of |found - exact|^2) / (sum of |exact|^2). Exact is a direct sum in
// binary80. Throws std::runtime_error if the error is too large for rounding to be its cause.
template <typename Element>
double relativeRmsError(const Contender& contender, ComplexBuffers<Element>& buffers, int length,
                        Direction direction, Placement placement);

} // namespace rvn::bench
