// Good 1958, Thomas 1963, N = a b with a and b coprime, and the same map on both sides:
// n = (b n1 + a n2) mod N, k = (b k1 + a k2) mod N. Then
//
//     W_N^(t n k) = W_a^(t b n1 k1) W_b^(t a n2 k2)
//
// so there are no twiddle factors, and the stages run on rotated roots.

#include "generator/dft_complex/complex_methods.h"
#include "generator/transforms/gather.h"

namespace rvn::generator
{

ComplexValues goodThomas(const ComplexStage& stage, ComplexView x, int t)
{
    const int N = stage.length;
    const int a = stage.a;
    const int b = stage.b;
    const std::vector<ComplexValues> Y = gather(b, [&](int n2) {
        return complexDft(gather(a, [&](int n1) { return x[(b * n1 + a * n2) % N]; }), t * b % a);
    });
    ComplexValues X(N);
    for (int k1 = 0; k1 < a; ++k1) {
        const ComplexValues row =
            complexDft(gather(b, [&](int n2) { return Y[n2][k1]; }), t * a % b);
        for (int k2 = 0; k2 < b; ++k2)
            X[(b * k1 + a * k2) % N] = row[k2];
    }
    return X;
}

} // namespace rvn::generator
