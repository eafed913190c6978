// picture.h - the spectrogram as a picture: a panel per signal with axes, and a legend.
#ifndef SPECTROGRAM_PICTURE_H
#define SPECTROGRAM_PICTURE_H

#include "analysis.h"
#include "canvas.h"

namespace spectrogram
{

constexpr int pictureWidth = 1000;
constexpr int plotWidth = 800; // of a panel; a finer resolution in time is of no use

// Where in the picture the colours of a panel are, from the start of the signal on the left to its
// end on the right, from the lowest frequency at the bottom to the highest at the top.
Rectangle panelArea(int panels, int panel);

// The bar of the legend: the brightest colour at the top, legendRange dB above the darkest.
Rectangle legendArea(int panels);
constexpr double legendRange = 80;

// Draws everything. The title names the signal.
Canvas drawPicture(const Analysis& analysis, const std::string& title);

} // namespace spectrogram

#endif
