// random.cpp - see random.h.
#include "random.h"

#include <cmath>
#include <numbers>

namespace ofdm
{
namespace
{

std::uint64_t mixed(std::uint64_t z)
{
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
    return z ^ (z >> 31);
}

} // namespace

Random::Random(std::uint64_t seed, std::uint64_t stream) : state_(mixed(mixed(seed) + stream)) {}

std::uint64_t Random::bits()
{
    return mixed(state_ += 0x9e3779b97f4a7c15u);
}

double Random::uniform()
{
    return static_cast<double>((bits() >> 11) + 1) * 0x1p-53;
}

// Box and Muller 1958. The last bit of a logarithm may depend on the machine; rounding to binary32
// takes it away.
Complex Random::gaussian(double power)
{
    const double radius = std::sqrt(-power * std::log(uniform()));
    const double phase = 2 * std::numbers::pi * uniform();
    return {static_cast<float>(radius * std::cos(phase)),
            static_cast<float>(radius * std::sin(phase))};
}

} // namespace ofdm
