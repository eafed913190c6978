// The generator keeps its plans: every graph computes its transform from constants that are exact
// to the last place, a row that it misses stops the build, precisions and schedules keep their
// rules, and files are written when their bytes change.
//
// Graphs are interpreted at 128 bits, so what remains against the defining sum is the rounding of
// their constants.

#include "planned_graphs.h"
#include "reference.h"

#include "generator/dct4/body_graphs.h"
#include "generator/files.h"
#include "generator/graph/evaluate.h"
#include "generator/order/choice.h"
#include "generator/order/cost.h"
#include "generator/order/tuning.h"
#include "generator/transforms/roots.h"

#include <algorithm>
#include <fstream>
#include <set>
#include <stdexcept>

namespace rvn::tests
{

namespace
{

using namespace generator;

std::string nameOf(const generator::BodyPlan& plan)
{
    return "DCT-IV, " + generator::nameOf(plan.kind) + " " + std::to_string(plan.size);
}

TEST(Plan, EveryGraphIsItsTransform)
{
    for (const auto& planned : everyGraph()) {
        const auto& kernel = planned.kernel;
        const auto x = randomParts<double>(kernel.parts(), 1);
        const std::vector<Quad> inputs(x.begin(), x.end());
        std::vector<Wide> X;
        for (const Quad part : evaluate<Quad>(planned.graph, inputs))
            X.emplace_back(static_cast<long double>(part));
        EXPECT_LE(relativeError(X, product(matrixOf(kernel), x)), 2e-16) << kernel.name;
    }
}

// What constants are made of, each rounded once, as significands: the powers of two among a
// constant's factors are exact.
class Definitions
{
public:
    Definitions()
    {
        for (int n = 3; n <= 256; n += n < 64 ? 1 : n) {
            roots_.insert(significand(1.0 / n));
            for (int turns = 1; turns < n; ++turns)
                add(roots_, root(turns, n));
        }
        all_ = roots_;
        for (int turns = 1; turns < 16; ++turns) // tangents of lifting steps
            add(all_, root(turns, 64).imag() / root(turns, 64).real());
        for (int p = 11; p < 64; ++p)
            if (std::ranges::none_of(std::array{2, 3, 5, 7}, [p](int q) { return p % q == 0; }))
                addDiagonals(p);
    }

    // One of them, or the rounded product of a root and one of them.
    bool hold(double constant) const
    {
        return all_.contains(significand(constant)) ||
               std::ranges::any_of(roots_, [&](double factor) {
                   const double other = constant / factor;
                   return std::ranges::any_of(
                       std::array{std::nextafter(other, 0), other, std::nextafter(other, 2)},
                       [&](double candidate) {
                           return factor * candidate == constant &&
                                  all_.contains(significand(candidate));
                       });
               });
    }

private:
    using Root = std::complex<Quad>;

    static double significand(double value)
    {
        int exponent;
        return std::frexp(std::fabs(value), &exponent);
    }

    static void add(std::set<double>& set, Root value)
    {
        for (const Quad part : {value.real(), value.imag()})
            set.insert(significand(static_cast<double>(part)));
    }

    // e^(2 pi i turns / n): from long double, one step of Newton's method on z^n = 1.
    static Root root(int turns, int n)
    {
        const Wide near = unitRoot(turns, n);
        const Root z(near.real(), near.imag());
        Root power(1);
        for (int i = 0; i < n; ++i)
            power *= z;
        return z - z * (power - Root(1)) / Root(n);
    }

    // Rader 1968: of a prime p, sum over m of W_p^(t g^m) W_L^(k m), over L = p - 1, for any
    // generator g, all k and all t.
    void addDiagonals(int p)
    {
        const int L = p - 1;
        std::vector<int> power;
        for (int g = 2; static_cast<int>(std::set(power.begin(), power.end()).size()) < L; ++g) {
            power = {1};
            while (static_cast<int>(power.size()) < L)
                power.push_back(power.back() * g % p);
        }
        std::vector<Root> ofPrime, ofLength;
        for (int turns = 0; turns < p; ++turns) {
            ofPrime.push_back(root(turns, p));
            ofLength.push_back(root(turns, L));
        }
        for (int t = 1; t < p; ++t)
            for (int k = 0; k < L; ++k) {
                Root sum = 0;
                for (int m = 0; m < L; ++m)
                    sum += ofPrime[t * power[m] % p] * ofLength[k * m % L];
                add(all_, sum / Root(L));
            }
    }

