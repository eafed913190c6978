// The generator keeps its plans: every graph has its row's operation counts and computes its
// transform, constants merge where they should, and precisions and schedules keep their rules.
//
// Graphs are interpreted at 128 bits, so what remains against the defining sum is the rounding of
// their constants. The decimal constants below were worked out apart from the generator.

#include "reference.h"

#include "dft_complex/kernels.h"
#include "dft_real/plans.h"
#include "kernelgen/counts.h"
#include "kernelgen/evaluate.h"
#include "kernelgen/merge.h"
#include "kernelgen/roots.h"
#include "kernelgen/schedule.h"

#include <algorithm>
#include <stdexcept>

namespace rvn::tests
{

namespace
{

using namespace kernelgen;

constexpr double constantsError = 5e-16;

Graph complexGraphOf(int length)
{
    return dft_complex::complexGraph(dft_complex::complexPlan(length));
}

// Values of one part, or pairs of two.
std::vector<Wide> narrowed(const std::vector<Quad>& values, std::size_t parts)
{
    std::vector<Wide> narrow;
    for (std::size_t i = 0; i < values.size(); i += parts)
        narrow.emplace_back(static_cast<long double>(values[i]),
                            parts == 2 ? static_cast<long double>(values[i + 1]) : 0);
    return narrow;
}

bool hasConstant(const Graph& graph, double constant, double tolerance = 2.3e-16)
{
    return std::ranges::any_of(graph.nodes, [&](const Node& node) {
        return node.op == Op::Multiply && std::fabs(node.constant / constant - 1) <= tolerance;
    });
}

TEST(Plan, EveryLengthsGraphIsTheDefiningSum)
{
    for (const dft_complex::ComplexPlan& plan : dft_complex::complexPlans()) {
        const Signal<Rvn64fc> x = randomSignal<Rvn64fc>(plan.length, 1);
        std::vector<Quad> inputs;
        for (const Rvn64fc& value : x)
            inputs.insert(inputs.end(), {value.re, value.im});
        const std::vector<Wide> X =
            narrowed(evaluate<Quad>(dft_complex::complexGraph(plan), inputs), 2);
        EXPECT_LE(relativeError(X, directSum(widened(x), false)), constantsError) << plan.length;
    }
}

TEST(Plan, AGraphThatMissesItsRowIsRefusedWithBothCounts)
{
    const struct {
        int additions, multiplications;
    } wrong[] = {{1, 0}, {0, -1}};
    for (const auto& [additions, multiplications] : wrong) {
        dft_complex::ComplexPlan plan = dft_complex::complexPlan(15);
        plan.additions += additions;
        plan.multiplications += multiplications;
        try {
            dft_complex::complexGraph(plan);
            ADD_FAILURE() << "accepted";
        } catch (const std::runtime_error& error) {
            EXPECT_EQ(error.what(),
                      "complex DFT, length 15: expected " + std::to_string(plan.additions) +
                          " additions and " + std::to_string(plan.multiplications) +
                          " multiplications, found 156 additions and 68 multiplications");
        }
    }
}

TEST(Plan, MergedConstantsStandWhereTheyBelong)
{
    const struct {
        int length;
        std::vector<double> constants;
    } table[] = {
        {13, {0.4473201176025111, 0.26596624921483725, 0.5035370328637666, 0.13146782826261083}},
        {19, {0.1503837331804353, 0.2961981327260238, 0.8528685319524432, 0.8137976813493737}},
        {37, {0.1503837331804353, 0.2961981327260238, 0.8528685319524432, 0.8137976813493737}},
        {53, {0.4330127018922193, 0.7499999999999999}}};
    for (const auto& [length, constants] : table)
        for (const double constant : constants)
            EXPECT_TRUE(hasConstant(complexGraphOf(length), constant))
                << length << ": " << constant;
}

TEST(Plan, TheDiagonalOfLength11ChangesWithTheRootOfItsStage)
{
    const std::vector<double> diagonal = {0.1,
                                          0.33166247903554,
                                          0.19106037559687397,
                                          0.635213297150478,
                                          0.527221112864967,
                                          0.4025393125514894,
                                          0.5082556049431003,
                                          0.4262349587304204,
                                          0.4140324199662142,
                                          0.5182443007085755};
    const auto occurring = [&](int length) {
        return std::ranges::count_if(diagonal, [graph = complexGraphOf(length)](double constant) {
            return hasConstant(graph, constant, 1e-14);
        });
    };
    EXPECT_EQ(occurring(11), 10);
    EXPECT_LT(occurring(22), 10);
}

// A real signal and its half spectrum, the inner bins doubled for the inverse, as flat lists of the
// parts that exist: whichever of the two goes in, the other comes out.
void expectRealTransform(const dft_real::RealPlan& plan, bool isInverse)
{
    const int N = plan.stage.length;
    std::vector<Wide> signal;
    for (const Rvn64fc& value : randomSignal<Rvn64fc>(N, 2))
        signal.emplace_back(value.re);
    const std::vector<Wide> spectrum = directSum(signal, false);

    GraphBuilder builder;
    HalfSpectrum X = isInverse ? HalfSpectrum(N) : realDft(builder.loads(N), {});
    Values outputs;
    std::vector<Wide> parts;
    const auto addPart = [&](Value& part, long double value) {
        parts.emplace_back(value);
        if (isInverse)
            part = builder.load(static_cast<int>(parts.size()) - 1);
        else
            outputs.push_back(part);
    };
    for (int k = 0; 2 * k <= N; ++k) {
        const bool isReal = k == 0 || 2 * k == N;
        const Wide bin = spectrum[k] * (isInverse && !isReal ? 2.0L : 1.0L);
        addPart(X.bins[k].re, bin.real());
        if (!isReal)
            addPart(X.bins[k].im, bin.imag());
    }
    if (isInverse) {
        outputs = inverseRealDft(X, {});
        for (Wide& value : signal)
            value *= N;
    }
    const Graph graph = mergeProducts(builder.finish(outputs));
    EXPECT_EQ(countOperations(graph).additions, plan.additions) << N << isInverse;
    EXPECT_EQ(countOperations(graph).multiplications, plan.multiplications) << N << isInverse;
    std::vector<Quad> inputs;
    for (const Wide& value : isInverse ? parts : signal)
        inputs.push_back(value.real());
    const std::vector<Quad> result = evaluate<Quad>(graph, inputs);
    EXPECT_LE(relativeError(narrowed(result, 1), isInverse ? signal : parts), constantsError) << N;
}

TEST(Plan, EveryRealTransformStandingAloneHasItsRowAndItsSum)
{
    for (const dft_real::RealPlan& plan : dft_real::forwardPlans())
        expectRealTransform(plan, false);
    for (const dft_real::RealPlan& plan : dft_real::inversePlans())
        expectRealTransform(plan, true);
}

TEST(Plan, InABinary32KernelNoBinary64ValueIsUsedTwice)
{
    for (int N = 2; N <= 64; ++N) {
        const Graph graph = complexGraphOf(N);
        const std::vector<NodeFormat> formats = assignFormats(graph, Format::Binary32);
        std::vector<int> uses(graph.nodes.size());
        for (const Node& node : graph.nodes)
            for (const int operand : operands(node))
                ++uses[operand];
        for (const Output& output : graph.outputs) {
            EXPECT_EQ(formats[output.node].held, Format::Binary32) << N;
            ++uses[output.node];
        }
        for (std::size_t i = 0; i < uses.size(); ++i)
            EXPECT_TRUE(uses[i] == 1 || formats[i].held == Format::Binary32) << N << ", node " << i;
    }
}

TEST(Plan, AScheduleLoadsBeforeItStoresAndDoesEverythingOnce)
{
    for (int N = 2; N <= 64; ++N) {
        const Graph graph = complexGraphOf(N);
        std::vector<int> ready(graph.nodes.size());
        std::vector<int> stored(graph.outputs.size());
        bool hasStored = false;
        for (const auto& [kind, index] : constructionOrder(graph)) {
            if (kind == Step::Kind::Store) {
                EXPECT_EQ(ready[graph.outputs[index].node], 1) << N;
                ++stored[index];
                hasStored = true;
                continue;
            }
            EXPECT_EQ(kind == Step::Kind::Load, graph.nodes[index].op == Op::Load) << N;
            EXPECT_FALSE(hasStored && kind == Step::Kind::Load) << N;
            for (const int operand : operands(graph.nodes[index]))
                EXPECT_EQ(ready[operand], 1) << N;
            ++ready[index];
        }
        EXPECT_EQ(std::ranges::count(ready, 1), std::ssize(ready)) << N;
        EXPECT_EQ(std::ranges::count(stored, 1), std::ssize(stored)) << N;
    }
}

TEST(Plan, TheGeneratorGivesTheSameBytesAgain)
{
    for (const dft_complex::ComplexPlan& plan : dft_complex::complexPlans())
        for (const Format format : {Format::Binary32, Format::Binary64})
            EXPECT_EQ(dft_complex::kernelFile(plan, format).text,
                      dft_complex::kernelFile(plan, format).text)
                << plan.length;
}

} // namespace

} // namespace rvn::tests
