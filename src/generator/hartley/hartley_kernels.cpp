// Bracewell 1983: H[k] = sum over n of x[n] (cos(2 pi n k / N) + sin(2 pi n k / N)) is R(k) - I(k)
// of the real DFT. The inverse real DFT of the doubled half spectrum
//
//     r(k) = x[k] + x[N-k],  s(k) = x[N-k] - x[k],  R(0) = x[0],  R(N/2) = x[N/2]
//
// is the same sum, which gives the second route.

#include "generator/families.h"
#include "generator/passes/finished.h"
#include "generator/transforms/recursion.h"

namespace rvn::generator
{

namespace
{

Values byOutputs(ValuesView x)
{
    const int N = static_cast<int>(x.size());
    const HalfSpectrum X = realDft(N, x, 1);
    Values H(N);
    H[0] = X.bins[0].re;
    for (int k = 1; 2 * k < N; ++k) {
        H[k] = X.bins[k].re - X.bins[k].im;
        H[N - k] = X.bins[k].re + X.bins[k].im;
    }
    if (N % 2 == 0)
        H[N / 2] = X.bins[N / 2].re;
    return H;
}

Values byInputs(ValuesView x)
{
    const int N = static_cast<int>(x.size());
    HalfSpectrum X(N);
    X.bins[0].re = x[0];
    for (int k = 1; 2 * k < N; ++k)
        X.bins[k] = {x[k] + x[N - k], x[N - k] - x[k]};
    if (N % 2 == 0)
        X.bins[N / 2].re = x[N / 2];
    return inverseRealDft(N, X);
}

} // namespace

Kernel hartleyKernel(const HartleyPlan& plan, Format format)
{
    const int N = plan.length;
    const bool isByInputs = plan.route == Route::Input;
    const std::string suffix = "_" + std::to_string(N) + "_" + suffixOf(format);
    GraphBuilder builder;
    const Values x = builder.loads(N);
    const Graph graph = finished(builder, isByInputs ? byInputs(x) : byOutputs(x));
    return {.family = "hartley",
            .name = "hartley" + suffix,
            .transform = "Hartley transform of length " + std::to_string(N),
            .method = isByInputs ? "inverse real DFT of sums and differences"
                                 : "sums and differences of the real DFT",
            .format = format,
            .parts = {{graph}},
            .row = {.additions = plan.additions, .multiplications = plan.multiplications},
            .functions = std::vector<StraightLine>{{{"rvngHartley" + suffix, "Hartley transform",
                                                     elementTypeOf(format), selfInverseScale(N)},
                                                    plainSlots(N),
                                                    plainSlots(N)}}};
}

} // namespace rvn::generator
