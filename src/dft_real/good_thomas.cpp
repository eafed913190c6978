// Good-Thomas splits of real data, N = f l with f and l coprime: l real transforms of size f, then
// a transform of size l for each of their bins. Bins above f/2 are conjugates and never computed;
// bins 0 and f/2 are real, and so are their transforms. The inverse is the mirror image, by the
// Chinese remainder theorem: classes of frequencies first, those above l/2 being conjugates, then
// real transforms of size l.

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

// The equal maps of the complex split: n = l a + f b and k = l k1 + f k2 mod N, a stage f with root
// exponent t l, then a stage l with t f. By residues: x index n = f b + l a, X index k = k1 mod f =
// k2 mod l, and both stages with exponent 1.
HalfSpectrum goodThomasForward(ValuesView x, const Stage& stage, int t, const Nesting& inner)
{
    const int N = stage.length;
    const int f = stage.first;
    const int l = stage.last;
    const int firstExponent = inner.byResidues ? 1 : t * l % f;
    const int lastExponent = inner.byResidues ? 1 : t * f % l;
    const auto bin = [&](int k1, int k2) {
        return inner.byResidues ? chineseRemainder(k2, l, k1, f) : (l * k1 + f * k2) % N;
    };

    std::vector<HalfSpectrum> Y;
    for (int b = 0; b < l; ++b) {
        Values subsequence;
        for (int a = 0; a < f; ++a)
            subsequence.push_back(x[(l * a + f * b) % N]);
        Y.push_back(realDft(subsequence, firstExponent, inner));
    }
    HalfSpectrum X(N);
    for (int k1 = 0; k1 <= f / 2; ++k1) {
        if (isOwnConjugate(k1, f)) {
            Values column;
            for (int b = 0; b < l; ++b)
                column.push_back(Y[b].bins[k1].re);
            const HalfSpectrum V = realDft(column, lastExponent, inner);
            for (int k2 = 0; k2 <= l / 2; ++k2)
                X.set(bin(k1, k2), V.bins[k2]);
        } else {
            ComplexValues column;
            for (int b = 0; b < l; ++b)
                column.push_back(Y[b].bins[k1]);
            const ComplexValues V = complexDft(column, lastExponent);
            for (int k2 = 0; k2 < l; ++k2)
                X.set(bin(k1, k2), V[k2]);
        }
    }
    return X;
}

Values goodThomasInverse(const HalfSpectrum& X, const Stage& stage, const Nesting& inner)
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
