// picture.cpp - layout and drawing. From top to bottom: two lines of title, the panels one above
// the other, the time axis; on the left the frequency axes, on the right the legend.
#include "picture.h"

#include "colors.h"
#include "ticks.h"

#include <algorithm>
#include <cmath>

namespace spectrogram
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

constexpr double lowestLevel = -200; // dB, for what is exactly zero
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

// The levels of a panel's cells in dB, 0 being a tone of full scale.
std::vector<double> levels(const Analysis& analysis, const Panel& panel)
{
    // A complex tone leaves half its amplitude in its bin, a real one a quarter in each of two
    // bins, which are one at zero and at half the sample rate.
    const std::size_t bins = analysis.shape.bins();
    std::vector<double> decibels;
    for (std::size_t i = 0; i < panel.cells.size(); ++i) {
        const int k = static_cast<int>(i % bins);
        const bool single = analysis.shape.iq || k == 0 || 2 * k == analysis.shape.length;
        const double gain = single ? 4 : 16;
        decibels.push_back(std::max(lowestLevel, 10 * std::log10(gain * panel.cells[i])));
    }
    return decibels;
}

// The levels of a panel at any place, linear between the bins and between the cells.
class LevelMap
{
public:
    LevelMap(const Analysis& analysis, const Panel& panel)
        : shape_(analysis.shape), cells_(analysis.cellCount), levels_(levels(analysis, panel))
    {
    }

    double at(double cell, double bin) const
    {
        const double place = std::clamp(cell, 0.0, cells_ - 1.0);
        const int before = static_cast<int>(place);
        const int after = std::min(before + 1, cells_ - 1);
        return std::lerp(inCell(before, bin), inCell(after, bin), place - before);
    }

private:
    double inCell(int cell, double bin) const
    {
        const double below = std::floor(bin);
        const int k = static_cast<int>(below);
        return std::lerp(of(cell, k), of(cell, k + 1), bin - below);
    }
    double of(int cell, int bin) const
    {
        return levels_[static_cast<std::size_t>(cell) * shape_.bins() + shape_.index(bin)];
    }

    FrameShape shape_;
    int cells_;
    std::vector<double> levels_;
};

// The level of the brightest colour: the strongest one, rounded up to 10 dB.
double topLevel(const Analysis& analysis)
{
    double top = lowestLevel;
    for (const Panel& panel : analysis.panels)
        top = std::max(top, std::ranges::max(levels(analysis, panel)));
    return top == lowestLevel ? 0 : 10 * std::ceil(top / 10);
}

double lowestFrequency(const Analysis& analysis)
{
    return analysis.shape.iq ? -analysis.sampleRate / 2.0 : 0;
}

void drawLevels(Canvas& canvas, Rectangle area, const Analysis& analysis, const Panel& panel,
                double top)
{
    const LevelMap map(analysis, panel);
    const auto frames = static_cast<double>(analysis.frames);
    const double lowestBin = analysis.shape.iq ? -analysis.shape.length / 2.0 : 0;
    for (int x = 0; x < area.width; ++x) {
        const double sample = (x + 0.5) / area.width * static_cast<double>(analysis.samples);
        const double frame = (sample - analysis.shape.length / 2.0) / analysis.hop;
        const double cell = (frame + 0.5) * analysis.cellCount / frames - 0.5;
        for (int y = 0; y < area.height; ++y) {
            const double height = (area.height - y - 0.5) / area.height;
            const double bin = lowestBin + height * (analysis.shape.length / 2.0 - lowestBin);
            const double level = 1 + (map.at(cell, bin) - top) / legendRange;
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

void drawTimeAxis(Canvas& canvas, Rectangle area, const Analysis& analysis)
{
    const double seconds = static_cast<double>(analysis.samples) / analysis.sampleRate;
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

void drawTitle(Canvas& canvas, const Analysis& analysis, const std::string& title)
{
    constexpr std::size_t mostCharacters = 74;
    const std::string line =
        title.size() <= mostCharacters ? title : title.substr(0, mostCharacters - 3) + "...";
    const std::string frames = std::to_string(analysis.sampleRate) + " Hz, Hann frames of " +
                               std::to_string(analysis.shape.length) + " samples, hop " +
                               std::to_string(analysis.hop);
    canvas.text(plotLeft, 18, line, Anchor::left, ink);
    canvas.text(plotLeft, 40, frames, Anchor::left, ink);
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

Canvas drawPicture(const Analysis& analysis, const std::string& title)
{
    const int panels = static_cast<int>(analysis.panels.size());
    const Rectangle all = allPanels(panels);
    Canvas canvas(pictureWidth, all.bottom() + axisHeight, paper);
    drawTitle(canvas, analysis, title);

    const double top = topLevel(analysis);
    const double low = lowestFrequency(analysis);
    const double high = analysis.sampleRate / 2.0;
    const Unit unit = frequencyUnit(high);
    for (int i = 0; i < panels; ++i) {
        const Panel& panel = analysis.panels[static_cast<std::size_t>(i)];
        const Rectangle area = panelArea(panels, i);
        drawLevels(canvas, area, analysis, panel, top);
        drawVerticalTicks(canvas, area, low / unit.size, high / unit.size, 8, true);
        canvas.textUpwards(18, area.top + area.height / 2, std::string("frequency in ") + unit.name,
                           ink);
        canvas.text(area.left, area.top - 16, panel.name, Anchor::left, ink);
    }
    drawTimeAxis(canvas, all, analysis);
    drawLegend(canvas, legendArea(panels), top);
    return canvas;
}

} // namespace spectrogram
