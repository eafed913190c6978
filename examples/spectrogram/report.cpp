// report.cpp - one line a fact, and a table of the strongest frequencies.
#include "report.h"

#include "peaks.h"
#include "program.h"
#include "ticks.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

namespace spectrogram
{
namespace
{

constexpr int mostPeaks = 5;

// Frequencies are printed to a hundredth of a bin or better.
int frequencyDecimals(double binWidth)
{
    return std::clamp(3 - static_cast<int>(std::floor(std::log10(binWidth))), 1, 9);
}

void printPeaks(const Analysis& analysis)
{
    const double binWidth = static_cast<double>(analysis.sampleRate) / analysis.shape.length;
    const int decimals = frequencyDecimals(binWidth);
    std::printf("\nstrongest frequencies of the mean spectrum\n");
    std::printf("  %-8s %18s %18s %14s\n", "signal", "frequency", "bin width", "level");
    for (const Panel& panel : analysis.panels) {
        const std::vector<Peak> peaks = strongestPeaks(analysis, panel, mostPeaks);
        if (peaks.empty())
            std::printf("  %-8s %18s\n", panel.name.c_str(), "silence");
        for (const Peak& peak : peaks)
            std::printf("  %-8s %15.*f Hz %15.*f Hz %9.2f dBFS\n", panel.name.c_str(), decimals,
                        peak.frequency, decimals, binWidth, 20 * std::log10(peak.amplitude));
    }
    std::printf("\n");
}

} // namespace

void printReport(const Options& options, const Analysis& analysis, const examples::Canvas& picture)
{
    const double seconds = static_cast<double>(analysis.samples) / analysis.sampleRate;
    const examples::Unit unit = examples::timeUnit(seconds);
    std::printf("audio        %s: %d Hz, %lld samples, %.3f %s, %zu %s\n",
                examples::printable(options.input).c_str(), analysis.sampleRate,
                static_cast<long long>(analysis.samples), seconds / unit.size, unit.name,
                analysis.panels.size(),
                analysis.shape.iq             ? "complex signal"
                : analysis.panels.size() == 1 ? "channel"
                                              : "channels");
    std::printf("frames       %lld of %d samples, Hann window, hop %d\n",
                static_cast<long long>(analysis.frames), analysis.shape.length, analysis.hop);

    printPeaks(analysis);

    const double transforms =
        static_cast<double>(analysis.frames) * static_cast<double>(analysis.panels.size());
    std::printf(
        "speed        %.3g million frames per second (%.0f forward transforms in %.3g ms)\n",
        transforms / std::max(analysis.forwardSeconds, 1e-9) / 1e6, transforms,
        analysis.forwardSeconds * 1e3);
    std::printf("round trip   relative rms error %.2e, forward and inverse\n",
                analysis.roundTripError);
    std::printf("picture      %s, %d x %d pixels\n", examples::printable(options.output).c_str(),
                picture.width(), picture.height());
}

} // namespace spectrogram
