// symbol.h - which of the 64 subcarriers a symbol uses, and the way between its points and samples.
//
// Plain OFDM has the layout of wireless local networks: 52 subcarriers around an empty middle, of
// which those at +-7 and +-21 are pilots. DFT-spread OFDM, as in the uplink of cellular networks,
// has M neighbouring subcarriers, the middle one among them as a gap would raise the peaks, which
// carry the DFT of M points; every twelfth of these is a pilot.
#ifndef OFDM_SYMBOL_H
#define OFDM_SYMBOL_H

#include <array>
#include <complex>
#include <cstddef>
#include <span>
#include <vector>

using Complex = std::complex<float>;

constexpr std::size_t symbolLength = 64;
constexpr std::size_t prefixLength = 16;
constexpr std::size_t blockLength = prefixLength + symbolLength; // samples sent for a symbol

using Spectrum = std::array<Complex, symbolLength>;

struct Subcarriers {
    int spread = 0;                // the length of the DFT, 0 for none
    std::vector<std::size_t> bins; // of the used subcarriers, from the lowest frequency

    // Places in the list above or, when spread, in the input of the DFT.
    std::vector<std::size_t> data, pilots;

    std::size_t used() const { return bins.size(); }
};

// By the length of the spreading DFT, or plain for 0.
Subcarriers subcarriersFor(int spread);

// What the used subcarriers carry in training symbols: points of power 1 whose phase is a parabola,
// which keeps the peaks low (Chu 1972).
std::vector<Complex> trainingPoints(const Subcarriers& subcarriers);

// The spectrum that sends the points, which are spread in their place, and the samples of one.
Spectrum spectrumOf(std::span<Complex> points, const Subcarriers& subcarriers);
void toSamples(const Spectrum& spectrum, std::span<Complex, blockLength> samples);

// What the used subcarriers of a block carry; and, when spread, back to points.
void fromSamples(std::span<const Complex, blockLength> samples, const Subcarriers& subcarriers,
                 std::span<Complex> values);
void gather(std::span<Complex> values, const Subcarriers& subcarriers);

// exp(i angle), rounded once from binary64.
inline Complex unit(double angle)
{
    return Complex(std::polar(1.0, angle));
}

#endif
