// The real DFT kernels as data, from their rows: a graph serves the three packed layouts.

#include "generator/dft_real/layouts.h"
#include "generator/families.h"
#include "generator/passes/finished.h"
#include "generator/transforms/recursion.h"

namespace rvn::generator
{

namespace
{

std::string methodOf(const RealStage& stage, const RealRader& (*rowOf)(int prime))
{
    if (stage.method != Method::Rader)
        return nameOf(stage);
    const RealRader& row = stage.rader ? *stage.rader : rowOf(stage.length);
    return nameOf(stage) + ", g = " + std::to_string(row.generator) + ", by " + nameOf(row.whole) +
           " and " + nameOf(row.evenBins);
}

Graph forwardGraph(const RealStage& stage)
{
    const int N = stage.length;
    GraphBuilder builder;
    const HalfSpectrum X = realDft(stage, builder.loads(N), 1);
    Values outputs{X.bins[0].re};
    for (int k = 1; 2 * k < N; ++k)
        outputs.insert(outputs.end(), {X.bins[k].re, X.bins[k].im});
    if (N % 2 == 0)
        outputs.push_back(X.bins[N / 2].re);
    return finished(builder, outputs, NegatedDifferences::Kept);
}

Graph inverseGraph(const RealStage& stage)
{
    const int N = stage.length;
    GraphBuilder builder;
    HalfSpectrum X(N);
    int input = 0;
    X.bins[0].re = builder.load(input++);
    for (int k = 1; 2 * k < N; ++k) {
        X.bins[k].re = 2.0 * builder.load(input++);
        X.bins[k].im = 2.0 * builder.load(input++);
    }
    if (N % 2 == 0)
        X.bins[N / 2].re = builder.load(input);
    return finished(builder, inverseRealDft(stage, X));
}

std::string suffixOf(int length, Format format)
{
    return "_" + std::to_string(length) + "_" + suffixOf(format);
}

} // namespace

Kernel forwardRealKernel(const ForwardPlan& plan, Format format)
{
    const int N = plan.stage.length;
    std::vector<StraightLine> functions;
    for (const Layout layout : everyLayout) {
        const PackedLayout packed = packedLayout(layout, N);
        functions.push_back(
            {{"rvngDFTFwd_RTo" + nameOf(layout) + suffixOf(N, format),
              "Real DFT, forward, to " + nameOf(layout), elementTypeOf(format), forwardScale(N)},
             plainSlots(N),
             packed.valueSlot,
             packed.zeroSlot});
    }
    return {.family = "dft_real",
            .name = "dft_real_fwd" + suffixOf(N, format),
            .transform = "forward real DFT of length " + std::to_string(N),
            .method = methodOf(plan.stage, forwardRader),
            .format = format,
            .parts = {{forwardGraph(plan.stage)}},
            .row = {.additions = plan.additions,
                    .multiplications = plan.multiplications,
                    .negatedOutputs = plan.negatedOutputs,
                    .scaledInBinary64 = plan.scaledInBinary64},
            .functions = functions};
}

Kernel inverseRealKernel(const InversePlan& plan, Format format)
{
    const int N = plan.stage.length;
    std::vector<StraightLine> functions;
    for (const Layout layout : everyLayout)
        functions.push_back(
            {{"rvngDFTInv_" + nameOf(layout) + "ToR" + suffixOf(N, format),
              "Real DFT, inverse, from " + nameOf(layout), elementTypeOf(format), inverseScale(N)},
             packedLayout(layout, N).valueSlot,
             plainSlots(N)});
    return {.family = "dft_real",
            .name = "dft_real_inv" + suffixOf(N, format),
            .transform = "inverse real DFT of length " + std::to_string(N),
            .method = methodOf(plan.stage, inverseRader),
            .format = format,
            .parts = {{inverseGraph(plan.stage)}},
            .row = {.additions = plan.additions,
                    .multiplications = plan.multiplications,
                    .doublings = plan.doublings},
            .functions = functions};
}

} // namespace rvn::generator
