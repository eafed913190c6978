// comparison.cpp - see comparison.h.
#include "comparison.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace examples
{

Comparison compare(const Picture& original, const Picture& rebuilt)
{
    Comparison comparison;
    std::int64_t squares = 0; // 2^26 pixels of 3 x 32 bits fit
    const auto channels = static_cast<std::size_t>(original.channels);
    const auto colors = static_cast<std::size_t>(original.colors());
    for (std::size_t i = 0; i < original.samples.size(); ++i) {
        if (i % channels >= colors)
            continue;
        const std::int64_t difference = std::abs(rebuilt.samples[i] - original.samples[i]);
        squares += difference * difference;
        comparison.largest = std::max(comparison.largest, static_cast<int>(difference));
    }
    comparison.meanSquare =
        static_cast<double>(squares) / static_cast<double>(original.pixels() * colors);
    return comparison;
}

double signalToNoise(const Comparison& comparison, int peak)
{
    if (comparison.meanSquare == 0)
        return std::numeric_limits<double>::infinity();
    return 10 * std::log10(static_cast<double>(peak) * peak / comparison.meanSquare);
}

} // namespace examples
