// A plan's block: which sizes are served and with how many bytes, where the handle lies in a block
// of any alignment, that nothing outside the block is touched, and what is refused first.

#include "dct4_kernels.h"
#include "guarded_memory.h"

#include <algorithm>
#include <array>
#include <bit>
#include <climits>
#include <map>

namespace rvn::tests
{

namespace
{

template <typename Real> class Dct4Blocks : public ::testing::Test
{
protected:
    static constexpr bool isDouble = std::is_same_v<Real, double>;
    static constexpr std::int32_t untouched = -4711;

    // Of the query, or `untouched` when it refuses.
    static std::int32_t bytesOf(std::int32_t size)
    {
        std::int32_t bytes = untouched;
        const RvnStatus status = Dct4<Real>::getSize(size, &bytes);
        EXPECT_EQ(status, bytes == untouched ? RvnStatusSizeError : RvnStatusNoError) << size;
        return bytes;
    }
};

TYPED_TEST_SUITE(Dct4Blocks, Reals);

// The figures are part of the interface: callers may have them in their own tables.
// Those asked for, and those taken with 64 for what precedes the first object, in 32f and in 64f.
constexpr struct {
    int size, asked[2], taken[2];
} byteTable[] = {
    {2, {256, 256}, {256, 256}},
    {4, {256, 256}, {256, 256}},
    {8, {256, 256}, {256, 256}},
    {16, {256, 256}, {256, 256}},
    {32, {256, 256}, {256, 256}},
    {9, {864, 928}, {768, 832}},
    {17, {928, 1056}, {832, 960}},
    {33, {1056, 1312}, {960, 1216}},
    {64, {1280, 1792}, {1184, 1696}},
    {65, {1312, 1824}, {1216, 1728}},
    {128, {1792, 2816}, {1696, 2720}},
    {256, {2816, 4864}, {2720, 4768}},
    {512, {4864, 8960}, {4768, 8864}},
    {1024, {8960, 17152}, {8864, 17056}},
    {1025, {8992, 17184}, {8896, 17088}},
    {2048, {17152, 33536}, {17056, 33440}},
    {4096, {35264, 68992}, {35008, 68736}},
    {8192, {69056, 136576}, {68800, 136320}},
    {16384, {136576, 271616}, {136320, 271360}},
    {32768, {271744, 541952}, {271488, 541696}},
    {65536, {541952, 1082368}, {541696, 1082112}},
    {131072, {1084096, 2165888}, {1083680, 2165472}},
    {1048576, {8657024, 17311744}, {8656608, 17311328}},
};

TYPED_TEST(Dct4Blocks, TheQueryTellsAndThePlanTakesTheBytesOfTheTable)
{
    for (const auto& [size, asked, taken] : byteTable) {
        Dct4Plan<TypeParam> plan(size);
        EXPECT_EQ(plan.bytes(), static_cast<std::size_t>(asked[this->isDouble])) << size;
        EXPECT_EQ(cursorOf(plan.block()) - firstOfArena(plan.block()) + 64, taken[this->isDouble])
            << size;
    }
}

bool isServed(int size)
{
    const auto isPower = [](int value) {
        return value > 1 && std::has_single_bit(static_cast<unsigned>(value));
    };
    return isPower(size) || (size > 8 && isPower(size - 1));
}

// The query and the initialiser agree. A refusal may have written to the block, but no more than
// the plan of a larger size takes.
TYPED_TEST(Dct4Blocks, PowersOfTwoAreServedAndFrom9OnTheirUpperNeighbours)
{
    const GuardedMemory memory(1 << 18);
    for (int size = -8; size <= 1026; ++size) {
        const auto larger = 4 * std::bit_ceil(static_cast<unsigned>(std::max(8, size)));
        std::byte* const block = memory.place(this->bytesOf(static_cast<int>(larger)), true);
        auto* const before = reinterpret_cast<typename Dct4<TypeParam>::Spec*>(block);
        auto* spec = before;
        const RvnStatus status = Dct4<TypeParam>::init(&spec, size, block);
        EXPECT_EQ(status, isServed(size) ? RvnStatusNoError : RvnStatusSizeError) << size;
        EXPECT_EQ(spec != before, isServed(size)) << size;
        EXPECT_EQ(this->bytesOf(size) != this->untouched, isServed(size)) << size;
    }
    for (const int size : {INT_MIN, INT_MIN + 1, -(1 << 20), 3 << 15, (1 << 17) + 2, INT_MAX})
        EXPECT_EQ(this->bytesOf(size), this->untouched) << size;
}

// Byte counts are formed modulo 2^32: a negative one is a refusal, and a positive one is believed,
// from 2^30 in 32f and from 2^29 in 64f on, though it is too small. So it is with the upper
// neighbours.
TYPED_TEST(Dct4Blocks, SizesWhoseBytesLeave32BitsAreNotGuarded)
{
    const std::map<int, std::array<std::int32_t, 2>> bytes = {
        {1 << 26, {553921280, 1107839488}},
        {1 << 27, {1107841216, this->untouched}},
        {1 << 28, {this->untouched, this->untouched}},
        {1 << 29, {this->untouched, 272768512}},
        {1 << 30, {272768640, 545533440}}};
    for (const auto& [size, expected] : bytes) {
        const std::int32_t told = expected[this->isDouble];
        EXPECT_EQ(this->bytesOf(size), told) << size;
        EXPECT_EQ(this->bytesOf(size + 1), told == this->untouched ? told : told + 32) << size;
    }
}

constexpr int sizesOfEveryKind[] = {2, 32, 9, 64, 65, 2048, 4096, 4097, 16384, 32768, 131072};

// Against a page that may not be touched at either end, then a byte at a time between canaries.
TYPED_TEST(Dct4Blocks, NothingOutsideTheBlockIsTouchedWhateverItsAlignment)
{
    constexpr std::byte canary{0x5a};
    for (const int size : sizesOfEveryKind) {
        const int bytes = this->bytesOf(size);
        const auto x = randomParts<TypeParam>(size + 1, 3);
        std::vector<TypeParam> X(size + 1);
        std::vector<TypeParam> first;
        const auto planAndRun = [&](std::byte* block) {
            typename Dct4<TypeParam>::Spec* spec = nullptr;
            ASSERT_EQ(Dct4<TypeParam>::init(&spec, size, block), RvnStatusNoError) << size;
            EXPECT_EQ(reinterpret_cast<std::byte*>(spec), firstOfArena(block)) << size;
            EXPECT_LE(cursorOf(block), block + bytes) << size;
            ASSERT_EQ(Dct4<TypeParam>::run(x.data(), X.data(), spec), RvnStatusNoError);
            if (first.empty())
                first = X;
            EXPECT_TRUE(haveSameBits(X, first)) << size;
        };
        const GuardedMemory memory(bytes + 192);
        planAndRun(memory.place(bytes, true));
        planAndRun(memory.place(bytes, false));
        const int step = size > 4097 ? 21 : 1;
        for (int alignment = 0; alignment < 64; alignment += step) {
            std::byte* const block = memory.first() + 64 + alignment;
            std::byte* const end = memory.first() + memory.size();
            std::fill(memory.first(), end, canary);
            planAndRun(block);
            const auto isCanary = [](std::byte value) { return value == canary; };
            EXPECT_TRUE(std::all_of(memory.first(), block, isCanary)) << size << " " << alignment;
            EXPECT_TRUE(std::all_of(block + bytes, end, isCanary)) << size << " " << alignment;
        }
    }
}

TYPED_TEST(Dct4Blocks, NullPointersAndADamagedPlanAreRefusedAndNothingIsTouched)
{
    using D = Dct4<TypeParam>;
    std::vector<std::byte> block(this->bytesOf(64), std::byte{0x5a});
    const auto before = block;
    typename D::Spec* spec = nullptr;
    for (const int size : {64, 3}) {
        EXPECT_EQ(D::init(nullptr, size, block.data()), RvnStatusNullPointer);
        EXPECT_EQ(D::init(&spec, size, nullptr), RvnStatusNullPointer);
    }
    EXPECT_EQ(spec, nullptr);
    EXPECT_EQ(block, before);

    ASSERT_EQ(D::init(&spec, 64, block.data()), RvnStatusNoError);
    const auto planned = block;
    const GuardedMemory memory(1);
    auto* const array = memory.untouchable<TypeParam>();
    EXPECT_EQ(D::run(nullptr, array, spec), RvnStatusNullPointer);
    EXPECT_EQ(D::run(array, nullptr, spec), RvnStatusNullPointer);
    EXPECT_EQ(D::run(array, array, nullptr), RvnStatusNullPointer);
    EXPECT_EQ(block, planned);
    reinterpret_cast<dct4::record::Env1<TypeParam>*>(spec)->mode = 0;
    EXPECT_EQ(D::run(array, array, spec), RvnStatusBadMode);
}

} // namespace

} // namespace rvn::tests
