// transmitter.cpp - see transmitter.h.
#include "transmitter.h"

#include "status.h"

#include <algorithm>

namespace ofdm
{
namespace
{

using examples::check;

Spectrum placed(const Subcarriers& subcarriers, std::span<const Complex> points)
{
    Spectrum spectrum = {};
    for (std::size_t i = 0; i < subcarriers.used(); ++i)
        spectrum[subcarriers.bins[i]] = points[i];
    return spectrum;
}

// The prefix repeats the end of the symbol, so that echoes within it leave the subcarriers apart.
void send(const Spectrum& spectrum, std::span<Complex> samples)
{
    Complex* symbol = &samples[prefixLength];
    check(rvngDFTInv_CToC_64_32fc(spectrum.data(), symbol, RvnScaleBySqrtN));
    std::copy_n(symbol + symbolLength - prefixLength, prefixLength, samples.begin());
}

} // namespace

Complex Pilots::next()
{
    constexpr float part = 0.70710678f;
    const std::uint64_t bits = random_.bits();
    return {bits >> 63 != 0 ? part : -part, (bits >> 62 & 1) != 0 ? part : -part};
}

void Transmitter::train(std::span<Complex> samples) const
{
    send(placed(subcarriers_, trainingPoints(subcarriers_)), samples);
}

void Transmitter::modulate(std::span<const std::uint8_t> labels, std::span<Complex> samples)
{
    send(spectrum(labels), samples);
}

Spectrum Transmitter::spectrum(std::span<const std::uint8_t> labels)
{
    std::array<Complex, mostUsed> points;
    for (std::size_t i = 0; i < subcarriers_.data.size(); ++i)
        points[subcarriers_.data[i]] = constellation_.point(labels[i]);
    for (const std::size_t place : subcarriers_.pilots)
        points[place] = pilots_.next();
    if (subcarriers_.spread != 0)
        check(rvngDFTFwd_CToC_32fc(points.data(), points.data(), subcarriers_.spread,
                                   RvnScaleBySqrtN));
    return placed(subcarriers_, points);
}

} // namespace ofdm
