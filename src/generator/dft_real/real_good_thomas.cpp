// Good-Thomas splits of real data, N = a b with a and b coprime: b real transforms of size a, then
// a transform of size b for each of their bins. Bins above a/2 are conjugates and never computed;
// bins 0 and a/2 are real, and so are their transforms. The inverse is the mirror image, by the
// Chinese remainder theorem: classes of frequencies first, those above b/2 being conjugates, then
// real transforms of size b.

#include "generator/dft_real/real_methods.h"
#include "generator/transforms/gather.h"

namespace rvn::generator
{

namespace
{

// The index mod a b that is `inA` mod a and `inB` mod b.
int chineseRemainder(int inA, int a, int inB, int b)
{
    int index = inB % b;
    while (index % a != inA % a)
        index += b;
    return index;
}

bool isOwnConjugate(int index, int size)
{
    return 2 * index % size == 0;
}

} // namespace

// n = (b n1 + a n2) mod N. Equal maps: k = (b k1 + a k2) mod N, a stage a with root exponent t b,
// then a stage b with t a. By residues: k = k1 mod a = k2 mod b, and both stages with exponent 1.
HalfSpectrum goodThomasForward(const RealStage& stage, ValuesView x, int t)
{
    const int N = stage.length;
    const int a = stage.a.length;
    const int b = stage.b.length;
    const bool isEqual = stage.map == IndexMap::Equal;
    const int exponentA = isEqual ? t * b % a : 1;
    const int exponentB = isEqual ? t * a % b : 1;
    const auto bin = [&](int k1, int k2) {
        return isEqual ? (b * k1 + a * k2) % N : chineseRemainder(k1, a, k2, b);
    };

    const std::vector<HalfSpectrum> Y = gather(b, [&](int n2) {
        return realDft(stage.a, gather(a, [&](int n1) { return x[(b * n1 + a * n2) % N]; }),
                       exponentA);
    });
    HalfSpectrum X(N);
    for (int k1 = 0; k1 <= a / 2; ++k1) {
        if (isOwnConjugate(k1, a)) {
            const HalfSpectrum V =
                realDft(stage.b, gather(b, [&](int n2) { return Y[n2].bins[k1].re; }), exponentB);
            for (int k2 = 0; k2 <= b / 2; ++k2)
                X.set(bin(k1, k2), V.bins[k2]);
        } else {
            const ComplexValues V =
                complexDft(gather(b, [&](int n2) { return Y[n2].bins[k1]; }), exponentB);
            for (int k2 = 0; k2 < b; ++k2)
                X.set(bin(k1, k2), V[k2]);
        }
    }
    return X;
}

Values goodThomasInverse(const RealStage& stage, const HalfSpectrum& X)
{
    const int N = stage.length;
    const int a = stage.a.length;
    const int b = stage.b.length;
    std::vector<ComplexValues> Y; // by class, then by n mod a
    for (int k2 = 0; k2 <= b / 2; ++k2) {
        if (isOwnConjugate(k2, b)) {
            HalfSpectrum bins(a);
            for (int k1 = 0; k1 <= a / 2; ++k1)
                bins.set(k1, X.at(a * k2 + b * k1));
            const Values y = inverseRealDft(stage.a, bins);
            Y.push_back(gather(a, [&](int n1) { return ComplexValue{y[n1], {}}; }));
        } else {
            Y.push_back(
                inverseComplexDft(gather(a, [&](int k1) { return X.at(a * k2 + b * k1); })));
        }
    }
    Values y(N);
    for (int n1 = 0; n1 < a; ++n1) {
        HalfSpectrum bins(b);
        for (int k2 = 0; k2 <= b / 2; ++k2)
            bins.set(k2, Y[k2][n1]);
        const Values column = inverseRealDft(stage.b, bins);
        for (int n2 = 0; n2 < b; ++n2)
            y[chineseRemainder(n1, a, n2, b)] = column[n2];
    }
    return y;
}

} // namespace rvn::generator
