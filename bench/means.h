// Means over the rows of a table.
#pragma once

#include <cmath>
#include <vector>

// Of ratios.
inline double geometricMean(const std::vector<double>& values)
{
    double sum = 0;
    for (const double value : values)
        sum += std::log(value);
    return std::exp(sum / static_cast<double>(values.size()));
}

// Of errors.
inline double rootMeanSquare(const std::vector<double>& values)
{
    double sum = 0;
    for (const double value : values)
        sum += value * value;
    return std::sqrt(sum / static_cast<double>(values.size()));
}
