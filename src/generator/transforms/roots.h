// Roots of unity to more precision than binary64 holds, so that a constant of a kernel is rounded
// once, from a value whose error does not matter.
#pragma once

namespace rvn::generator
{

__extension__ using Quad = __float128;

struct QuadComplex {
    Quad re;
    Quad im;
};

QuadComplex operator+(QuadComplex a, QuadComplex b);
QuadComplex operator*(QuadComplex a, QuadComplex b);

// e^(-2 pi i exponent / length), for any exponent; exact at quarter turns.
QuadComplex rootOfUnity(long exponent, long length);

// The binary64 values nearest to cos(2 pi exponent / length) and sin(2 pi exponent / length).
double cosine(long exponent, long length);
double sine(long exponent, long length);

} // namespace rvn::generator
