// ticks.cpp - see ticks.h.
#include "ticks.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace examples
{
namespace
{

// A unit is taken from this size on; the last one for everything smaller.
struct UnitFrom {
    double from;
    Unit unit;
};

constexpr UnitFrom timeUnits[] = {
    {0.5, {"s", 1}},
    {0.5e-3, {"ms", 1e-3}},
    {0, {"us", 1e-6}},
};

constexpr UnitFrom frequencyUnits[] = {
    {2e6, {"MHz", 1e6}},
    {2e3, {"kHz", 1e3}},
    {0, {"Hz", 1}},
};

template <typename Units> Unit unitFor(const Units& units, double size)
{
    return std::ranges::find_if(units, [&](const UnitFrom& u) { return size >= u.from; })->unit;
}

} // namespace

Unit timeUnit(double seconds)
{
    return unitFor(timeUnits, seconds);
}

Unit frequencyUnit(double hertz)
{
    return unitFor(frequencyUnits, hertz);
}

Ticks roundTicks(double low, double high, int most)
{
    constexpr double slack = 1e-9; // of a step, for ends that are multiples themselves
    int exponent = static_cast<int>(std::floor(std::log10((high - low) / most)));
    for (;; ++exponent) {
        for (const int factor : {1, 2, 5}) {
            const double step = factor * std::pow(10.0, exponent);
            const double first = std::ceil(low / step - slack);
            const double last = std::floor(high / step + slack);
            if (last - first + 1 > most)
                continue;
            Ticks ticks = {{}, std::max(0, -exponent)};
            for (double i = first; i <= last; ++i)
                ticks.values.push_back(i * step + 0.0); // never -0
            return ticks;
        }
    }
}

std::string fixedText(double value, int decimals)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

} // namespace examples
