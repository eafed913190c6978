// The DFT by its definition in long double, and the distance of a result from it. It knows nothing
// of the library's plans, tables or constants.
#pragma once

#include "kernels.h"

#include <complex>
#include <numbers>

namespace rvn::tests
{

using Wide = std::complex<long double>;

// e^(2 pi i turns / N), the turns reduced before anything is rounded.
inline Wide unitRoot(long turns, int N)
{
    const long reduced = (turns % N + N) % N;
    return std::polar(1.0L, 2 * std::numbers::pi_v<long double> *
                                static_cast<long double>(reduced) / static_cast<long double>(N));
}

// X[k] = sum over n of x[n] e^(-/+ 2 pi i n k / N).
inline std::vector<Wide> directSum(const std::vector<Wide>& x, bool isInverse)
{
    const int N = static_cast<int>(x.size());
    std::vector<Wide> root;
    for (int turns = 0; turns < N; ++turns)
        root.push_back(unitRoot(isInverse ? turns : -turns, N));
    std::vector<Wide> X(N);
    for (int k = 0; k < N; ++k)
        for (int n = 0; n < N; ++n)
            X[k] += x[n] * root[n * k % N];
    return X;
}

template <typename Element> std::vector<Wide> widened(const Signal<Element>& signal)
{
    std::vector<Wide> wide;
    for (const Element& x : signal)
        wide.emplace_back(x.re, x.im);
    return wide;
}

// The root of the summed squared errors over that of the summed squares; NaN if anything is NaN.
inline double relativeError(const std::vector<Wide>& result, const std::vector<Wide>& expected)
{
    long double error = 0;
    long double energy = 0;
    for (std::size_t k = 0; k < expected.size(); ++k) {
        error += std::norm(result.at(k) - expected[k]);
        energy += std::norm(expected[k]);
    }
    return static_cast<double>(std::sqrt(error / energy));
}

} // namespace rvn::tests
