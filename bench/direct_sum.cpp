// The sum of the definition, with the roots of unity by their angles:
//
//     X[k] = sum over n of x[n] * W^(n k),  W = exp(-+ 2 pi i / N)
//
// and of the DCT-IV with cosines in place of the roots.
//
// No code or constant is shared with the library. With 64 significant bits, an error of the order
// of 1e-19, the sum is exact as far as results in binary64 or binary32 go. The transforms of real
// numbers are read off the complex one.

#include "direct_sum.h"

#include <cmath>
#include <complex>
#include <cstddef>
#include <limits>
#include <numbers>

namespace
{

using Complex = std::complex<long double>;

static_assert(std::numeric_limits<long double>::digits == 64);

std::vector<Complex> rootsOfUnity(std::size_t length, Direction direction)
{
    const long double turn = direction == Direction::Forward ? -2 : 2;
    std::vector<Complex> roots;
    for (std::size_t j = 0; j < length; ++j)
        roots.push_back(
            std::polar(1.0L, turn * std::numbers::pi_v<long double> * static_cast<long double>(j) /
                                 static_cast<long double>(length)));
    return roots;
}

std::vector<Complex> directSum(const std::vector<Complex>& signal, Direction direction)
{
    const std::size_t length = signal.size();
    const std::vector<Complex> roots = rootsOfUnity(length, direction);
    std::vector<Complex> spectrum(length);
    for (std::size_t k = 0; k < length; ++k)
        for (std::size_t n = 0; n < length; ++n)
            spectrum[k] += signal[n] * roots[n * k % length];
    return spectrum;
}

std::vector<Complex> fromPairs(const Numbers& pairs)
{
    std::vector<Complex> values;
    for (std::size_t i = 0; i < pairs.size(); i += 2)
        values.emplace_back(pairs[i], pairs[i + 1]);
    return values;
}

Numbers toPairs(const std::vector<Complex>& values)
{
    Numbers pairs;
    for (const Complex& value : values)
        pairs.insert(pairs.end(), {value.real(), value.imag()});
    return pairs;
}

std::vector<Complex> spectrumOfReal(const Numbers& signal)
{
    return directSum({signal.begin(), signal.end()}, Direction::Forward);
}

} // namespace

Numbers directComplexDft(const Numbers& signal, Direction direction)
{
    return toPairs(directSum(fromPairs(signal), direction));
}

Numbers directRealDft(const Numbers& signal)
{
    std::vector<Complex> spectrum = spectrumOfReal(signal);
    spectrum.resize(signal.size() / 2 + 1);
    return toPairs(spectrum);
}

// The other half by X[N - k] = conj(X[k]); the result has no imaginary part but for rounding.
Numbers directInverseRealDft(const Numbers& halfSpectrum, int length)
{
    std::vector<Complex> spectrum = fromPairs(halfSpectrum);
    for (std::size_t k = spectrum.size(); k < static_cast<std::size_t>(length); ++k)
        spectrum.push_back(std::conj(spectrum[static_cast<std::size_t>(length) - k]));

    Numbers signal;
    for (const Complex& value : directSum(spectrum, Direction::Inverse))
        signal.push_back(value.real());
    return signal;
}

// cos + sin is the real part of exp(-i angle) less its imaginary part.
Numbers directHartley(const Numbers& signal)
{
    Numbers transform;
    for (const Complex& value : spectrumOfReal(signal))
        transform.push_back(value.real() - value.imag());
    return transform;
}

// The cosines of all multiples of pi / (4 N), which come again after 8 N. From one n to the next
// the angle grows by 2 (2k + 1) of them.
Numbers directDct4(const Numbers& signal)
{
    const std::size_t period = 8 * signal.size();
    Numbers cosines;
    for (const Complex& root : rootsOfUnity(period, Direction::Forward))
        cosines.push_back(root.real());

    Numbers transform;
    for (std::size_t k = 0; k < signal.size(); ++k) {
        std::size_t angle = 2 * k + 1;
        long double sum = 0;
        for (const long double value : signal) {
            sum += value * cosines[angle];
            angle = (angle + 2 * (2 * k + 1)) % period;
        }
        transform.push_back(sum);
    }
    return transform;
}
