// level_plot.h - levels over time and frequency as a picture: a panel per signal with axes, and a
// legend.
#ifndef EXAMPLES_LEVEL_PLOT_H
#define EXAMPLES_LEVEL_PLOT_H

#include "canvas.h"

#include <functional>
#include <string>
#include <vector>

namespace examples
{

constexpr int pictureWidth = 1000;
constexpr int plotWidth = 800; // of a panel; a finer resolution in time is of no use

// Where in the picture the colours of a panel are, from the start of the signal on the left to its
// end on the right, from the lowest frequency at the bottom to the highest at the top.
Rectangle panelArea(int panels, int panel);

// The bar of the legend: the brightest colour at the top, legendRange dB above the darkest.
Rectangle legendArea(int panels);
constexpr double legendRange = 80;

constexpr double lowestLevel = -200; // dB, for what is exactly zero

// A stretch of a panel's time or frequency axis, which runs from 0 to 1.
struct Stretch {
    double begin, end;

    double middle() const { return (begin + end) / 2; }
};

struct LevelPlot {
    std::string title, subtitle;
    std::vector<std::string> panels; // the names of the signals
    double seconds = 0;              // that they last
    double lowestFrequency = 0, highestFrequency = 0;
    double strongest = lowestLevel; // the brightest colour is this level, rounded up to 10 dB

    // The level in dB of a panel at a pixel.
    std::function<double(std::size_t panel, Stretch time, Stretch frequency)> level;
};

Canvas drawLevelPlot(const LevelPlot& plot);

} // namespace examples

#endif
