// Numbers are drawn one by one, whatever they stand for.

#include "input.h"

#include <algorithm>

template <typename Real> void fillAtRandom(std::span<Real> values, Random& random)
{
    std::uniform_real_distribution<Real> uniform(-1, 1);
    for (Real& value : values)
        value = uniform(random);
}

template <typename Real> void fillForTiming(std::span<Real> values, Placement placement)
{
    Random random(seed);
    if (placement == Placement::OutOfPlace)
        fillAtRandom(values, random);
    else
        std::ranges::fill(values, Real(0));
}

template void fillAtRandom(std::span<float>, Random&);
template void fillAtRandom(std::span<double>, Random&);
template void fillForTiming(std::span<float>, Placement);
template void fillForTiming(std::span<double>, Placement);
