// Work memory: a kernel without a caller's buffer takes exactly the documented bytes from rvnMalloc
// and gives them back, and no other call allocates. This program defines both functions itself, as
// any program may, and counts. The library's own pair is tested through librvncore.so.

#include "rvncore.h"
#include "wht_kernels.h"

#include <csignal>
#include <cstdlib>
#include <cstring>

#include <dlfcn.h>

namespace
{

int32_t requested = 0;
int blocks = 0;
int calls = 0;
bool isExhausted = false;

} // namespace

void* rvnMalloc(int32_t bytes)
{
    requested = bytes;
    ++calls;
    if (isExhausted)
        return nullptr;
    ++blocks;
    return std::malloc(bytes);
}

void rvnFree(void* block)
{
    --blocks;
    std::free(block);
}

namespace rvn::tests
{

namespace
{

template <typename Real> class WhtMemory : public ::testing::Test
{
};

using Reals = ::testing::Types<float, double>;
TYPED_TEST_SUITE(WhtMemory, Reals);

TYPED_TEST(WhtMemory, OnlyACallWithoutABufferAllocatesAndItReleases)
{
    for (const auto& kernel : everyWhtKernel<TypeParam>()) {
        const auto x = randomReals<TypeParam>(kernel.points(), 3);
        std::vector<TypeParam> y(x.size());
        std::vector<TypeParam> buffer(workElements(kernel.order));
        const int bytes = workElements(kernel.order) * static_cast<int>(sizeof(TypeParam));
        calls = 0;
        requested = 0;

        kernel.run(x.data(), y.data(), 3, nullptr);
        kernel.run(nullptr, y.data(), RvnScaleNone, nullptr);
        kernel.run(x.data(), nullptr, RvnScaleNone, nullptr);
        kernel.run(x.data(), y.data(), RvnScaleNone, bytes > 0 ? buffer.data() : y.data());
        EXPECT_EQ(calls, 0) << kernel.name;

        kernel.run(x.data(), y.data(), RvnScaleNone, nullptr);
        EXPECT_EQ(calls, bytes > 0 ? 1 : 0) << kernel.name;
        EXPECT_EQ(requested, bytes) << kernel.name;
        EXPECT_EQ(blocks, 0) << kernel.name << " kept its block";
    }
}

// The allocator's result is not tested: callers who cannot tolerate a fault pass a buffer.
TYPED_TEST(WhtMemory, AFailingAllocatorIsAFaultAtTheFirstStore)
{
    for (const auto& kernel : everyWhtKernel<TypeParam>()) {
        if (workElements(kernel.order) == 0)
            continue;
        const auto x = randomReals<TypeParam>(kernel.points(), 3);
        std::vector<TypeParam> y(x.size());
        const auto starve = [&] {
            isExhausted = true;
            kernel.run(x.data(), y.data(), RvnScaleNone, nullptr);
        };
#if defined(__SANITIZE_ADDRESS__)
        EXPECT_DEATH(starve(), "SEGV|null pointer") << kernel.name;
#else
        EXPECT_EXIT(starve(), ::testing::KilledBySignal(SIGSEGV), "") << kernel.name;
#endif
    }
}

TEST(CoreMemory, BlocksAreAlignedAndAlwaysReleasable)
{
    void* const core = dlopen("librvncore.so", RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(core, nullptr) << dlerror();
    const auto allocate = reinterpret_cast<decltype(&rvnMalloc)>(dlsym(core, "rvnMalloc"));
    const auto release = reinterpret_cast<decltype(&rvnFree)>(dlsym(core, "rvnFree"));
    ASSERT_NE(allocate, &rvnMalloc) << "this program's own function";
    for (const int32_t bytes : {0, 1, 63, 64, 65, 73728, 1 << 24}) {
        auto* const block = static_cast<char*>(allocate(bytes));
        ASSERT_NE(block, nullptr) << bytes;
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % 64, 0u) << bytes;
        std::memset(block, 0xa5, bytes);
        release(block);
    }
    EXPECT_EQ(allocate(-1), nullptr);
    EXPECT_EQ(allocate(INT32_MIN), nullptr);
    release(nullptr);
    dlclose(core);
}

} // namespace

} // namespace rvn::tests
