// picture.h - the spectrogram as a picture.
#ifndef SPECTROGRAM_PICTURE_H
#define SPECTROGRAM_PICTURE_H

#include "analysis.h"
#include "canvas.h"

namespace spectrogram
{

// Draws everything. The title names the signal.
examples::Canvas drawPicture(const Analysis& analysis, const std::string& title);

} // namespace spectrogram

#endif
