// symbol.cpp - see symbol.h; the transforms are in main.cpp.
#include "symbol.h"

#include <cstdlib>
#include <numbers>

Subcarriers subcarriersFor(int spread)
{
    constexpr int highest = 26; // of plain OFDM on either side
    constexpr std::size_t pilotSpacing = 12;
    const int begin = spread == 0 ? -highest : -spread / 2;
    const int end = spread == 0 ? highest + 1 : spread - spread / 2;
    Subcarriers all;
    all.spread = spread;
    for (int frequency = begin; frequency < end; ++frequency) {
        if (spread == 0 && frequency == 0)
            continue;
        const bool isPilot = spread == 0 ? std::abs(frequency) == 7 || std::abs(frequency) == 21
                                         : all.used() % pilotSpacing == pilotSpacing / 2;
        (isPilot ? all.pilots : all.data).push_back(all.used());
        all.bins.push_back((frequency + symbolLength) % symbolLength);
    }
    return all;
}

std::vector<Complex> trainingPoints(const Subcarriers& subcarriers)
{
    const auto count = static_cast<double>(subcarriers.used());
    std::vector<Complex> points;
    for (double k = 0; k < count; ++k)
        points.push_back(unit(std::numbers::pi * k * k / count));
    return points;
}
