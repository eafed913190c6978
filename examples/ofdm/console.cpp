// console.cpp - see console.h.
#include "console.h"

#include "program.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

namespace
{

std::string ratioText(double decibels)
{
    return std::isinf(decibels) ? "no noise" : formatted("%.6g dB Es/N0", decibels);
}

void printLink(const Options& options, const Link& link)
{
    const Constellation constellation(options.modulation);
    const Subcarriers subcarriers = subcarriersFor(options.spread);
    std::printf("modulation     %s, %d bits a point, Gray mapped\n", nameOf(options.modulation),
                constellation.bits());
    std::printf("subcarriers    %zu of %zu: %zu for data, %zu for pilots; cyclic prefix %zu",
                subcarriers.used(), symbolLength, subcarriers.data.size(),
                subcarriers.pilots.size(), prefixLength);
    if (options.spread != 0)
        std::printf(", spread by a DFT of %d", options.spread);
    const bool isMultipath = options.channel == ChannelKind::multipath;
    if (isMultipath)
        std::printf(
            "\nchannel        multipath of %zu taps, delay spread %g samples, gain %+.2f dB; "
            "carrier off by %g of a subcarrier\n",
            channelTaps, delaySpread, toDecibels(link.channelGain()), carrierOffset);
    else
        std::printf("\nchannel        white noise, known to the receiver\n");
    std::printf("SNR            %s", ratioText(options.decibels).c_str());
    if (std::isfinite(options.decibels))
        std::printf(" (Eb/N0 %.2f dB)", options.decibels - toDecibels(constellation.bits()));
    if (std::isfinite(options.decibels) && isMultipath)
        std::printf(", by the receiver's estimate of N0 %.2f dB",
                    -toDecibels(link.estimatedNoise()));
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

} // namespace

bool readOptions(Options& options, int argc, char** argv)
{
    CommandLine line("ofdm",
                     "Sends a picture, a PNG of 8 bits a sample, over a simulated radio link, "
                     "as OFDM or DFT-spread OFDM.");
    std::string modulation = "qpsk", spread = "0", ratio = "20", channel = "multipath", seed = "1";
    line.input("PICTURE", options.input);
    line.option("-m,--modulation", "NAME", modulation, "qpsk or 16qam; Gray mapped");
    line.option("-s,--spread", "M", spread,
                "length of the spreading DFT, 12 to 60 in twelves; 0: none");
    line.option("-n,--snr", "DECIBELS", ratio, "Es/N0 of a data subcarrier; -20 to 100, or inf");
    line.option(
        "-c,--channel", "NAME", channel,
        "multipath: echoes and drift, which the receiver estimates; white: known noise alone");
    line.option("--seed", "NUMBER", seed, "of the channel and the noise");
    line.option("-o,--output", "FILE", options.output,
                "a PNG: the input's name with -received.png");
    line.option("--constellation", "FILE", options.constellation,
                "draw the received points, a PNG");
    line.option("--ber", "FILE", options.errorRates,
                "measure and draw bit error rates over Es/N0, a PNG; takes some seconds");
    if (!line.parse(argc, argv))
        return false;
    options.modulation = Modulation{choice("--modulation", modulation, {"qpsk", "16qam"})};
    options.channel = ChannelKind{choice("--channel", channel, {"white", "multipath"})};
    options.spread = 12 * choice("--spread", spread, {"0", "12", "24", "36", "48", "60"});
    options.decibels = ratio == "inf" ? INFINITY : number("--snr", ratio, -20, 100);
    options.seed = wholeNumber("--seed", seed, 0, std::numeric_limits<int>::max());
    options.output = resultName(options.output, options.input, "-received.png");
    if (options.output == options.constellation || options.output == options.errorRates ||
        (!options.errorRates.empty() && options.errorRates == options.constellation))
        throw UsageFailure("each picture needs a name of its own");
    return true;
}

Picture readInput(const Options& options)
{
    const Picture picture = readPicture(options.input);
    if (picture.depth != 8)
        throw Failure("'" + options.input + "': has " + std::to_string(picture.depth) +
                      " bits a sample; only 8 are understood");
    for (const std::string& output : {options.output, options.constellation, options.errorRates})
        expectOtherFile(output, options.input, "is the input; what is written needs another name");
    return picture;
}

std::string waveformText(int spread)
{
    return spread == 0 ? "OFDM of 48 data subcarriers"
                       : "DFT-spread OFDM over " + std::to_string(spread) + " subcarriers";
}

std::string conditionText(const Options& options)
{
    if (options.channel == ChannelKind::multipath)
        return "multipath, " + ratioText(options.decibels);
    return std::isinf(options.decibels) ? "no noise"
                                        : "white noise, " + ratioText(options.decibels);
}

void printReport(const Options& options, const Picture& picture, const Link& link,
                 const Comparison& comparison)
{
    const Tally& tally = link.tally();
    printPicture(options.input, picture);
    printLink(options, link);
    printErrors(options, tally);
    printPeakRatio(comparison, picture, "received exactly");
    const int spread = options.spread != 0 ? options.spread : defaultSpread;
    std::printf("peak power     %.2f dB above the mean for OFDM, %.2f dB for DFT-spread OFDM over "
                "%d; 99.9 %% of the symbols stay below\n",
                toDecibels(peakToMean(0, options.modulation)),
                toDecibels(peakToMean(spread, options.modulation)), spread);
    std::printf("speed          %.0f symbols per second, transmitted and received on one core "
                "(%lld in %.3g ms)\n",
                static_cast<double>(tally.symbols) / std::max(tally.seconds, 1e-9),
                static_cast<long long>(tally.symbols), tally.seconds * 1e3);
    for (const auto& [fact, file] : {std::pair("received", options.output),
                                     {"constellation", options.constellation},
                                     {"error rates", options.errorRates}})
        if (!file.empty())
            std::printf("%-14s %s\n", fact, printable(file).c_str());
}
