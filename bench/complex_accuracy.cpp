// Accuracy against the definition of the transform, in binary80:
//
//     X[k] = sum over n of x[n] * W^(n k),  W = exp(-+ 2 pi i / N)
//
// No code or constant is shared with the library. With 64 significant bits, an error of the order
// of 1e-19, the sum is exact as far as results in binary64 or binary32 go.

#include "complex_accuracy.h"

#include "input.h"

#include <cmath>
#include <complex>
#include <limits>
#include <numbers>
#include <span>
#include <stdexcept>

namespace rvn::bench
{

namespace
{

using Exact = std::complex<long double>;

static_assert(std::numeric_limits<long double>::digits == 64);

constexpr int trials = 64;

// Far above what rounding does in the worst of the algorithms, far below any mistake.
constexpr double mostUnitsOfRounding = 1000;

template <typename Element> using Real = decltype(Element::re);

std::vector<Exact> rootsOfUnity(int length, Direction direction)
{
    const long double turn = direction == Direction::Forward ? -2 : 2;
    std::vector<Exact> roots;
    for (int j = 0; j < length; ++j)
        roots.push_back(std::polar(1.0L, turn * std::numbers::pi_v<long double> * j / length));
    return roots;
}

template <typename Element> Exact exact(const Element& value)
{
    return {value.re, value.im};
}

template <typename Element>
std::vector<Exact> directSum(std::span<const Element> input, const std::vector<Exact>& roots)
{
    const std::size_t length = input.size();
    std::vector<Exact> spectrum(length);
    for (std::size_t k = 0; k < length; ++k)
        for (std::size_t n = 0; n < length; ++n)
            spectrum[k] += exact(input[n]) * roots[n * k % length];
    return spectrum;
}

} // namespace

template <typename Element>
double relativeRmsError(const Contender& contender, ComplexBuffers<Element>& buffers, int length,
                        Direction direction, Placement placement)
{
    const auto size = static_cast<std::size_t>(length);
    const std::vector<Exact> roots = rootsOfUnity(length, direction);
    const std::span<Element> source(buffers.source.data(), size);
    const std::span<const Element> found(buffers.destination(placement), size);
    constexpr Real<Element> notANumber = std::numeric_limits<Real<Element>>::quiet_NaN();

    Random random(seed);
    long double error = 0;
    long double total = 0;
    for (int trial = 0; trial < trials; ++trial) {
        buffers.target.fill({notANumber, notANumber});
        fillAtRandom(source, random);
        const std::vector<Exact> spectrum = directSum<Element>(source, roots);
        contender.transform();
        for (std::size_t k = 0; k < size; ++k) {
            error += std::norm(exact(found[k]) - spectrum[k]);
            total += std::norm(spectrum[k]);
        }
    }

    const double relative = static_cast<double>(std::sqrt(error / total));
    if (!(relative < mostUnitsOfRounding * std::numeric_limits<Real<Element>>::epsilon()))
        throw std::runtime_error(contender.name + " is wrong at length " + std::to_string(length));
    return relative;
}

template double relativeRmsError(const Contender&, ComplexBuffers<Rvn32fc>&, int, Direction,
                                 Placement);
template double relativeRmsError(const Contender&, ComplexBuffers<Rvn64fc>&, int, Direction,
                                 Placement);

} // namespace rvn::bench
