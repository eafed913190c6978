// constellation.cpp - see constellation.h.
#include "constellation.h"

#include <algorithm>
#include <cmath>

namespace
{

int grayCode(int level)
{
    return level ^ (level >> 1);
}

} // namespace

const char* nameOf(Modulation modulation)
{
    return modulation == Modulation::qpsk ? "QPSK" : "16-QAM";
}

// With L levels an axis, the mean power of both is 2 (L^2 - 1) / 3 units squared.
Constellation::Constellation(Modulation modulation)
    : axisBits_(modulation == Modulation::qpsk ? 1 : 2),
      unit_(std::sqrt(1.5f / static_cast<float>(points() - 1)))
{
    const int levels = 1 << axisBits_;
    for (int i = 0; i < levels; ++i)
        for (int q = 0; q < levels; ++q)
            table_[grayCode(i) << axisBits_ | grayCode(q)] = {
                static_cast<float>(2 * i + 1 - levels) * unit_,
                static_cast<float>(2 * q + 1 - levels) * unit_};
}

std::uint8_t Constellation::decide(Complex received) const
{
    const int levels = 1 << axisBits_;
    const auto half = static_cast<float>(levels / 2);
    const auto top = static_cast<float>(levels - 1);
    const auto level = [&](float value) {
        return static_cast<int>(std::clamp(value / (2 * unit_) + half, 0.0f, top));
    };
    return static_cast<std::uint8_t>(grayCode(level(received.real())) << axisBits_ |
                                     grayCode(level(received.imag())));
}
