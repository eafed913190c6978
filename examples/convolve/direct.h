// direct.h - how far a filtered channel is from direct convolution in double precision.
#ifndef CONVOLVE_DIRECT_H
#define CONVOLVE_DIRECT_H

#include <algorithm>
#include <span>

struct Distance {
    // rms(output - direct) / rms(direct); 0 if both are silent.
    double relative = 0;

    // The same error relative to the square root of the signal's energy times the response's, which
    // is what noise of the signal's level would leave. It tells the quality of the arithmetic where
    // the response takes nearly all of the signal away and `relative` compares with the rest.
    double ofInput = 0;

    double share = 1; // of the output that was compared

    double judged() const { return std::min(relative, ofInput); } // to be below distanceLimit
};

constexpr double distanceLimit = 1e-5;

// Compares all of the output, or, where that would take more than about 10^9 products, stretches
// of it that are spread evenly.
Distance distanceFromDirect(std::span<const float> signal, std::span<const float> response,
                            std::span<const float> output);

// Throws Failure for a distance beyond the limit.
void expectClose(Distance distance);

#endif
