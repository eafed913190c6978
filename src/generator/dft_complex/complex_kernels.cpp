// The complex DFT kernels as data, from their rows. The inverse of a length is the forward kernel
// with real and imaginary parts crossed where it reads and where it writes.

#include "generator/dft_complex/complex_methods.h"
#include "generator/families.h"
#include "generator/passes/finished.h"
#include "generator/transforms/gather.h"

namespace rvn::generator
{

namespace
{

// "Rader, g = 2, by Good-Thomas 5 x 2 and Good-Thomas 2 x 5"
std::string methodOf(const ComplexStage& stage)
{
    const std::string name = nameOf(stage.method, stage.a, stage.b);
    if (stage.method != Method::Rader)
        return name;
    const ComplexRader& row = stage.rader ? *stage.rader : complexRader(stage.length);
    return name + ", g = " + std::to_string(row.generator) + ", by " + nameOf(row.first) + " and " +
           nameOf(row.second);
}

Graph graphOf(const ComplexStage& stage)
{
    GraphBuilder builder;
    const ComplexValues x = gather(stage.length, [&](int n) {
        const Value re = builder.load(2 * n);
        return ComplexValue{re, builder.load(2 * n + 1)};
    });
    Values outputs;
    for (const ComplexValue& X : complexDft(stage, x, 1))
        outputs.insert(outputs.end(), {X.re, X.im});
    return finished(builder, outputs);
}

std::vector<int> crossedSlots(int count)
{
    return gather(count, [](int slot) { return slot ^ 1; });
}

} // namespace

Kernel complexKernel(const ComplexPlan& plan, Format format)
{
    const int N = plan.stage.length;
    const std::string suffix = "_" + std::to_string(N) + "_" + suffixOf(format) + "c";
    const std::string elementType = "Rvn" + suffixOf(format) + "c";
    const std::vector<int> plain = plainSlots(2 * N);
    const std::vector<int> crossed = crossedSlots(2 * N);
    return {.family = "dft_complex",
            .name = "dft_complex" + suffix,
            .transform = "complex DFT of length " + std::to_string(N),
            .method = methodOf(plan.stage),
            .format = format,
            .parts = {{graphOf(plan.stage)}},
            .row = {.additions = plan.additions, .multiplications = plan.multiplications + 2 * N},
            .functions = std::vector<StraightLine>{
                {{"rvngDFTFwd_CToC" + suffix, "Complex DFT, forward", elementType, forwardScale(N)},
                 plain,
                 plain},
                {{"rvngDFTInv_CToC" + suffix, "Complex DFT, inverse", elementType, inverseScale(N)},
                 crossed,
                 crossed}}};
}

} // namespace rvn::generator
