// theory.cpp - the rate is a weighted sum of Q(m x), where x = d/sigma is half the distance of
// neighbouring points over the deviation of the noise on an axis (Cho and Yoon 2002, exact for
// square constellations). x^2 is Es/N0 for QPSK, which is 2 Eb/N0, and Es/N0 / 5 for 16-QAM.
#include "theory.h"

#include <cmath>
#include <limits>
#include <span>

namespace ofdm
{
namespace
{

struct Term {
    double weight, multiple;
};

constexpr Term qpskTerms[] = {{1, 1}};
constexpr Term qam16Terms[] = {{0.75, 1}, {0.5, 3}, {-0.25, 5}};

template <typename Tail> double sum(Modulation modulation, double ratio, Tail tail)
{
    const bool qpsk = modulation == Modulation::qpsk;
    const std::span<const Term> terms = qpsk ? std::span<const Term>(qpskTerms) : qam16Terms;
    const double square = qpsk ? ratio : ratio / 5;
    double rate = 0;
    for (const Term& term : terms)
        rate += term.weight * tail(term.multiple * term.multiple * square);
    return rate;
}

} // namespace

double fromDecibels(double decibels)
{
    return std::pow(10, decibels / 10);
}

double toDecibels(double ratio)
{
    return ratio > 0 ? 10 * std::log10(ratio) : -std::numeric_limits<double>::infinity();
}

double whiteErrorRate(Modulation modulation, double ratio)
{
    return sum(modulation, ratio,
               [](double square) { return std::erfc(std::sqrt(square / 2)) / 2; });
}

// The mean of Q(sqrt(g s)) over exponentially distributed g of mean 1 (Proakis 2001, 14.3).
double fadingErrorRate(Modulation modulation, double ratio)
{
    return sum(modulation, ratio,
               [](double square) { return (1 - std::sqrt(square / (2 + square))) / 2; });
}

} // namespace ofdm
