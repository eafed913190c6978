// Work memory and the blocks of plans: what takes memory asks rvnMalloc once, for exactly the
// documented bytes, and gives it back whole; no other call allocates. This program defines the
// allocator itself, as any program may, and counts; and the size query and the initialiser of one
// precision, which the library reaches by their exported names. The library's own allocator is
// tested through librvncore.so.

#include "dct4_kernels.h"
#include "rvncore.h"

#include <cstdlib>

#include <dlfcn.h>
#include <malloc.h>

namespace
{

struct Allocator {
    std::size_t offset = 0; // of the blocks from what malloc aligns
    bool isExhausted = false;
    int requests = 0;
    int releases = 0;
    int32_t requested = 0;
    std::byte* block = nullptr;
    void* released = nullptr;
    std::byte* firstWord = nullptr; // of the block when it was released
} allocator;

int queries = 0;
int initialisations = 0;

} // namespace

void* rvnMalloc(int32_t bytes)
{
    ++allocator.requests;
    allocator.requested = bytes;
    if (allocator.isExhausted)
        return nullptr;
    allocator.block = static_cast<std::byte*>(std::malloc(allocator.offset + bytes));
    return allocator.block += allocator.offset;
}

void rvnFree(void* block)
{
    ++allocator.releases;
    allocator.released = block;
    if (block == nullptr)
        return;
    allocator.firstWord = rvn::tests::cursorOf(static_cast<std::byte*>(block));
    std::free(static_cast<std::byte*>(block) - allocator.offset);
}

RvnStatus rvngDCT4GetSize_32f(int32_t size, int32_t* bytes)
{
    ++queries;
    return reinterpret_cast<decltype(&rvngDCT4GetSize_32f)>(
        dlsym(RTLD_NEXT, "rvngDCT4GetSize_32f"))(size, bytes);
}

RvnStatus rvngDCT4Init_32f(RvnDCT4Spec_32f** spec, int32_t size, void* block)
{
    ++initialisations;
    return reinterpret_cast<decltype(&rvngDCT4Init_32f)>(dlsym(RTLD_NEXT, "rvngDCT4Init_32f"))(
        spec, size, block);
}

