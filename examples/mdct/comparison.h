// comparison.h - how near a rebuilt recording comes.
#ifndef MDCT_COMPARISON_H
#define MDCT_COMPARISON_H

#include "sound.h"

namespace mdct
{

// The energy of the original over that of the difference, in dB; infinite without a difference.
double signalToNoise(const examples::Sound& original, const examples::Sound& rebuilt);

constexpr double leastFromAll = 120; // dB; rounding to binary32 leaves some 135

// Throws Failure unless all coefficients have rebuilt the recording but for rounding.
void expectRebuilt(double decibels);

} // namespace mdct

#endif
