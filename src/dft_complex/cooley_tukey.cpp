// Cooley and Tukey 1965, N = a b, n = b n1 + n2, k = k1 + a k2:
//   X[k1 + a k2] = sum over n2 of W_b^(t n2 k2) W_N^(t n2 k1) T[n2][k1]
//   T[n2][k1]    = sum over n1 of W_a^(t n1 k1) x[b n1 + n2]

#include "dft_complex/builders.h"

namespace rvn::dft_complex
{

using namespace kernelgen;

ComplexValues cooleyTukey(ComplexView x, int a, int b, int t)
{
    std::vector<ComplexValues> T(b);
    for (int n2 = 0; n2 < b; ++n2) {
        ComplexValues column;
        for (int n1 = 0; n1 < a; ++n1)
            column.push_back(x[b * n1 + n2]);
        T[n2] = complexDft(column, t % a);
        for (int k1 = 1; k1 < a; ++k1)
            T[n2][k1] = twiddle(T[n2][k1], t * n2 * k1, a * b);
    }
    ComplexValues X(a * b);
    for (int k1 = 0; k1 < a; ++k1) {
        ComplexValues row;
        for (int n2 = 0; n2 < b; ++n2)
            row.push_back(T[n2][k1]);
        const ComplexValues spectrum = complexDft(row, t % b);
        for (int k2 = 0; k2 < b; ++k2)
            X[k1 + a * k2] = spectrum[k2];
    }
    return X;
}

} // namespace rvn::dft_complex
