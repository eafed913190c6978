// Three ways for the kinds of n.
//
// Alternate, n odd: with q = 2 k + n, e^(-2 pi i i q / 2n) = (-1)^i e^(-2 pi i i k / n), so C[q] is
// bin k of the real transform of the signal with alternating signs.
//
// HalfComplex, n even: every odd bin or its partner has q = 4 p + 1, and over those
//   C[4p + 1] = sum over r < n/2 of (b[r] - i b[r + n/2]) e^(-2 pi i r / 2n) e^(-2 pi i r p /
//   (n/2))
// is a complex transform of size n/2 of rotated pairs.
//
// Interleaved c, n = c m: the c sequences at positions c i + r have odd bins E[r][q] of size m, and
//   C[q + 2 m s] = sum over r of W_c^(r s) (W_2n^(r q) E[r][q])
// is a complex transform of size c for each pair of classes q, 2m - q. For odd m, class m is its
// own partner: the odd bins of size c of the real values E[r][m].

#include "dft_real/odd_bins.h"

#include <stdexcept>

namespace rvn::dft_real
{

using namespace kernelgen;

namespace
{

Value withSign(bool isNegative, Value x)
{
    return isNegative ? -x : x;
}

OddHalfSpectrum alternate(ValuesView b, const Nesting& inner)
{
    const int n = static_cast<int>(b.size());
    Values signal;
    for (int i = 0; i < n; ++i)
        signal.push_back(withSign(i % 2 == 1, b[i]));
    const HalfSpectrum Y = realDft(signal, 1, inner);
    OddHalfSpectrum C(n);
    for (int k = 0; k <= n / 2; ++k)
        C.set(2 * k + n, Y.at(k));
    return C;
}

Values inverseAlternate(const OddHalfSpectrum& C, const Nesting& inner)
{
    HalfSpectrum Y(C.n);
    for (int k = 0; k <= C.n / 2; ++k)
        Y.set(k, C.at(2 * k + C.n));
    Values d = inverseRealDft(Y, inner);
    for (int j = 0; j < C.n; ++j)
        d[j] = withSign(j % 2 == 1, d[j]);
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

// The pair of r is d[r], -d[r + n/2]. Taken at -r instead, that is -d[n - r] and -d[n/2 - r], it
// leaves fewer outputs to negate in some plans.
Values inverseHalfComplex(const OddHalfSpectrum& C, bool takesBackwards)
{
    const int n = C.n;
    const int h = n / 2;
    ComplexValues Z;
    for (int p = 0; p < h; ++p)
        Z.push_back(C.at(4 * p + 1));
    const ComplexValues z = inverseComplexDft(Z);
    Values d(n);
    for (int r = 0; r < h; ++r) {
        if (takesBackwards) {
            const ComplexValue rotated = twiddle(z[(h - r) % h], r, 2 * n);
            d[(n - r) % n] = withSign(r > 0, rotated.re);
            d[h - r] = -rotated.im;
        } else {
            const ComplexValue rotated = twiddle(z[r], -r, 2 * n);
            d[r] = rotated.re;
            d[r + h] = -rotated.im;
        }
    }
    return d;
}

OddHalfSpectrum interleaved(ValuesView b, const OddBins& method, const Nesting& inner)
{
    const int n = static_cast<int>(b.size());
    const int c = method.sequences;
    const int m = n / c;
    std::vector<OddHalfSpectrum> E;
    for (int r = 0; r < c; ++r) {
        Values sequence;
        for (int i = 0; i < m; ++i)
            sequence.push_back(b[c * i + r]);
        E.push_back(m % 2 == 1 ? alternate(sequence, inner) : halfComplex(sequence));
    }
    OddHalfSpectrum C(n);
    for (int q = 1; q < m; q += 2) {
        ComplexValues rotated;
        for (int r = 0; r < c; ++r)
            rotated.push_back(method.mergesRotation ? twiddleProducts(E[r].at(q), r * q, 2 * n)
                                                    : twiddle(E[r].at(q), r * q, 2 * n));
        const ComplexValues bins = complexDft(rotated, 1);
        for (int s = 0; s < c; ++s)
            C.set(q + 2 * m * s, bins[s]);
    }
    if (m % 2 == 1) {
        Values middle;
        for (int r = 0; r < c; ++r)
            middle.push_back(E[r].at(m).re);
        const OddHalfSpectrum bins = halfComplex(middle);
        for (int s = 1; s <= c; s += 2)
            C.set(m * s, bins.at(s));
    }
    return C;
}

// Sequence r is taken at the positions c j - r, which keeps negated outputs few; d[j + n] = -d[j].
Values inverseInterleaved(const OddHalfSpectrum& C, int c, const Nesting& inner)
{
    const int n = C.n;
    const int m = n / c;
    std::vector<OddHalfSpectrum> E(c, OddHalfSpectrum(m));
    for (int lower = 1; lower < m; lower += 2) {
        const int q = c == 2 ? lower : 2 * m - lower;
        ComplexValues bins;
        for (int s = 0; s < c; ++s)
            bins.push_back(C.at(q + 2 * m * s));
        const ComplexValues z = inverseComplexDft(bins);
        for (int r = 0; r < c; ++r)
            E[r].set(q, twiddle(z[(c - r) % c], r * q, 2 * n));
    }
    if (m % 2 == 1) {
        OddHalfSpectrum bins(c);
        for (int s = 1; s <= c; s += 2)
            bins.set(s, C.at(m * s));
        const Values middle =
            c == 6 ? inverseInterleaved(bins, 2, inner) : inverseHalfComplex(bins, false);
        for (int r = 0; r < c; ++r)
            E[r].set(m, {withSign(r > 0, middle[(c - r) % c]), {}});
    }
    Values d(n);
    for (int r = 0; r < c; ++r) {
        const Values sequence =
            m % 2 == 1 ? inverseAlternate(E[r], inner) : inverseHalfComplex(E[r], false);
        for (int j = 0; j < m; ++j) {
            const int position = c * j - r;
            d[(position + n) % n] = withSign(position < 0, sequence[j]);
        }
    }
    return d;
}

} // namespace

ComplexValue OddHalfSpectrum::at(int q) const
{
    q = (q % (2 * n) + 2 * n) % (2 * n);
    return q <= n ? bins[q / 2] : conjugate(bins[(2 * n - q) / 2]);
}

void OddHalfSpectrum::set(int q, ComplexValue x)
{
    q = (q % (2 * n) + 2 * n) % (2 * n);
    if (q <= n)
        bins[q / 2] = x;
    else
        bins[(2 * n - q) / 2] = conjugate(x);
}

OddHalfSpectrum oddBinDft(ValuesView b, OddBins method, const Nesting& inner)
{
    switch (method.kind) {
    case OddBins::Kind::Alternate:
        return alternate(b, inner);
    case OddBins::Kind::HalfComplex:
        return halfComplex(b);
    case OddBins::Kind::Interleaved:
        return interleaved(b, method, inner);
    }
    throw std::logic_error("unknown odd-bin method");
}

Values inverseOddBinDft(const OddHalfSpectrum& C, OddBins method, const Nesting& inner)
{
    switch (method.kind) {
    case OddBins::Kind::Alternate:
        return inverseAlternate(C, inner);
    case OddBins::Kind::HalfComplex:
        return inverseHalfComplex(C, true);
    case OddBins::Kind::Interleaved:
        return inverseInterleaved(C, method.sequences, inner);
    }
    throw std::logic_error("unknown odd-bin method");
}

} // namespace rvn::dft_real
