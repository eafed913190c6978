// level_plot.cpp - one level a pixel, panels at fixed places.
#include "level_plot.h"

#include "plot.h"
#include "program.h"

#include <algorithm>
#include <cmath>

namespace examples
{
namespace
{

constexpr const char* palette =
    "set palette defined (0 '#060612', 1 '#181648', 2 '#421a74', 3 '#7a207c', 4 '#b42c68', "
    "5 '#e04c42', 6 '#f68022', 7 '#fcba34', 8 '#fee882', 9 '#fffff0') maxcolors 256";

// Lengths on the whole picture, counted from its lower left corner.
std::string across(int pixels)
{
    return " screen " + number(static_cast<double>(pixels) / pictureWidth);
}
std::string upwards(int pixels, int panels)
{
    return " screen " + number(1 - static_cast<double>(pixels) / pictureHeight(panels));
}

Stretch pixel(int index, int count)
{
    const double size = count;
    return {index / size, (index + 1) / size};
}

std::vector<float> pixels(const LevelPlot& plot, std::size_t panel, int height)
{
    std::vector<float> levels;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < panelWidth; ++x)
            levels.push_back(
                static_cast<float>(plot.level(panel, pixel(x, panelWidth), pixel(y, height))));
    return levels;
}

// The command that draws that many values evenly over the axes.
std::string imageCommand(double seconds, double low, double high, int height)
{
    const double dx = seconds / panelWidth, dy = (high - low) / height;
    return "plot '-' binary format='%float32' array=(" + std::to_string(panelWidth) + "," +
           std::to_string(height) + ") dx=" + number(dx) + " dy=" + number(dy) + " origin=(" +
           number(dx / 2) + "," + number(low + dy / 2) + ") with image notitle";
}

} // namespace

Unit timeUnit(double seconds)
{
    return seconds >= 0.5 ? Unit{"s", 1} : seconds >= 0.5e-3 ? Unit{"ms", 1e-3} : Unit{"us", 1e-6};
}

Unit frequencyUnit(double hertz)
{
    return hertz >= 2e6 ? Unit{"MHz", 1e6} : hertz >= 2e3 ? Unit{"kHz", 1e3} : Unit{"Hz", 1};
}

void drawLevels(PartFile& file, const LevelPlot& plot)
{
    const int panels = static_cast<int>(plot.panels.size()), height = panelHeight(panels);
    const double top = std::max(0.0, 10 * std::ceil(plot.strongest / 10));
    const Unit time = timeUnit(plot.seconds), frequency = frequencyUnit(plot.highestFrequency);
    const double seconds = plot.seconds / time.size;
    const double low = plot.lowestFrequency / frequency.size;
    const double high = plot.highestFrequency / frequency.size;

    Plot script(pictureWidth, pictureHeight(panels));
    script << palette << "set multiplot"
           << "set cbrange [" + number(top - legendRange) + ":" + number(top) + "]"
           << "set xrange [0:" + number(seconds) + "]"
           << "set yrange [" + number(low) + ":" + number(high) + "]"
           << "set tics out" << std::string("set ylabel 'frequency in ") + frequency.name + "'"
           << "set lmargin at" + across(panelLeft) << "set rmargin at" + across(panelLeft + panelWidth)
           << "set label 1 " + quoted(plot.title) + " font ',14' at" + across(panelLeft) + "," +
                  upwards(24, panels)
           << "set label 2 " + quoted(plot.subtitle) + " at" + across(panelLeft) + "," +
                  upwards(48, panels)
           << "set label 3 'dBFS' at" + across(panelLeft + panelWidth + 20) + "," +
                  upwards(panelTop - 14, panels)
           << "set colorbox user origin" + across(panelLeft + panelWidth + 20) + "," +
                  upwards(panelTopOf(panels, panels) - panelGap, panels) + " size" + across(16) + "," +
                  number(static_cast<double>(panelTopOf(panels, panels) - panelGap - panelTop) /
                         pictureHeight(panels));
    for (int panel = 0; panel < panels; ++panel) {
        const int begin = panelTopOf(panels, panel);
        const auto index = static_cast<std::size_t>(panel);
        script << "set tmargin at" + upwards(begin, panels)
               << "set bmargin at" + upwards(begin + height, panels)
               << "set label 4 " + quoted(plot.panels[index]) + " at" + across(panelLeft) + "," +
                      upwards(begin - 12, panels);
        if (panel + 1 == panels)
            script << std::string("set format x '%g'\nset xlabel 'time in ") + time.name + "'";
        else
            script << "set format x ''";
        script << imageCommand(seconds, low, high, height);
        script.add(pixels(plot, index, height));
        script << "unset label\nunset colorbox";
    }
    script.draw(file);
}

} // namespace examples
