// plots.h - the received points, and bit error rates over Es/N0, as pictures.
#ifndef OFDM_PLOTS_H
#define OFDM_PLOTS_H

#include "console.h"
#include "part_file.h"

// Each fills a PNG file, which is left to be committed; throws Failure when that fails.

// Places with more points are darker. Crosses are where the points were sent, lines the borders of
// decisions.
void drawConstellation(PartFile& file, const Options& options, const Link& link);

// Both modulations in white noise, and the chosen one in multipath, plain and spread, beside the
// closed forms and this run; measures all of them, which takes some seconds.
void drawErrorRates(PartFile& file, const Options& options, const Tally& run);

#endif
