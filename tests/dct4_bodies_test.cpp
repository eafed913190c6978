// The graphs of the fixed bodies have the counts of their rows and are the defining sums, whatever
// the factors in the tables; and the transform of every size is its graphs and tables bit for bit,
// however the loops around the bodies walk through memory.

#include "dct4_kernels.h"
#include "dct4_reference.h"

#include "generator/dct4/body_graphs.h"
#include "generator/families.h"
#include "generator/graph/evaluate.h"

#include <algorithm>
#include <map>
#include <stdexcept>

namespace rvn::tests
{

namespace
{

using namespace generator;
namespace record = dct4::record;
using Quad = __float128;

// The r values of a row, and the factors that stand behind them, real parts first.
struct Row {
    std::vector<Wide> values;
    std::vector<Wide> factors;
};

Row rowOf(const std::vector<double>& inputs, int r)
{
    Row row;
    for (int v = 0; v < r; ++v)
        row.values.emplace_back(inputs[v], inputs[r + v]);
    for (std::size_t i = 2 * r; i + 1 < inputs.size(); i += 2)
        row.factors.emplace_back(inputs[i], inputs[i + 1]);
    return row;
}

std::vector<Wide> topRow(Row row)
{
    const std::vector<int> order = pairOrder(static_cast<int>(row.values.size()));
    for (std::size_t place = 0; place < order.size(); ++place)
        row.values[order[place]] *= row.factors[place];
    return topRowSum(row.values);
}

// One stage up to 8 points; above, R over b of each v = a + 4b, then 4 over a.
std::vector<Wide> innerSums(Row row)
{
    const int r = static_cast<int>(row.values.size());
    if (r <= 8) {
        for (int v = 1; v < r; ++v)
            row.values[v] *= row.factors[v - 1];
        return directSum(row.values, true);
    }
    const int R = r / 4;
    std::vector<std::vector<Wide>> E(4);
    for (int a = 0; a < 4; ++a) {
        for (int b = 0; b < R; ++b)
            E[a].push_back(row.values[a + 4 * b] * (b > 0 ? row.factors[b - 1] : 1));
        E[a] = directSum(E[a], true);
    }
    std::vector<Wide> D(r);
    for (int s1 = 0; s1 < R; ++s1) {
        const Wide* const factors = &row.factors[R - 1 + 3 * s1];
        const std::vector<Wide> points = directSum(
            {E[0][s1], E[1][s1] * factors[0], E[2][s1] * factors[1], E[3][s1] * factors[2]}, true);
        for (int s2 = 0; s2 < 4; ++s2)
            D[s1 + R * s2] = points[s2];
    }
    return D;
}

std::vector<Wide> parts(const std::vector<Wide>& values)
{
    std::vector<Wide> all;
    for (const Wide& value : values)
        all.insert(all.end(), {value.real(), value.imag()});
    return all;
}

std::vector<Wide> definingSums(const BodyPlan& plan, const std::vector<double>& inputs)
{
    switch (plan.kind) {
    case BodyKind::Direct:
        return dct4BySum(inputs);
    case BodyKind::Odd:
        return parts(oddFrequencySum(inputs));
    case BodyKind::TopRow:
        return topRow(rowOf(inputs, plan.size));
    case BodyKind::InnerRow: {
        const std::vector<Wide> D = innerSums(rowOf(inputs, plan.size));
        std::vector<Wide> outputs;
        for (int s = 0; s < plan.size / 2; ++s)
            outputs.insert(outputs.end(), {D[s], std::conj(D[plan.size - 1 - s])});
        return parts(outputs);
    }
    }
    return {};
}

int inputCount(const BodyPlan& plan)
{
    const int r = plan.size;
    switch (plan.kind) {
    case BodyKind::TopRow:
        return 4 * r;
    case BodyKind::InnerRow:
        return 2 * r + 2 * (r <= 8 ? r - 1 : r / 4 - 1 + 3 * r / 4);
    default:
        return r;
    }
}

TEST(Dct4Bodies, EveryGraphIsTheDefiningSum)
{
    for (const BodyPlan& plan : bodyPlans) {
        const auto inputs = randomParts<double>(inputCount(plan), 1);
        const std::vector<Quad> exact(inputs.begin(), inputs.end());
        std::vector<Wide> outputs;
        for (const Quad& value : generator::evaluate<Quad>(bodyGraph(plan), exact))
            outputs.emplace_back(static_cast<long double>(value));
        EXPECT_LE(relativeError(outputs, definingSums(plan, inputs)), 2e-16)
            << nameOf(plan.kind) << " " << plan.size;
    }
}

TEST(Dct4Bodies, AGraphThatMissesACountIsRefused)
{
    for (int BodyPlan::*const count :
         {&BodyPlan::multiplications, &BodyPlan::additions, &BodyPlan::subtractions}) {
        BodyPlan plan = bodyPlan(BodyKind::Odd, 16);
        const auto require = [&] { requireRow(engineKernel(plan, Format::Binary64)); };
        EXPECT_NO_THROW(require());
        ++(plan.*count);
        EXPECT_THROW(require(), std::runtime_error);
    }
}

template <typename Object> const Object& itemOf(const EnvList* list)
{
    return *reinterpret_cast<const Object*>(list->item);
}

template <typename Real>
std::vector<Real> byGraph(BodyKind kind, int size, const std::vector<Real>& inputs)
{
    static std::map<std::pair<BodyKind, int>, generator::Graph> graphs;
    auto& graph = graphs[{kind, size}];
    if (graph.nodes.empty())
        graph = bodyGraph(bodyPlan(kind, size));
    return generator::evaluate<Real>(graph, inputs);
}

// Row q of sub-transforms that are held as real and imaginary parts in turn.
template <typename Real>
std::vector<Real> rowOf(const std::vector<std::vector<Real>>& transforms, int q)
{
    std::vector<Real> row;
    for (const int part : {0, 1})
        for (const auto& transform : transforms)
            row.push_back(transform[2 * q + part]);
    return row;
}

// The odd-frequency transform of u, with the tables of the splits below a list.
template <typename Real>
std::vector<Real> oddFrequencyByGraphs(const std::vector<Real>& u, const EnvList* splits)
{
    const int L = static_cast<int>(u.size());
    if (L <= 64)
        return byGraph(BodyKind::Odd, L, u);
    const auto& env4 = itemOf<record::Env4<Real>>(splits);
    const int r = env4.radix;
    const int M = L / r;
    std::vector<std::vector<Real>> V;
    for (int v = 0; v < r; ++v) {
        std::vector<Real> sequence;
        for (int place = v; place < L; place += r)
            sequence.push_back(u[place]);
        V.push_back(
            oddFrequencyByGraphs(sequence, itemOf<record::Env7<Real>>(env4.env7List).env4List));
    }
    // Of radix 32 in 32f, the factors of the second stage stand before those of the first.
    const int first = 2 * (r <= 8 ? r - 1 : r / 4 - 1);
    const int second = r <= 8 ? 0 : 6 * r / 4;
    const bool isSwapped = r == 32 && std::is_same_v<Real, float>;
    const Real* const table = itemOf<record::Env6<Real>>(env4.env6List).twiddles;
    std::vector<Real> Y(L);
    for (int q = 0; q < M / 2; ++q) {
        std::vector<Real> row = rowOf(V, q);
        const Real* const early = table + (isSwapped ? second * M / 2 : 0) + first * q;
        const Real* const late = table + (isSwapped ? 0 : first * M / 2) + second * q;
        row.insert(row.end(), early, early + first);
        row.insert(row.end(), late, late + second);
        const std::vector<Real> D = byGraph(BodyKind::InnerRow, r, row);
        for (int s = 0; s < r / 2; ++s) {
            std::copy_n(&D[4 * s], 2, &Y[2 * (q + M * s)]);
            std::copy_n(&D[4 * s + 2], 2, &Y[2 * (M - 1 - q + M * s)]);
        }
    }
    return Y;
}

template <typename Real>
std::vector<Real> transformByGraphs(const std::vector<Real>& x, const record::Env1<Real>& env1)
{
    const int N = env1.size;
    if (N <= 32)
        return byGraph(BodyKind::Direct, N, x);
    const int r = env1.radix;
    const int M = N / r;
    std::vector<std::vector<Real>> Y;
    for (int j = 0; j < r; ++j) {
        std::vector<Real> u;
        for (int n = j - N; n < N; n += 2 * r)
            u.push_back(x[n < 0 ? -1 - n : n]);
        Y.push_back(oddFrequencyByGraphs(u, itemOf<record::Env3<Real>>(env1.env3List).env4List));
    }
    std::vector<Real> X(N);
    for (int q = 0; q < M / 2; ++q) {
        std::vector<Real> row = rowOf(Y, q);
        const Real* const factors = itemOf<record::Env2<Real>>(env1.env2List).twiddles + 2 * r * q;
        row.insert(row.end(), factors, factors + 2 * r);
        const std::vector<Real> W = byGraph(BodyKind::TopRow, r, row);
        for (int s = 0; s < r; ++s) {
            X[q + M * s] = W[r + s];
            X[M * (s + 1) - 1 - q] = W[r - 1 - s];
        }
    }
    return X;
}

template <typename Real> class Dct4Compiled : public ::testing::Test
{
};

TYPED_TEST_SUITE(Dct4Compiled, Reals);

TYPED_TEST(Dct4Compiled, EverySizeIsItsGraphsBitForBit)
{
    for (int N = 2; N <= 1 << 17; N *= 2) {
        const Dct4Plan<TypeParam> plan(N);
        const auto x = randomParts<TypeParam>(N, N, 20);
        const auto before = plan.content();
        EXPECT_TRUE(haveSameBits(plan.transformed(x), transformByGraphs(x, plan.env1()))) << N;
        EXPECT_EQ(plan.content() == before, N <= 32) << "a plan of " << N << " is written to";
    }
}

} // namespace

} // namespace rvn::tests
