// console.cpp - see console.h.
#include "console.h"

#include "command_line.h"
#include "level_plot.h"
#include "peaks.h"
#include "plot.h"
#include "program.h"

#include <algorithm>
#include <cmath>

namespace spectrogram
{
namespace
{

constexpr int mostPeaks = 5;

// The levels of a panel in dB at any place, linear between the bins and between the cells. 0 is a
// tone of full scale: complex, it leaves half its amplitude in its bin; real, a quarter in each of
// two bins, which are one at zero and at half the sample rate.
class LevelMap
{
public:
    LevelMap(const Analysis& analysis, const Panel& panel)
        : shape_(analysis.shape), last_(static_cast<double>(analysis.cellCount - 1))
    {
        for (std::size_t i = 0; i < panel.cells.size(); ++i) {
            const int k = static_cast<int>(i % shape_.bins());
            const bool isSingle = shape_.iq || k == 0 || 2 * k == shape_.length;
            levels_.push_back(std::max(examples::lowestLevel,
                                       10 * std::log10((isSingle ? 4 : 16) * panel.cells[i])));
        }
    }

    double at(double cell, double bin) const
    {
        const double place = std::clamp(cell, 0.0, last_), before = std::floor(place);
        return std::lerp(inCell(before, bin), inCell(std::min(before + 1, last_), bin),
                         place - before);
    }

    double strongest() const { return std::ranges::max(levels_); }

private:
    double inCell(double cell, double bin) const
    {
        const double below = std::floor(bin);
        const int k = static_cast<int>(below);
        return std::lerp(of(cell, k), of(cell, k + 1), bin - below);
    }
    double of(double cell, int bin) const
    {
        return levels_[static_cast<std::size_t>(cell) * shape_.bins() + shape_.index(bin)];
    }

    FrameShape shape_;
    double last_;
    std::vector<double> levels_;
};

void printPeaks(const Analysis& analysis, int sampleRate)
{
    const double binWidth = static_cast<double>(sampleRate) / analysis.shape.length;
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
    examples::CommandLine line(
        "spectrogram",
        "Cuts an audio file, mono or stereo, into Hann-windowed frames, transforms them, draws\n"
        "time, frequency and level, and prints the strongest frequencies, the speed of the\n"
        "transforms and their round-trip error.");
    std::string hop;
    line.input("AUDIO", options.input);
    line.whole("-n,--length", options.length, 2, 64, "samples of a frame");
    line.text("--hop", hop, "N", "samples from one frame to the next, 1 to the length (half of it)");
    line.file("-o,--output", options.output, "the picture, a PNG (the input's name with .png, here)");
    line.flag("--iq", options.iq,
              "the two channels are the parts I and Q of one complex signal; frequencies then "
              "run from minus to plus half the sample rate");
    if (!line.parse(argc, argv))
        return false;
    options.hop = options.length / 2;
    if (!hop.empty())
        options.hop = examples::wholeNumber("--hop", hop, 1, options.length);
    if (options.output.empty())
        options.output = examples::resultName(options.input, ".png");
    return true;
}

void expectFit(const Options& options, const examples::Sound& sound)
{
    examples::expectOtherFile(options.output, options.input,
                              "is the input; the picture needs another name");
    if (options.iq && sound.channels.size() != 2)
        throw examples::Failure("'" + options.input +
                                "': --iq needs two channels, the file has one");
    if (sound.samples() < static_cast<std::size_t>(options.length))
        throw examples::Failure("'" + options.input + "': " +
                                examples::counted(sound.samples(), "sample") +
                                ", fewer than one frame of " + std::to_string(options.length));
}

void drawPicture(examples::PartFile& file, const Options& options, const examples::Sound& sound,
                 const Analysis& analysis)
{
    examples::LevelPlot plot;
    plot.title = examples::titleOf(options.input);
    plot.subtitle = std::to_string(sound.sampleRate) + " Hz, Hann frames of " +
                    examples::counted(static_cast<std::size_t>(options.length), "sample") +
                    ", hop " + std::to_string(options.hop);
    plot.seconds = sound.seconds();
    plot.highestFrequency = sound.sampleRate / 2.0;
    plot.lowestFrequency = options.iq ? -plot.highestFrequency : 0;
    std::vector<LevelMap> maps;
    for (const Panel& panel : analysis.panels) {
        plot.panels.push_back(panel.name);
        maps.emplace_back(analysis, panel);
        plot.strongest = std::max(plot.strongest, maps.back().strongest());
    }
    const double half = options.length / 2.0;
    const double cellsOfFrame =
        static_cast<double>(analysis.cellCount) / static_cast<double>(analysis.frames);
    plot.level = [&](std::size_t panel, examples::Stretch time, examples::Stretch frequency) {
        const double frame =
            (time.middle() * static_cast<double>(sound.samples()) - half) / options.hop;
        return maps[panel].at((frame + 0.5) * cellsOfFrame - 0.5,
                              std::lerp(options.iq ? -half : 0, half, frequency.middle()));
    };
    examples::drawLevels(file, plot);
}

void printReport(const Options& options, const examples::Sound& sound, const Analysis& analysis)
{
    const examples::Unit unit = examples::timeUnit(sound.seconds());
    std::printf("audio        %s: %d Hz, %s, %.3f %s, %s\n",
                examples::printable(options.input).c_str(), sound.sampleRate,
                examples::counted(sound.samples(), "sample").c_str(), sound.seconds() / unit.size,
                unit.name,
                options.iq ? "1 complex signal"
                           : examples::counted(analysis.panels.size(), "channel").c_str());
    std::printf("frames       %zu of %d samples, Hann window, hop %d\n", analysis.frames,
                options.length, options.hop);
    printPeaks(analysis, sound.sampleRate);
    const double transforms = static_cast<double>(analysis.frames * analysis.panels.size());
    std::printf(
        "speed        %.3g million frames per second (%.0f forward transforms in %.3g ms)\n",
        transforms / std::max(analysis.forwardSeconds, 1e-9) / 1e6, transforms,
        analysis.forwardSeconds * 1e3);
    std::printf("round trip   relative rms error %.2e, forward and inverse\n",
                analysis.roundTripError);
    std::printf("picture      %s, %d x %d pixels\n", examples::printable(options.output).c_str(),
                examples::pictureWidth,
                examples::pictureHeight(static_cast<int>(analysis.panels.size())));
}

} // namespace spectrogram
