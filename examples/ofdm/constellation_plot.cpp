// constellation_plot.cpp - see constellation_plot.h.
#include "constellation_plot.h"

#include "chart.h"
#include "colors.h"
#include "report.h"
#include "ticks.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace ofdm
{
namespace
{

using examples::Anchor;

constexpr examples::Rectangle area = {84, 76, 640, 640};
constexpr Range range = {-1.6, 1.6};
constexpr int cell = 2; // pixels, a place where points are counted
constexpr int cells = area.width / cell;

constexpr examples::Color border = {90, 90, 120};
constexpr examples::Color sent = {120, 220, 255};

void drawDensity(examples::Canvas& canvas, std::span<const Complex> points)
{
    std::vector<int> counts(static_cast<std::size_t>(cells * cells));
    const auto place = [](float value) {
        return static_cast<int>(std::floor((value - range.low) / (range.high - range.low) * cells));
    };
    for (const Complex point : points) {
        const int x = place(point.re), y = cells - 1 - place(point.im);
        if (x >= 0 && x < cells && y >= 0 && y < cells)
            ++counts[static_cast<std::size_t>(y * cells + x)];
    }
    const double most = std::log1p(std::max(1, *std::ranges::max_element(counts)));
    for (int y = 0; y < cells; ++y)
        for (int x = 0; x < cells; ++x) {
            const int count = counts[static_cast<std::size_t>(y * cells + x)];
            const double level = count == 0 ? 0 : 0.2 + 0.8 * std::log1p(count) / most;
            canvas.fill({area.left + x * cell, area.top + y * cell, cell, cell},
                        examples::levelColor(level));
        }
}

// Between neighbouring levels: at even multiples of half the spacing.
void drawBorders(Chart& chart, const Constellation& constellation)
{
    constexpr Stroke stroke = {border, 1, true};
    const int borders = constellation.bits() == 2 ? 0 : 1; // on either side of the axis
    for (int i = -borders; i <= borders; ++i) {
        const double level = i * static_cast<double>(constellation.spacing());
        chart.line(std::array<Point, 2>{{{range.low, level}, {range.high, level}}}, stroke);
        chart.line(std::array<Point, 2>{{{level, range.low}, {level, range.high}}}, stroke);
    }
}

void drawAxes(examples::Canvas& canvas, const Chart& chart)
{
    for (const double value : {-1.5, -1.0, -0.5, 0.0, 0.5, 1.0, 1.5}) {
        const auto x = static_cast<int>(std::lround(chart.left(value)));
        const auto y = static_cast<int>(std::lround(chart.top(value)));
        canvas.fill({x, area.bottom() + 1, 1, 6}, ink);
        canvas.text(x, area.bottom() + 20, examples::fixedText(value, 1), Anchor::middle, ink);
        canvas.fill({area.left - 7, y, 6, 1}, ink);
        canvas.text(area.left - 12, y, examples::fixedText(value, 1), Anchor::right, ink);
    }
    canvas.outline(area, ink);
    canvas.text(area.left + area.width / 2, area.bottom() + 44, "in phase", Anchor::middle, ink);
    canvas.textUpwards(16, area.top + area.height / 2, "quadrature", ink);
}

} // namespace

examples::Canvas drawConstellation(const Options& options, const Link& link)
{
    examples::Canvas canvas(area.right() + 36, area.bottom() + 66, paper);
    Chart chart(canvas, area, range, range);
    const Constellation constellation(options.modulation);
    drawDensity(canvas, link.points());
    drawBorders(chart, constellation);
    for (int label = 0; label < constellation.points(); ++label) {
        const Complex point = constellation.point(static_cast<std::uint8_t>(label));
        chart.mark({point.re, point.im}, Mark::cross, sent);
    }
    drawAxes(canvas, chart);
    canvas.text(area.left, 20,
                std::string(nameOf(options.modulation)) + ", " + waveformText(options.spread),
                Anchor::left, ink);
    canvas.text(area.left, 44,
                channelText(options.channel) + ", " + ratioText(options.decibels) + ", EVM " +
                    examples::fixedText(100 * link.tally().errorVector(), 1) + " %",
                Anchor::left, ink);
    return canvas;
}

} // namespace ofdm
