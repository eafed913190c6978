// Cooley-Tukey splits of real data, N = f l:
//   X[q + f p] = sum over r of W_l^(r p) W_N^(r q) Y[r][q],
//   Y[r][q]    = sum over j of W_f^(j q) x[r + l j],  q = 0 to f/2.
// Column 0 is real; column f/2 is real but for its rotation, and holds the odd bins of size l. The
// inverse is the mirror image: the classes k = r mod l, r = 0 to l/2, then real transforms of
// size l.

#include "dft_real/odd_bins.h"

#include "kernelgen/roots.h"

namespace rvn::dft_real
{

using namespace kernelgen;

namespace
{

// The odd bins of the values Y[r][f/2], r < l:
//   X[f/2 + f p] = sum over r of W_2l^(t r (2 p + 1)) Y[r][f/2].
// For l = 2 that is y[0] + W_4^t y[1], without arithmetic. For l = 4, W_8^t = c (a + i b) and
// W_8^3t = c (-a + i b) with c = 1/sqrt 2 and signs a, b.
void setMiddleColumn(HalfSpectrum& X, const Values& y, int f, int t)
{
    if (y.size() == 2) {
        X.set(f / 2, {y[0], t % 4 == 1 ? -y[1] : y[1]});
        return;
    }
    if (y.size() == 4 && f > 2) {
        const Value u = cosine(t, 8) * (y[1] - y[3]);
        const Value v = -sine(t, 8) * (y[1] + y[3]);
        const Value rotated = t % 4 == 1 ? -y[2] : y[2];
        X.set(f / 2, {y[0] + u, rotated + v});
        X.set(5 * f / 2, {y[0] - u, rotated - v});
        return;
    }
    const OddHalfSpectrum bins = oddBinDft(y, {OddBins::Kind::HalfComplex}, {});
    for (int q = 1; q <= bins.n; q += 2)
        X.set(q * f / 2, bins.at(q));
}

} // namespace

HalfSpectrum cooleyTukeyForward(ValuesView x, const Stage& stage, int t, const Nesting& inner)
{
    const int N = stage.length;
    const int f = stage.first;
    const int l = stage.last;
    std::vector<HalfSpectrum> Y;
    for (int r = 0; r < l; ++r) {
        Values subsequence;
        for (int j = 0; j < f; ++j)
            subsequence.push_back(x[r + l * j]);
        Y.push_back(realDft(subsequence, t % f, inner));
        for (int q = 1; 2 * q < f; ++q)
            Y[r].bins[q] = twiddle(Y[r].bins[q], t * r * q, N);
    }
    const auto realColumn = [&](int q) {
        Values column;
        for (int r = 0; r < l; ++r)
            column.push_back(Y[r].bins[q].re);
        return column;
    };
    HalfSpectrum X(N);
    const HalfSpectrum first = realDft(realColumn(0), t % l, inner);
    for (int p = 0; p <= l / 2; ++p)
        X.set(f * p, first.bins[p]);
    for (int q = 1; 2 * q < f; ++q) {
        ComplexValues column;
        for (int r = 0; r < l; ++r)
            column.push_back(Y[r].bins[q]);
        const ComplexValues V = complexDft(column, t % l);
        for (int p = 0; p < l; ++p)
            X.set(q + f * p, V[p]);
    }
    if (f % 2 == 0)
        setMiddleColumn(X, realColumn(f / 2), f, t);
    return X;
}

namespace
{

// A middle class of 32 runs as two sequences of 16; smaller ones at once.
OddBins middleColumn(int f)
{
    return f == 32 ? OddBins{OddBins::Kind::Interleaved, 2} : OddBins{OddBins::Kind::HalfComplex};
}

} // namespace

Values cooleyTukeyInverse(const HalfSpectrum& X, const Stage& stage, const Nesting& inner)
{
    const int N = stage.length;
    const int f = stage.first;
    const int l = stage.last;
    struct Class {
        int k;
        ComplexValues y; // by n mod f
    };
    std::vector<Class> classes;
    const auto addRealClass = [&classes](int k, const Values& outputs) {
        classes.push_back({k, {}});
        for (const Value y : outputs)
            classes.back().y.push_back({y, {}});
    };

    HalfSpectrum first(f);
    for (int j = 0; j <= f / 2; ++j)
        first.set(j, X.at(l * j));
    addRealClass(0, inverseRealDft(first, inner));
    for (int r = 1; 2 * r < l; ++r) {
        const int k = stage.otherForm ? l - r : r;
        ComplexValues bins;
        for (int j = 0; j < f; ++j)
            bins.push_back(X.at(k + l * j));
        ComplexValues y = inverseComplexDft(bins);
        for (int q = 1; q < f; ++q)
            y[q] = twiddle(y[q], -k * q, N);
        classes.push_back({k, y});
    }
    if (l % 2 == 0) {
        OddHalfSpectrum middle(f);
        for (int q = 1; q <= f; q += 2)
            middle.set(q, X.at(q * l / 2));
        addRealClass(l / 2, inverseOddBinDft(middle, middleColumn(f), inner));
    }
    Values y(N);
    for (int q = 0; q < f; ++q) {
        HalfSpectrum bins(l);
        for (const Class& one : classes)
            bins.set(one.k, one.y[q]);
        const Values column = inverseRealDft(bins, inner);
        for (int p = 0; p < l; ++p)
            y[q + f * p] = column[p];
    }
    return y;
}

} // namespace rvn::dft_real
