// A dispatcher reaches the kernel of a length given at run time and refuses any other length before
// it looks at anything else; the version record says what it always has.

#include "guarded_memory.h"
#include "kernels.h"

#include <climits>

namespace rvn::tests
{

namespace
{

template <typename Element> class Dispatch : public ::testing::Test
{
};

TYPED_TEST_SUITE(Dispatch, Elements);

TYPED_TEST(Dispatch, EveryLengthFrom2To64ReachesItsKernel)
{
    for (const auto& kernel : everyKernel<TypeParam>())
        for (const RvnScaleFlag flag : everyFlag) {
            const auto x = randomSignal<TypeParam>(kernel.length, 41);
            auto X = allNaN<TypeParam>(kernel.length);
            ASSERT_EQ(kernel.dispatch(x.data(), X.data(), kernel.length, flag), RvnStatusNoError);
            EXPECT_TRUE(sameBits(X, transformed(kernel, x, flag))) << kernel.name << flag;
        }
}

TYPED_TEST(Dispatch, ALengthOutOfRangeIsRefusedBeforeAnythingElse)
{
    const GuardedMemory page(1);
    auto* const some = page.untouchable<TypeParam>();
    TypeParam* const none = nullptr;
    for (const bool isInverse : {false, true}) {
        const auto dispatch = kernelOf<TypeParam>(2, isInverse).dispatch;
        for (const int length : {1, 0, -1, -2, 65, 66, 128, 1 << 16, INT_MIN, INT_MIN + 2, INT_MAX})
            for (const RvnScaleFlag flag : {RvnScaleNone + 0, 0, 3, -1})
                for (TypeParam* const src : {some, none})
                    for (TypeParam* const dst : {some, none})
                        ASSERT_EQ(dispatch(src, dst, length, flag), RvnStatusSizeError) << length;
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
