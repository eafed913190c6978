// error_rate_plot.cpp - see error_rate_plot.h.
#include "error_rate_plot.h"

#include "chart.h"
#include "report.h"
#include "sweep.h"
#include "theory.h"

#include <array>
#include <cmath>

namespace ofdm
{
namespace
{

using examples::Anchor;
using examples::Color;

constexpr int width = 1000, height = 800;
constexpr examples::Rectangle area = {92, 76, 872, 560};
constexpr Range decibels = {-1, 31};
constexpr int lastTick = 30;
constexpr Range decades = {-5, 0};

constexpr int legendColumns[] = {area.left, area.left + 470};
constexpr int legendTop = area.bottom() + 72;
constexpr int legendSpacing = 24;
constexpr int legendSample = 40; // the length of a line

constexpr Color blue = {28, 92, 190};
constexpr Color orange = {222, 104, 10};
constexpr Color green = {18, 130, 80};
constexpr Color violet = {140, 50, 150};
constexpr Color grey = {110, 110, 116};
constexpr Color red = {210, 20, 30};

using ClosedForm = double (*)(Modulation modulation, double ratio);

class Plot
{
public:
    Plot()
        : canvas_(width, height, paper), chart_(canvas_, area, decibels, decades),
          page_(canvas_, {0, 0, width, height}, {0, width}, {height, 0})
    {
        for (int tick = 0; tick <= lastTick; tick += 5)
            chart_.gridX(tick, std::to_string(tick));
        for (int decade = 0; decade >= decades.low; --decade)
            chart_.gridY(decade, decade == 0 ? "1" : "1e" + std::to_string(decade));
        canvas_.outline(area, ink);
        canvas_.text(area.left + area.width / 2, area.bottom() + 42, "Es/N0 in dB", Anchor::middle,
                     ink);
        canvas_.textUpwards(14, area.top + area.height / 2, "bit error rate", ink);
    }

    void title(const std::string& first, const std::string& second)
    {
        canvas_.text(area.left, 20, first, Anchor::left, ink);
        canvas_.text(area.left, 44, second, Anchor::left, ink);
    }

    void theory(const std::string& name, ClosedForm rate, Modulation modulation, Stroke stroke)
    {
        std::vector<Point> points;
        for (double x = decibels.low; x <= decibels.high; x += 0.25)
            points.push_back({x, std::log10(rate(modulation, fromDecibels(x)))});
        chart_.line(points, stroke);
        sample(nextEntry(name), stroke);
    }

    void measured(const std::string& name, std::span<const RatePoint> rates, Mark mark, Color color)
    {
        for (const RatePoint& point : rates)
            this->mark(point.decibels, point.rate, mark, color);
        page_.mark(nextEntry(name), mark, color);
    }

    // As above, with a line where no theory has one.
    void joined(const std::string& name, std::span<const RatePoint> rates, Mark mark, Color color)
    {
        std::vector<Point> points;
        for (const RatePoint& point : rates)
            if (point.rate > 0)
                points.push_back({point.decibels, std::log10(point.rate)});
        chart_.line(points, {color, 1});
        measured(name, rates, mark, color);
    }

    void mark(double ratio, double rate, Mark mark, Color color)
    {
        if (rate > 0)
            chart_.mark({ratio, std::log10(rate)}, mark, color);
    }

    examples::Canvas finished() const { return canvas_; }

private:
    // Writes the name and returns the middle of the place before it.
    Point nextEntry(const std::string& name)
    {
        const int column = legendColumns[entries_ % 2];
        const int y = legendTop + entries_ / 2 * legendSpacing;
        ++entries_;
        canvas_.text(column + legendSample + 12, y, name, Anchor::left, ink);
        return {column + legendSample / 2.0, static_cast<double>(y)};
    }

    void sample(Point middle, Stroke stroke)
    {
        constexpr double half = legendSample / 2.0;
        page_.line(std::array<Point, 2>{{{middle.x - half, middle.y}, {middle.x + half, middle.y}}},
                   stroke);
    }

    examples::Canvas canvas_;
    Chart chart_, page_;
    int entries_ = 0;
};

} // namespace

examples::Canvas drawErrorRates(const Options& options, const Tally& run)
{
    constexpr double lowestRate = 1e-5;
    const int spread = options.spread != 0 ? options.spread : defaultSpread;
    const std::string name = nameOf(options.modulation);

    Plot plot;
    plot.title("Bit error rates, " + waveformText(options.spread),
               "Multipath: mean of 1000 channels, each estimated from two symbols");
    for (const auto& [modulation, color] :
         {std::pair{Modulation::qpsk, blue}, std::pair{Modulation::qam16, orange}}) {
        const std::string white = std::string(nameOf(modulation)) + ", white noise, ";
        plot.theory(white + "closed form", whiteErrorRate, modulation, {color, 2});
        plot.measured(white + "measured",
                      sweepWhite(modulation, options.spread, options.seed, lowestRate), Mark::disc,
                      color);
    }
    plot.theory(name + ", Rayleigh, closed form", fadingErrorRate, options.modulation,
                {grey, 2, true});
    plot.joined(name + ", multipath, OFDM",
                sweepMultipath(options.modulation, 0, options.seed, lastTick), Mark::square, green);
    plot.joined(name + ", multipath, spread over " + std::to_string(spread),
                sweepMultipath(options.modulation, spread, options.seed, lastTick), Mark::triangle,
                violet);
    plot.measured(run.bitErrors == 0 ? "this run, without errors" : "this run", {}, Mark::cross,
                  red);
    plot.mark(options.decibels, run.errorRate(), Mark::cross, red);
    return plot.finished();
}

} // namespace ofdm
