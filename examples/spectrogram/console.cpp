// console.cpp - see console.h.
#include "console.h"

#include "command_line.h"
#include "level_plot.h"
#include "peaks.h"
#include "plot.h"
#include "program.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr int mostPeaks = 5;

void printPeaks(const Analysis& analysis, int sampleRate)
{
    const double binWidth = 1.0 * sampleRate / analysis.shape.length;
    const int decimals = // a hundredth of a bin or better
        std::clamp(3 - static_cast<int>(std::floor(std::log10(binWidth))), 1, 9);
    std::printf("\nstrongest frequencies of the mean spectrum\n");
    std::printf("  %-8s %18s %18s %14s\n", "signal", "frequency", "bin width", "level");
    for (const Panel& panel : analysis.panels) {
        const std::vector<Peak> peaks = strongestPeaks(analysis, panel, sampleRate, mostPeaks);
        if (peaks.empty())
            std::printf("  %-8s %18s\n", panel.name.c_str(), "silence");
        for (const Peak& peak : peaks)
            std::printf("  %-8s %15.*f Hz %15.*f Hz %9.2f dBFS\n", panel.name.c_str(), decimals,
                        peak.frequency, decimals, binWidth, 20 * std::log10(peak.amplitude));
    }
    std::printf("\n");
}

} // namespace

bool readOptions(Options& options, int argc, char** argv)
{
    CommandLine line("spectrogram",
                     "Draws an audio file, mono or stereo, over time and frequency, and "
                     "finds its strongest\nfrequencies.");
    std::string length = "64", hop = "N/2";
    line.input("AUDIO", options.input);
    line.option("-n,--length", "N", length, "samples of a frame, 2 to 64");
    line.option("--hop", "H", hop, "samples from one frame to the next, 1 to N");
    line.option("-o,--output", "FILE", options.output, "the picture: the input's name with .png");
    line.flag("--iq", options.iq, "the two channels are the parts I and Q of one complex signal");
    if (!line.parse(argc, argv))
        return false;
    options.length = wholeNumber("--length", length, 2, 64);
    options.hop = options.length / 2;
    if (hop != "N/2")
        options.hop = wholeNumber("--hop", hop, 1, options.length);
    options.output = resultName(options.output, options.input, ".png");
    return true;
}

void expectFit(const Options& options, const Sound& sound)
{
    expectOtherFile(options.output, options.input, "is the input; the picture needs another name");
    if (options.iq && sound.channels.size() != 2)
        throw Failure("'" + options.input + "': --iq needs two channels, the file has one");
    if (static_cast<int>(std::min<std::size_t>(sound.samples(), 64)) < options.length)
        throw Failure("'" + options.input + "': " + counted(sound.samples(), "sample") +
                      ", fewer than one frame of " + std::to_string(options.length));
}

// 0 dB is a tone of full scale: complex, it leaves half its amplitude in its bin; real, a quarter
// in each of two bins, which are one at zero and at half the sample rate.
void drawPicture(PartFile& file, const Options& options, const Sound& sound,
                 const Analysis& analysis)
{
    const double rate = sound.sampleRate, half = rate / 2, N = options.length;
    const double cellFrames =
        static_cast<double>(analysis.frames) / static_cast<double>(analysis.cellCount);
    const int highest = options.length / 2, lowest = options.iq ? -highest : 0;
    LevelPlot plot = {
        .title = titleOf(options.input),
        .subtitle = std::to_string(sound.sampleRate) + " Hz, Hann frames of " +
                    std::to_string(options.length) + " samples, hop " + std::to_string(options.hop),
        .seconds = sound.seconds(),
        .lowestFrequency = options.iq ? -half : 0,
        .highestFrequency = half,
        .time = {(N + options.hop * (cellFrames - 1)) / 2 / rate, options.hop * cellFrames / rate,
                 analysis.cellCount},
        .frequency = {lowest * rate / N, rate / N, static_cast<std::size_t>(highest - lowest + 1)},
        .panels = {}};
    for (const Panel& panel : analysis.panels) {
        plot.panels.push_back({panel.name, {}});
        for (std::size_t cell = 0; cell < analysis.cellCount; ++cell)
            for (int k = lowest; k <= highest; ++k) {
                const bool isSingle = options.iq || k == 0 || 2 * k == options.length;
                plot.panels.back().levels.push_back(
                    levelOf((isSingle ? 4 : 16) *
                            panel.cells[cell * analysis.shape.bins() + analysis.shape.index(k)]));
            }
    }
    drawLevels(file, plot);
}

void printReport(const Options& options, const Sound& sound, const Analysis& analysis)
{
    printSound(options.input, sound, options.iq ? "1 complex signal" : "");
    std::printf("frames       %zu of %d samples, Hann window, hop %d\n", analysis.frames,
                options.length, options.hop);
    printPeaks(analysis, sound.sampleRate);
    const std::size_t transforms = analysis.frames * analysis.panels.size();
    std::printf("speed        %.3g million frames per second (%zu forward transforms in %.3g ms)\n",
                static_cast<double>(transforms) / std::max(analysis.forwardSeconds, 1e-9) / 1e6,
                transforms, analysis.forwardSeconds * 1e3);
    std::printf("round trip   relative rms error %.2e, forward and inverse\n",
                analysis.roundTripError);
    printLevelPicture(options.output, analysis.panels.size());
}
