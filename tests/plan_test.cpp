// The generator keeps its plans: every complex graph has its row's operation counts and computes
// its transform, constants merge where they should, and for all families precisions and schedules
// keep their rules.
//
// Graphs are interpreted at 128 bits, so what remains against the defining sum is the rounding of
// their constants. The decimal constants below were worked out apart from the generator.

#include "reference.h"

#include "dft_complex/kernels.h"
#include "dft_real/kernels.h"
#include "hartley/kernels.h"
#include "kernelgen/choice.h"
#include "kernelgen/cost.h"
#include "kernelgen/counts.h"
#include "kernelgen/evaluate.h"
#include "kernelgen/merge.h"
#include "kernelgen/roots.h"

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

struct NamedGraph {
    std::string name;
    Graph graph;
};

// Those of all straight-line kernels but the Walsh-Hadamard ones.
std::vector<NamedGraph> everyGraph()
{
    std::vector<NamedGraph> graphs;
    for (int N = 2; N <= 64; ++N) {
        const std::string length = " " + std::to_string(N);
        const int row = N - 2;
        graphs.push_back({"complex" + length, complexGraphOf(N)});
        graphs.push_back(
            {"forward" + length, dft_real::forwardGraph(dft_real::forwardPlans()[row])});
        graphs.push_back(
            {"inverse" + length, dft_real::inverseGraph(dft_real::inversePlans()[row])});
        graphs.push_back({"Hartley" + length, hartley::hartleyGraph(hartley::hartleyPlans()[row])});
    }
    return graphs;
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
        const std::vector<Quad> parts = evaluate<Quad>(dft_complex::complexGraph(plan), inputs);
        std::vector<Wide> X;
        for (std::size_t i = 0; i < parts.size(); i += 2)
            X.emplace_back(static_cast<long double>(parts[i]),
                           static_cast<long double>(parts[i + 1]));
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

TEST(Plan, InABinary32KernelNoBinary64ValueIsUsedTwice)
{
    for (const auto& [name, graph] : everyGraph()) {
        const std::vector<NodeFormat> formats = assignFormats(graph, Format::Binary32);
        std::vector<int> uses(graph.nodes.size());
        for (const Node& node : graph.nodes)
            for (const int operand : operands(node))
                ++uses[operand];
        for (const Output& output : graph.outputs)
            ++uses[output.node];
        for (std::size_t i = 0; i < uses.size(); ++i)
            EXPECT_TRUE(uses[i] == 1 || formats[i].held == Format::Binary32)
                << name << ", node " << i;
    }
}

// Whatever the order: each candidate, and the one that is taken.
std::vector<Schedule> everySchedule(const Graph& graph)
{
    std::vector<Schedule> schedules{chooseSchedule(graph, OrderRule::FewestAccesses).schedule};
    for (const Order& order :
         {constructionOrder(graph), pressureOrder(graph, 4), pressureOrder(graph, 40),
          bisectionOrder(graph, Side::Inputs), bisectionOrder(graph, Side::Outputs)})
        schedules.push_back(scheduleInOrder(graph, order, Stores::AfterLoads));
    return schedules;
}

void expectOrderly(const std::string& name, const Graph& graph, const Schedule& schedule)
{
    std::vector<int> ready(graph.nodes.size());
    std::vector<int> stored(graph.outputs.size());
    bool hasStored = false;
    for (const auto& [kind, index] : schedule) {
        if (kind == Step::Kind::Store) {
            EXPECT_EQ(ready[graph.outputs[index].node], 1) << name;
            ++stored[index];
            hasStored = true;
            continue;
        }
        EXPECT_EQ(kind == Step::Kind::Load, graph.nodes[index].op == Op::Load) << name;
        EXPECT_FALSE(hasStored && kind == Step::Kind::Load) << name;
        for (const int operand : operands(graph.nodes[index]))
            EXPECT_EQ(ready[operand], 1) << name;
        ++ready[index];
    }
    EXPECT_EQ(std::ranges::count(ready, 1), std::ssize(ready)) << name;
    EXPECT_EQ(std::ranges::count(stored, 1), std::ssize(stored)) << name;
}

TEST(Plan, AScheduleLoadsBeforeItStoresAndDoesEverythingOnce)
{
    for (const auto& [name, graph] : everyGraph())
        for (const Schedule& schedule : everySchedule(graph))
            expectOrderly(name, graph, schedule);
}

// Of a chain of products and a sum that needs them all in reverse, with more values than registers,
// only what does not fit is written and read again.
TEST(Plan, TheCostOfAScheduleIsWhatDoesNotFitTheRegisters)
{
    for (const auto& [values, spilled] : {std::pair{16, 0}, {17, 1}, {20, 4}}) {
        GraphBuilder builder;
        Values squares;
        for (int i = 0; i < values; ++i)
            squares.push_back(builder.load(i) * builder.load(i));
        Value sum = squares.back();
        for (int i = values - 2; i >= 0; --i)
            sum = sum + squares[i];
        const Graph graph = builder.finish(Values{sum});
        const Schedule schedule =
            scheduleInOrder(graph, constructionOrder(graph), Stores::AfterLoads);
        EXPECT_EQ(memoryAccesses(graph, schedule), values + 2 * spilled + 1) << values;
    }
}

TEST(Plan, TheGeneratorGivesTheSameBytesAgain)
{
    const auto expectSame = [](const auto& plans, const auto& makeFile) {
        for (const auto& plan : plans)
            for (const Format format : {Format::Binary32, Format::Binary64}) {
                const GeneratedFile file = makeFile(plan, format, Tuning());
                EXPECT_EQ(file.text, makeFile(plan, format, Tuning()).text) << file.name;
            }
    };
    expectSame(dft_complex::complexPlans(), dft_complex::kernelFile);
    expectSame(dft_real::forwardPlans(), dft_real::forwardFile);
    expectSame(dft_real::inversePlans(), dft_real::inverseFile);
    expectSame(hartley::hartleyPlans(), hartley::kernelFile);
}

} // namespace

} // namespace rvn::tests
