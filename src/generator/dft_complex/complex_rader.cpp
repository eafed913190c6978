// Rader 1968: a prime length p as a cyclic convolution of length L = p - 1. With a generator g of
// the residues, v[m] = x[g^m] and c[m] = W^(t g^-m), all indices mod p:
//
//     X[0]    = x[0] + Y[0]
//     X[g^-m] = x[0] + sum over j of v[j] c[m-j] = sum over k of D[k] Y[k] e^(+2 pi i m k / L)
//     Y[k]    = sum over m of v[m] e^(-2 pi i m k / L)
//     L D[k]  = sum over m of c[m] e^(-2 pi i m k / L)
//
// where x[0] enters through bin 0, since D[0] = -1/L.
//
// Both inner transforms are real ones, of the real and of the imaginary parts, v = re + i im. Since
// g^(L/2) = -1, c[m + L/2] is the conjugate of c[m]: the even bins of D belong to the real part of
// c, the odd bins to i times its imaginary part. So with half spectra Yre and Yim,
//
//     even k:  Zre[k] = D[k] Yre[k],    Zim[k] = D[k] Yim[k]
//     odd k:   Zre[k] = i D[k] Yim[k],  Zim[k] = -i D[k] Yre[k]
//
// are half spectra again, and no bin above L/2 is ever formed. The doubling that an inverse real
// transform expects of its inner bins stands in the constants, 2 D[k].

#include "generator/dft_complex/complex_methods.h"
#include "generator/transforms/gather.h"
#include "generator/transforms/rader_constants.h"

namespace rvn::generator
{

ComplexValues rader(const ComplexRader& row, ComplexView x, int t)
{
    const int p = row.prime;
    const int L = p - 1;
    const std::vector<int> power = powers(row.generator, p);

    const ComplexValues v = gather(L, [&](int m) { return x[power[m]]; });
    const HalfSpectrum Yre = realDft(row.first, gather(L, [&](int m) { return v[m].re; }), 1);
    const HalfSpectrum Yim = realDft(row.first, gather(L, [&](int m) { return v[m].im; }), 1);
    const ComplexValue Y0 = {Yre.bins[0].re, Yim.bins[0].re};
    const ComplexValue middle = {Yre.bins[L / 2].re, Yim.bins[L / 2].re};

    ComplexValues X(p);
    X[0] = x[0] + Y0;

    HalfSpectrum Zre(L);
    HalfSpectrum Zim(L);
    Zre.bins[0].re = x[0].re - (1.0 / L) * Y0.re;
    Zim.bins[0].re = x[0].im - (1.0 / L) * Y0.im;
    for (int k = 1; k < L / 2; ++k) {
        const Diagonal D = diagonal(k, 2, row.generator, p, t);
        const ComplexValue re = multiply(Yre.bins[k], D.re, D.im);
        const ComplexValue im = multiply(Yim.bins[k], D.re, D.im);
        Zre.bins[k] = k % 2 == 0 ? re : timesI(im);
        Zim.bins[k] = k % 2 == 0 ? im : timesMinusI(re);
    }
    // Bin L/2 stands alone and is not doubled: D is real or imaginary, of magnitude sqrt(p)/L.
    const Diagonal D = diagonal(L / 2, 1, row.generator, p, t);
    const bool isEven = L / 2 % 2 == 0;
    Zre.bins[L / 2].re = isEven ? D.re * middle.re : -D.im * middle.im;
    Zim.bins[L / 2].re = isEven ? D.re * middle.im : D.im * middle.re;

    const Values re = inverseRealDft(row.second, Zre);
    const Values im = inverseRealDft(row.second, Zim);
    for (int m = 0; m < L; ++m)
        X[power[(L - m) % L]] = {re[m], im[m]};
    return X;
}

} // namespace rvn::generator
