// report.cpp - one line a fact.
#include "report.h"

#include "peak_power.h"
#include "program.h"
#include "theory.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace ofdm
{
namespace
{

void printSubcarriers(const Subcarriers& subcarriers)
{
    std::printf("subcarriers    %zu of %zu: %zu for data, %zu for pilots; cyclic prefix %zu",
                subcarriers.used(), symbolLength, subcarriers.data.size(),
                subcarriers.pilots.size(), prefixLength);
    if (subcarriers.spread != 0)
        std::printf(", spread by a DFT of %d", subcarriers.spread);
    std::printf("\n");
}

void printChannel(const Options& options, const Link& link)
{
    if (options.channel == ChannelKind::white) {
        std::printf("channel        white noise, known to the receiver\n");
        return;
    }
    std::printf("channel        multipath of %zu taps, delay spread %g samples, gain %+.2f dB; "
                "carrier off by %g of a subcarrier\n",
                channelTaps, delaySpread, toDecibels(link.channelGain()), carrierOffset);
}

void printRatio(const Options& options, const Link& link)
{
    const Constellation constellation(options.modulation);
    std::printf("SNR            %s", ratioText(options.decibels).c_str());
    if (std::isfinite(options.decibels)) {
        std::printf(" (Eb/N0 %.2f dB)", options.decibels - toDecibels(constellation.bits()));
        if (options.channel == ChannelKind::multipath)
            std::printf(", by the receiver's estimate of N0 %.2f dB",
                        -toDecibels(link.estimatedNoise()));
    }
    std::printf("\n");
}

void printErrors(const Options& options, const Tally& tally)
{
    std::printf("bit errors     %lld of %lld (%.4g)\n", static_cast<long long>(tally.bitErrors),
                static_cast<long long>(tally.bits), tally.errorRate());
    if (std::isfinite(options.decibels)) {
        const double ratio = fromDecibels(options.decibels);
        std::printf("closed form    %.4g in white noise, %.4g in the mean of Rayleigh fading\n",
                    whiteErrorRate(options.modulation, ratio),
                    fadingErrorRate(options.modulation, ratio));
    }
    std::printf("EVM            %.2f %% rms (%.2f dB)\n", 100 * tally.errorVector(),
                2 * toDecibels(tally.errorVector()));
}

void printPeaks(const Options& options)
{
    const int spread = options.spread != 0 ? options.spread : defaultSpread;
    std::printf("peak power     %.2f dB above the mean for OFDM, %.2f dB for DFT-spread OFDM over "
                "%d; 99.9 %% of the symbols stay below\n",
                toDecibels(peakToMean(plainSubcarriers(), options.modulation)),
                toDecibels(peakToMean(spreadSubcarriers(spread), options.modulation)), spread);
}

} // namespace

std::string waveformText(int spread)
{
    return spread == 0 ? "OFDM of 48 data subcarriers"
                       : "DFT-spread OFDM over " + std::to_string(spread) + " subcarriers";
}

std::string channelText(ChannelKind channel)
{
    return channel == ChannelKind::white ? "white noise" : "multipath";
}

std::string ratioText(double decibels)
{
    if (std::isinf(decibels))
        return "no noise";
    char text[64];
    std::snprintf(text, sizeof text, "%.6g dB Es/N0", decibels);
    return text;
}

void printReport(const Options& options, const examples::Picture& picture, const Link& link,
                 const examples::Comparison& comparison)
{
    const Tally& tally = link.tally();
    const Constellation constellation(options.modulation);
    std::printf("picture        %s: %d x %d pixels, %d-bit %s\n",
                examples::printable(options.input).c_str(), picture.width, picture.height,
                picture.depth, picture.colors() == 1 ? "grey" : "colour");
    std::printf("modulation     %s, %d bits a point, Gray mapped\n", nameOf(options.modulation),
                constellation.bits());
    printSubcarriers(subcarriersFor(options.spread));
    printChannel(options, link);
    printRatio(options, link);
    printErrors(options, tally);
    if (comparison.meanSquare == 0)
        std::printf("PSNR           infinite: received exactly\n");
    else
        std::printf("PSNR           %.2f dB\n", signalToNoise(comparison, picture.peak()));
    printPeaks(options);
    std::printf("speed          %.0f symbols per second, transmitted and received on one core "
                "(%lld in %.3g ms)\n",
                static_cast<double>(tally.symbols) / std::max(tally.seconds, 1e-9),
                static_cast<long long>(tally.symbols), tally.seconds * 1e3);
    std::printf("received       %s\n", examples::printable(options.output).c_str());
    if (!options.constellation.empty())
        std::printf("constellation  %s\n", examples::printable(options.constellation).c_str());
    if (!options.errorRates.empty())
        std::printf("error rates    %s\n", examples::printable(options.errorRates).c_str());
}

} // namespace ofdm
