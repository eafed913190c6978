// picture.h - the kept coefficients as a picture.
#ifndef MDCT_PICTURE_H
#define MDCT_PICTURE_H

#include "canvas.h"
#include "options.h"
#include "sound.h"
#include "spectrum.h"

namespace mdct
{

// Draws the spectrum's coefficients, what is zero in the darkest colour. 0 dB is the largest that a
// tone of amplitude 1 makes, the transform's toneGain.
examples::Canvas drawPicture(const Options& options, const examples::Sound& sound,
                             const Spectrum& spectrum, double toneGain);

} // namespace mdct

#endif
