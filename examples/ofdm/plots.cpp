// plots.cpp - see plots.h.
#include "plots.h"

#include "plot.h"
#include "program.h"

#include <cmath>

namespace
{

constexpr const char* blue = "'#1c5cbe'";
constexpr const char* orange = "'#de680a'";

void addTitle(Plot& plot, const std::string& first, const std::string& second)
{
    plot << "set label 1 " + quoted(first) + " font ',14' at graph 0, graph 1 offset 0,2.6"
         << "set label 2 " + quoted(second) + " at graph 0, graph 1 offset 0,1.2"
         << "set tmargin 5";
}

Rates closedForm(double (*rate)(Modulation, double), Modulation modulation)
{
    Rates rates;
    for (double decibels = -1; decibels <= 31; decibels += 0.25)
        rates.emplace_back(decibels, rate(modulation, fromDecibels(decibels)));
    return rates;
}

} // namespace

void drawConstellation(PartFile& file, const Options& options, const Link& link)
{
    const Constellation constellation(options.modulation);
    std::vector<std::pair<float, float>> received, sent;
    for (const Complex point : link.points())
        received.emplace_back(point.real(), point.imag());
    for (int label = 0; label < constellation.points(); ++label) {
        const Complex point = constellation.point(static_cast<std::uint8_t>(label));
        sent.emplace_back(point.real(), point.imag());
    }
    // Few points are large, many of them small and transparent, so that all can be seen.
    const auto count = static_cast<double>(received.size());
    const double size = count < 2000 ? 0.7 : count < 20000 ? 0.35 : 0.2;
    const int opacity = count < 2000 ? 0x40 : count < 20000 ? 0xa0 : 0xd0;

    Plot plot(760, 800);
    plot.table("received", received);
    plot.table("sent", sent);
    addTitle(plot, std::string(nameOf(options.modulation)) + ", " + waveformText(options.spread),
             conditionText(options) + ", EVM " +
                 formatted("%.1f %%", 100 * link.tally().errorVector()));
    plot << "set size ratio -1"
         << "set xrange [-1.6:1.6]"
         << "set yrange [-1.6:1.6]"
         << "set xtics 0.5"
         << "set ytics 0.5"
         << "set xlabel 'in phase'"
         << "set ylabel 'quadrature'"
         << "set key below"
         << "set bmargin 6";
    // Borders of decisions: between neighbouring levels, at even multiples of half the spacing.
    const int borders = options.modulation == Modulation::qpsk ? 0 : 1; // on either side of an axis
    for (int i = -borders; i <= borders; ++i) {
        const std::string level = plotNumber(i * static_cast<double>(constellation.spacing()));
        const std::string style = " nohead back dashtype 2 linecolor '#888888'";
        plot << "set arrow from graph 0,first " + level + " to graph 1,first " + level + style
             << "set arrow from first " + level + ",graph 0 to first " + level + ",graph 1" + style;
    }
    char color[16];
    std::snprintf(color, sizeof color, "'#%02x1c5cbe'", opacity);
    plot << std::string("plot $received with points pointtype 7 pointsize ") + plotNumber(size) +
                " linecolor rgb " + color + " notitle, " +
                "NaN with points pointtype 7 pointsize 0.9 linecolor " + blue +
                " title 'received', $sent with points pointtype 2 pointsize 1.6 linewidth 2.5 "
                "linecolor '#c00020' title 'sent', NaN with lines dashtype 2 linecolor '#888888' "
                "title 'border of decisions'";
    plot.draw(file);
}

void drawErrorRates(PartFile& file, const Options& options, const Tally& run)
{
    constexpr double lowestRate = 1e-5;
    const int spread = options.spread != 0 ? options.spread : defaultSpread;
    const std::string name = nameOf(options.modulation);

    Plot plot(1000, 760);
    std::string curves;
    const auto add = [&](const std::string& table, const Rates& rates, const std::string& style,
                         const std::string& title) {
        Rates seen; // a rate of zero has no place on the axis
        for (const auto& point : rates)
            if (point.second > 0)
                seen.push_back(point);
        plot.table(table, seen);
        curves += (curves.empty() ? "plot $" : ", $") + table + " with " + style + " title " +
                  quoted(title);
    };
    for (const auto& [modulation, color] :
         {std::pair(Modulation::qpsk, blue), {Modulation::qam16, orange}}) {
        const std::string white = std::string(nameOf(modulation)) + ", white noise, ";
        const std::string table = modulation == Modulation::qpsk ? "qpsk" : "qam";
        add(table + "Form", closedForm(whiteErrorRate, modulation),
            std::string("lines linewidth 2 linecolor ") + color, white + "closed form");
        add(table, sweepWhite(modulation, options.spread, options.seed, lowestRate),
            std::string("points pointtype 7 linecolor ") + color, white + "measured");
    }
    add("fading", closedForm(fadingErrorRate, options.modulation),
        "lines linewidth 2 dashtype 2 linecolor '#707074'", name + ", Rayleigh, closed form");
    add("plain", sweepMultipath(options.modulation, 0, options.seed, 30),
        "linespoints pointtype 5 linecolor '#128250'", name + ", multipath, OFDM");
    add("spread", sweepMultipath(options.modulation, spread, options.seed, 30),
        "linespoints pointtype 9 pointsize 1.3 linecolor '#8c3296'",
        name + ", multipath, spread over " + std::to_string(spread));
    const bool isMultipath = options.channel == ChannelKind::multipath;
    add("run", {{options.decibels, run.errorRate()}},
        "points pointtype 2 pointsize 2 linewidth 3 linecolor '#d2141e'",
        run.bitErrors == 0 ? "this run, without errors"
        : isMultipath      ? "this run, one channel"
                           : "this run");

    addTitle(plot, "Bit error rates, " + waveformText(options.spread),
             "Multipath: the mean of " + std::to_string(channelsOfSweep) +
                 " channels, each estimated from two symbols; one alone may be far from it");
    plot << "set xrange [-1:31]"
         << "set yrange [1e-5:1]"
         << "set logscale y"
         << "set format y '%g'"
         << "set grid xtics ytics linetype 1 linecolor '#dddddd'"
         << "set xlabel 'Es/N0 in dB'"
         << "set ylabel 'bit error rate'"
         << "set key left bottom Left reverse samplen 3" << curves;
    plot.draw(file);
}
