// level_plot.h - levels over time and frequency as a picture: a panel per signal with axes, and a
// legend.
#ifndef EXAMPLES_LEVEL_PLOT_H
#define EXAMPLES_LEVEL_PLOT_H

#include "part_file.h"

#include <functional>
#include <string>
#include <vector>

namespace examples
{

// Pixels. The panels stand one above the other, from the start of the signal on the left to its end
// on the right, from the lowest frequency at the bottom to the highest at the top.
constexpr int pictureWidth = 1000;
constexpr int panelLeft = 84, panelWidth = 800, panelTop = 84, panelGap = 36, axisHeight = 56;

constexpr int panelHeight(int panels)
{
    return panels == 1 ? 400 : 260;
}
constexpr int panelTopOf(int panels, int panel)
{
    return panelTop + panel * (panelHeight(panels) + panelGap);
}
constexpr int pictureHeight(int panels)
{
    return panelTopOf(panels, panels) - panelGap + axisHeight;
}

// From the brightest colour to the darkest. Pictures share the scale, so that they can be compared:
// it begins at 0 dB, or at the next multiple of 10 dB for what is louder than full scale.
constexpr double legendRange = 90;

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
    double strongest = lowestLevel; // of all levels

    // The level in dB of a panel at a pixel.
    std::function<double(std::size_t panel, Stretch time, Stretch frequency)> level;
};

// Fills a PNG file, which is left to be committed; throws Failure when that fails.
void drawLevels(PartFile& file, const LevelPlot& plot);

struct Unit {
    const char* name;
    double size;
};

Unit timeUnit(double seconds);
Unit frequencyUnit(double hertz);

} // namespace examples

#endif
