// level_plot.h - levels over time and frequency as a picture: a panel per signal with axes, and a
// legend.
#ifndef EXAMPLES_LEVEL_PLOT_H
#define EXAMPLES_LEVEL_PLOT_H

#include "sound.h"

#include <string>
#include <vector>

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

// One row of levels in dB a cell of time, from the lowest frequency to the highest.
struct LevelPanel {
    std::string name;
    std::vector<float> levels;
};

// Where the middle of the first cell or bin is, and how far it is to the next.
struct Cells {
    double first, step;
    std::size_t count;
};

struct LevelPlot {
    std::string title, subtitle;
    double seconds = 0; // that the signal lasts
    double lowestFrequency = 0, highestFrequency = 0;
    Cells time = {}, frequency = {}; // in seconds and Hz
    std::vector<LevelPanel> panels;
};

// Of the power of a cell over that of full scale, for zero too.
float levelOf(double power);

// Fills a PNG file, which is left to be committed; throws Failure when
// that fails. Where cells are smaller than pixels, the strongest is seen.
void drawLevels(PartFile& file, const LevelPlot& plot);

// Prints the line "picture  ..." of a report.
void printLevelPicture(const std::string& path, std::size_t panels);

struct Unit {
    const char* name;
    double size;
};

Unit timeUnit(double seconds);
Unit frequencyUnit(double hertz);

#endif
