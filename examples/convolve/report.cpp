// report.cpp - one line a fact.
#include "report.h"

#include "program.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace convolve
{
namespace
{

void printResponse(const Options& options, std::size_t taps)
{
    const std::size_t partitions = partitionsOf(taps);
    std::printf("response     ");
    if (!options.responseFile.empty())
        std::printf("%s", examples::printable(options.responseFile).c_str());
    else if (options.band.low == 0)
        std::printf("low-pass to %g Hz", options.band.high);
    else if (std::isinf(options.band.high))
        std::printf("high-pass from %g Hz", options.band.low);
    else
        std::printf("band-pass from %g to %g Hz", options.band.low, options.band.high);
    std::printf(": %zu %s in %zu %s, transforms of %d samples\n", taps, taps == 1 ? "tap" : "taps",
                partitions, partitions == 1 ? "partition" : "partitions", transformLength);
}

} // namespace

void printReport(const Options& options, const examples::Sound& sound,
                 std::span<const float> response, const examples::Sound& filtered, const Use& use,
                 Distance distance)
{
    const double seconds = static_cast<double>(sound.samples()) / sound.sampleRate;
    std::printf("audio        %s: %d Hz, %zu samples, %.3f s, %zu %s\n",
                examples::printable(options.input).c_str(), sound.sampleRate, sound.samples(),
                seconds, sound.channels.size(),
                sound.channels.size() == 1 ? "channel" : "channels");
    printResponse(options, response.size());
    std::printf("speed        %.3g million samples per second (%lld samples and %lld transforms in "
                "%.3g ms, with the products)\n",
                static_cast<double>(use.samples) / std::max(use.seconds, 1e-9) / 1e6,
                static_cast<long long>(use.samples), static_cast<long long>(use.transforms),
                use.seconds * 1e3);
    std::printf("peak         %.6g in, %.6g out\n", static_cast<double>(sound.peak()),
                static_cast<double>(filtered.peak()));
    std::printf("distance     relative rms %.2e from direct convolution in double\n",
                distance.relative);
    std::printf("             %.2e relative to the input's scale; %.0f %% of the output compared\n",
                distance.ofInput, 100 * distance.share);
    std::printf("filtered     %s, %zu samples of 32-bit float\n",
                examples::printable(options.output).c_str(), filtered.samples());
}

} // namespace convolve
