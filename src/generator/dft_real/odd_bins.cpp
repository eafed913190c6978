// The forms, for the kinds of n.
//
// Quarters, n = 2, and Eighths, n = 4: W_4^t needs no arithmetic, and W_8^t = c (e + i f),
// W_8^3t = c (-e + i f) with c = 1/sqrt 2 and signs e, f.
//
// Alternate, n odd: with q = 2 k + n, e^(-2 pi i m q / 2n) = (-1)^m e^(-2 pi i m k / n), so C[q] is
// bin k of the real transform of the signal with alternating signs.
//
// HalfComplex, n even, h = n/2: every odd bin or its partner has q = 4 k + 1, and over those
//
//     C[4 k + 1] = sum over m < h of (x[m] - i x[m + h]) e^(-2 pi i m / 2n) e^(-2 pi i m k / h)
//
// is a complex transform of size h of rotated pairs. The inverse gives the pairs y[m], -y[m + h];
// mirrored, it takes output -m of the transform for them, -y[n - m] and -y[h - m], which leaves
// fewer outputs to negate in some plans.
//
// Interleaved, n = c l: the c sequences at positions c m + r have odd bins E[r][q] of size l, and
//
//     C[q + 2 l s] = sum over r of W_c^(r s) (W_2n^(r q) E[r][q])
//
// is a complex transform of size c for each pair of classes q, 2l - q. For odd l, class l is its
// own partner: the odd bins of size c of the real values E[r][l]. The inverse takes sequence r at
// the positions c m - r, which keeps negated outputs few; y[m + n] = -y[m].

#include "generator/dft_real/odd_bins.h"

#include "generator/transforms/gather.h"
#include "generator/transforms/recursion.h"
#include "generator/transforms/roots.h"

