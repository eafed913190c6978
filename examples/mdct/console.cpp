// console.cpp - see console.h.
#include "console.h"

#include "level_plot.h"
#include "plot.h"
#include "program.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace
{

constexpr double leastFromAll = 120; // dB; rounding to binary32 leaves some 135

std::string decibelText(double decibels)
{
    return std::isinf(decibels) ? "infinite" : formatted("%.2f dB", decibels);
}

} // namespace

bool readOptions(Options& options, int argc, char** argv)
{
    CommandLine line("mdct",
                     "Rebuilds an audio file from the strongest coefficients of its modified "
                     "discrete cosine\ntransform, and draws them.");
    std::string hop = "1024", kept = "0.1", window = "sine";
    line.input("AUDIO", options.input);
    line.option("-n,--hop", "N", hop, "half a frame: a power of two, 64 to 32768");
    line.option("-k,--keep", "SHARE", kept, "of the coefficients; 1 leaves rounding errors only");
    line.option("-w,--window", "NAME", window, "sine, or kbd for the Kaiser-Bessel-derived one");
    line.option("-o,--output", "FILE", options.output,
                "a WAV file: the input's name with .mdct.wav");
    line.option("-p,--picture", "FILE", options.picture, "a PNG: the input's name with .mdct.png");
    if (!line.parse(argc, argv))
        return false;
    options.hop = wholeNumber("--hop", hop, 64, 32768);
    options.share = share("--keep", kept);
    options.window = Window{choice("--window", window, {"sine", "kbd"})};
    if (!std::has_single_bit(static_cast<unsigned>(options.hop)))
        throw UsageFailure("--hop must be a power of two, not " + hop);
    options.output = resultName(options.output, options.input, ".mdct.wav");
    options.picture = resultName(options.picture, options.input, ".mdct.png");
    if (options.output == options.picture)
        throw UsageFailure("the rebuilt recording and the picture need two names");
    return true;
}

void expectRebuilt(double decibels)
{
    if (decibels < leastFromAll)
        throw Failure("all coefficients rebuild the recording with an SNR of " +
                      formatted("%.1f dB, ", decibels) + formatted("%.0f dB is due", leastFromAll));
}

// Frames are drawn where their centres are, frame t half a hop to either side of sample t N; bin k
// from k to k + 1 N-ths of the frequency axis.
void drawPicture(PartFile& file, const Options& options, const Sound& sound,
                 const Spectrum& spectrum, double toneGain)
{
    const double rate = sound.sampleRate, hop = options.hop;
    LevelPlot plot = {.title = titleOf(options.input),
                      .subtitle = std::to_string(sound.sampleRate) + " Hz, MDCT of hop " +
                                  std::to_string(options.hop) + ", " + nameOf(options.window) +
                                  " window, " + formatted("%.4g %% kept", 100 * options.share),
                      .seconds = sound.seconds(),
                      .highestFrequency = rate / 2,
                      .time = {0, hop / rate, spectrum.frames},
                      .frequency = {rate / 4 / hop, rate / 2 / hop, spectrum.hop},
                      .panels = {}};
    const std::size_t size = spectrum.frames * spectrum.hop;
    for (const std::string& name : channelNames(sound)) {
        const std::size_t first = plot.panels.size() * size;
        plot.panels.push_back({name, {}});
        for (std::size_t i = first; i < first + size; ++i)
            plot.panels.back().levels.push_back(
                levelOf(std::pow(spectrum.values[i] / toneGain, 2)));
    }
    drawLevels(file, plot);
}

void printReport(const Options& options, const Sound& sound, const Transform& transform,
                 const Selection& selection, Quality quality)
{
    printSound(options.input, sound);
    std::printf("frames       %zu of %d samples, %s window, hop %d\n",
                transform.frames(sound.samples()), 2 * options.hop, nameOf(options.window),
                options.hop);
    std::printf("kept         %s\n", selectionText(selection).c_str());
    std::printf("SNR          %s from the kept coefficients\n             %s from all "
                "coefficients\n",
                decibelText(quality.fromKept).c_str(), decibelText(quality.fromAll).c_str());
    const Use& there = transform.forwardUse();
    const Use& back = transform.inverseUse();
    const double seconds = there.seconds / static_cast<double>(there.frames) +
                           back.seconds / static_cast<double>(back.frames); // of one frame
    std::printf("speed        %.0f frames per second, there and back (%zu forward in %.3g ms, %zu "
                "inverse in %.3g ms, with window and overlap-add)\n",
                1 / std::max(seconds, 1e-9), there.frames, there.seconds * 1e3, back.frames,
                back.seconds * 1e3);
    std::printf("rebuilt      %s, %s of 32-bit float\n", printable(options.output).c_str(),
                counted(sound.samples(), "sample").c_str());
    printLevelPicture(options.picture, sound.channels.size());
}
