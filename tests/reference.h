// The transforms by their definitions in long double, and the distance of a result from them. It
// knows nothing of the library's plans, tables or constants.
#pragma once

#include "kernels.h"

#include <bit>
#include <complex>
#include <numbers>

namespace rvn::tests
{

using Wide = std::complex<long double>;
using Matrix = std::vector<std::vector<long double>>;

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

// What part `in` of a kernel's input contributes to part `out` of its output, for S = 1. In a half
// spectrum, part 2k - 1 is R(k) and part 2k is I(k).
template <typename Real> long double entry(const Kernel<Real>& kernel, int out, int in)
{
    const int N = kernel.length();
    if (kernel.isWalshHadamard())
        return std::popcount(static_cast<unsigned>(out & in)) % 2 == 0 ? 1 : -1;
    if (kernel.transform == Transform::Hartley)
        return unitRoot(out * in, N).real() + unitRoot(out * in, N).imag();
    if (kernel.isComplex()) {
        const int turns = (out / 2) * (in / 2);
        const Wide root = unitRoot(kernel.isInverse() ? turns : -turns, N);
        const Wide value = in % 2 == 0 ? root : Wide(-root.imag(), root.real());
        return out % 2 == 0 ? value.real() : value.imag();
    }
    const auto [part, n] = kernel.isForward() ? std::pair(out, in) : std::pair(in, out);
    const int k = (part + 1) / 2;
    const bool isImaginary = part > 0 && part % 2 == 0;
    const bool hasPartner = k > 0 && 2 * k < N;
    const Wide root = unitRoot(-n * k, N);
    return (kernel.isInverse() && hasPartner ? 2 : 1) * (isImaginary ? root.imag() : root.real());
}

template <typename Real> Matrix matrixOf(const Kernel<Real>& kernel)
{
    Matrix matrix(kernel.parts());
    for (int out = 0; out < kernel.parts(); ++out)
        for (int in = 0; in < kernel.parts(); ++in)
            matrix[out].push_back(entry(kernel, out, in));
    return matrix;
}

template <typename Real>
std::vector<Wide> product(const Matrix& matrix, const std::vector<Real>& parts)
{
    std::vector<Wide> sums(matrix.size());
    for (std::size_t out = 0; out < matrix.size(); ++out)
        for (std::size_t in = 0; in < parts.size(); ++in)
            sums[out] += matrix[out][in] * static_cast<long double>(parts[in]);
    return sums;
}

template <typename Values> std::vector<Wide> scaled(const Values& values, long double factor)
{
    std::vector<Wide> wide;
    for (const auto& value : values)
        wide.push_back(factor * static_cast<Wide>(value));
    return wide;
}

// Complex signals as the plans' tests draw them.
template <typename Element> using Signal = std::vector<Element>;

template <typename Element> Signal<Element> randomSignal(int length, unsigned seed)
{
    const auto parts = randomParts<decltype(Element::re)>(2 * length, seed);
    Signal<Element> signal(length);
    std::memcpy(signal.data(), parts.data(), length * sizeof(Element));
    return signal;
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
