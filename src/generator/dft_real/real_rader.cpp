// Rader 1968 on real data, p prime, L = p - 1, h = L/2, v[m] = x[g^m]: with the diagonal D of the
// complex method, P[q] = D[q] V[q] and u = x[0] - V[0]/L,
//
//     X[0] = x[0] + V[0],  X[g^-m] = u + sum over q of P[q] e^(2 pi i m q / L),  m = 0 to h - 1.
//
// D comes from values whose real part repeats after h steps and whose imaginary part changes sign,
// so the even bins of P give the real parts of X[g^-m] and the odd bins the imaginary parts: one
// real transform of size h and one over odd frequencies. The indices g^-m, m < h, meet each pair
// {k, p - k} once. The inverse is the mirror image, with the conjugate diagonal.

#include "generator/dft_real/odd_bins.h"
#include "generator/dft_real/real_methods.h"
#include "generator/transforms/gather.h"
#include "generator/transforms/rader_constants.h"

namespace rvn::generator
{

HalfSpectrum raderForward(const RealRader& row, ValuesView x, int t)
{
    const int p = row.prime;
    const int L = p - 1;
    const int h = L / 2;
    const std::vector<int> power = powers(row.generator, p);
    const HalfSpectrum V = realDft(row.whole, gather(L, [&](int m) { return x[power[m]]; }), 1);

    HalfSpectrum X(p);
    X.bins[0].re = x[0] + V.bins[0].re;

    HalfSpectrum evenBins(h);
    OddHalfSpectrum oddBins(h);
    evenBins.bins[0].re = x[0] - (1.0 / L) * V.bins[0].re;
    for (int q = 1; q < h; ++q) {
        const Diagonal D = diagonal(q, 2, row.generator, p, t);
        const ComplexValue P = multiply(V.bins[q], D.re, D.im);
        if (q % 2 == 0)
            evenBins.set(q / 2, P);
        else
            oddBins.set(q, timesMinusI(P));
    }
    const Diagonal D = diagonal(h, 1, row.generator, p, t);
    if (h % 2 == 0)
        evenBins.set(h / 2, {D.re * V.bins[h].re, {}});
    else
        oddBins.set(h, {D.im * V.bins[h].re, {}});

    const Values re = inverseRealDft(row.evenBins, evenBins);
    const Values im = inverseOddBinDft(row.oddBins, oddBins);
    for (int m = 0; m < h; ++m)
        X.set(power[(L - m) % L], {re[m], im[m]});
    return X;
}

Values raderInverse(const RealRader& row, const HalfSpectrum& X)
{
    const int p = row.prime;
    const int L = p - 1;
    const int h = L / 2;
    const std::vector<int> power = powers(row.generator, p);
    const ComplexValues v = gather(h, [&](int m) { return X.at(power[m]); });
    const HalfSpectrum evenBins =
        realDft(row.evenBins, gather(h, [&](int m) { return v[m].re; }), 1);
    const OddHalfSpectrum oddBins =
        oddBinDft(row.oddBins, gather(h, [&](int m) { return v[m].im; }), 1);
    const Value V0 = evenBins.bins[0].re;

    Values y(p);
    y[0] = X.bins[0].re + V0;

    HalfSpectrum P(L);
    P.bins[0].re = X.bins[0].re - (1.0 / L) * V0;
    for (int q = 1; q < h; ++q) {
        const Diagonal D = diagonal(q, 2, row.generator, p, -1);
        const ComplexValue V = q % 2 == 0 ? evenBins.at(q / 2) : timesI(oddBins.at(q));
        P.set(q, multiply(V, D.re, D.im));
    }
    const Diagonal D = diagonal(h, 1, row.generator, p, -1);
    P.bins[h].re = h % 2 == 0 ? D.re * evenBins.at(h / 2).re : -D.im * oddBins.at(h).re;

    const Values z = inverseRealDft(row.whole, P);
    for (int m = 0; m < L; ++m)
        y[power[(L - m) % L]] = z[m];
    return y;
}

} // namespace rvn::generator
