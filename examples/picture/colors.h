// colors.h - the colours of levels.
#ifndef EXAMPLES_COLORS_H
#define EXAMPLES_COLORS_H

#include "canvas.h"

namespace examples
{

// From 0, the weakest, to 1, the strongest: black, blue, purple, red, orange, yellow, white, ever
// brighter, so that the picture survives a print without colour.
Color levelColor(double level);

} // namespace examples

#endif
