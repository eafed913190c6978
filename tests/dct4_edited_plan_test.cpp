// What a transform reads of its plan, seen by editing a planned block: numbers that served planning
// alone have no effect, and the others say which elements are read and written, also at the lengths
// that run through panels when nothing is edited.

#include "dct4_kernels.h"

namespace rvn::tests
{

namespace
{

using namespace dct4::record;

constexpr int smallest = 64;     // with a split
constexpr int shortInner = 4096; // with an inner split
constexpr int longInner = 32768; // with panels and lines

template <typename Object> Object& itemOf(const EnvList* list)
{
    return *reinterpret_cast<Object*>(list->item);
}

// A plan, and its objects to edit.
template <typename Real> struct EditedPlan {
    explicit EditedPlan(int size) : plan(size)
    {
        for (const EnvList* list = env3.env4List; list->item != nullptr;) {
            auto& env4 = itemOf<Env4<Real>>(list);
            inner.push_back(
                {env4, itemOf<Env6<Real>>(env4.env6List), itemOf<Env7<Real>>(env4.env7List)});
            list = inner.back().env7.env4List;
        }
    }

    struct InnerSplit {
        Env4<Real>& env4;
        Env6<Real>& env6;
        Env7<Real>& env7;
    };

    Dct4Plan<Real> plan;
    Env1<Real>& env1 = const_cast<Env1<Real>&>(plan.env1());
    Env2<Real>& env2 = itemOf<Env2<Real>>(env1.env2List);
    Env3<Real>& env3 = itemOf<Env3<Real>>(env1.env3List);
    std::vector<InnerSplit> inner; // from the top
};

template <typename Real> class Dct4EditedPlan : public ::testing::Test
{
protected:
    static std::vector<Real> samples(int size, unsigned seed = 29)
    {
        return randomParts<Real>(size, seed);
    }
};

TYPED_TEST_SUITE(Dct4EditedPlan, Reals);

TYPED_TEST(Dct4EditedPlan, NumbersForPlanningAloneHaveNoEffect)
{
    for (const int N : {smallest, 1025, shortInner, 4097, 8192, longInner, 65536, 131072}) {
        EditedPlan<TypeParam> edited(N);
        auto& [plan, env1, env2, env3, inner] = edited;
        const auto x = this->samples(N + 1);
        const auto before = plan.transformed(x);
        const auto discard = [](auto&... fields) { ((fields = {}), ...); };
        discard(env2.radix, env2.size, env2.sizeCopy, env2.generator);
        discard(env3.subSize, env3.topSize, env3.parentSize);
        for (auto& [env4, env6, env7] : inner) {
            discard(env4.topSize, env4.topSizeAgain, env4.stride, env4.parentSize,
                    env4.parentRadix);
            discard(env6.radix, env6.size, env6.parentSize, env6.halfSize, env6.generator);
            discard(env7.subSize, env7.topSize, env7.topSizeAgain, env7.parentSize);
        }
        EXPECT_TRUE(haveSameBits(plan.transformed(x), before)) << N;
    }
}

// With another stride a sub-sequence reads other elements. An unedited plan that finds these at the
// places where it looks gives the same.
TYPED_TEST(Dct4EditedPlan, TheStrideOfAnInnerSplitSaysWhichElementsAreRead)
{
    for (const int N : {shortInner, longInner}) {
        EditedPlan<TypeParam> edited(N);
        const auto& [plan, env1, env2, env3, inner] = edited;
        auto& env7 = inner[0].env7;
        const int L = 1 << env7.mode;
        const auto place = [&](int first, int stride, int t) {
            return t >= 0 ? first + stride * t : 2 * N - 1 - first - stride * (t + L);
        };
        const auto x = this->samples(2 * N);
        std::vector<TypeParam> moved(N, 0);
        for (int j = 0; j < env3.count; ++j)
            for (int v = 0; v < env7.count; ++v)
                for (int t = -L / 2; t < L / 2; ++t) {
                    const int first = j + v * env7.parentStride;
                    moved.at(place(first, env7.stride, t)) = x.at(place(first, env7.stride - 3, t));
                }
        std::vector<TypeParam> X(N);
        const auto expected = plan.transformed(moved);
        env7.stride -= 3;
        plan.run(x.data(), X.data());
        EXPECT_TRUE(haveSameBits(X, expected)) << N;
    }
}

// Rows begin rowStep elements apart. The steps before are taken out of the way, so that a scratch
// array keeps what the test puts there.
TYPED_TEST(Dct4EditedPlan, TheRowStepSaysWhereRowsAreRead)
{
    const auto compare = [this](auto& edited, auto& object, TypeParam* scratch, int width) {
        const int N = edited.env1.size;
        const auto x = this->samples(N);
        const auto rows = this->samples(width * object.rows, 31);
        std::copy(rows.begin(), rows.end(), scratch);
        object.rowStep = width / 2;
        const auto X = edited.plan.transformed(x);
        for (int q = 0; q < object.rows; ++q)
            std::copy_n(&rows[width / 2 * q], width, scratch + width * q);
        object.rowStep = width;
        EXPECT_TRUE(haveSameBits(X, edited.plan.transformed(x))) << N;
    };
    for (const int N : {shortInner, longInner}) {
        EditedPlan<TypeParam> outer(N);
        outer.inner[0].env4.mode = 0;
        compare(outer, outer.env2, outer.env1.scratch, 1 << outer.env2.mode);
    }
    for (const int N : {shortInner, 8192, longInner}) {
        EditedPlan<TypeParam> whole(N);
        auto& [env4, env6, env7] = whole.inner[0];
        env7.mode = 0;
        compare(whole, env6, env4.scratch, 2 << env6.mode);
    }
}

TYPED_TEST(Dct4EditedPlan, ASmallerCountLeavesTheOtherElementsAsTheyWere)
{
    constexpr TypeParam untouched = 4711;
    const auto expectSome = [&](const auto& found, const auto& whole, const auto& isWritten,
                                int N) {
        std::vector<TypeParam> expected(found.size(), untouched);
        for (std::size_t i = 0; i < expected.size(); ++i)
            if (isWritten(static_cast<int>(i)))
                expected[i] = whole[i];
        EXPECT_TRUE(haveSameBits(found, expected)) << N;
    };
    for (const int N : {smallest, 2048, shortInner, longInner}) {
        const auto x = this->samples(N);
        EditedPlan<TypeParam> edited(N);
        auto& [plan, env1, env2, env3, inner] = edited;
        const auto whole = plan.transformed(x);
        const std::vector<TypeParam> rows(env1.scratch, env1.scratch + N);

        const int m = env2.rows / 2 + 1;
        const int M = env2.subSize;
        std::vector<TypeParam> X(N, untouched);
        env2.rows = m;
        plan.run(x.data(), X.data());
        expectSome(
            X, whole, [&](int k) { return k % M < m || M - 1 - k % M < m; }, N);

        const int r = env3.count;
        std::fill_n(env1.scratch, N, untouched);
        env3.count = r / 2 + 1;
        plan.run(x.data(), X.data());
        const std::vector<TypeParam> some(env1.scratch, env1.scratch + N);
        expectSome(
            some, rows, [&](int i) { return i % r < r / 2 + 1; }, N);
    }
}

TYPED_TEST(Dct4EditedPlan, AnInnerSplitOfAnotherModeLeavesTheScratchArrayAsItWas)
{
    for (const int N : {shortInner, longInner}) {
        EditedPlan<TypeParam> edited(N);
        const auto before = edited.plan.transformed(this->samples(N));
        edited.inner[0].env4.mode = 2;
        EXPECT_TRUE(haveSameBits(edited.plan.transformed(this->samples(N, 37)), before)) << N;
    }
}

TYPED_TEST(Dct4EditedPlan, PlanningASizeWithoutASplitClearsTheScratchPointer)
{
    TypeParam element = 0;
    for (const int mode : {1, 2, 3, 4, 5}) {
        const Dct4Plan<TypeParam> plan(1 << mode);
        auto& env1 = const_cast<Env1<TypeParam>&>(plan.env1());
        env1.scratch = &element;
        EXPECT_EQ(env1.header.planFn(&env1), RvnStatusNoError);
        EXPECT_EQ(env1.scratch, nullptr);
    }
}

} // namespace

} // namespace rvn::tests
