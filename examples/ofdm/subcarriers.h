// subcarriers.h - which of the 64 subcarriers a symbol uses, and for what.
//
// Plain OFDM has the layout of wireless local networks: 52 subcarriers around an empty middle, of
// which those at +-7 and +-21 are pilots. DFT-spread OFDM, as in the uplink of cellular networks,
// has M neighbouring subcarriers, the middle one among them as a gap would raise the peaks, which
// carry the DFT of M points; every twelfth of these is a pilot.
#ifndef OFDM_SUBCARRIERS_H
#define OFDM_SUBCARRIERS_H

#include "complex.h"

#include <cstddef>
#include <vector>

namespace ofdm
{

constexpr std::size_t symbolLength = 64;
constexpr std::size_t prefixLength = 16;
constexpr std::size_t blockLength = prefixLength + symbolLength; // samples sent for a symbol
constexpr std::size_t mostUsed = symbolLength;

constexpr std::size_t trainingSymbols = 2;

struct Subcarriers {
    int spread = 0;                // the length of the DFT, 0 for none
    std::vector<std::size_t> bins; // of the used subcarriers, from the lowest frequency

    // Places in the list above or, when spread, in the input of the DFT.
    std::vector<std::size_t> data, pilots;

    std::size_t used() const { return bins.size(); }
};

Subcarriers plainSubcarriers();
Subcarriers spreadSubcarriers(int length);

// By the length of the DFT, or plain for 0.
Subcarriers subcarriersFor(int spread);

// What the used subcarriers carry in training symbols: points of power 1 whose phase is a parabola,
// which keeps the peaks low (Chu 1972).
std::vector<Complex> trainingPoints(const Subcarriers& subcarriers);

} // namespace ofdm

#endif
