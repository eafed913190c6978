// colors.h - the colours of levels.
#ifndef SPECTROGRAM_COLORS_H
#define SPECTROGRAM_COLORS_H

#include "canvas.h"

namespace spectrogram
{

// From 0, the weakest, to 1, the strongest: black, blue, purple, red, orange, yellow, white, ever
// brighter, so that the picture survives a print without colour.
Color levelColor(double level);

} // namespace spectrogram

#endif
