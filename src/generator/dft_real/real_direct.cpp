// The real DFT by its definition, for odd primes, with root exponent t. With the sums
// s[j] = x[j] + x[N-j] and the differences d[j] = x[j] - x[N-j], j and k from 1 to (N-1)/2:
//
//     R(0) = x[0] + sum of s[j]
//     R(k) = x[0] + sum over j of cos(2 pi j k t / N) s[j]
//     I(k) =      - sum over j of sin(2 pi j k t / N) d[j]
//
// and the inverse from doubled bins (r, s), n from 1 to (N-1)/2:
//
//     y[0] = R(0) + sum of r(k)
//     A[n] = R(0) + sum over k of cos(2 pi n k / N) r(k)
//     B[n] =        sum over k of sin(2 pi n k / N) s(k)
//     y[n] = A[n] - B[n],  y[N-n] = A[n] + B[n].
//
// The differences are taken in the order in which one bin, the row's negatedBin, subtracts them
// all: of the imaginary parts that one alone is formed with the opposite sign.

#include "generator/dft_real/real_methods.h"
#include "generator/transforms/roots.h"

namespace rvn::generator
{

HalfSpectrum butterflyForward(ValuesView x)
{
    HalfSpectrum X(2);
    X.bins = {{x[0] + x[1], {}}, {x[0] - x[1], {}}};
    return X;
}

Values butterflyInverse(const HalfSpectrum& X)
{
    return {X.bins[0].re + X.bins[1].re, X.bins[0].re - X.bins[1].re};
}

HalfSpectrum directForward(const RealStage& stage, ValuesView x, int t)
{
    const int N = stage.length;
    const int half = (N - 1) / 2;
    HalfSpectrum X(N);
    // Sums before differences: half of the values are live at a time.
    X.bins[0].re = x[0];
    Values sum(half + 1);
    for (int j = 1; j <= half; ++j) {
        sum[j] = x[j] + x[N - j];
        X.bins[0].re = X.bins[0].re + sum[j];
    }
    for (int k = 1; k <= half; ++k) {
        X.bins[k].re = x[0] + cosine(k * t, N) * sum[1];
        for (int j = 2; j <= half; ++j)
            X.bins[k].re = X.bins[k].re + cosine(j * k * t, N) * sum[j];
    }
    Values difference(half + 1);
    for (int j = 1; j <= half; ++j)
        difference[j] = sine(j * stage.negatedBin, N) > 0 ? x[j] - x[N - j] : -(x[N - j] - x[j]);
    for (int k = 1; k <= half; ++k) {
        X.bins[k].im = -(sine(k * t, N) * difference[1]);
        for (int j = 2; j <= half; ++j)
            X.bins[k].im = X.bins[k].im - sine(j * k * t, N) * difference[j];
    }
    return X;
}

Values directInverse(const HalfSpectrum& X)
{
    const int N = X.length;
    const int half = (N - 1) / 2;
    Values y(N);
    y[0] = X.bins[0].re;
    for (int k = 1; k <= half; ++k)
        y[0] = y[0] + X.bins[k].re;
    Values A(half + 1);
    for (int n = 1; n <= half; ++n) {
        A[n] = X.bins[0].re + cosine(n, N) * X.bins[1].re;
        for (int k = 2; k <= half; ++k)
            A[n] = A[n] + cosine(n * k, N) * X.bins[k].re;
    }
    for (int n = 1; n <= half; ++n) {
        Value B = sine(n, N) * X.bins[1].im;
        for (int k = 2; k <= half; ++k)
            B = B + sine(n * k, N) * X.bins[k].im;
        y[n] = A[n] - B;
        y[N - n] = A[n] + B;
    }
    return y;
}

} // namespace rvn::generator
