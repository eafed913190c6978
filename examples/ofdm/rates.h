// rates.h - bit error rates of hard decisions on Gray mapped points: closed forms, and measured.
#ifndef OFDM_RATES_H
#define OFDM_RATES_H

#include "link.h"

double fromDecibels(double decibels); // a ratio of powers
double toDecibels(double ratio);

// In white noise, at Es/N0 as a ratio.
double whiteErrorRate(Modulation modulation, double ratio);

// The mean over Rayleigh fading, at the mean of Es/N0, where the receiver knows the channel.
double fadingErrorRate(Modulation modulation, double ratio);

// A rate over Es/N0 in dB.
using Rates = std::vector<std::pair<double, double>>;

// In white noise, where the closed form gives that rate or more; ends after a few hundred errors or
// at a limit of bits.
Rates sweepWhite(Modulation modulation, int spread, std::uint64_t seed, double lowestRate);

// The mean over many multipath channels, each of which is estimated from its own training.
constexpr int channelsOfSweep = 1000;
Rates sweepMultipath(Modulation modulation, int spread, std::uint64_t seed, double mostDecibels);

// The ratio of peak to mean power, which an amplifier must bear, that all but one in a thousand
// random symbols stay below. Peaks are looked for at four times the sample rate: those between
// samples are higher.
double peakToMean(int spread, Modulation modulation);

#endif
