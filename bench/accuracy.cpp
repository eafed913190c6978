// The arrays hold NaN before a call, but for the input: a number that is not written, or one that
// is made from what must not be read, is seen.

#include "accuracy.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace
{

// Far above what rounding does in the worst of the algorithms, far below any mistake.
constexpr double mostUnitsOfRounding = 1000;

} // namespace

template <typename Real>
double relativeRmsError(const Contender& contender, const Draw<Real>& draw, std::span<Real> source,
                        std::span<Real> destination, int trials)
{
    constexpr Real notANumber = std::numeric_limits<Real>::quiet_NaN();
    Random random(seed);
    long double error = 0;
    long double total = 0;
    for (int trial = 0; trial < trials; ++trial) {
        const Problem<Real> problem = draw(random);
        std::ranges::fill(destination, notANumber);
        std::ranges::fill(source, notANumber);
        std::ranges::copy(problem.input, source.begin());
        contender.transform();
        for (std::size_t i = 0; i < problem.output.size(); ++i) {
            const long double exact = problem.output[i];
            const long double difference = destination[i] - exact;
            error += difference * difference;
            total += exact * exact;
        }
    }

    const double relative = static_cast<double>(std::sqrt(error / total));
    if (!(relative < mostUnitsOfRounding * std::numeric_limits<Real>::epsilon()))
        throw std::runtime_error(contender.name + " is wrong");
    return relative;
}

template double relativeRmsError(const Contender&, const Draw<float>&, std::span<float>,
                                 std::span<float>, int);
template double relativeRmsError(const Contender&, const Draw<double>&, std::span<double>,
                                 std::span<double>, int);
