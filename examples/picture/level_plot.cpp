// level_plot.cpp - layout and drawing. From top to bottom: two lines of title, the panels one above
// the other, the time axis; on the left the frequency axes, on the right the legend.
#include "level_plot.h"

#include "colors.h"
#include "ticks.h"

#include <cmath>

namespace examples
{
namespace
{

constexpr Color paper = {255, 255, 255};
constexpr Color ink = {32, 32, 40};

constexpr int plotLeft = 92;
constexpr int plotTop = 84;
constexpr int axisHeight = 56; // below the last panel: tick labels and the axis' name
constexpr int panelGap = 32;   // room for the name of the next panel
constexpr int tickLength = 6;

constexpr double pixelsPerTimeTick = 90;
constexpr double pixelsPerLevelTick = 40;

int panelHeight(int panels)
{
    return panels == 1 ? 400 : 260;
}

Rectangle allPanels(int panels)
{
    const Rectangle last = panelArea(panels, panels - 1);
    return {plotLeft, plotTop, plotWidth, last.bottom() - plotTop};
}

Stretch pixel(int index, int count)
{
    const double size = count;
    return {index / size, (index + 1) / size};
}

void drawLevels(Canvas& canvas, Rectangle area, const LevelPlot& plot, std::size_t panel,
                double top)
{
    for (int x = 0; x < area.width; ++x) {
        const Stretch time = pixel(x, area.width);
        for (int y = 0; y < area.height; ++y) {
            const Stretch frequency = pixel(area.height - 1 - y, area.height);
            const double level = 1 + (plot.level(panel, time, frequency) - top) / legendRange;
            canvas.set(area.left + x, area.top + y, levelColor(level));
        }
    }
    canvas.outline(area, ink);
}

// Ticks and their numbers on the left or right side of an area, low at its bottom.
void drawVerticalTicks(Canvas& canvas, Rectangle area, double low, double high, int most, bool left)
{
    const Ticks ticks = roundTicks(low, high, most);
    for (const double value : ticks.values) {
        const double place = (value - low) / (high - low);
        const int y = area.bottom() - static_cast<int>(std::lround(place * area.height));
        const int tick = left ? area.left - 1 - tickLength : area.right() + 1;
        const int label = left ? tick - 6 : tick + tickLength + 6;
        canvas.fill({tick, y, tickLength, 1}, ink);
        canvas.text(label, y, fixedText(value, ticks.decimals), left ? Anchor::right : Anchor::left,
                    ink);
    }
}

void drawTimeAxis(Canvas& canvas, Rectangle area, double seconds)
{
    const Unit unit = timeUnit(seconds);
    const double end = seconds / unit.size;
    const Ticks ticks = roundTicks(0, end, static_cast<int>(area.width / pixelsPerTimeTick));
    for (const double value : ticks.values) {
        const int x = area.left + static_cast<int>(std::lround(value / end * area.width));
        canvas.fill({x, area.bottom() + 1, 1, tickLength}, ink);
        canvas.text(x, area.bottom() + 18, fixedText(value, ticks.decimals), Anchor::middle, ink);
    }
    canvas.text(area.left + area.width / 2, area.bottom() + 42, std::string("time in ") + unit.name,
                Anchor::middle, ink);
}

void drawLegend(Canvas& canvas, Rectangle bar, double top)
{
    for (int y = 0; y < bar.height; ++y)
        canvas.fill({bar.left, bar.top + y, bar.width, 1},
                    levelColor((bar.height - y - 0.5) / bar.height));
    canvas.outline(bar, ink);
    canvas.text(bar.left, bar.top - 18, "dBFS", Anchor::left, ink);
    drawVerticalTicks(canvas, bar, top - legendRange, top,
                      static_cast<int>(bar.height / pixelsPerLevelTick), false);
}

void drawTitle(Canvas& canvas, const LevelPlot& plot)
{
    constexpr std::size_t mostCharacters = 74;
    const std::string line = plot.title.size() <= mostCharacters
                                 ? plot.title
                                 : plot.title.substr(0, mostCharacters - 3) + "...";
    canvas.text(plotLeft, 18, line, Anchor::left, ink);
    canvas.text(plotLeft, 40, plot.subtitle, Anchor::left, ink);
}

} // namespace

Rectangle panelArea(int panels, int panel)
{
    const int height = panelHeight(panels);
    return {plotLeft, plotTop + panel * (height + panelGap), plotWidth, height};
}

Rectangle legendArea(int panels)
{
    return {plotLeft + plotWidth + 24, plotTop, 16, allPanels(panels).height};
}

Canvas drawLevelPlot(const LevelPlot& plot)
{
    const int panels = static_cast<int>(plot.panels.size());
    const Rectangle all = allPanels(panels);
    Canvas canvas(pictureWidth, all.bottom() + axisHeight, paper);
    drawTitle(canvas, plot);

    const double top = plot.strongest == lowestLevel ? 0 : 10 * std::ceil(plot.strongest / 10);
    const Unit unit = frequencyUnit(plot.highestFrequency);
    for (int i = 0; i < panels; ++i) {
        const auto panel = static_cast<std::size_t>(i);
        const Rectangle area = panelArea(panels, i);
        drawLevels(canvas, area, plot, panel, top);
        drawVerticalTicks(canvas, area, plot.lowestFrequency / unit.size,
                          plot.highestFrequency / unit.size, 8, true);
        canvas.textUpwards(18, area.top + area.height / 2, std::string("frequency in ") + unit.name,
                           ink);
        canvas.text(area.left, area.top - 16, plot.panels[panel], Anchor::left, ink);
    }
    drawTimeAxis(canvas, all, plot.seconds);
    drawLegend(canvas, legendArea(panels), top);
    return canvas;
}

} // namespace examples