    std::set<double> roots_, all_;
};

TEST(Plan, EveryConstantIsExactToTheLastPlace)
{
    const Definitions definitions;
    std::set<double> held;
    const auto expectExact = [&](const std::string& name, const Graph& graph) {
        for (const Node& node : graph.nodes) {
            const bool isNew = node.op == Op::Multiply && held.insert(node.constant).second;
            EXPECT_TRUE(!isNew || definitions.hold(node.constant))
                << name << ": " << std::hexfloat << node.constant;
        }
    };
    for (const auto& planned : everyGraph())
        expectExact(planned.kernel.name, planned.graph);
    for (const generator::BodyPlan& plan : generator::bodyPlans)
        expectExact(nameOf(plan), generator::bodyGraph(plan));
}

TEST(Plan, AKernelThatMissesItsRowIsRefusedWithBothCounts)
{
    const struct {
        int additions, multiplications;
        const char* message;
    } wrong[] = {{1, 0, "expected 157 additions, found 156"},
                 {0, -1, "expected 97 multiplications, found 98"}};
    for (const auto& [additions, multiplications, message] : wrong) {
        ComplexPlan plan = complexPlan(15);
        plan.additions += additions;
        plan.multiplications += multiplications;
        try {
            requireRow(complexKernel(plan, Format::Binary64));
            ADD_FAILURE() << "accepted";
        } catch (const std::runtime_error& error) {
            EXPECT_EQ(error.what(),
                      "complex DFT of length 15, Good-Thomas 3 x 5: " + std::string(message));
        }
    }
}

// The operations of a graph, in order.
std::vector<std::array<double, 4>> operationsOf(const generator::Kernel& kernel)
{
    std::vector<std::array<double, 4>> operations;
    for (const Node& node : kernel.parts.front().graph.nodes)
        operations.push_back({static_cast<double>(node.op), static_cast<double>(node.operand[0]),
                              static_cast<double>(node.operand[1]), node.constant});
    return operations;
}

// Whoever edits a row sees another graph, or a refusal.
TEST(Plan, TheRowDrivesTheGraph)
{
    constexpr Format format = Format::Binary64;
    ComplexPlan plan = complexPlan(15);
    const auto original = operationsOf(complexKernel(plan, format));
    plan.stage = {15, Method::GoodThomas, 5, 3};
    EXPECT_NE(operationsOf(complexKernel(plan, format)), original);
    EXPECT_NO_THROW(requireRow(complexKernel(plan, format)));
    plan.stage = {15, Method::CooleyTukey, 3, 5};
    EXPECT_THROW(requireRow(complexKernel(plan, format)), std::runtime_error);
    for (const ComplexStage& stage : {ComplexStage{15, Method::CooleyTukey, 999, -7},
                                      {15, Method::CooleyTukey, 15, 1},
                                      {15, Method::Direct},
                                      {16, Method::GoodThomas, 4, 4},
                                      {15, Method::Rader}}) {
        plan.stage = stage;
        EXPECT_THROW(complexKernel(plan, format), std::runtime_error);
    }

    // The departures of a row's inner stages travel with it.
    ComplexRader rader = complexRader(13);
    rader.first = notation::residues(12, 3, 4);
    ComplexPlan prime = complexPlan(13);
    prime.stage.rader = &rader;
    EXPECT_NE(operationsOf(complexKernel(prime, format)),
              operationsOf(complexKernel(complexPlan(13), format)));

    InversePlan inverse = inversePlans()[60 - 2];
    inverse.stage.a = 12;
    EXPECT_NE(operationsOf(inverseRealKernel(inverse, format)),
              operationsOf(inverseRealKernel(inversePlans()[60 - 2], format)));
    // What a stage cannot do, or what its direction does not ask for.
    using enum OddBins::Form;
    for (const OddBins& middle :
         {OddBins{HalfComplexMirrored}, OddBins{Alternate}, OddBins{Eighths},
          OddBins{Interleaved, 0}, OddBins{Interleaved, 2}}) {
        ForwardPlan forward = forwardPlans()[8 - 2];
        forward.stage.middle = middle;
        EXPECT_THROW(forwardRealKernel(forward, format), std::runtime_error);
    }
    for (const RealStage& stage :
         {notation::direct(7, 4), notation::direct(7), notation::ctUpper(9, 3, 3)}) {
        ForwardPlan forward = forwardPlans()[stage.length - 2];
        forward.stage = stage;
        EXPECT_THROW(forwardRealKernel(forward, format), std::runtime_error);
    }
    for (const RealStage& stage : {notation::direct(7, 3), notation::residues(10, 2, 5)}) {
        inverse.stage = stage;
        EXPECT_THROW(inverseRealKernel(inverse, format), std::runtime_error);
    }
}

TEST(Plan, InABinary32KernelNoBinary64ValueIsUsedTwiceAndNoDoublingIsOne)
{
    for (const auto& planned : everyGraph()) {
        const Graph& graph = planned.graph;
        const std::vector<NodeFormat> formats = assignFormats(graph, Format::Binary32);
        const std::vector<int> uses = useCounts(graph);
        for (std::size_t i = 0; i < uses.size(); ++i) {
            EXPECT_TRUE(uses[i] <= 1 || formats[i].held == Format::Binary32)
                << planned.kernel.name << ", node " << i;
            EXPECT_TRUE(graph.nodes[i].op != Op::Multiply || graph.nodes[i].constant != 2 ||
                        formats[i].computed == Format::Binary32)
                << planned.kernel.name << ", doubling " << i;
        }
    }
}

void expectOrderly(const std::string& name, const Graph& graph, const Schedule& schedule,
                   Stores stores)
{
    std::vector<int> ready(graph.nodes.size());
    std::vector<int> stored(graph.outputs.size());
    bool hasStored = false;
    for (const auto& [kind, index] : schedule) {
        if (kind == Step::Kind::Store) {
            EXPECT_EQ(ready[graph.outputs[index].node], 1) << name;
            ++stored[index];
            hasStored = stores == Stores::AfterLoads;
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

// Each candidate, and the one that is taken, which has the fewest accesses of memory.
void expectOrders(const std::string& name, const Graph& graph, Stores stores)
{
    const ChosenSchedule chosen = chooseSchedule(graph, OrderRule::FewestAccesses, stores);
    expectOrderly(name, graph, chosen.schedule, stores);
    for (const Order& order : {constructionOrder(graph), bisectionOrder(graph, Side::Inputs),
                               bisectionOrder(graph, Side::Outputs)}) {
        const Schedule schedule = scheduleInOrder(graph, order, stores);
        expectOrderly(name, graph, schedule, stores);
        EXPECT_LE(memoryAccesses(graph, chosen.schedule), memoryAccesses(graph, schedule)) << name;
    }
}

TEST(Plan, AScheduleLoadsBeforeItStoresAndDoesEverythingOnce)
{
    for (const auto& planned : everyGraph())
        expectOrders(planned.kernel.name, planned.graph, Stores::AfterLoads);
    for (const generator::BodyPlan& plan : generator::bodyPlans)
        for (const Stores stores : {Stores::AfterLoads, Stores::AsReady})
            expectOrders(nameOf(plan), generator::bodyGraph(plan), stores);
}

TEST(Plan, AFileIsWrittenWhenItsBytesChangeAndLeftAloneWhenTheyDoNot)
{
    namespace fs = std::filesystem;
    const fs::path folder = fs::path(::testing::TempDir()) / "rvnkernelgen";
    const fs::path path = folder / "kernel.cpp";
    fs::remove_all(folder);
    for (const char* const text : {"one", "two", "twenty", "two"}) {
        writeFile(folder, {"kernel.cpp", text});
        std::ifstream file(path);
        EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), text);
        const fs::file_time_type old{};
        fs::last_write_time(path, old);
        writeFile(folder, {"kernel.cpp", text});
        EXPECT_EQ(fs::last_write_time(path), old) << text;
    }
    fs::remove_all(folder);
}

TEST(Plan, TuningRulesAreReadWholeAndFollowed)
{
    const auto path = std::filesystem::path(::testing::TempDir()) / "rvnkernelgen.tuning";
    const auto tuning = [&](const char* lines) {
        std::ofstream(path) << lines;
        const Tuning read(path);
        read.requireUse({"hartley_7_64f", "wht_3_64f"});
        return read.ruleFor("hartley_7_64f").options;
    };
    EXPECT_EQ(tuning("# the last rule that fits\n*_64f fewest-accesses size\n"
                     "hartley_* construction speed\n"),
              "speed");
    for (const char* const refused :
         {"hartlye_* construction speed\n", "hartley_* best speed\n", "hartley_* construction\n",
          "hartley_* construction speed size\n", "* construction speed\n* construction size\n"})
        EXPECT_THROW(tuning(refused), std::runtime_error) << refused;
    std::filesystem::remove(path);
    EXPECT_THROW(Tuning{path}, std::runtime_error);
}

} // namespace

} // namespace rvn::tests