namespace rvn::generator
{

using enum OddBins::Form;

namespace
{

constexpr OddBins halfComplexForm = {.form = HalfComplex};

Value withSign(bool isNegative, Value x)
{
    return isNegative ? -x : x;
}

OddHalfSpectrum quarters(ValuesView x, int t)
{
    OddHalfSpectrum C(2);
    C.set(1, {x[0], t % 4 == 1 ? -x[1] : x[1]});
    return C;
}

OddHalfSpectrum eighths(ValuesView x, int t)
{
    const Value u = cosine(t, 8) * (x[1] - x[3]);
    const Value v = -sine(t, 8) * (x[1] + x[3]);
    const Value rotated = t % 4 == 1 ? -x[2] : x[2];
    OddHalfSpectrum C(4);
    C.set(1, {x[0] + u, rotated + v});
    C.set(5, {x[0] - u, rotated - v});
    return C;
}

OddHalfSpectrum alternate(const OddBins& method, ValuesView x)
{
    const int n = static_cast<int>(x.size());
    const Values signal = gather(n, [&](int m) { return withSign(m % 2 == 1, x[m]); });
    const HalfSpectrum Y = realDft(method.real(n), signal, 1);
    OddHalfSpectrum C(n);
    for (int k = 0; k <= n / 2; ++k)
        C.set(2 * k + n, Y.at(k));
    return C;
}

Values inverseAlternate(const OddBins& method, const OddHalfSpectrum& C)
{
    HalfSpectrum Y(C.n);
    for (int k = 0; k <= C.n / 2; ++k)
        Y.set(k, C.at(2 * k + C.n));
    Values y = inverseRealDft(method.real(C.n), Y);
    for (int m = 0; m < C.n; ++m)
        y[m] = withSign(m % 2 == 1, y[m]);
    return y;
}

OddHalfSpectrum halfComplex(ValuesView x)
{
    const int n = static_cast<int>(x.size());
    const int h = n / 2;
    const ComplexValues Z = complexDft(gather(h,
                                              [&](int m) {
                                                  const ComplexValue pair = {x[m], -x[m + h]};
                                                  return twiddle(pair, m, 2 * n);
                                              }),
                                       1);
    OddHalfSpectrum C(n);
    for (int k = 0; k < h; ++k)
        C.set(4 * k + 1, Z[k]);
    return C;
}

Values inverseHalfComplex(const OddHalfSpectrum& C)
{
    const int n = C.n;
    const int h = n / 2;
    const ComplexValues z = inverseComplexDft(gather(h, [&](int k) { return C.at(4 * k + 1); }));
    Values y(n);
    for (int m = 0; m < h; ++m) {
        const ComplexValue rotated = twiddle(z[m], -m, 2 * n);
        y[m] = rotated.re;
        y[m + h] = -rotated.im;
    }
    return y;
}

Values inverseHalfComplexMirrored(const OddHalfSpectrum& C)
{
    const int n = C.n;
    const int h = n / 2;
    const ComplexValues z = inverseComplexDft(gather(h, [&](int k) { return C.at(4 * k + 1); }));
    Values y(n);
    for (int m = 0; m < h; ++m) {
        const ComplexValue rotated = twiddle(z[(h - m) % h], m, 2 * n);
        y[(n - m) % n] = withSign(m > 0, rotated.re);
        y[h - m] = -rotated.im;
    }
    return y;
}

OddHalfSpectrum interleaved(const OddBins& method, ValuesView x)
{
    const int n = static_cast<int>(x.size());
    const int c = method.sequences;
    const int l = n / c;
    const std::vector<OddHalfSpectrum> E = gather(c, [&](int r) {
        const Values sequence = gather(l, [&](int m) { return x[c * m + r]; });
        return l % 2 == 1 ? alternate(method, sequence) : halfComplex(sequence);
    });
    const auto rotate = method.products == OddBins::Products::Rotated ? twiddle : twiddleProducts;
    OddHalfSpectrum C(n);
    for (int q = 1; q < l; q += 2) {
        const ComplexValues bins =
            complexDft(gather(c, [&](int r) { return rotate(E[r].at(q), r * q, 2 * n); }), 1);
        for (int s = 0; s < c; ++s)
            C.set(q + 2 * l * s, bins[s]);
    }
    if (l % 2 == 1) {
        const OddHalfSpectrum bins = halfComplex(gather(c, [&](int r) { return E[r].at(l).re; }));
        for (int s = 1; s <= c; s += 2)
            C.set(l * s, bins.at(s));
    }
    return C;
}

Values inverseInterleaved(const OddBins& method, const OddHalfSpectrum& C)
{
    const int n = C.n;
    const int c = method.sequences;
    const int l = n / c;
    std::vector<OddHalfSpectrum> E(c, OddHalfSpectrum(l));
    for (int lower = 1; lower < l; lower += 2) {
        const int q = method.classes == Classes::Lower ? lower : 2 * l - lower;
        const ComplexValues z =
            inverseComplexDft(gather(c, [&](int s) { return C.at(q + 2 * l * s); }));
        for (int r = 0; r < c; ++r)
            E[r].set(q, twiddle(z[(c - r) % c], r * q, 2 * n));
    }
    if (l % 2 == 1) {
        OddHalfSpectrum bins(c);
        for (int s = 1; s <= c; s += 2)
            bins.set(s, C.at(l * s));
        const Values middle =
            inverseOddBinDft(method.middle != nullptr ? *method.middle : halfComplexForm, bins);
        for (int r = 0; r < c; ++r)
            E[r].set(l, {withSign(r > 0, middle[(c - r) % c]), {}});
    }
    Values y(n);
    for (int r = 0; r < c; ++r) {
        const Values sequence =
            l % 2 == 1 ? inverseAlternate(method, E[r]) : inverseHalfComplex(E[r]);
        for (int m = 0; m < l; ++m) {
            const int position = c * m - r;
            y[(position + n) % n] = withSign(position < 0, sequence[m]);
        }
    }
    return y;
}

void requireForm(const OddBins& method, int n)
{
    const auto suits = [&] {
        switch (method.form) {
        case Quarters:
            return n == 2;
        case Eighths:
            return n == 4;
        case Alternate:
            return n % 2 == 1;
        case HalfComplex:
        case HalfComplexMirrored:
            return n % 2 == 0;
        case Interleaved:
            return method.sequences % 2 == 0 && method.sequences > 0 && n > method.sequences &&
                   n % method.sequences == 0;
        }
        return false;
    };
    if (!suits())
        throw std::runtime_error("odd bins: no transform of this form over " + std::to_string(n) +
                                 " values");
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

OddHalfSpectrum oddBinDft(const OddBins& method, ValuesView x, int t)
{
    requireForm(method, static_cast<int>(x.size()));
    switch (method.form) {
    case Quarters:
        return quarters(x, t);
    case Eighths:
        return eighths(x, t);
    case Alternate:
        return alternate(method, x);
    case HalfComplex:
        return halfComplex(x);
    case Interleaved:
        return interleaved(method, x);
    case HalfComplexMirrored:
        break;
    }
    throw std::runtime_error("odd bins: no forward transform of this form");
}

Values inverseOddBinDft(const OddBins& method, const OddHalfSpectrum& C)
{
    requireForm(method, C.n);
    switch (method.form) {
    case Alternate:
        return inverseAlternate(method, C);
    case HalfComplex:
        return inverseHalfComplex(C);
    case HalfComplexMirrored:
        return inverseHalfComplexMirrored(C);
    case Interleaved:
        return inverseInterleaved(method, C);
    case Quarters:
    case Eighths:
        break;
    }
    throw std::runtime_error("odd bins: no inverse transform of this form");
}

} // namespace rvn::generator
