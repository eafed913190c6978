// constellation.h - bits as points of the complex plane, Gray mapped, with mean power 1.
//
// Half of a label's bits choose the real part and half the imaginary part, such that neighbouring
// points differ in one bit. The labels of a byte are cut from its upper end.
#ifndef OFDM_CONSTELLATION_H
#define OFDM_CONSTELLATION_H

#include "symbol.h"

#include <cstdint>

enum class Modulation : int { qpsk, qam16 };

const char* nameOf(Modulation modulation);

class Constellation
{
public:
    explicit Constellation(Modulation modulation);

    int bits() const { return 2 * axisBits_; } // of a label
    int points() const { return 1 << bits(); }
    float spacing() const { return 2 * unit_; } // of neighbouring points

    Complex point(std::uint8_t label) const { return table_[label]; }

    // The label of the nearest point.
    std::uint8_t decide(Complex received) const;

private:
    int axisBits_;
    float unit_; // levels are odd multiples of it
    std::array<Complex, 16> table_ = {};
};

#endif
