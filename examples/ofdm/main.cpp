// main.cpp - the ofdm program: a picture over a simulated radio link of 64 subcarriers.
//
//     ofdm [-m qpsk|16qam] [-s M] [-n DECIBELS] [-c white|multipath] [-o RECEIVED.png] PICTURE.png
//
// A symbol is an inverse DFT of 64 points at the transmitter and a DFT at the receiver; spread
// points pass a DFT of M before and its inverse behind. All are unitary: where a used subcarrier
// carries mean power 1, white noise of power N0 a sample is noise of power N0 on each subcarrier.
//
// Exit status: 0 done, 1 the files are at fault, 2 the command line is at fault.
#include "console.h"
#include "link.h"
#include "plots.h"
#include "program.h"

#include <algorithm>
#include <optional>
#include <rvngenmx.hpp>

using rvng::Scale;

Spectrum spectrumOf(std::span<Complex> points, const Subcarriers& subcarriers)
{
    if (subcarriers.spread != 0)
        check(rvng::dftForward(points, points, Scale::BySqrtN));
    Spectrum spectrum = {};
    for (std::size_t i = 0; i < points.size(); ++i)
        spectrum[subcarriers.bins[i]] = points[i];
    return spectrum;
}

// The prefix repeats the end of the symbol, so that echoes within it leave the subcarriers apart.
void toSamples(const Spectrum& spectrum, std::span<Complex, blockLength> samples)
{
    const auto symbol = samples.last<symbolLength>();
    check(rvng::dftInverse<symbolLength>(spectrum, symbol, Scale::BySqrtN));
    std::ranges::copy(symbol.last<prefixLength>(), samples.begin());
}

void fromSamples(std::span<const Complex, blockLength> samples, const Subcarriers& subcarriers,
                 std::span<Complex> values)
{
    Spectrum spectrum;
    check(rvng::dftForward<symbolLength>(samples.last<symbolLength>(), spectrum, Scale::BySqrtN));
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = spectrum[subcarriers.bins[i]];
}

void gather(std::span<Complex> values, const Subcarriers& subcarriers)
{
    if (subcarriers.spread != 0)
        check(rvng::dftInverse(values, values, Scale::BySqrtN));
}

namespace
{

// The files are created before the work on them, and take their names when all are whole.
void writeFiles(const Options& options, const Picture& received, const Link& link)
{
    PartFile file(options.output);
    std::optional<PartFile> constellation, errorRates;
    if (!options.constellation.empty())
        constellation.emplace(options.constellation);
    if (!options.errorRates.empty())
        errorRates.emplace(options.errorRates);

    writePicture(file, received);
    if (constellation)
        drawConstellation(*constellation, options, link);
    if (errorRates)
        drawErrorRates(*errorRates, options, link.tally());

    file.commit();
    if (constellation)
        constellation->commit();
    if (errorRates)
        errorRates->commit();
}

void run(int argc, char** argv)
{
    Options options;
    if (!readOptions(options, argc, argv))
        return;
    const Picture picture = readInput(options);
    const std::vector<std::uint8_t> payload = payloadOf(picture);
    std::vector<std::uint8_t> arrived(payload.size());
    Link link({options.modulation, options.spread, options.channel,
               1 / fromDecibels(options.decibels), options.seed});
    link.send(payload, arrived);
    const Picture received = pictureFrom(std::move(arrived), picture);

    writeFiles(options, received, link);
    printReport(options, picture, link, compare(picture, received));
}

} // namespace

int main(int argc, char** argv)
{
    return runProgram("ofdm", argc, argv, run);
}
