// The objects of a plan, from its handle down: which there are, with which numbers and in which
// order, and what their tables of factors hold.

#include "dct4_kernels.h"
#include "dct4_reference.h"

#include <algorithm>
#include <bit>
#include <functional>

namespace rvn::tests
{

namespace
{

using namespace dct4::record;

template <typename Real> class Dct4Tree : public ::testing::Test
{
};

TYPED_TEST_SUITE(Dct4Tree, Reals);

using Numbers = std::vector<int>;
using Items = std::vector<const EnvObject*>;

Items itemsOf(const EnvList* list)
{
    Items items;
    for (const EnvList* node = list; node != nullptr; node = node->next)
        items.push_back(node->item);
    return items;
}

const Items nothing = {nullptr};

template <typename Object> const Object& onlyItem(const EnvList* list)
{
    EXPECT_EQ(itemsOf(list).size(), 1u);
    EXPECT_EQ(list->item->objectSize, static_cast<int>(sizeof(Object)));
    return *reinterpret_cast<const Object*>(list->item);
}

template <typename Object> const EnvObject* headOf(const Object& object)
{
    return &object.header.object;
}

bool ascend(const std::vector<const void*>& addresses)
{
    return std::ranges::adjacent_find(addresses, std::greater_equal<>()) == addresses.end();
}

// An inner split, and the mode of what lies below it.
struct Level {
    int size;
    int radix;
    int subMode;
};

struct Tree {
    int size;
    int radix;
    int rowMode;
    int subMode;
    std::vector<Level> levels;
};

const Tree trees[] = {
    {64, 8, 4, 3, {}},
    {128, 8, 4, 4, {}},
    {256, 16, 5, 4, {}},
    {512, 16, 5, 5, {}},
    {1024, 32, 6, 5, {}},
    {2048, 32, 6, 6, {}},
    {4096, 32, 6, 7, {{128, 8, 4}}},
    {8192, 32, 6, 7, {{256, 16, 4}}},
    {16384, 32, 6, 7, {{512, 16, 5}}},
    {32768, 32, 6, 7, {{1024, 32, 5}}},
    {65536, 32, 6, 7, {{2048, 32, 6}}},
    {131072, 32, 6, 7, {{4096, 32, 7}, {128, 8, 4}}},
    {9, 2, 2, 2, {}},
    {17, 2, 2, 3, {}},
    {33, 4, 3, 3, {}},
    {65, 8, 4, 3, {}},
    {1025, 32, 6, 5, {}},
    {4097, 32, 6, 7, {{128, 8, 4}}},
};

TYPED_TEST(Dct4Tree, TheTopHasItsGeneratorItsRowsAndItsInputs)
{
    for (const auto& [N, r, rowMode, subMode, levels] : trees) {
        SCOPED_TRACE(N);
        Dct4Plan<TypeParam> plan(N);
        const auto& env1 = plan.env1();
        const auto& env2 = onlyItem<Env2<TypeParam>>(env1.env2List);
        const auto& env3 = onlyItem<Env3<TypeParam>>(env1.env3List);
        const EnvFCompose<TypeParam>& angles = *env2.generator;
        const int rows = N / (2 * r);

        EXPECT_EQ(itemsOf(env1.children), (Items{headOf(angles), headOf(env2), headOf(env3)}));
        EXPECT_EQ(itemsOf(env2.children), nothing);
        for (const auto* header : {&env1.header, &env2.header, &env3.header})
            EXPECT_EQ(reinterpret_cast<std::byte*>(header->arena), plan.block());
        EXPECT_EQ((Numbers{env1.header.object.objectSize, angles.header.object.objectSize}),
                  (Numbers{80, 56}));

        EXPECT_EQ((Numbers{env1.mode, env1.radix, env1.size}), (Numbers{6, r, N}));
        EXPECT_EQ((Numbers{angles.rowStepCopy, angles.angleDivisor, angles.rows, angles.radix,
                           angles.rowStep}),
                  (Numbers{2 * r, 8 * N, rows, r, 2 * r}));
        EXPECT_EQ((Numbers{env2.mode, env2.radix, env2.size, env2.rowStep, env2.rows, env2.sizeCopy,
                           env2.lastOdd, env2.subSize}),
                  (Numbers{rowMode, r, N, 2 * r, rows, N, 2 * N - 1, N / r}));
        EXPECT_EQ((Numbers{env3.mode, env3.subSize, env3.topSize, env3.lastOdd, env3.stride,
                           env3.count, env3.parentSize, env3.parentRadix}),
                  (Numbers{subMode, N / r, N, 2 * N - 1, 2 * r, r, N, r}));
        EXPECT_EQ(env3.table, nullptr);

        // Objects and tables of the outputs, then those of the inputs, and the array at the end.
        EXPECT_TRUE(ascend({&env1, env1.env2List, env1.env3List, env1.children, &env2, &angles,
                            env2.children, env2.twiddles, &env3, env3.env4List, env3.children,
                            env1.scratch}));
        EXPECT_LT(cursorOf(plan.block()) - reinterpret_cast<std::byte*>(env1.scratch + N), 32);
    }
}

TYPED_TEST(Dct4Tree, EachInnerSplitHasItsGeneratorItsRowsAndItsInputs)
{
    for (const auto& [N, r, rowMode, subMode, levels] : trees) {
        SCOPED_TRACE(N);
        const Dct4Plan<TypeParam> plan(N);
        const auto& env3 = onlyItem<Env3<TypeParam>>(plan.env1().env3List);
        const EnvList* list = env3.env4List;
        const EnvList* children = env3.children;
        int stride = 2 * r;
        int parentSize = N;
        int parentRadix = r;
        for (const auto& [M, radix, subModeBelow] : levels) {
            const auto& env4 = onlyItem<Env4<TypeParam>>(list);
            EXPECT_EQ(itemsOf(children), Items{headOf(env4)});
            const auto& env6 = onlyItem<Env6<TypeParam>>(env4.env6List);
            const auto& env7 = onlyItem<Env7<TypeParam>>(env4.env7List);
            const EnvLambda<TypeParam>& angles = *env6.generator;
            const int rowModeBelow = radix == 8 ? 3 : radix == 16 ? 4 : 5;

            EXPECT_EQ(itemsOf(env4.children), (Items{headOf(angles), headOf(env6), headOf(env7)}));
            EXPECT_EQ(itemsOf(env6.children), nothing);
            EXPECT_EQ(
                (Numbers{angles.header.object.objectSize, angles.numerator, angles.denominator}),
                (Numbers{40, M, radix}));
            EXPECT_EQ((Numbers{env4.mode, env4.size, env4.radix, env4.topSize, env4.topSizeAgain,
                               env4.stride, env4.parentSize, env4.parentRadix}),
                      (Numbers{1, M, radix, N, N, stride, parentSize, parentRadix}));
            EXPECT_EQ(
                (Numbers{env6.mode, env6.radix, env6.size, env6.rowStep, env6.rows, env6.parentSize,
                         env6.halfSize, env6.lastOdd, env6.parentRadix, env6.subSize}),
                (Numbers{rowModeBelow, radix, M, 2 * radix, M / (2 * radix), parentSize, M / 2,
                         M - 1, parentRadix, M / radix}));
            EXPECT_EQ(
                (Numbers{env7.mode, env7.subSize, env7.topSize, env7.topSizeAgain, env7.stride,
                         env7.parentStride, env7.count, env7.parentSize, env7.parentRadix}),
                (Numbers{subModeBelow, M / radix, N, N, stride * radix, stride, radix, M, radix}));
            EXPECT_EQ(env7.table, nullptr);
            EXPECT_TRUE(ascend({&env4, env4.env6List, env4.env7List, env4.children, &env6, &angles,
                                env6.children, env6.twiddles, &env7, env7.env4List, env7.children,
                                env4.scratch}));
            list = env7.env4List;
            children = env7.children;
            stride *= radix;
            parentSize = M;
            parentRadix = radix;
        }
        EXPECT_EQ(itemsOf(list), nothing);
        EXPECT_EQ(itemsOf(children), nothing);
    }
}

TYPED_TEST(Dct4Tree, ASizeWithoutASplitIsOneObject)
{
    for (const int mode : {1, 2, 3, 4, 5}) {
        const Dct4Plan<TypeParam> plan(1 << mode);
        const auto& env1 = plan.env1();
        EXPECT_EQ((Numbers{env1.mode, env1.size}), (Numbers{mode, 1 << mode}));
        for (const EnvList* list : {env1.children, env1.env2List, env1.env3List})
            EXPECT_EQ(itemsOf(list), nothing);
        EXPECT_EQ(env1.scratch, nullptr);
    }
}

// Cosine and sine of pi x, x the nearest of the type, and pi x rounded to it.
template <typename Real> void expectPair(const Real* pair, Real x)
{
    constexpr double tolerance = 0.55 * std::numeric_limits<Real>::epsilon();
    const long double angle = static_cast<Real>(static_cast<double>(x) * std::numbers::pi);
    ASSERT_NEAR(pair[0], static_cast<double>(std::cos(angle)), tolerance) << x;
    ASSERT_NEAR(pair[1], static_cast<double>(std::sin(angle)), tolerance) << x;
}

TYPED_TEST(Dct4Tree, TheTopTableHoldsThePairsOfARowInTheOrderOfItsRadix)
{
    for (const int N : {9, 33, 64, 65, 256, 1024, 4097}) {
        SCOPED_TRACE(N);
        const Dct4Plan<TypeParam> plan(N);
        const auto& env2 = onlyItem<Env2<TypeParam>>(plan.env1().env2List);
        const TypeParam* pair = env2.twiddles;
        for (int q = 0; q < env2.rows; ++q)
            for (const int j : pairOrder(env2.radix)) {
                const int angle = 2 * (2 * q + 1) * (2 * j + 1);
                expectPair(pair, static_cast<TypeParam>(angle) / static_cast<TypeParam>(8 * N));
                pair += 2;
            }
    }
}

// For each row x, and t below `steps`: the pairs of each factor times x + t.
struct Section {
    int steps;
    std::vector<double> factors;
};

std::vector<Section> sectionsOf(int radix, bool isDouble)
{
    const Section wide = {8, {0.0625, 0.125, 0.1875}};
    const Section eight = {1, {0.25, 0.5, 0.75, 1, 1.25, 1.5, 1.75}};
    const Section four = {1, {0.5, 1, 1.5}};
    switch (radix) {
    case 2:
        return {{1, {1}}};
    case 4:
        return {four};
    case 8:
        return {eight};
    case 16:
        return {four, {4, {0.125, 0.25, 0.375}}};
    default:
        return isDouble ? std::vector{eight, wide} : std::vector{wide, eight};
    }
}

// Sizes with an odd factor fail below the split whose table is looked at here.
TYPED_TEST(Dct4Tree, TheInnerTablesHoldTheSectionsOfTheirRadix)
{
    const struct {
        int N, M, radix, elements;
    } cases[] = {{4096, 128, 8, 112}, {8192, 256, 16, 240}, {32768, 1024, 32, 992},
                 {4097, 128, 8, 112}, {96, 12, 2, 6},       {1280, 40, 4, 30}};
    for (const auto& [N, M, radix, elements] : cases) {
        SCOPED_TRACE(N);
        std::vector<std::byte> block(1 << 20);
        typename Dct4<TypeParam>::Spec* spec = nullptr;
        Dct4<TypeParam>::init(&spec, N, block.data());
        const auto& env1 = *reinterpret_cast<Env1<TypeParam>*>(firstOfArena(block.data()));
        const auto& env3 = onlyItem<Env3<TypeParam>>(env1.env3List);
        const auto& env4 = onlyItem<Env4<TypeParam>>(env3.env4List);
        const auto& env6 = onlyItem<Env6<TypeParam>>(env4.env6List);
        ASSERT_EQ((Numbers{env4.size, env6.radix, env6.mode}),
                  (Numbers{M, radix, std::countr_zero(static_cast<unsigned>(radix))}));

        const TypeParam* pair = env6.twiddles;
        for (const auto& [steps, factors] : sectionsOf(radix, std::is_same_v<TypeParam, double>))
            for (int i = 0; i < env6.rows; ++i)
                for (int t = 0; t < steps; ++t)
                    for (const double factor : factors) {
                        const TypeParam x = (static_cast<TypeParam>(i) + TypeParam{0.5}) /
                                            static_cast<TypeParam>(M / radix);
                        expectPair(pair, static_cast<TypeParam>(factor) *
                                             (x + static_cast<TypeParam>(t)));
                        pair += 2;
                    }
        EXPECT_EQ(pair - env6.twiddles, elements);
        // The next object stands right behind.
        const auto* const behind = reinterpret_cast<const std::byte*>(env4.env7List->item);
        const auto gap = behind - reinterpret_cast<const std::byte*>(pair);
        EXPECT_TRUE(0 <= gap && gap < 32) << gap;
    }
}

} // namespace

} // namespace rvn::tests
