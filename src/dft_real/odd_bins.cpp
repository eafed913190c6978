// Three ways for three kinds of n.
//
// Alternate, n odd: with q = 2 k + n, e^(-2 pi i i q / 2n) = (-1)^i e^(-2 pi i i k / n), so C[q] is
// bin k of the real transform of the signal with alternating signs.
//
// HalfComplex, n even: every odd bin or its partner has q = 4 p + 1, and over those
//   C[4p + 1] = sum over r < n/2 of (b[r] - i b[r + n/2]) e^(-2 pi i r / 2n) e^(-2 pi i r p /
//   (n/2))
// is a complex transform of size n/2 of rotated pairs.
//
// PairedRotations, n = 2 h, h odd: E and O, the odd bins of the even and of the odd positions, are
// transforms of size h of the first kind, and with w = e^(-2 pi i q / 4h)
//   C[q] = E[q] + w O[q],  C[2h - q] = conj(E[q] - w O[q]),  C[h] = E[h] - i O[h].

#include "dft_real/odd_bins.h"

#include <stdexcept>

namespace rvn::dft_real
{

using namespace kernelgen;

namespace
{

Value withSign(int index, Value x)
{
    return index % 2 == 0 ? x : -x;
}

OddHalfSpectrum alternate(ValuesView b, Stages inner)
{
    const int n = static_cast<int>(b.size());
    Values signal;
    for (int i = 0; i < n; ++i)
        signal.push_back(withSign(i, b[i]));
    const HalfSpectrum Y = realDft(signal, inner);
    OddHalfSpectrum C(n);
    for (int k = 0; k <= n / 2; ++k)
        C.set(2 * k + n, Y.at(k));
    return C;
}

Values inverseAlternate(const OddHalfSpectrum& C, Stages inner)
{
    HalfSpectrum Y(C.n);
    for (int k = 0; k <= C.n / 2; ++k)
        Y.set(k, C.at(2 * k + C.n));
    Values d = inverseRealDft(Y, inner);
    for (int j = 0; j < C.n; ++j)
        d[j] = withSign(j, d[j]);
    return d;
}

OddHalfSpectrum halfComplex(ValuesView b)
{
    const int n = static_cast<int>(b.size());
    ComplexValues z;
    for (int r = 0; r < n / 2; ++r)
        z.push_back(twiddle({b[r], -b[r + n / 2]}, r, 2 * n));
    const ComplexValues Z = complexDft(z, 1);
    OddHalfSpectrum C(n);
    for (int p = 0; p < n / 2; ++p)
        C.set(4 * p + 1, Z[p]);
    return C;
}

Values inverseHalfComplex(const OddHalfSpectrum& C)
{
    const int n = C.n;
    ComplexValues Z;
    for (int p = 0; p < n / 2; ++p)
        Z.push_back(C.at(4 * p + 1));
    const ComplexValues z = inverseComplexDft(Z);
    Values d(n);
    for (int r = 0; r < n / 2; ++r) {
        const ComplexValue rotated = twiddle(z[r], -r, 2 * n);
        d[r] = rotated.re;
        d[r + n / 2] = -rotated.im;
    }
    return d;
}

OddHalfSpectrum pairedRotations(ValuesView b, Stages inner)
{
    const int n = static_cast<int>(b.size());
    const int h = n / 2;
    Values even;
    Values odd;
    for (int i = 0; i < h; ++i) {
        even.push_back(b[2 * i]);
        odd.push_back(b[2 * i + 1]);
    }
    const OddHalfSpectrum E = alternate(even, inner);
    const OddHalfSpectrum O = alternate(odd, inner);
    OddHalfSpectrum C(n);
    for (int q = 1; q < h; q += 2) {
        const ComplexValue rotated = twiddle(O.at(q), q, 2 * n);
        C.set(q, E.at(q) + rotated);
        C.set(n - q, conjugate(E.at(q) - rotated));
    }
    C.set(h, {E.at(h).re, -O.at(h).re});
    return C;
}

Values inversePairedRotations(const OddHalfSpectrum& C, Stages inner)
{
    const int n = C.n;
    const int h = n / 2;
    OddHalfSpectrum E(h);
    OddHalfSpectrum O(h);
    for (int q = 1; q < h; q += 2) {
        const ComplexValue partner = conjugate(C.at(n - q));
        E.set(q, C.at(q) + partner);
        O.set(q, twiddle(C.at(q) - partner, -q, 2 * n));
    }
    E.set(h, {C.at(h).re, {}});
    O.set(h, {-C.at(h).im, {}});
    const Values even = inverseAlternate(E, inner);
    const Values odd = inverseAlternate(O, inner);
    Values d(n);
    for (int j = 0; j < h; ++j) {
        d[2 * j] = even[j];
        d[2 * j + 1] = odd[j];
    }
    return d;
}

} // namespace

ComplexValue OddHalfSpectrum::at(int q) const
{
    q %= 2 * n;
    return q <= n ? bins[q / 2] : conjugate(bins[(2 * n - q) / 2]);
}

void OddHalfSpectrum::set(int q, ComplexValue x)
{
    q %= 2 * n;
    if (q <= n)
        bins[q / 2] = x;
    else
        bins[(2 * n - q) / 2] = conjugate(x);
}

OddHalfSpectrum oddBinDft(ValuesView b, OddBins method, Stages inner)
{
    switch (method) {
    case OddBins::Alternate:
        return alternate(b, inner);
    case OddBins::HalfComplex:
        return halfComplex(b);
    case OddBins::PairedRotations:
        return pairedRotations(b, inner);
    }
    throw std::logic_error("unknown odd-bin method");
}

Values inverseOddBinDft(const OddHalfSpectrum& C, OddBins method, Stages inner)
{
    switch (method) {
    case OddBins::Alternate:
        return inverseAlternate(C, inner);
    case OddBins::HalfComplex:
        return inverseHalfComplex(C);
    case OddBins::PairedRotations:
        return inversePairedRotations(C, inner);
    }
    throw std::logic_error("unknown odd-bin method");
}

} // namespace rvn::dft_real
