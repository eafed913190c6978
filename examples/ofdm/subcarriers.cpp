// subcarriers.cpp - see subcarriers.h.
#include "subcarriers.h"

#include <cstdlib>
#include <numbers>

namespace ofdm
{
namespace
{

constexpr int highest = 26; // subcarriers of plain OFDM on either side
constexpr std::size_t pilotSpacing = 12;

std::size_t binOf(int frequency)
{
    return (static_cast<std::size_t>(frequency) + symbolLength) % symbolLength;
}

bool isPilot(int frequency)
{
    return std::abs(frequency) == 7 || std::abs(frequency) == 21;
}

} // namespace

Subcarriers plainSubcarriers()
{
    Subcarriers plain;
    for (int frequency = -highest; frequency <= highest; ++frequency) {
        if (frequency == 0)
            continue;
        (isPilot(frequency) ? plain.pilots : plain.data).push_back(plain.used());
        plain.bins.push_back(binOf(frequency));
    }
    return plain;
}

Subcarriers spreadSubcarriers(int length)
{
    Subcarriers spread;
    spread.spread = length;
    for (int frequency = -length / 2; frequency < length - length / 2; ++frequency) {
        const bool pilot = spread.used() % pilotSpacing == pilotSpacing / 2;
        (pilot ? spread.pilots : spread.data).push_back(spread.used());
        spread.bins.push_back(binOf(frequency));
    }
    return spread;
}

Subcarriers subcarriersFor(int spread)
{
    return spread == 0 ? plainSubcarriers() : spreadSubcarriers(spread);
}

std::vector<Complex> trainingPoints(const Subcarriers& subcarriers)
{
    const auto count = static_cast<double>(subcarriers.used());
    std::vector<Complex> points;
    for (double k = 0; k < count; ++k)
        points.push_back(unit(std::numbers::pi * k * k / count));
    return points;
}

} // namespace ofdm
