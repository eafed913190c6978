// channel.h - what happens between the antennas: echoes, a carrier that is slightly off, noise.
//
// White noise alone, or before it a multipath channel: taps at every sample with an exponential
// power profile, each drawn once from a complex Gaussian distribution, so that every subcarrier
// fades by Rayleigh's law. Their powers add to 1 in the mean over all seeds.
#ifndef OFDM_CHANNEL_H
#define OFDM_CHANNEL_H

#include "symbol.h"

#include <cstdint>

// Random numbers that are the same on every machine, which the distributions of the standard
// library are not: SplitMix64 (Steele, Lea and Flood 2014), a counter and a mixing function.
class Random
{
public:
    // Streams of one seed are independent of each other.
    Random(std::uint64_t seed, std::uint64_t stream);

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

enum class ChannelKind : int { white, multipath };

constexpr std::size_t channelTaps = 8;  // the last echo is 7 samples late, within the prefix
constexpr double delaySpread = 2;       // samples in which the power falls to 1/e
constexpr double carrierOffset = 0.002; // of the distance of subcarriers; multipath only

class Channel
{
public:
    Channel(ChannelKind kind, double noise, std::uint64_t seed);

    // The mean power gain of the echoes together, 1 for white noise.
    double gain() const;

    // What arrives of the next samples, in their place.
    void pass(std::span<Complex> samples);

private:
    void addEchoes(std::span<Complex> samples);
    void rotate(std::span<Complex> samples);

    double noise_;
    Random random_;
    std::vector<Complex> taps_; // none in white noise
    std::array<Complex, channelTaps> past_ = {};
    double phase_ = 0;
};

#endif
