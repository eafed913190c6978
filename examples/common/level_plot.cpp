// level_plot.cpp - panels at fixed places.
#include "level_plot.h"

#include "plot.h"
#include "program.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr const char* palette =
    "set palette defined (0 '#060612', 1 '#181648', 2 '#421a74', 3 '#7a207c', 4 '#b42c68', "
    "5 '#e04c42', 6 '#f68022', 7 '#fcba34', 8 '#fee882', 9 '#fffff0') maxcolors 256";

// Lengths on the whole picture, counted from its lower left corner.
std::string across(int pixels)
{
    return " screen " + plotNumber(1.0 * pixels / pictureWidth);
}
std::string upwards(int pixels, int panels)
{
    return " screen " + plotNumber(1 - 1.0 * pixels / pictureHeight(panels));
}

// So many cells as one, that there are no more of them than pixels.
std::size_t together(const Cells& cells, int pixels)
{
    return (cells.count + pixels - 1) / pixels;
}

// Along one axis: the size of an image's cell in its unit, and the middle of its first one.
std::string placeOf(const char* axis, const Cells& cells, std::size_t merged, double unit,
                    std::string& origin)
{
    origin += (origin.empty() ? "" : ",") +
              plotNumber((cells.first + cells.step * static_cast<double>(merged - 1) / 2) / unit);
    return std::string(" d") + axis + "=" +
           plotNumber(cells.step * static_cast<double>(merged) / unit);
}

// The command that draws the cells of a panel, and their levels, merged by their largest.
void addImage(Plot& script, const LevelPlot& plot, const LevelPanel& panel, int height,
              double timeUnit, double frequencyUnit)
{
    const std::size_t dx = together(plot.time, panelWidth), dy = together(plot.frequency, height);
    const std::size_t columns = (plot.time.count + dx - 1) / dx;
    const std::size_t rows = (plot.frequency.count + dy - 1) / dy;
    std::vector<float> image(columns * rows, -INFINITY);
    for (std::size_t i = 0; i < panel.levels.size(); ++i) {
        const std::size_t x = i / plot.frequency.count / dx, y = i % plot.frequency.count / dy;
        image[y * columns + x] = std::max(image[y * columns + x], panel.levels[i]);
    }
    std::string origin, sizes = placeOf("x", plot.time, dx, timeUnit, origin);
    sizes += placeOf("y", plot.frequency, dy, frequencyUnit, origin);
    script << "plot '-' binary format='%float32' array=(" + std::to_string(columns) + "," +
                  std::to_string(rows) + ")" + sizes + " origin=(" + origin +
                  ") with image pixels notitle";
    script.add(image);
}

} // namespace

float levelOf(double power)
{
    return static_cast<float>(std::max(-200.0, 10 * std::log10(power)));
}

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
    const int bottom = panelTopOf(panels, panels) - panelGap, legend = panelLeft + panelWidth + 20;
    float strongest = 0;
    for (const LevelPanel& panel : plot.panels)
        strongest = std::max(strongest, std::ranges::max(panel.levels));
    const double top = 10 * std::ceil(strongest / 10);
    const Unit time = timeUnit(plot.seconds), frequency = frequencyUnit(plot.highestFrequency);

    Plot script(pictureWidth, pictureHeight(panels));
    script << palette << "set multiplot"
           << "set tics out"
           << "set cbrange [" + plotNumber(top - legendRange) + ":" + plotNumber(top) + "]"
           << "set xrange [0:" + plotNumber(plot.seconds / time.size) + "]"
           << "set yrange [" + plotNumber(plot.lowestFrequency / frequency.size) + ":" +
                  plotNumber(plot.highestFrequency / frequency.size) + "]"
           << std::string("set ylabel 'frequency in ") + frequency.name + "'"
           << "set lmargin at" + across(panelLeft)
           << "set rmargin at" + across(panelLeft + panelWidth)
           << "set label " + quoted(plot.title) + " font ',14' at" + across(panelLeft) + "," +
                  upwards(24, panels)
           << "set label " + quoted(plot.subtitle) + " at" + across(panelLeft) + "," +
                  upwards(48, panels)
           << "set label 'dBFS' at" + across(legend) + "," + upwards(panelTop - 14, panels)
           << "set colorbox user origin" + across(legend) + "," + upwards(bottom, panels) +
                  " size" + across(16) + "," +
                  plotNumber(1.0 * (bottom - panelTop) / pictureHeight(panels));
    for (int i = 0; i < panels; ++i) {
        const int begin = panelTopOf(panels, i);
        script << "set tmargin at" + upwards(begin, panels)
               << "set bmargin at" + upwards(begin + height, panels)
               << "set label " + quoted(plot.panels[i].name) + " at" + across(panelLeft) + "," +
                      upwards(begin - 12, panels)
               << (i + 1 < panels
                       ? "set format x ''"
                       : std::string("set format x '%g'\nset xlabel 'time in ") + time.name + "'");
        addImage(script, plot, plot.panels[i], height, time.size, frequency.size);
        script << "unset label\nunset colorbox";
    }
    script.draw(file);
}

void printLevelPicture(const std::string& path, std::size_t panels)
{
    std::printf("picture      %s, %d x %d pixels\n", printable(path).c_str(), pictureWidth,
                pictureHeight(static_cast<int>(panels)));
}
