// What the transforms read: random numbers, the same for every contender.
#pragma once

#include "options.h"

#include <cstddef>
#include <random>
#include <span>
#include <vector>

using Random = std::mt19937_64;

inline constexpr Random::result_type seed = 20;

// Uniform in [-1, 1), in the order of memory.
template <typename Real> void fillAtRandom(std::span<Real> values, Random& random);

// So many of them.
template <typename Real> std::vector<Real> drawn(int count, Random& random)
{
    std::vector<Real> values(static_cast<std::size_t>(count));
    fillAtRandom<Real>(values, random);
    return values;
}

// What the timed calls read. Out of place: random numbers. In place a transform works on its own
// result, and but for zeros any input would overflow or vanish in the end, if only by rounding; the
// additions and multiplications of the processor take as long for zeros.
template <typename Real> void fillForTiming(std::span<Real> values, Placement placement);
