// rates.cpp - see rates.h. In closed form a rate is a weighted sum of Q(m x), where x = d/sigma is
// half the distance of neighbouring points over the deviation of the noise on an axis (Cho and Yoon
// 2002, exact for square constellations). x^2 is Es/N0 for QPSK, which is 2 Eb/N0, and Es/N0 / 5
// for 16-QAM.
#include "rates.h"

#include "program.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <rvngenmx.hpp>

namespace
{

// Weights and multiples of each term.
template <typename Tail> double sum(Modulation modulation, double ratio, Tail tail)
{
    using Terms = std::vector<std::pair<double, double>>;
    const bool qpsk = modulation == Modulation::qpsk;
    double rate = 0;
    for (const auto& [weight, m] : qpsk ? Terms{{1, 1}} : Terms{{0.75, 1}, {0.5, 3}, {-0.25, 5}})
        rate += weight * tail(m * m * (qpsk ? ratio : ratio / 5));
    return rate;
}

// 10 to 20 symbols of plain OFDM.
void sendBurst(Link& link, Random& random)
{
    std::array<std::uint8_t, 240> sent, received;
    for (std::uint8_t& byte : sent)
        byte = random.byte();
    link.send(sent, received);
}

} // namespace

double fromDecibels(double decibels)
{
    return std::pow(10, decibels / 10);
}

double toDecibels(double ratio)
{
    return ratio > 0 ? 10 * std::log10(ratio) : -std::numeric_limits<double>::infinity();
}

double whiteErrorRate(Modulation modulation, double ratio)
{
    return sum(modulation, ratio,
               [](double square) { return std::erfc(std::sqrt(square / 2)) / 2; });
}

// The mean of Q(sqrt(g s)) over exponentially distributed g of mean 1 (Proakis 2001, 14.3).
double fadingErrorRate(Modulation modulation, double ratio)
{
    return sum(modulation, ratio,
               [](double square) { return (1 - std::sqrt(square / (2 + square))) / 2; });
}

Rates sweepWhite(Modulation modulation, int spread, std::uint64_t seed, double lowestRate)
{
    Rates rates;
    Random random(seed, dataStream);
    for (double x = 0; whiteErrorRate(modulation, fromDecibels(x)) >= lowestRate; ++x) {
        Link link({modulation, spread, ChannelKind::white, 1 / fromDecibels(x), random.bits()});
        while (link.tally().bitErrors < 400 && link.tally().bits < 1 << 20)
            sendBurst(link, random);
        rates.emplace_back(x, link.tally().errorRate());
    }
    return rates;
}

Rates sweepMultipath(Modulation modulation, int spread, std::uint64_t seed, double mostDecibels)
{
    Rates rates;
    for (double x = 0; x <= mostDecibels; x += 2) {
        Random random(seed, dataStream); // the same channels at every step
        double sum = 0;
        for (int i = 0; i < channelsOfSweep; ++i) {
            Link link(
                {modulation, spread, ChannelKind::multipath, 1 / fromDecibels(x), random.bits()});
            sendBurst(link, random);
            sum += link.tally().errorRate(); // of equally many bits
        }
        rates.emplace_back(x, sum / channelsOfSweep);
    }
    return rates;
}

double peakToMean(int spread, Modulation modulation)
{
    constexpr std::size_t symbols = 20000, oversampling = 4;
    const Subcarriers subcarriers = subcarriersFor(spread);
    const Constellation constellation(modulation);
    Transmitter transmitter(subcarriers, constellation);
    Random random(0, dataStream);

    // Move the samples of a spectrum by parts of a sample.
    std::array<Spectrum, oversampling> shifts;
    for (std::size_t part = 0; part < oversampling; ++part)
        for (std::size_t bin = 0; bin < symbolLength; ++bin) {
            const double frequency =
                static_cast<double>(bin) - (bin < symbolLength / 2 ? 0 : symbolLength);
            shifts[part][bin] = unit(2 * std::numbers::pi * frequency *
                                     (static_cast<double>(part) / oversampling) / symbolLength);
        }

    std::vector<std::uint8_t> labels(subcarriers.data.size());
    std::vector<float> peaks;
    double sum = 0;
    for (std::size_t n = 0; n < symbols; ++n) {
        for (std::uint8_t& label : labels)
            label = static_cast<std::uint8_t>(random.byte() & (constellation.points() - 1));
        const Spectrum spectrum = transmitter.spectrum(labels);
        float peak = 0;
        for (const Spectrum& shift : shifts) {
            Spectrum samples;
            for (std::size_t bin = 0; bin < symbolLength; ++bin)
                samples[bin] = spectrum[bin] * shift[bin];
            check(rvng::dftInverse<symbolLength>(samples, samples, rvng::Scale::BySqrtN));
            for (const Complex sample : samples) {
                peak = std::max(peak, std::norm(sample));
                sum += std::norm(sample);
            }
        }
        peaks.push_back(peak);
    }
    const auto place = peaks.begin() + (symbols - symbols / 1000);
    std::nth_element(peaks.begin(), place, peaks.end());
    return *place * static_cast<double>(symbols * oversampling * symbolLength) / sum;
}
