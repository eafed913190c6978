// The three layouts of a half spectrum, as rvngenmx.h draws them.
#pragma once

#include <algorithm>
#include <vector>

enum class HalfSpectrum { Ccs, Pack, Perm };

// The values, pairs of N/2 + 1 complex numbers as in CCS, in a layout: Pack and Perm leave out the
// imaginary parts that are zero.
template <typename Number>
std::vector<Number> arranged(std::vector<Number> values, int length, HalfSpectrum layout)
{
    if (layout == HalfSpectrum::Ccs)
        return values;
    values.erase(values.begin() + 1);
    if (length % 2 == 0)
        values.pop_back();
    if (length % 2 == 0 && layout == HalfSpectrum::Perm)
        std::rotate(values.begin() + 1, values.end() - 1, values.end());
    return values;
}
