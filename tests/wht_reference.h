// The Walsh-Hadamard transform as the plain loop whose bits are promised.
#pragma once

#include <cstddef>
#include <vector>

namespace rvn::tests
{

// One ascending loop of butterflies, then one multiplication.
template <typename Real> std::vector<Real> byLoop(std::vector<Real> a, Real S)
{
    for (std::size_t h = 1; h < a.size(); h *= 2)
        for (std::size_t i = 0; i < a.size(); ++i)
            if ((i & h) == 0) {
                const Real lower = a[i];
                const Real upper = a[i + h];
                a[i] = lower + upper;
                a[i + h] = lower - upper;
            }
    for (Real& value : a)
        value *= S;
    return a;
}

} // namespace rvn::tests
