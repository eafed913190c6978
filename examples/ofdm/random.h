// random.h - random numbers that are the same on every machine, which the distributions of the
// standard library are not.
#ifndef OFDM_RANDOM_H
#define OFDM_RANDOM_H

#include "complex.h"

#include <cstdint>

namespace ofdm
{

// SplitMix64 (Steele, Lea and Flood 2014): a counter and a mixing function.
class Random
{
public:
    // Streams of one seed are independent of each other.
    explicit Random(std::uint64_t seed, std::uint64_t stream = 0);

    std::uint64_t bits();
    std::uint8_t byte() { return static_cast<std::uint8_t>(bits() >> 56); }

    // A complex Gaussian number of mean 0 with the given mean power.
    Complex gaussian(double power);

private:
    double uniform(); // above 0 and up to 1

    std::uint64_t state_;
};

// The streams of a run, so that one of them does not move the others.
enum Stream : std::uint64_t { channelStream, scramblerStream, pilotStream, dataStream };

} // namespace ofdm

#endif
