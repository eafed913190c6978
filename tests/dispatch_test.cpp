// A dispatcher reaches the kernel of a size given at run time, passes on its refusals, and refuses
// any other size before it looks at anything else; the version record says what it always has.

#include "guarded_memory.h"
#include "kernels.h"

#include <climits>

namespace rvn::tests
{

namespace
{

template <typename Real> class Dispatch : public ::testing::Test
{
};

TYPED_TEST_SUITE(Dispatch, Reals);

TYPED_TEST(Dispatch, EverySizeReachesItsKernel)
{
    const GuardedMemory page(1);
    auto* const some = page.untouchable<TypeParam>();
    TypeParam* const none = nullptr;
    for (const auto& kernel : everyKernel<TypeParam>()) {
        const auto src = arranged(randomParts<TypeParam>(kernel.parts(), 41), kernel.source());
        for (const RvnScaleFlag flag : everyFlag) {
            const auto expected = resultOf(kernel, src.data(), flag);
            std::vector<TypeParam> dst(expected.size(), -1);
            ASSERT_EQ(kernel.dispatcher(src.data(), dst.data(), kernel.size, flag, nullptr),
                      RvnStatusNoError);
            EXPECT_TRUE(haveSameBits(dst, expected)) << kernel.name << ", " << inWords(flag);
        }
        EXPECT_EQ(kernel.dispatcher(some, some, kernel.size, 3, nullptr), RvnStatusFlagError);
        EXPECT_EQ(kernel.dispatcher(none, some, kernel.size, 3, nullptr), RvnStatusNullPointer);
        EXPECT_EQ(kernel.dispatcher(some, none, kernel.size, 3, nullptr), RvnStatusNullPointer);
    }
}

TYPED_TEST(Dispatch, ASizeOutOfRangeIsRefusedBeforeAnythingElse)
{
    const GuardedMemory page(1);
    auto* const some = page.untouchable<TypeParam>();
    TypeParam* const none = nullptr;
    for (int transform = 0; transform <= static_cast<int>(Transform::WalshHadamard); ++transform) {
        const auto& kernel = kernelOf<TypeParam>(static_cast<Transform>(transform), 2);
        const int first = kernel.isWalshHadamard() ? 1 : 2;
        const int last = kernel.isWalshHadamard() ? 13 : 64;
        for (const int size :
             {first - 1, last + 1, -1, 65, 66, 128, 1 << 16, INT_MIN, INT_MIN + 2, INT_MAX})
            for (const RvnScaleFlag flag : {RvnScaleNone + 0, 0, 3, -1})
                for (TypeParam* const src : {some, none})
                    for (TypeParam* const dst : {some, none})
                        ASSERT_EQ(kernel.dispatcher(src, dst, size, flag, some), RvnStatusSizeError)
                            << kernel.name << size;
    }
}

TEST(Version, TheRecordHasItsFixedFields)
{
    const RvnLibraryVersion* const version = rvngenGetLibVersion();
    EXPECT_EQ(version->major, 6);
    EXPECT_EQ(version->minor, 1);
    EXPECT_EQ(version->majorBuild, 137);
    EXPECT_EQ(version->build, 336);
    EXPECT_EQ(std::string(version->targetCode, 4), std::string("mx\0\0", 4));
    EXPECT_STREQ(version->name, "librvngenmx.so.6.1");
    EXPECT_STREQ(version->version, "6.1 build 137.56");
    EXPECT_STREQ(version->buildDate, "Mar 17 2010");
    EXPECT_EQ(rvngenGetLibVersion(), version);
}

} // namespace

} // namespace rvn::tests
