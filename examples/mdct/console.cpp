// console.cpp - see console.h.
#include "console.h"

#include "level_plot.h"
#include "plot.h"
#include "program.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace mdct
{
namespace
{

constexpr double leastFromAll = 120; // dB; rounding to binary32 leaves some 135

struct Range {
    std::size_t begin, end;
};

// The cells that a stretch touches, one or more of so many.
Range cells(double begin, double end, std::size_t count)
{
    const std::size_t first = std::min(static_cast<std::size_t>(begin), count - 1);
    return {first, std::clamp(static_cast<std::size_t>(std::ceil(end)), first + 1, count)};
}

float strongest(std::span<const float> coefficients)
{
    float magnitude = 0;
    for (const float coefficient : coefficients)
        magnitude = std::max(magnitude, std::abs(coefficient));
    return magnitude;
}

std::string decibelText(double decibels)
{
    return std::isinf(decibels) ? "infinite" : examples::formatted("%.2f dB", decibels);
}

} // namespace

bool readOptions(Options& options, int argc, char** argv)
{
    examples::CommandLine line(
        "mdct",
        "Takes an audio file of up to eight channels through a modified discrete cosine transform,\n"
        "windowed and overlapped by half, drops all but the strongest coefficients, rebuilds the\n"
        "recording from the others and draws them over time and frequency. Prints how near the\n"
        "result comes, how near all coefficients come, and the speed of the transforms.");
    std::string window = "sine";
    line.input("AUDIO", options.input);
    line.whole("-n,--hop", options.hop, 64, 32768,
               "samples from one frame to the next, half a frame: a power of two, 64 to 32768");
    line.real("-k,--keep", options.share, examples::aShare,
              "the share of the coefficients that is kept, above 0 and up to 1, which rebuilds the "
              "recording but for rounding");
    line.choice("-w,--window", window, {"sine", "kbd"}, "kbd: Kaiser-Bessel-derived");
    line.file("-o,--output", options.output,
              "the rebuilt recording, a WAV file of 32-bit floats (the input's name with "
              ".mdct.wav, here)");
    line.file("-p,--picture", options.picture,
              "the picture, a PNG (the input's name with .mdct.png, here)");
    if (!line.parse(argc, argv))
        return false;
    options.window = window == "sine" ? Window::sine : Window::kaiserBessel;
    if (!std::has_single_bit(static_cast<unsigned>(options.hop)))
        throw examples::UsageFailure("--hop must be a power of two, not " +
                                     std::to_string(options.hop));
    if (options.output.empty())
        options.output = examples::resultName(options.input, ".mdct.wav");
    if (options.picture.empty())
        options.picture = examples::resultName(options.input, ".mdct.png");
    if (options.output == options.picture)
        throw examples::UsageFailure("the rebuilt recording and the picture need two names");
    return true;
}

void expectRebuilt(double decibels)
{
    if (decibels < leastFromAll)
        throw examples::Failure("all coefficients rebuild the recording with an SNR of " +
                                examples::formatted("%.1f dB, ", decibels) +
                                examples::formatted("%.0f dB is due", leastFromAll));
}

// A pixel shows the strongest of the coefficients it covers. Frames are drawn where their centres
// are, frame t half a hop to either side of sample t N; bin k from k to k + 1 N-ths of the axis.
void drawPicture(examples::PartFile& file, const Options& options, const examples::Sound& sound,
                 const Spectrum& spectrum, double toneGain)
{
    const auto decibels = [&](double magnitude) {
        return std::max(examples::lowestLevel, 20 * std::log10(magnitude / toneGain));
    };
    examples::LevelPlot plot;
    plot.title = examples::titleOf(options.input);
    plot.subtitle = std::to_string(sound.sampleRate) + " Hz, MDCT of hop " +
                    std::to_string(options.hop) + ", " + nameOf(options.window) + " window, " +
                    examples::formatted("%.4g %% kept", 100 * options.share);
    plot.panels = channelNames(sound);
    plot.seconds = sound.seconds();
    plot.highestFrequency = sound.sampleRate / 2.0;
    plot.strongest = decibels(strongest(spectrum.values));

    const auto hop = static_cast<double>(spectrum.hop);
    const double hops = static_cast<double>(sound.samples()) / hop;
    plot.level = [&](std::size_t panel, examples::Stretch time, examples::Stretch frequency) {
        const Range frames = cells(time.begin * hops + 0.5, time.end * hops + 0.5, spectrum.frames);
        const Range bins = cells(frequency.begin * hop, frequency.end * hop, spectrum.hop);
        float magnitude = 0;
        for (std::size_t t = frames.begin; t < frames.end; ++t)
            magnitude = std::max(magnitude, strongest(spectrum.frame(panel, t).subspan(
                                                bins.begin, bins.end - bins.begin)));
        return decibels(magnitude);
    };
    examples::drawLevels(file, plot);
}

void printReport(const Options& options, const examples::Sound& sound, const Transform& transform,
                 const examples::Selection& selection, Quality quality)
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
    std::printf("rebuilt      %s, %s of 32-bit float\n",
                examples::printable(options.output).c_str(),
                examples::counted(sound.samples(), "sample").c_str());
    std::printf("picture      %s, %d x %d pixels\n", examples::printable(options.picture).c_str(),
                examples::pictureWidth,
                examples::pictureHeight(static_cast<int>(sound.channels.size())));
}

} // namespace mdct
