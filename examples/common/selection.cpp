// selection.cpp - see selection.h.
#include "selection.h"

#include "program.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

Selection keepLargest(std::span<float> coefficients, double share)
{
    const std::size_t total = coefficients.size();
    const auto wanted = static_cast<std::size_t>(std::llround(share * static_cast<double>(total)));
    const std::size_t kept = std::clamp<std::size_t>(wanted, 1, total);

    std::vector<float> magnitudes;
    magnitudes.reserve(total);
    for (const float coefficient : coefficients)
        magnitudes.push_back(std::abs(coefficient));
    const auto last = magnitudes.begin() + (kept - 1);
    std::nth_element(magnitudes.begin(), last, magnitudes.end(), std::greater<>());
    const float smallest = *last;

    // Before the last one there may be others as small as it.
    auto equals = std::count(magnitudes.begin(), last + 1, smallest);
    for (float& coefficient : coefficients) {
        const float magnitude = std::abs(coefficient);
        if (magnitude < smallest || (magnitude == smallest && equals-- <= 0))
            coefficient = 0;
    }
    return {kept, total, smallest};
}

std::string selectionText(const Selection& selection)
{
    const double share = static_cast<double>(selection.kept) / static_cast<double>(selection.total);
    return std::to_string(selection.kept) + " of " + std::to_string(selection.total) +
           " coefficients (share " + formatted("%.6g", share) + "), magnitudes from " +
           formatted("%.4g", selection.smallest);
}