namespace rvn::tests
{

namespace
{

template <typename Real> class Memory : public ::testing::Test
{
protected:
    void SetUp() override { allocator = {}; }
};

TYPED_TEST_SUITE(Memory, Reals);

TYPED_TEST(Memory, OnlyAKernelWithoutItsBufferAllocatesAndItReleases)
{
    for (const auto& kernel : everyKernel<TypeParam>()) {
        const auto x = arranged(randomParts<TypeParam>(kernel.parts(), 3), kernel.source());
        std::vector<TypeParam> y(2 + kernel.parts());
        std::vector<TypeParam> buffer(1 + kernel.workElements());
        allocator = {};
        kernel.run(x.data(), y.data(), 3);
        kernel.run(nullptr, y.data(), RvnScaleNone);
        kernel.run(x.data(), nullptr, RvnScaleNone);
        kernel.run(x.data(), y.data(), RvnScaleNone, buffer.data());
        kernel.dispatcher(x.data(), y.data(), kernel.size, RvnScaleNone, buffer.data());
        EXPECT_EQ(allocator.requests, 0) << kernel.name;

        kernel.run(x.data(), y.data(), RvnScaleNone);
        const auto bytes = kernel.workElements() * static_cast<int>(sizeof(TypeParam));
        EXPECT_EQ(allocator.requested, bytes) << kernel.name;
        EXPECT_EQ(allocator.requests, bytes > 0 ? 1 : 0) << kernel.name;
        EXPECT_EQ(allocator.releases, allocator.requests) << kernel.name;
        EXPECT_EQ(allocator.released, allocator.block) << kernel.name;
    }
}

TYPED_TEST(Memory, APlanTakesOneBlockAndGivesItBackWhole)
{
    using D = Dct4<TypeParam>;
    typename D::Spec* spec = nullptr;
    for (const std::size_t offset : {0, 1, 8, 31, 47})
        for (const int size : {2, 32, 9, 64, 65, 128, 1024, 2048, 4096, 4097, 32768, 131072}) {
            SCOPED_TRACE(size);
            int32_t bytes = 0;
            ASSERT_EQ(D::getSize(size, &bytes), RvnStatusNoError);
            allocator = {.offset = offset};
            ASSERT_EQ(D::initAlloc(&spec, size), RvnStatusNoError);
            EXPECT_EQ(allocator.requested, bytes);
            EXPECT_EQ(reinterpret_cast<std::byte*>(spec), firstOfArena(allocator.block));

            const auto x = randomParts<TypeParam>(size + 1, 3);
            std::vector<TypeParam> X(size + 1);
            EXPECT_EQ(D::run(x.data(), X.data(), spec), RvnStatusNoError);
            EXPECT_EQ(allocator.releases, 0);

            EXPECT_EQ(D::free(spec), RvnStatusNoError);
            EXPECT_EQ(allocator.requests, 1);
            EXPECT_EQ(allocator.releases, 1);
            EXPECT_EQ(allocator.released, allocator.block);
            EXPECT_EQ(allocator.firstWord, firstOfArena(allocator.block)) << "the cursor";
        }
}

TYPED_TEST(Memory, ARefusedPlanHoldsNothing)
{
    using D = Dct4<TypeParam>;
    auto* const before = reinterpret_cast<typename D::Spec*>(&allocator);
    auto* spec = before;
    for (const int size : {INT32_MIN, -8, 0, 1, 3, 5, 6, 7, 10, 96, 1 << 28})
        EXPECT_EQ(D::initAlloc(&spec, size), RvnStatusSizeError) << size;
    EXPECT_EQ(D::initAlloc(nullptr, 64), RvnStatusNullPointer);
    EXPECT_EQ(D::initAlloc(nullptr, 3), RvnStatusNullPointer);
    EXPECT_EQ(D::free(nullptr), RvnStatusNullPointer);
    EXPECT_EQ(allocator.requests + allocator.releases, 0);

    allocator.isExhausted = true;
    EXPECT_EQ(D::initAlloc(&spec, 64), RvnStatusNullPointer);
    EXPECT_EQ(spec, before);
    EXPECT_EQ(allocator.requests, 1);
    EXPECT_EQ(allocator.releases, 1);
    EXPECT_EQ(allocator.released, nullptr);
}

TEST(Interposition, TheAllocatingInitialiserCallsTheProgramsQueryAndInitialiser)
{
    RvnDCT4Spec_32f* spec = nullptr;
    allocator = {};
    queries = initialisations = 0;
    EXPECT_EQ(rvngDCT4InitAlloc_32f(&spec, 7), RvnStatusSizeError);
    EXPECT_EQ(queries, 1);
    EXPECT_EQ(initialisations, 0);
    EXPECT_EQ(rvngDCT4InitAlloc_32f(&spec, 64), RvnStatusNoError);
    EXPECT_EQ(queries, 2);
    EXPECT_EQ(initialisations, 1);
    EXPECT_EQ(rvngDCT4Free_32f(spec), RvnStatusNoError);
}

TEST(CoreMemory, BlocksAreAlignedAndAlwaysReleasable)
{
    void* const core = dlopen("librvncore.so", RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(core, nullptr) << dlerror();
    const auto allocate = reinterpret_cast<decltype(&rvnMalloc)>(dlsym(core, "rvnMalloc"));
    const auto release = reinterpret_cast<decltype(&rvnFree)>(dlsym(core, "rvnFree"));
    ASSERT_NE(allocate, &rvnMalloc) << "this program's own function";
    const auto mapped = mallinfo2().hblkhd;
    for (const int32_t bytes : {0, 1, 63, 64, 65, 73728, 1 << 24}) {
        auto* const block = static_cast<char*>(allocate(bytes));
        ASSERT_NE(block, nullptr) << bytes;
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % 64, 0u) << bytes;
        std::memset(block, 0xa5, bytes);
        release(block);
    }
    EXPECT_EQ(mallinfo2().hblkhd, mapped) << "a large block is not given back";
    EXPECT_EQ(allocate(-1), nullptr);
    EXPECT_EQ(allocate(INT32_MIN), nullptr);
    release(nullptr);
    dlclose(core);
}

} // namespace

} // namespace rvn::tests
