// picture.cpp - a pixel shows the strongest of the coefficients it covers. Frames are drawn where
// their centres are, frame t half a hop to either side of sample t N; bin k from k to k + 1 N-ths
// of the frequency axis.
#include "picture.h"

#include "level_plot.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>

namespace mdct
{
namespace
{

struct Range {
    std::size_t begin, end;
};

// The cells that a stretch touches, one or more of so many.
Range cells(double begin, double end, std::size_t count)
{
    const std::size_t first = std::min(static_cast<std::size_t>(begin), count - 1);
    const auto behind = static_cast<std::size_t>(std::ceil(end));
    return {first, std::clamp(behind, first + 1, count)};
}

double decibels(double magnitude, double toneGain)
{
    return std::max(examples::lowestLevel, 20 * std::log10(magnitude / toneGain));
}

double strongest(std::span<const float> coefficients)
{
    float magnitude = 0;
    for (const float coefficient : coefficients)
        magnitude = std::max(magnitude, std::abs(coefficient));
    return magnitude;
}

std::vector<std::string> channelNames(std::size_t channels)
{
    if (channels == 1)
        return {"mono"};
    if (channels == 2)
        return {"left", "right"};
    std::vector<std::string> names;
    for (std::size_t i = 1; i <= channels; ++i)
        names.push_back("channel " + std::to_string(i));
    return names;
}

std::string subtitle(const Options& options, int sampleRate)
{
    char text[128];
    std::snprintf(text, sizeof text, "%d Hz, MDCT of hop %d, %s window, %.4g %% kept", sampleRate,
                  options.hop, nameOf(options.window), 100 * options.share);
    return text;
}

} // namespace

examples::Canvas drawPicture(const Options& options, const examples::Sound& sound,
                             const Spectrum& spectrum, double toneGain)
{
    examples::LevelPlot plot;
    plot.title = std::filesystem::path(options.input).filename().string();
    plot.subtitle = subtitle(options, sound.sampleRate);
    plot.panels = channelNames(sound.channels.size());
    plot.seconds = static_cast<double>(sound.samples()) / sound.sampleRate;
    plot.highestFrequency = sound.sampleRate / 2.0;
    plot.strongest = decibels(strongest(spectrum.values), toneGain);

    const auto hop = static_cast<double>(spectrum.hop);
    const double hops = static_cast<double>(sound.samples()) / hop;
    plot.level = [&](std::size_t panel, examples::Stretch time, examples::Stretch frequency) {
        const Range frames = cells(time.begin * hops + 0.5, time.end * hops + 0.5, spectrum.frames);
        const Range bins = cells(frequency.begin * hop, frequency.end * hop, spectrum.hop);
        const std::span coefficients = spectrum.channel(panel);
        double magnitude = 0;
        for (std::size_t t = frames.begin; t < frames.end; ++t)
            magnitude =
                std::max(magnitude, strongest(coefficients.subspan(t * spectrum.hop + bins.begin,
                                                                   bins.end - bins.begin)));
        return decibels(magnitude, toneGain);
    };
    return drawLevelPlot(plot);
}

} // namespace mdct
