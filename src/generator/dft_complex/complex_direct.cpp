// The leaves of all plans: 2, and the odd primes p = 3, 5, 7 by the definition. With the sums and
// differences of conjugate positions, s[j] = x[j] + x[p-j] and d[j] = x[j] - x[p-j],
//
//     X[0] = x[0] + sum of s[j]
//     A[k] = x[0] + sum over j of cos(2 pi j k t / p) s[j]
//     B[k] =        sum over j of sin(2 pi j k t / p) d[j]
//     X[k] = A[k] - i B[k],  X[p-k] = A[k] + i B[k],  j and k from 1 to (p-1)/2.

#include "generator/dft_complex/complex_methods.h"

#include "generator/transforms/roots.h"

namespace rvn::generator
{

namespace
{

ComplexValue operator*(double constant, ComplexValue x)
{
    return {constant * x.re, constant * x.im};
}

} // namespace

ComplexValues butterfly(ComplexView x)
{
    return {x[0] + x[1], x[0] - x[1]};
}

ComplexValues direct(ComplexView x, int t)
{
    const int p = static_cast<int>(x.size());
    const int half = (p - 1) / 2;
    ComplexValues s(half + 1);
    ComplexValues d(half + 1);
    for (int j = 1; j <= half; ++j) {
        s[j] = x[j] + x[p - j];
        d[j] = x[j] - x[p - j];
    }
    ComplexValues X(p);
    X[0] = x[0];
    for (int j = 1; j <= half; ++j)
        X[0] = X[0] + s[j];
    for (int k = 1; k <= half; ++k) {
        ComplexValue A = x[0] + cosine(k * t, p) * s[1];
        ComplexValue B = sine(k * t, p) * d[1];
        for (int j = 2; j <= half; ++j) {
            A = A + cosine(j * k * t, p) * s[j];
            B = B + sine(j * k * t, p) * d[j];
        }
        X[k] = A + timesMinusI(B);
        X[p - k] = A + timesI(B);
    }
    return X;
}

} // namespace rvn::generator
