// theory.h - bit error rates in closed form, of hard decisions on Gray mapped points.
#ifndef OFDM_THEORY_H
#define OFDM_THEORY_H

#include "constellation.h"

namespace ofdm
{

double fromDecibels(double decibels); // a ratio of powers
double toDecibels(double ratio);

// In white noise, at Es/N0 as a ratio.
double whiteErrorRate(Modulation modulation, double ratio);

// The mean over Rayleigh fading, at the mean of Es/N0, where the receiver knows the channel.
double fadingErrorRate(Modulation modulation, double ratio);

} // namespace ofdm

#endif
