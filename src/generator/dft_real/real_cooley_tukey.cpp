// Cooley-Tukey splits of real data, N = a b, n = b n1 + n2, k = k1 + a k2:
//
//     X[k1 + a k2] = sum over n2 of W_b^(n2 k2) W_N^(n2 k1) Y[n2][k1]
//     Y[n2][k1]    = sum over n1 of W_a^(n1 k1) x[b n1 + n2],  k1 = 0 to a/2.
//
// Column 0 is real; column a/2 is real but for its rotation, and holds the odd bins of size b. The
// inverse is the mirror image: the classes k = k2 mod b, k2 = 0 to b/2, of which class b/2 holds
// odd bins of size a, then real transforms of size b.

#include "generator/dft_real/odd_bins.h"
#include "generator/dft_real/real_methods.h"
#include "generator/transforms/gather.h"

namespace rvn::generator
{

HalfSpectrum cooleyTukeyForward(const RealStage& stage, ValuesView x, int t)
{
    const int N = stage.length;
    const int a = stage.a.length;
    const int b = stage.b.length;
    const std::vector<HalfSpectrum> Y = gather(b, [&](int n2) {
        HalfSpectrum column =
            realDft(stage.a, gather(a, [&](int n1) { return x[b * n1 + n2]; }), t % a);
        for (int k1 = 1; 2 * k1 < a; ++k1)
            column.bins[k1] = twiddle(column.bins[k1], t * n2 * k1, N);
        return column;
    });
    const auto realColumn = [&](int k1) {
        return gather(b, [&](int n2) { return Y[n2].bins[k1].re; });
    };
    HalfSpectrum X(N);
    const HalfSpectrum first = realDft(stage.b, realColumn(0), t % b);
    for (int k2 = 0; k2 <= b / 2; ++k2)
        X.set(a * k2, first.bins[k2]);
    for (int k1 = 1; 2 * k1 < a; ++k1) {
        const ComplexValues V =
            complexDft(gather(b, [&](int n2) { return Y[n2].bins[k1]; }), t % b);
        for (int k2 = 0; k2 < b; ++k2)
            X.set(k1 + a * k2, V[k2]);
    }
    if (a % 2 == 0) {
        const OddHalfSpectrum middle = oddBinDft(stage.middle, realColumn(a / 2), t);
        for (int q = 1; q <= b; q += 2)
            X.set(q * a / 2, middle.at(q));
    }
    return X;
}

Values cooleyTukeyInverse(const RealStage& stage, const HalfSpectrum& X)
{
    const int N = stage.length;
    const int a = stage.a.length;
    const int b = stage.b.length;
    struct Class {
        int k;
        ComplexValues y; // by n mod a
    };
    std::vector<Class> classes;
    const auto addRealClass = [&](int k, const Values& y) {
        classes.push_back({k, gather(a, [&](int n1) { return ComplexValue{y[n1], {}}; })});
    };

    HalfSpectrum first(a);
    for (int k1 = 0; k1 <= a / 2; ++k1)
        first.set(k1, X.at(b * k1));
    addRealClass(0, inverseRealDft(stage.a, first));
    for (int k2 = 1; 2 * k2 < b; ++k2) {
        const int k = stage.classes == Classes::Upper ? b - k2 : k2;
        ComplexValues y = inverseComplexDft(gather(a, [&](int k1) { return X.at(k + b * k1); }));
        for (int n1 = 1; n1 < a; ++n1)
            y[n1] = twiddle(y[n1], -k * n1, N);
        classes.push_back({k, y});
    }
    if (b % 2 == 0) {
        OddHalfSpectrum middle(a);
        for (int q = 1; q <= a; q += 2)
            middle.set(q, X.at(q * b / 2));
        addRealClass(b / 2, inverseOddBinDft(stage.middle, middle));
    }
    Values y(N);
    for (int n1 = 0; n1 < a; ++n1) {
        HalfSpectrum bins(b);
        for (const Class& one : classes)
            bins.set(one.k, one.y[n1]);
        const Values column = inverseRealDft(stage.b, bins);
        for (int n2 = 0; n2 < b; ++n2)
            y[n1 + a * n2] = column[n2];
    }
    return y;
}

} // namespace rvn::generator
