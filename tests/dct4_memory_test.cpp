// A plan's memory: the allocating initialiser asks rvnMalloc once, for the bytes of the size query,
// in any alignment; a transform allocates nothing; the release gives the block back whole. This
// program defines the allocator itself, and the size query and the initialiser of one precision,
// which the library reaches by their exported names.

#include "dct4_kernels.h"
#include "rvncore.h"

#include <cstdlib>

#include <dlfcn.h>

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
    std::byte* cursorAtRelease = nullptr;
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
    allocator.cursorAtRelease = rvn::tests::cursorOf(static_cast<std::byte*>(block));
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

template <typename Real> class Dct4Memory : public ::testing::Test
{
protected:
    using D = Dct4<Real>;

    void SetUp() override { allocator = {}; }

    typename D::Spec* spec = nullptr;
};

TYPED_TEST_SUITE(Dct4Memory, Reals);

TYPED_TEST(Dct4Memory, OneBlockIsTakenUsedAndGivenBackWhole)
{
    using D = Dct4<TypeParam>;
    for (const std::size_t offset : {0, 1, 8, 31, 47})
        for (const int size : {2, 32, 9, 64, 65, 128, 1024, 2048, 4096, 4097, 32768, 131072}) {
            SCOPED_TRACE(size);
            int32_t bytes = 0;
            ASSERT_EQ(D::getSize(size, &bytes), RvnStatusNoError);
            allocator = {.offset = offset};
            ASSERT_EQ(D::initAlloc(&this->spec, size), RvnStatusNoError);
            EXPECT_EQ(allocator.requested, bytes);
            EXPECT_EQ(reinterpret_cast<std::byte*>(this->spec), firstOfArena(allocator.block));

            const auto x = randomParts<TypeParam>(size + 1, 3);
            std::vector<TypeParam> X(size + 1);
            EXPECT_EQ(D::run(x.data(), X.data(), this->spec), RvnStatusNoError);
            EXPECT_EQ(allocator.releases, 0);

            EXPECT_EQ(D::free(this->spec), RvnStatusNoError);
            EXPECT_EQ(allocator.requests, 1);
            EXPECT_EQ(allocator.releases, 1);
            EXPECT_EQ(allocator.released, allocator.block);
            EXPECT_EQ(allocator.cursorAtRelease, firstOfArena(allocator.block));
        }
}

TYPED_TEST(Dct4Memory, NothingIsAllocatedForWhatIsRefused)
{
    using D = Dct4<TypeParam>;
    for (const int size : {INT32_MIN, -8, 0, 1, 3, 5, 6, 7, 10, 96, 1 << 28})
        EXPECT_EQ(D::initAlloc(&this->spec, size), RvnStatusSizeError) << size;
    EXPECT_EQ(D::initAlloc(nullptr, 64), RvnStatusNullPointer);
    EXPECT_EQ(D::initAlloc(nullptr, 3), RvnStatusNullPointer);
    EXPECT_EQ(D::free(nullptr), RvnStatusNullPointer);
    EXPECT_EQ(this->spec, nullptr);
    EXPECT_EQ(allocator.requests + allocator.releases, 0);
}

TYPED_TEST(Dct4Memory, AFailingAllocatorShowsAsANullPointer)
{
    allocator.isExhausted = true;
    EXPECT_EQ(Dct4<TypeParam>::initAlloc(&this->spec, 64), RvnStatusNullPointer);
    EXPECT_EQ(this->spec, nullptr);
    EXPECT_EQ(allocator.requests, 1);
    EXPECT_EQ(allocator.releases, 1);
    EXPECT_EQ(allocator.released, nullptr);
}

TEST(Dct4Interposition, TheAllocatingInitialiserCallsTheProgramsQueryAndInitialiser)
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

} // namespace

} // namespace rvn::tests
