// The graphs of the real DFT, of its inverse and of the Hartley transform, built by the recursion
// that other transforms call as well: each has the operation counts of its row and computes its
// sum.
//
// Graphs are interpreted at 128 bits, so what remains against the defining sum is the rounding of
// their constants.

#include "reference.h"

#include "dft_real/plans.h"
#include "hartley/kernels.h"
#include "kernelgen/counts.h"
#include "kernelgen/evaluate.h"
#include "kernelgen/merge.h"
#include "kernelgen/roots.h"

#include <algorithm>

namespace rvn::tests
{

namespace
{

using namespace kernelgen;

constexpr double constantsError = 5e-16;

// A half spectrum as the list of its parts: R(0), R(1), I(1), R(2), I(2), ...
std::vector<Wide> partsOf(const std::vector<Wide>& spectrum)
{
    std::vector<Wide> parts;
    for (std::size_t part = 0; part < spectrum.size(); ++part) {
        const Wide bin = spectrum[(part + 1) / 2];
        parts.emplace_back(part > 0 && part % 2 == 0 ? bin.imag() : bin.real());
    }
    return parts;
}

Value& partOf(HalfSpectrum& X, int part)
{
    ComplexValue& bin = X.bins[(part + 1) / 2];
    return part > 0 && part % 2 == 0 ? bin.im : bin.re;
}

Graph forwardGraphOf(const dft_real::ForwardPlan& plan)
{
    GraphBuilder builder;
    const int N = plan.stage.length;
    HalfSpectrum X = realDft(builder.loads(N), 1, {});
    Values outputs;
    for (int part = 0; part < N; ++part)
        outputs.push_back(partOf(X, part));
    return mergeProducts(builder.finish(outputs));
}

Graph inverseGraphOf(const dft_real::InversePlan& plan)
{
    GraphBuilder builder;
    const int N = plan.stage.length;
    HalfSpectrum X(N);
    for (int part = 0; part < N; ++part) {
        const bool isInner = part > 0 && part + 1 < N + N % 2;
        partOf(X, part) = isInner ? 2.0 * builder.load(part) : builder.load(part);
    }
    return mergeProducts(builder.finish(inverseRealDft(X, {.stages = {&plan.inner, 1}})));
}

int doublings(const Graph& graph)
{
    return static_cast<int>(std::ranges::count_if(graph.nodes, [](const Node& node) {
        return node.op == Op::Multiply && node.constant == 2;
    }));
}

void expectSum(const Graph& graph, const std::vector<Wide>& inputs,
               const std::vector<Wide>& expected)
{
    std::vector<Quad> values;
    for (const Wide& input : inputs)
        values.push_back(input.real());
    std::vector<Wide> result;
    for (const Quad value : evaluate<Quad>(graph, values))
        result.emplace_back(static_cast<long double>(value));
    EXPECT_LE(relativeError(result, expected), constantsError) << expected.size();
}

std::vector<Wide> realSignal(int length)
{
    return scaled(randomParts<double>(length, 2), 1);
}

// A row's counts are the kernel's: with the products by S and the negations that follow them.
TEST(RealPlan, EveryForwardRealTransformHasItsRowAndItsSum)
{
    for (const dft_real::ForwardPlan& plan : dft_real::forwardPlans()) {
        const int N = plan.stage.length;
        const Graph graph = forwardGraphOf(plan);
        const Counts counts = countOperations(graph);
        EXPECT_EQ(std::ranges::count_if(graph.outputs, &Output::negated), plan.negatedOutputs) << N;
        EXPECT_EQ(counts.additions + plan.negatedOutputs, plan.additions) << N;
        EXPECT_EQ(counts.multiplications + N, plan.multiplications) << N;
        EXPECT_EQ(countScaledInBinary64(graph, assignFormats(graph, Format::Binary32)),
                  plan.scaledInBinary64)
            << N;
        const std::vector<Wide> signal = realSignal(N);
        expectSum(graph, signal, partsOf(directSum(signal, false)));
    }
}

TEST(RealPlan, EveryInverseRealTransformHasItsRowAndItsSum)
{
    for (const dft_real::InversePlan& plan : dft_real::inversePlans()) {
        const int N = plan.stage.length;
        const Graph graph = inverseGraphOf(plan);
        const Counts counts = countOperations(graph);
        EXPECT_EQ(std::ranges::count_if(graph.outputs, &Output::negated), 0) << N;
        EXPECT_EQ(counts.additions, plan.additions) << N;
        EXPECT_EQ(counts.multiplications + N, plan.multiplications) << N;
        EXPECT_EQ(doublings(graph), plan.doublings) << N;
        std::vector<Wide> signal = realSignal(N);
        const std::vector<Wide> parts = partsOf(directSum(signal, false));
        for (Wide& value : signal)
            value *= N;
        expectSum(graph, parts, signal);
    }
}

TEST(RealPlan, EveryHartleyTransformHasItsRowAndItsSum)
{
    for (const hartley::HartleyPlan& plan : hartley::hartleyPlans()) {
        const int N = plan.length;
        const Graph graph = hartley::hartleyGraph(plan);
        const Counts counts = countOperations(graph);
        EXPECT_EQ(counts.additions, plan.additions) << N;
        EXPECT_EQ(counts.multiplications + N, plan.multiplications) << N;
        const std::vector<Wide> signal = realSignal(N);
        std::vector<Wide> expected;
        for (const Wide& bin : directSum(signal, false))
            expected.emplace_back(bin.real() - bin.imag());
        expectSum(graph, signal, expected);
    }
}

} // namespace

} // namespace rvn::tests
