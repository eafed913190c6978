// Pairs of values as complex numbers, and their products by roots of unity.
#pragma once

#include "generator/graph/builder.h"

namespace rvn::generator
{

struct ComplexValue {
    Value re;
    Value im;
};

using ComplexValues = std::vector<ComplexValue>;
using ComplexView = std::span<const ComplexValue>;

ComplexValue operator+(ComplexValue x, ComplexValue y);
ComplexValue operator-(ComplexValue x, ComplexValue y);
ComplexValue conjugate(ComplexValue x);
ComplexValue timesI(ComplexValue x); // a relabelling: no operation
ComplexValue timesMinusI(ComplexValue x);

// x * (re + i im), with 4 multiplications and 2 additions.
ComplexValue multiply(ComplexValue x, double re, double im);

// x * e^(-2 pi i exponent / length). Quarter turns only relabel, odd eighths cost 2 multiplications
// and 2 additions, multiplying first, all others the general product.
ComplexValue twiddle(ComplexValue x, long exponent, long length);

// The same where a part of x that is a product is replaced by its factors, their constants merged
// into those of the rotation.
ComplexValue twiddleProducts(ComplexValue x, long exponent, long length);

} // namespace rvn::generator
