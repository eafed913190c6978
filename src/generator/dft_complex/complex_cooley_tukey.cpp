// Cooley and Tukey 1965, N = a b, n = b n1 + n2, k = k1 + a k2:
//
//     X[k1 + a k2] = sum over n2 of W_b^(t n2 k2) W_N^(t n2 k1) Y[n2][k1]
//     Y[n2][k1]    = sum over n1 of W_a^(t n1 k1) x[b n1 + n2]

#include "generator/dft_complex/complex_methods.h"
#include "generator/transforms/gather.h"

namespace rvn::generator
{

ComplexValues cooleyTukey(const ComplexStage& stage, ComplexView x, int t)
{
    const int N = stage.length;
    const int a = stage.a;
    const int b = stage.b;
    std::vector<ComplexValues> Y;
    for (int n2 = 0; n2 < b; ++n2) {
        Y.push_back(complexDft(gather(a, [&](int n1) { return x[b * n1 + n2]; }), t % a));
        for (int k1 = 1; k1 < a; ++k1)
            Y[n2][k1] = twiddle(Y[n2][k1], t * n2 * k1, N);
    }
    ComplexValues X(N);
    for (int k1 = 0; k1 < a; ++k1) {
        const ComplexValues row = complexDft(gather(b, [&](int n2) { return Y[n2][k1]; }), t % b);
        for (int k2 = 0; k2 < b; ++k2)
            X[k1 + a * k2] = row[k2];
    }
    return X;
}

} // namespace rvn::generator
