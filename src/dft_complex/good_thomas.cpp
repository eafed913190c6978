// Good 1958, Thomas 1963, N = a b with a and b coprime, and the same map on both sides:
// n = (b n1 + a n2) mod N, k = (b k1 + a k2) mod N. Then
//   W_N^(t n k) = W_a^(t b n1 k1) W_b^(t a n2 k2)
// so there are no twiddle factors, and the stages run on rotated roots.

#include "dft_complex/builders.h"

namespace rvn::dft_complex
{

using namespace kernelgen;

ComplexValues goodThomas(ComplexView x, int a, int b, int t)
{
    const int N = a * b;
    std::vector<ComplexValues> T(b);
    for (int n2 = 0; n2 < b; ++n2) {
        ComplexValues column;
        for (int n1 = 0; n1 < a; ++n1)
            column.push_back(x[(b * n1 + a * n2) % N]);
        T[n2] = complexDft(column, t * b % a);
    }
    ComplexValues X(N);
    for (int k1 = 0; k1 < a; ++k1) {
        ComplexValues row;
        for (int n2 = 0; n2 < b; ++n2)
            row.push_back(T[n2][k1]);
        const ComplexValues spectrum = complexDft(row, t * a % b);
        for (int k2 = 0; k2 < b; ++k2)
            X[(b * k1 + a * k2) % N] = spectrum[k2];
    }
    return X;
}

} // namespace rvn::dft_complex
