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

// The cells that a pixel covers, or the one that it lies in.
struct Covered {
    std::size_t first, last;
};

Covered covered(const Cells& cells, double begin, double end)
{
    const double most = static_cast<double>(cells.count - 1);
    const double first = std::clamp(std::round((begin - cells.first) / cells.step), 0.0, most);
    const double last = std::ceil((end - cells.first) / cells.step - 0.5) - 1;
    return {static_cast<std::size_t>(first),
            static_cast<std::size_t>(std::clamp(last, first, most))};
}

// The strongest level of each pixel, rows from the bottom.
std::vector<float> pixels(const LevelPlot& plot, const LevelPanel& panel, int height)
{
    const double low = plot.lowestFrequency, span = plot.highestFrequency - low;
    std::vector<float> image;
    for (int y = 0; y < height; ++y) {
        const Covered bins =
            covered(plot.frequency, low + span * y / height, low + span * (y + 1) / height);
        for (int x = 0; x < panelWidth; ++x) {
            const Covered cells = covered(plot.time, plot.seconds * x / panelWidth,
                                          plot.seconds * (x + 1) / panelWidth);
            float level = -INFINITY;
            for (std::size_t cell = cells.first; cell <= cells.last; ++cell)
                for (std::size_t bin = bins.first; bin <= bins.last; ++bin)
                    level = std::max(level, panel.levels[cell * plot.frequency.count + bin]);
            image.push_back(level);
        }
    }
    return image;
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

    const double low = plot.lowestFrequency / frequency.size;
    const double high = plot.highestFrequency / frequency.size;

    Plot script(pictureWidth, pictureHeight(panels));
    script << palette << "set multiplot"
           << "set tics out"
           << "set cbrange [" + plotNumber(top - legendRange) + ":" + plotNumber(top) + "]"
           << "set xrange [0:" + plotNumber(plot.seconds / time.size) + "]"
           << "set yrange [" + plotNumber(low) + ":" + plotNumber(high) + "]"
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
        const double dx = plot.seconds / time.size / panelWidth, dy = (high - low) / height;
        script << "plot '-' binary format='%float32' array=(" + std::to_string(panelWidth) + "," +
                      std::to_string(height) + ") dx=" + plotNumber(dx) + " dy=" + plotNumber(dy) +
                      " origin=(" + plotNumber(dx / 2) + "," + plotNumber(low + dy / 2) +
                      ") with image notitle";
        script.add(pixels(plot, plot.panels[i], height));
        script << "unset label\nunset colorbox";
    }
    script.draw(file);
}

void printLevelPicture(const std::string& path, std::size_t panels)
{
    std::printf("picture      %s, %d x %d pixels\n", printable(path).c_str(), pictureWidth,
                pictureHeight(static_cast<int>(panels)));
}
