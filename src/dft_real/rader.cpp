// Rader 1968 on real data, p prime, L = p - 1, n = L/2, a[i] = x[g^i]: with the diagonal D of the
// complex method, P[q] = D[q] A[q] and u = x[0] - A[0]/L,
//   X[0] = x[0] + A[0],  X[g^-j] = u + sum over q of P[q] e^(2 pi i j q / L),  j = 0 to n - 1.
// D comes from values whose real part repeats after n steps and whose imaginary part changes sign,
// so the even bins of P give the real parts of X[g^-j] and the odd bins the imaginary parts: one
// real transform of size n and one over odd frequencies. The indices g^-j, j < n, meet each pair
// {k, p - k} once. The inverse is the mirror image, with the conjugate diagonal.

#include "dft_real/odd_bins.h"

#include "kernelgen/rader_constants.h"

namespace rvn::dft_real
{

using namespace kernelgen;

HalfSpectrum raderForward(ValuesView x, const RealRaderPlan& plan, int t)
{
    const int p = plan.prime;
    const int L = p - 1;
    const int n = L / 2;
    const std::vector<int> power = powers(plan.generator, p);

    Values permuted;
    for (const int index : power)
        permuted.push_back(x[index]);
    const HalfSpectrum A = realDft(permuted, 1, {plan.first, true});

    HalfSpectrum X(p);
    X.bins[0].re = x[0] + A.bins[0].re;

    HalfSpectrum evenBins(n);
    OddHalfSpectrum oddBins(n);
    evenBins.bins[0].re = x[0] - (1.0 / L) * A.bins[0].re;
    for (int q = 1; q < n; ++q) {
        const Diagonal D = diagonal(q, 2, plan.generator, p, t);
        const ComplexValue P = multiply(A.bins[q], D.re, D.im);
        if (q % 2 == 0)
            evenBins.set(q / 2, P);
        else
            oddBins.set(q, timesMinusI(P));
    }
    const Diagonal D = diagonal(n, 1, plan.generator, p, t);
    if (n % 2 == 0)
        evenBins.set(n / 2, {D.re * A.bins[n].re, {}});
    else
        oddBins.set(n, {D.im * A.bins[n].re, {}});

    const Values re = inverseRealDft(evenBins, {plan.second, true});
    const std::array<Stage, 3> oddStages = {plan.oddStage, plan.second[0], plan.second[1]};
    const Values im = inverseOddBinDft(oddBins, plan.oddBins, {oddStages, true});
    for (int j = 0; j < n; ++j)
        X.set(power[(L - j) % L], {re[j], im[j]});
    return X;
}

Values raderInverse(const HalfSpectrum& X, const RealRaderPlan& plan)
{
    const int p = plan.prime;
    const int L = p - 1;
    const int n = L / 2;
    const std::vector<int> power = powers(plan.generator, p);

    Values re;
    Values im;
    for (int i = 0; i < n; ++i) {
        const ComplexValue a = X.at(power[i]);
        re.push_back(a.re);
        im.push_back(a.im);
    }
    const HalfSpectrum evenBins = realDft(re, 1, {plan.first, true});
    const OddHalfSpectrum oddBins = oddBinDft(im, plan.oddBins, {plan.first, true});
    const Value A0 = evenBins.bins[0].re;

    Values y(p);
    y[0] = X.bins[0].re + A0;

    HalfSpectrum P(L);
    P.bins[0].re = X.bins[0].re - (1.0 / L) * A0;
    for (int q = 1; q < n; ++q) {
        const Diagonal D = diagonal(q, 2, plan.generator, p, -1);
        const ComplexValue A = q % 2 == 0 ? evenBins.at(q / 2) : timesI(oddBins.at(q));
        P.set(q, multiply(A, D.re, D.im));
    }
    const Diagonal D = diagonal(n, 1, plan.generator, p, -1);
    P.bins[n].re = n % 2 == 0 ? D.re * evenBins.at(n / 2).re : -D.im * oddBins.at(n).re;

    const Values z = inverseRealDft(P, {plan.second, true});
    for (int j = 0; j < L; ++j)
        y[power[(L - j) % L]] = z[j];
    return y;
}

} // namespace rvn::dft_real
