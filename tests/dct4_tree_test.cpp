// The objects of a plan, from its handle down: which there are and how they work, in which order
// they lie in the block, and what their tables of factors hold.

#include "dct4_kernels.h"
#include "dct4_reference.h"

#include <algorithm>
#include <array>
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

template <typename Object> const Object& onlyItem(const EnvList* list)
{
    EXPECT_EQ(list->next, nullptr);
    EXPECT_EQ(list->item->objectSize, static_cast<int>(sizeof(Object)));
    return *reinterpret_cast<const Object*>(list->item);
}

// Whatever the plans ask of it: more items, and an index beyond them.
TEST(Dct4Lists, ItemsStandInTheirOrderAndBeyondThemIsNone)
{
    alignas(32) std::byte memory[1024];
    Arena arena{reinterpret_cast<std::uintptr_t>(memory)};
    EnvList head;
    EnvList* const list = EnvList___init__(&head, &arena);
    std::array<EnvObject, 5> items;
    for (EnvObject& item : items)
        EXPECT_EQ(EnvList_add(list, &item), &item);
    for (int index = 0; index < 5; ++index)
        EXPECT_EQ(EnvList_get(list, index), &items[index]) << index;
    EXPECT_EQ(EnvList_get(list, -1), nullptr);
    EXPECT_EQ(EnvList_get(list, 9), nullptr);
    const auto taken = [&] { return arena.cursor - reinterpret_cast<std::uintptr_t>(memory); };
    EXPECT_EQ(taken(), EnvList_add_mem(4)) << "the first item stands in the head";
    EnvList___del__(list);
    EXPECT_EQ(taken(), 0u);
}

// A split, the mode of its rows and that of what lies below it.
struct Split {
    int size, radix, rowMode, subMode;

    bool operator==(const Split&) const = default;
};

// The splits of a plan from the top, and the addresses of all that it takes from the block, in the
// documented order: what belongs to outputs before what belongs to inputs, and arrays at the end.
template <typename Real> struct Walk {
    std::vector<Split> splits;
    std::vector<const void*> addresses;

    explicit Walk(const Env1<Real>& env1)
    {
        const auto& env2 = onlyItem<Env2<Real>>(env1.env2List);
        const auto& env3 = onlyItem<Env3<Real>>(env1.env3List);
        EXPECT_EQ(env2.radix, env1.radix);
        splits.push_back({env1.size, env1.radix, env2.mode, env3.mode});
        take({&env1, env1.env2List, env1.env3List, env1.children, &env2, env2.generator,
              env2.children, env2.twiddles, &env3, env3.env4List, env3.children});
        below(env3.env4List);
        take({env1.scratch});
    }

private:
    void take(const std::vector<const void*>& more)
    {
        addresses.insert(addresses.end(), more.begin(), more.end());
    }

    void below(const EnvList* list)
    {
        if (list->item == nullptr)
            return;
        const auto& env4 = onlyItem<Env4<Real>>(list);
        const auto& env6 = onlyItem<Env6<Real>>(env4.env6List);
        const auto& env7 = onlyItem<Env7<Real>>(env4.env7List);
        EXPECT_EQ(env6.radix, env4.radix);
        splits.push_back({env4.size, env4.radix, env6.mode, env7.mode});
        take({&env4, env4.env6List, env4.env7List, env4.children, &env6, env6.generator,
              env6.children, env6.twiddles, &env7, env7.env4List, env7.children});
        below(env7.env4List);
        take({env4.scratch});
    }
};

TYPED_TEST(Dct4Tree, ASizeHasItsSplitsInTheirOrderInTheBlock)
{
    const std::vector<Split> trees[] = {
        {{64, 8, 4, 3}},
        {{128, 8, 4, 4}},
        {{256, 16, 5, 4}},
        {{512, 16, 5, 5}},
        {{1024, 32, 6, 5}},
        {{2048, 32, 6, 6}},
        {{4096, 32, 6, 7}, {128, 8, 3, 4}},
        {{8192, 32, 6, 7}, {256, 16, 4, 4}},
        {{16384, 32, 6, 7}, {512, 16, 4, 5}},
        {{32768, 32, 6, 7}, {1024, 32, 5, 5}},
        {{65536, 32, 6, 7}, {2048, 32, 5, 6}},
        {{131072, 32, 6, 7}, {4096, 32, 5, 7}, {128, 8, 3, 4}},
        {{9, 2, 2, 2}},
        {{17, 2, 2, 3}},
        {{33, 4, 3, 3}},
        {{65, 8, 4, 3}},
        {{1025, 32, 6, 5}},
        {{4097, 32, 6, 7}, {128, 8, 3, 4}},
    };
    for (const std::vector<Split>& splits : trees) {
        const int N = splits[0].size;
        Dct4Plan<TypeParam> plan(N);
        EXPECT_EQ(plan.env1().mode, 6) << N;
        const Walk<TypeParam> walk(plan.env1());
        EXPECT_EQ(walk.splits, splits) << N;
        EXPECT_EQ(std::ranges::adjacent_find(walk.addresses, std::greater_equal<>()),
                  walk.addresses.end())
            << N;
        EXPECT_LT(cursorOf(plan.block()) - reinterpret_cast<std::byte*>(plan.env1().scratch + N),
                  32);
    }
    for (const int mode : {1, 2, 3, 4, 5}) { // of the sizes without a split
        const Dct4Plan<TypeParam> plan(1 << mode);
        EXPECT_EQ(plan.env1().mode, mode);
        EXPECT_EQ(plan.env1().env2List->item, nullptr);
        EXPECT_EQ(plan.env1().env3List->item, nullptr);
        EXPECT_EQ(plan.env1().scratch, nullptr);
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
        ASSERT_TRUE(env4.size == M && env6.radix == radix);
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
