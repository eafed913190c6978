// report.cpp - one line a fact.
#include "report.h"

#include "program.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace mdct
{
namespace
{

std::string decibelText(double decibels)
{
    if (std::isinf(decibels))
        return "infinite";
    char text[64];
    std::snprintf(text, sizeof text, "%.2f dB", decibels);
    return text;
}

// One frame there and back takes the mean of each way.
void printSpeed(const Use& forward, const Use& inverse)
{
    const double seconds = forward.seconds / static_cast<double>(forward.frames) +
                           inverse.seconds / static_cast<double>(inverse.frames);
    std::printf(
        "speed        %.0f frames per second, there and back (%lld forward in %.3g ms, %lld "
        "inverse in %.3g ms, with window and overlap-add)\n",
        1 / std::max(seconds, 1e-9), static_cast<long long>(forward.frames), forward.seconds * 1e3,
        static_cast<long long>(inverse.frames), inverse.seconds * 1e3);
}

} // namespace

void printReport(const Options& options, const examples::Sound& sound, const Transform& transform,
                 const examples::Selection& selection, Quality quality,
                 const examples::Canvas& picture)
{
    const std::size_t channels = sound.channels.size();
    std::printf("audio        %s: %d Hz, %zu samples, %.3f s, %zu %s\n",
                examples::printable(options.input).c_str(), sound.sampleRate, sound.samples(),
                static_cast<double>(sound.samples()) / sound.sampleRate, channels,
                channels == 1 ? "channel" : "channels");
    std::printf("frames       %zu of %d samples, %s window, hop %d\n",
                transform.frames(sound.samples()), 2 * options.hop, nameOf(options.window),
                options.hop);
    std::printf("kept         %zu of %zu coefficients (share %.6g), magnitudes from %.4g\n",
                selection.kept, selection.total,
                static_cast<double>(selection.kept) / static_cast<double>(selection.total),
                selection.smallest);
    std::printf("SNR          %s from the kept coefficients\n",
                decibelText(quality.fromKept).c_str());
    std::printf("             %s from all coefficients\n", decibelText(quality.fromAll).c_str());
    printSpeed(transform.forwardUse(), transform.inverseUse());
    std::printf("rebuilt      %s, %zu samples of 32-bit float\n",
                examples::printable(options.output).c_str(), sound.samples());
    std::printf("picture      %s, %d x %d pixels\n", examples::printable(options.picture).c_str(),
                picture.width(), picture.height());
}

} // namespace mdct
