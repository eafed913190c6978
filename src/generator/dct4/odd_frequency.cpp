// Decimation in time, L = r M, m = M/2, with V_v the odd-frequency transform of the M points
// u[v + r w], w = -M/2 to M/2 - 1:
//   T_v         = V_v(q) e^(i pi v (2q + 1) / L),  v = 0 to r - 1, q = 0 to m - 1
//   D[s]        = sum over v of T_v e^(2 pi i v s / r)
//   Y(q + M s)  = D[s],  Y(M - 1 - q + M s) = conj D[r - 1 - s],  s = 0 to r/2 - 1,
// since Y has the period L and Y(L - 1 - q) = conj Y(q). The transpose runs it backwards.

#include "generator/dct4/odd_frequency.h"

#include "generator/transforms/recursion.h"
#include "generator/transforms/roots.h"

namespace rvn::generator
{

namespace
{

// x e^(i pi numerator / denominator)
ComplexValue rotate(ComplexValue x, int numerator, int denominator)
{
    return multiply(x, cosine(numerator, 2L * denominator), sine(numerator, 2L * denominator));
}

// 4 points: e^(i pi t (2q + 1) / 4) is (1 + i) h at t = q = 1, with h = sqrt(1/2).
ComplexValues oddFrequency4(ValuesView u)
{
    const double h = cosine(1, 8);
    const Value e = h * (u[3] + u[1]);
    const Value f = h * (u[3] - u[1]);
    return {{u[2] + e, f - u[0]}, {u[2] - e, u[0] + f}};
}

Values transposedOddFrequency4(ComplexValue T0, ComplexValue T1)
{
    const double h = cosine(1, 8);
    const Value e = h * (T0.re - T1.re);
    const Value f = h * (T0.im + T1.im);
    return {T0.im - T1.im, e + f, T0.re + T1.re, e - f};
}

} // namespace

ComplexValues positiveDft(ComplexView x)
{
    return inverseComplexDft(x);
}

ComplexValues oddFrequency(ValuesView u, Radixes radixes)
{
    const int L = static_cast<int>(u.size());
    if (L == 2)
        return {{u[1], -u[0]}};
    if (L == 4)
        return oddFrequency4(u);
    const int r = radixes.front();
    const int M = L / r;
    std::vector<ComplexValues> V;
    for (int v = 0; v < r; ++v) {
        Values sequence;
        for (int w = 0; w < M; ++w)
            sequence.push_back(u[v + r * w]);
        V.push_back(oddFrequency(sequence, radixes.subspan(1)));
    }
    ComplexValues Y(L / 2);
    for (int q = 0; q < M / 2; ++q) {
        ComplexValues T{V[0][q]};
        for (int v = 1; v < r; ++v)
            T.push_back(rotate(V[v][q], v * (2 * q + 1), L));
        const ComplexValues D = positiveDft(T);
        for (int s = 0; s < r / 2; ++s) {
            Y[q + M * s] = D[s];
            Y[M - 1 - q + M * s] = conjugate(D[r - 1 - s]);
        }
    }
    return Y;
}

Values transposedOddFrequency(const std::function<ComplexValue(int q)>& T, int L, Radixes radixes)
{
    if (L == 2) {
        const ComplexValue only = T(0);
        return {only.im, only.re};
    }
    if (L == 4) {
        const ComplexValue T0 = T(0);
        return transposedOddFrequency4(T0, T(1));
    }
    const int r = radixes.front();
    const int M = L / r;
    std::vector<ComplexValues> U(r, ComplexValues(M / 2));
    for (int q = 0; q < M / 2; ++q) {
        ComplexValues D(r);
        for (int s = 0; s < r / 2; ++s) {
            D[s] = T(q + M * s);
            D[r - 1 - s] = conjugate(T(M - 1 - q + M * s));
        }
        const ComplexValues sums = positiveDft(D);
        U[0][q] = sums[0];
        for (int v = 1; v < r; ++v)
            U[v][q] = rotate(sums[v], v * (2 * q + 1), L);
    }
    Values W(L);
    for (int v = 0; v < r; ++v) {
        const Values sequence =
            transposedOddFrequency([&](int q) { return U[v][q]; }, M, radixes.subspan(1));
        for (int w = 0; w < M; ++w)
            W[v + r * w] = sequence[w];
    }
    return W;
}

} // namespace rvn::generator
