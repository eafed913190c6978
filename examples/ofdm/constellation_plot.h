// constellation_plot.h - the received points as a picture.
#ifndef OFDM_CONSTELLATION_PLOT_H
#define OFDM_CONSTELLATION_PLOT_H

#include "canvas.h"
#include "link.h"
#include "options.h"

namespace ofdm
{

// The more points a place has, the brighter it is. Crosses are where the points were sent, lines
// the borders of decisions.
examples::Canvas drawConstellation(const Options& options, const Link& link);

} // namespace ofdm

#endif
