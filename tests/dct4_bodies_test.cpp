// A body that misses a count of its row is refused; and the transform of every size is the graphs
// of its bodies and its tables bit for bit, however the loops around the bodies walk through
// memory, which leaves a plan of up to 32 points as it was. That the graphs are the transform is
// held by the accuracy of the whole.

#include "dct4_kernels.h"

#include "generator/dct4/body_graphs.h"
#include "generator/families.h"
#include "generator/generate.h"
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

// A whole transform of up to 32 points is one body, and its arrays may overlap.
TEST(Dct4Bodies, NoBodyWhoseArraysMayOverlapPromisesThatTheyDoNot)
{
    for (const BodyPlan& plan : bodyPlans) {
        const std::string text = generate(engineKernel(plan, Format::Binary32), Tuning()).text;
        EXPECT_EQ(text.find("__restrict") != text.npos, plan.kind != BodyKind::Direct)
            << nameOf(plan.kind) << " " << plan.size;
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
