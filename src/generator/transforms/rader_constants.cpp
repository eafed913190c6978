#include "generator/transforms/rader_constants.h"

#include "generator/transforms/roots.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace rvn::generator
{

std::vector<int> powers(int g, int p)
{
    std::vector<int> power{1};
    while (static_cast<int>(power.size()) < p - 1)
        power.push_back(power.back() * g % p);
    if (std::ranges::count(power, 1) != 1 || power.back() * g % p != 1)
        throw std::runtime_error(std::to_string(g) + " generates no residues modulo " +
                                 std::to_string(p));
    return power;
}

Diagonal diagonal(int k, int scale, int g, int p, int t)
{
    const int L = p - 1;
    const std::vector<int> power = powers(g, p);
    QuadComplex sum{0, 0};
    for (int m = 0; m < L; ++m)
        sum = sum + rootOfUnity(t * power[(L - m) % L], p) * rootOfUnity(m * k, L);
    return {static_cast<double>(scale * sum.re / L), static_cast<double>(scale * sum.im / L)};
}

} // namespace rvn::generator
