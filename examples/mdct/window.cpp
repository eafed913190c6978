// window.cpp - the sine window, sin(pi (n + 1/2) / (2N)), and the one derived from a Kaiser window
// v of N + 1 values (Fielder et al. 1996): the sums of v, as a share of all of it, rise from 0 to 1
// point-symmetrically, so that their square roots make a half of what is asked for.
#include "window.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{

using std::numbers::pi;

constexpr double alpha = 4;

std::vector<double> sineHalf(int hop)
{
    std::vector<double> half;
    for (int n = 0; n < hop; ++n)
        half.push_back(std::sin(pi * (n + 0.5) / (2 * hop)));
    return half;
}

// v[n] = I0(pi alpha sqrt(1 - (2n/N - 1)^2)), n from 0 to N
std::vector<double> kaiserBesselHalf(int hop)
{
    std::vector<double> sums;
    double sum = 0;
    for (int n = 0; n <= hop; ++n) {
        const double place = 2.0 * n / hop - 1;
        sum += std::cyl_bessel_i(0, pi * alpha * std::sqrt(1 - place * place));
        sums.push_back(sum);
    }
    sums.pop_back();
    for (double& value : sums)
        value = std::sqrt(value / sum);
    return sums;
}

} // namespace

const char* nameOf(Window window)
{
    return window == Window::sine ? "sine" : "Kaiser-Bessel-derived";
}

std::vector<double> windowValues(Window window, int hop)
{
    std::vector<double> values = window == Window::sine ? sineHalf(hop) : kaiserBesselHalf(hop);
    values.resize(2 * values.size());
    std::reverse_copy(values.begin(), values.begin() + hop, values.begin() + hop);
    return values;
}
