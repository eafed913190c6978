// comparison.cpp - sums in binary64 over all channels.
#include "comparison.h"

#include "failure.h"

#include <cmath>
#include <cstdio>
#include <limits>

namespace mdct
{

double signalToNoise(const examples::Sound& original, const examples::Sound& rebuilt)
{
    double signal = 0, noise = 0;
    for (std::size_t i = 0; i < original.channels.size(); ++i)
        for (std::size_t n = 0; n < original.samples(); ++n) {
            const double value = original.channels[i][n];
            const double error = rebuilt.channels[i][n] - value;
            signal += value * value;
            noise += error * error;
        }
    return noise == 0 ? std::numeric_limits<double>::infinity() : 10 * std::log10(signal / noise);
}

void expectRebuilt(double decibels)
{
    if (decibels >= leastFromAll)
        return;
    char text[128];
    std::snprintf(text, sizeof text,
                  "all coefficients rebuild the recording with an SNR of %.1f dB, %.0f dB is due",
                  decibels, leastFromAll);
    throw examples::Failure(text);
}

} // namespace mdct
