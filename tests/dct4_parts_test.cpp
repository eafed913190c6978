// The parts that plans are made with: the arena moves one cursor by multiples of 32, lists hold
// their first item for free, the radix follows from a half length alone, and angles are rounded to
// the element type before their cosine is taken.

#include "dct4/arena.h"
#include "dct4/env_list.h"
#include "dct4/radix.h"
#include "dct4/trigonometry.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

namespace rvn::tests
{

namespace
{

TEST(Dct4Parts, SizesAreRoundedUpTo32Bytes)
{
    const std::uint64_t large = std::uint64_t{1} << 40;
    const std::uint64_t cases[][2] = {
        {0, 0},   {1, 32},  {24, 32}, {31, 32}, {32, 32},
        {33, 64}, {80, 96}, {88, 96}, {96, 96}, {large + 1, large + 32}};
    for (const auto& [bytes, rounded] : cases)
        EXPECT_EQ(rvngAlignSize32Bytes(bytes), rounded);
}

class Dct4Arena : public ::testing::Test
{
protected:
    std::ptrdiff_t taken() const { return static_cast<std::ptrdiff_t>(arena.cursor - first); }

    alignas(32) std::array<std::byte, 1024> memory = {};
    const std::uintptr_t first = reinterpret_cast<std::uintptr_t>(memory.data());
    Arena arena = {first};
};

TEST_F(Dct4Arena, TakingAndGivingBackMoveTheCursorByTheRoundedSize)
{
    EXPECT_EQ(rvngArenaMalloc(&arena, 0), memory.data());
    EXPECT_EQ(rvngArenaMalloc(&arena, 33), memory.data());
    EXPECT_EQ(rvngArenaMalloc(&arena, 1), memory.data() + 64);
    EXPECT_EQ(taken(), 96);
    rvngArenaFree(&arena, nullptr, 0);
    EXPECT_EQ(taken(), 96);
    rvngArenaFree(&arena, &arena, 40);
    rvngArenaFree(&arena, memory.data(), 64);
    EXPECT_EQ(taken(), -32) << "neither order, address nor limit matter";
}

// Counts its ends and notes where the cursor stood at the last.
struct Item {
    EnvObject object;
    int ends = 0;
    const Arena* arena = nullptr;
    std::uintptr_t cursorAtEnd = 0;
};

void endItem(void* self)
{
    auto* const item = static_cast<Item*>(self);
    ++item->ends;
    item->cursorAtEnd = item->arena->cursor;
}

TEST_F(Dct4Arena, AListTakesANodeForEachItemButTheFirst)
{
    auto* const head = static_cast<EnvList*>(rvngArenaMalloc(&arena, sizeof(EnvList)));
    EXPECT_EQ(EnvList___init__(head, &arena), head);
    EXPECT_EQ(EnvList_get(head, 0), nullptr);
    EnvList_freeChildren(nullptr);
    EnvList_freeChildren(head);
    EnvList___del__(head);
    EXPECT_EQ(taken(), 32);

    std::array<Item, 3> items;
    std::int32_t index = 0;
    for (Item& item : items) {
        item = {.object = {endItem, 40 * index}, .arena = &arena};
        EXPECT_EQ(EnvList_add(head, &item), &item);
        EXPECT_EQ(EnvList_get(head, index), &item);
        EXPECT_EQ(taken(), 32 + 32 * index++);
    }
    EXPECT_EQ(EnvList_get(head, -1), nullptr);
    EXPECT_EQ(EnvList_get(head, 4), nullptr);

    arena.cursor += 64 + 96; // the items' bytes
    const std::uintptr_t before = arena.cursor;
    EnvList_freeChildren(head);
    EXPECT_EQ(items[0].cursorAtEnd, before);
    EXPECT_EQ(items[1].cursorAtEnd, before) << "an item of no bytes";
    EXPECT_EQ(items[2].cursorAtEnd, before - 64) << "an item ends before its bytes are given back";
    for (const Item& item : items)
        EXPECT_EQ(item.ends, 1);
    EXPECT_EQ(taken(), 96);
    EnvList___del__(head);
    EXPECT_EQ(taken(), 32);
}

TEST(Dct4Parts, NodesAreCountedAt32Bytes)
{
    for (const std::int32_t count : {0, 1, 2})
        EXPECT_EQ(EnvList_add_mem(count), 32u * count);
}

TEST(Dct4Parts, TheRadixIsTheLargestThatDividesAndWhoseFloorIsReached)
{
    const std::int32_t none = -1;
    const std::int32_t cases[][2] = {
        {-512, none},     {0, none},  {2, none}, {3, none},     {4, 2},      {6, 2},
        {14, 2},          {15, none}, {16, 4},   {18, 2},       {24, 4},     {31, none},
        {32, 8},          {36, 4},    {48, 8},   {112, 8},      {127, none}, {128, 16},
        {136, 8},         {504, 8},   {496, 16}, {512, 32},     {514, 2},    {516, 4},
        {520, 8},         {528, 16},  {544, 32}, {1 << 30, 32}, {513, none}, {INT32_MIN, none},
        {INT32_MAX, none}};
    for (const auto& [half, expected] : cases) {
        std::int32_t radix = none;
        EXPECT_EQ(divisorsIntNonTriv(&radix, half),
                  expected == none ? RvnStatusSizeError : RvnStatusNoError)
            << half;
        EXPECT_EQ(radix, expected) << half;
    }
}

// The sine of the number nearest to pi is what that number lacks.
TEST(Dct4Parts, AnglesAreRoundedBeforeTheFunctionIsApplied)
{
    EXPECT_EQ(rvngCosPi_32f(0), 1);
    EXPECT_EQ(rvngCosPi_64f(0), 1);
    EXPECT_FLOAT_EQ(rvngSinPi_32f(1), -8.742278e-8f);
    EXPECT_FLOAT_EQ(rvngCosPi_32f(0.5f), -4.371139e-8f);
    EXPECT_DOUBLE_EQ(rvngSinPi_64f(1), 1.2246467991473532e-16);
    for (double x = -4; x < 4; x += 0.0371) {
        const auto narrow = static_cast<float>(x);
        const auto angle = static_cast<float>(static_cast<double>(narrow) * std::numbers::pi);
        EXPECT_FLOAT_EQ(rvngCosPi_32f(narrow), static_cast<float>(std::cos(double{angle})));
        EXPECT_FLOAT_EQ(rvngSinPi_32f(narrow), static_cast<float>(std::sin(double{angle})));
        const long double wide = x * std::numbers::pi;
        EXPECT_DOUBLE_EQ(rvngCosPi_64f(x), static_cast<double>(std::cos(wide)));
        EXPECT_DOUBLE_EQ(rvngSinPi_64f(x), static_cast<double>(std::sin(wide)));
    }
}

} // namespace

} // namespace rvn::tests
