// direct.cpp - the sum of products that defines the convolution, and energies of what differs.
#include "direct.h"

#include "program.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace
{

constexpr double mostProducts = 1e9;
constexpr std::size_t stretchLength = 1000; // no multiple of a block: all places in one come up

// out[n] = sum over k of response[k] signal[n - k]
double directAt(std::size_t n, std::span<const float> signal, std::span<const float> response)
{
    const std::size_t first = n < signal.size() ? 0 : n - signal.size() + 1;
    const std::size_t end = std::min(n + 1, response.size());
    double sum = 0;
    for (std::size_t k = first; k < end; ++k)
        sum += static_cast<double>(response[k]) * signal[n - k];
    return sum;
}

double energy(std::span<const float> values)
{
    double sum = 0;
    for (const double value : values)
        sum += value * value;
    return sum;
}

double ratio(double error, double size)
{
    return error == 0 ? 0 : std::sqrt(error / size);
}

} // namespace

Distance distanceFromDirect(std::span<const float> signal, std::span<const float> response,
                            std::span<const float> output)
{
    const double products =
        static_cast<double>(signal.size()) * static_cast<double>(response.size());
    const auto every = static_cast<std::size_t>(1 + products / mostProducts);
    double errors = 0, squares = 0, compared = 0;
    for (std::size_t first = 0; first < output.size(); first += every * stretchLength) {
        const std::size_t end = std::min(first + stretchLength, output.size());
        for (std::size_t n = first; n < end; ++n) {
            const double direct = directAt(n, signal, response);
            const double error = output[n] - direct;
            errors += error * error;
            squares += direct * direct;
        }
        compared += static_cast<double>(end - first);
    }
    const double share = compared / static_cast<double>(output.size());
    return {ratio(errors, squares), ratio(errors, energy(signal) * energy(response) * share),
            share};
}

void expectClose(Distance distance)
{
    if (!(distance.judged() < distanceLimit))
        throw Failure(formatted("the result differs from direct convolution: relative rms %.2e, ",
                                distance.relative) +
                      formatted("allowed is %.0e", distanceLimit));
}
