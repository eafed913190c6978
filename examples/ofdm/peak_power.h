// peak_power.h - how far a symbol's peaks rise above the mean power, which an amplifier must bear.
#ifndef OFDM_PEAK_POWER_H
#define OFDM_PEAK_POWER_H

#include "constellation.h"
#include "subcarriers.h"

namespace ofdm
{

// The ratio of peak to mean power that all but one in a thousand random symbols stay below. Peaks
// are looked for at four times the sample rate: those between samples are higher.
double peakToMean(const Subcarriers& subcarriers, Modulation modulation);

} // namespace ofdm

#endif
