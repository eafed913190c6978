// Good-Thomas splits of real data, N = f l with f and l coprime, by the Chinese remainder theorem:
//   x index n = f n1 + l n2,  X index k = k1 mod l = k2 mod f,
//   X[k] = sum over n1 of W_l^(n1 k1) Y[n1][k2],  Y[n1][k2] = sum over n2 of W_f^(n2 k2) x[n].
// Columns k2 above f/2 are conjugates and never computed; k2 = 0 and k2 = f/2 are real. The inverse
// is the mirror image: classes of frequencies first, those above l/2 being conjugates, then real
// transforms of size l.

#include "dft_real/builders.h"

namespace rvn::dft_real
{

using namespace kernelgen;

namespace
{

// The index mod f*l that is `inL` mod l and `inF` mod f.
int chineseRemainder(int inL, int l, int inF, int f)
{
    int index = inL % l;
    while (index % f != inF % f)
        index += l;
    return index;
}

bool isOwnConjugate(int index, int size)
{
    return 2 * index % size == 0;
}

} // namespace

HalfSpectrum goodThomasForward(ValuesView x, const Stage& stage, Stages inner)
{
    const int N = stage.length;
    const int f = stage.first;
    const int l = stage.last;
    std::vector<HalfSpectrum> Y;
    for (int n1 = 0; n1 < l; ++n1) {
        Values subsequence;
        for (int n2 = 0; n2 < f; ++n2)
            subsequence.push_back(x[(f * n1 + l * n2) % N]);
        Y.push_back(realDft(subsequence, inner));
    }
    HalfSpectrum X(N);
    for (int k2 = 0; k2 <= f / 2; ++k2) {
        if (isOwnConjugate(k2, f)) {
            Values column;
            for (int n1 = 0; n1 < l; ++n1)
                column.push_back(Y[n1].bins[k2].re);
            const HalfSpectrum V = realDft(column, inner);
            for (int k1 = 0; k1 <= l / 2; ++k1)
                X.set(chineseRemainder(k1, l, k2, f), V.bins[k1]);
        } else {
            ComplexValues column;
            for (int n1 = 0; n1 < l; ++n1)
                column.push_back(Y[n1].bins[k2]);
            const ComplexValues V = complexDft(column, 1);
            for (int k1 = 0; k1 < l; ++k1)
                X.set(chineseRemainder(k1, l, k2, f), V[k1]);
        }
    }
    return X;
}

Values goodThomasInverse(const HalfSpectrum& X, const Stage& stage, Stages inner)
{
    const int N = stage.length;
    const int f = stage.first;
    const int l = stage.last;
    std::vector<ComplexValues> Y; // by class, then by n mod f
    for (int c = 0; c <= l / 2; ++c) {
        if (isOwnConjugate(c, l)) {
            HalfSpectrum bins(f);
            for (int j = 0; j <= f / 2; ++j)
                bins.set(j, X.at(f * c + l * j));
            ComplexValues realOutputs;
            for (const Value y : inverseRealDft(bins, inner))
                realOutputs.push_back({y, {}});
            Y.push_back(realOutputs);
        } else {
            ComplexValues bins;
            for (int j = 0; j < f; ++j)
                bins.push_back(X.at(f * c + l * j));
            Y.push_back(inverseComplexDft(bins));
        }
    }
    Values y(N);
    for (int q = 0; q < f; ++q) {
        HalfSpectrum bins(l);
        for (int c = 0; c <= l / 2; ++c)
            bins.set(c, Y[c][q]);
        const Values column = inverseRealDft(bins, inner);
        for (int n = 0; n < l; ++n)
            y[chineseRemainder(n, l, q, f)] = column[n];
    }
    return y;
}

} // namespace rvn::dft_real
