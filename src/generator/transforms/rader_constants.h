// The constants of Rader's method, shared by the complex and the real transforms.
#pragma once

#include <vector>

namespace rvn::generator
{

// The powers g^m mod p for m = 0 to p - 2. Since g^(p-1) = 1, g^-m is power[(p - 1 - m) % (p - 1)].
std::vector<int> powers(int g, int p);

// scale * D[k] with L = p - 1 and L D[k] = sum over m of W_p^(t g^-m) W_L^(m k), rounded once.
// D[L/2] is real for even L/2 and imaginary for odd L/2, of magnitude sqrt(p)/L.
struct Diagonal {
    double re;
    double im;
};

Diagonal diagonal(int k, int scale, int g, int p, int t);

} // namespace rvn::generator
