// peaks.h - the strongest frequencies of a panel, found between the bins.
#ifndef SPECTROGRAM_PEAKS_H
#define SPECTROGRAM_PEAKS_H

#include "analysis.h"

struct Peak {
    double frequency; // in Hz; of real channels from 0, of I/Q from minus half the sample rate
    double amplitude; // full scale 1: A of A cos(...) or of A exp(...)
};

// At most mostPeaks peaks, the strongest first, none weaker than the first one by 60 dB or more.
// No peak at all means silence.
std::vector<Peak> strongestPeaks(const Analysis& analysis, const Panel& panel, int sampleRate,
                                 std::size_t mostPeaks);

#endif
