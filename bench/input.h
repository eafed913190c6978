// What the transforms read: random numbers, the same for every contender.
#pragma once

#include "options.h"

#include <random>
#include <span>

namespace rvn::bench
{

using Random = std::mt19937_64;

inline constexpr Random::result_type seed = 20;

// Uniform in [-1, 1); real and imaginary part in this order.
template <typename Element> void fillAtRandom(std::span<Element> values, Random& random);

// What the timed calls read. Out of place: random numbers. In place a transform works on its own
// result, and but for zeros any input would overflow or vanish in the end, if only by rounding; the
// additions and multiplications of the processor take as long for zeros.
template <typename Element> void fillForTiming(std::span<Element> values, Placement placement);

} // namespace rvn::bench
