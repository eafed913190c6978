// error_rate_plot.h - bit error rates over Es/N0: closed forms, measurements, and this run.
#ifndef OFDM_ERROR_RATE_PLOT_H
#define OFDM_ERROR_RATE_PLOT_H

#include "canvas.h"
#include "link.h"
#include "options.h"

namespace ofdm
{

// Both modulations in white noise, and the chosen one in multipath, plain and spread; measures all
// of them, which takes some seconds.
examples::Canvas drawErrorRates(const Options& options, const Tally& run);

} // namespace ofdm

#endif
