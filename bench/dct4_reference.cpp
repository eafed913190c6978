// The fast transform of N numbers is a complex DFT of N/2, with u(j) = exp(-pi i j / (4 N)):
//
//     z[n] = (x[2n] + i x[N-1-2n]) u(4n + 1)
//     y    = DFT of z, by halving
//     X[2k] - i X[N-1-2k] = y[k] u(4k)
//
// No code or constant is shared with the library. Its own errors, of the order of 1e-19, do not
// matter; a mistake would show as one of all contenders.

#include "dct4_reference.h"

#include <complex>
#include <cstddef>
#include <numbers>
#include <span>
#include <vector>

namespace
{

using Complex = std::complex<long double>;
using Values = std::vector<Complex>;

// exp(-2 pi i turns / whole)
Complex root(std::size_t turns, std::size_t whole)
{
    return std::polar(1.0L, -2 * std::numbers::pi_v<long double> * static_cast<long double>(turns) /
                                static_cast<long double>(whole));
}

// In full and by hand: the operator looks for infinities.
Complex product(Complex a, Complex b)
{
    return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

// Of every stride-th number from the first on; roots are those of the whole transform.
void halve(const Complex* in, std::size_t stride, std::span<Complex> out, const Values& roots)
{
    if (out.size() == 1) {
        out[0] = *in;
        return;
    }
    const std::size_t half = out.size() / 2;
    halve(in, 2 * stride, out.first(half), roots);
    halve(in + stride, 2 * stride, out.last(half), roots);
    for (std::size_t k = 0; k < half; ++k) {
        const Complex even = out[k];
        const Complex odd = product(out[half + k], roots[k * stride]);
        out[k] = even + odd;
        out[half + k] = even - odd;
    }
}

Values dft(const Values& signal)
{
    Values roots;
    for (std::size_t j = 0; j < signal.size() / 2; ++j)
        roots.push_back(root(j, signal.size()));
    Values spectrum(signal.size());
    halve(signal.data(), 1, spectrum, roots);
    return spectrum;
}

Numbers fastDct4(const Numbers& signal)
{
    const std::size_t size = signal.size();
    Values folded;
    for (std::size_t n = 0; n < size / 2; ++n)
        folded.push_back(
            product({signal[2 * n], signal[size - 1 - 2 * n]}, root(4 * n + 1, 8 * size)));

    const Values spectrum = dft(folded);
    Numbers transform(size);
    for (std::size_t k = 0; k < size / 2; ++k) {
        const Complex pair = product(spectrum[k], root(4 * k, 8 * size));
        transform[2 * k] = pair.real();
        transform[size - 1 - 2 * k] = -pair.imag();
    }
    return transform;
}

} // namespace

Numbers referenceDct4(const Numbers& signal)
{
    return signal.size() <= largestDirectDct4 ? directDct4(signal) : fastDct4(signal);
}
