// transmitter.h - points to samples: pilots, the spreading DFT, the inverse DFT, the cyclic prefix.
//
// All transforms are unitary: where a used subcarrier carries mean power 1, white noise of power N0
// a sample is noise of power N0 on each subcarrier.
#ifndef OFDM_TRANSMITTER_H
#define OFDM_TRANSMITTER_H

#include "constellation.h"
#include "random.h"
#include "subcarriers.h"

#include <array>
#include <span>

namespace ofdm
{

using Spectrum = std::array<Complex, symbolLength>;

// The pilots of one symbol after the other, points of QPSK that both sides know.
class Pilots
{
public:
    Complex next();

private:
    Random random_{0, pilotStream};
};

class Transmitter
{
public:
    Transmitter(Subcarriers subcarriers, const Constellation& constellation)
        : subcarriers_(std::move(subcarriers)), constellation_(constellation)
    {
    }

    // The samples of a training symbol with its prefix, blockLength of them.
    void train(std::span<Complex> samples) const;

    // The samples of the next symbol with its prefix. There is a label for each data place.
    void modulate(std::span<const std::uint8_t> labels, std::span<Complex> samples);

    // The subcarriers of the next symbol.
    Spectrum spectrum(std::span<const std::uint8_t> labels);

private:
    Subcarriers subcarriers_;
    Constellation constellation_;
    Pilots pilots_;
};

} // namespace ofdm

#endif
