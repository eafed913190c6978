// The dispatchers of the real DFT and of the Hartley transform reach the kernel of a length given
// at run time and refuse any other length before they look at anything else.

#include "guarded_memory.h"
#include "real_kernels.h"

#include <climits>

namespace rvn::tests
{

namespace
{

template <typename Real> class RealDispatch : public ::testing::Test
{
};

TYPED_TEST_SUITE(RealDispatch, Reals);

TYPED_TEST(RealDispatch, EveryLengthFrom2To64ReachesItsKernel)
{
    for (const auto& kernel : everyRealKernel<TypeParam>())
        for (const RvnScaleFlag flag : everyFlag) {
            const auto src = arranged(randomParts<TypeParam>(kernel.length, 41), kernel.source());
            const auto expected = resultOf(kernel, src.data(), flag);
            std::vector<TypeParam> dst(expected.size(), -1);
            ASSERT_EQ(kernel.dispatch(src.data(), dst.data(), kernel.length, flag),
                      RvnStatusNoError);
            EXPECT_TRUE(sameBits(dst, expected)) << kernel.name << flag;
        }
}

TYPED_TEST(RealDispatch, AKernelsRefusalsComeThrough)
{
    const GuardedMemory page(1);
    auto* const some = page.untouchable<TypeParam>();
    TypeParam* const none = nullptr;
    for (const auto& kernel : everyRealKernel<TypeParam>()) {
        ASSERT_EQ(kernel.dispatch(some, some, kernel.length, 3), RvnStatusFlagError);
        ASSERT_EQ(kernel.dispatch(none, some, kernel.length, 3), RvnStatusNullPointer);
        ASSERT_EQ(kernel.dispatch(some, none, kernel.length, 3), RvnStatusNullPointer);
    }
}

TYPED_TEST(RealDispatch, ALengthOutOfRangeIsRefusedBeforeAnythingElse)
{
    const GuardedMemory page(1);
    auto* const some = page.untouchable<TypeParam>();
    TypeParam* const none = nullptr;
    for (int form = 0; form < 7; ++form) {
        const auto dispatch = realKernel<TypeParam>(static_cast<Form>(form), 2).dispatch;
        for (const int length : {1, 0, -1, -2, 65, 66, 128, 1 << 16, INT_MIN, INT_MIN + 2, INT_MAX})
            for (const RvnScaleFlag flag : {RvnScaleNone + 0, 0, 3, -1})
                for (TypeParam* const src : {some, none})
                    for (TypeParam* const dst : {some, none})
                        ASSERT_EQ(dispatch(src, dst, length, flag), RvnStatusSizeError) << length;
    }
}

} // namespace

} // namespace rvn::tests
