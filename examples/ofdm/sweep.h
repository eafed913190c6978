// sweep.h - bit error rates measured over a range of Es/N0.
#ifndef OFDM_SWEEP_H
#define OFDM_SWEEP_H

#include "link.h"

namespace ofdm
{

struct RatePoint {
    double decibels; // Es/N0
    double rate;     // 0: no error was seen
};

// In white noise, where the closed form gives the rates of the range.
std::vector<RatePoint> sweepWhite(Modulation modulation, int spread, std::uint64_t seed,
                                  double lowestRate);

// The mean over many multipath channels, each of which is estimated from its own training.
std::vector<RatePoint> sweepMultipath(Modulation modulation, int spread, std::uint64_t seed,
                                      double mostDecibels);

} // namespace ofdm

#endif
