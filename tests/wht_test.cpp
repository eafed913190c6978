// The Walsh-Hadamard kernels give, bit for bit, what one ascending loop of butterflies gives, in
// every way of calling and every rounding mode, and touch no byte of a buffer beyond the table's.

#include "guarded_memory.h"
#include "kernels.h"
#include "wht_reference.h"

#include <algorithm>
#include <cfenv>
#include <climits>

namespace rvn::tests
{

namespace
{

template <typename Real> class Wht : public ::testing::Test
{
protected:
    static constexpr auto query =
        sizeof(Real) == sizeof(float) ? rvngWHTGetBufferSize_32f : rvngWHTGetBufferSize_64f;
};

TYPED_TEST_SUITE(Wht, Reals);

TYPED_TEST(Wht, EveryWayOfCallingEqualsTheLoopBitForBit)
{
    for (int order = 1; order <= 13; ++order)
        for (const RvnScaleFlag flag : everyFlag) {
            const auto& kernel = kernelOf<TypeParam>(Transform::WalshHadamard, order);
            const auto x = randomParts<TypeParam>(kernel.length(), 100 + order);
            const auto expected = byLoop(x, kernel.scale(flag));
            EXPECT_TRUE(haveSameBits(resultOf(kernel, x.data(), flag), expected)) << kernel.name;

            // A caller's buffer of any content, one byte off every alignment, and what lies behind.
            constexpr int behind = 64;
            constexpr std::byte content{0xff};
            std::vector memory(1 + sizeof(TypeParam) * kernel.workElements() + behind, content);
            std::vector y(x.size(), nan<TypeParam>);
            EXPECT_EQ(kernel.dispatcher(x.data(), y.data(), order, flag, memory.data() + 1),
                      RvnStatusNoError);
            EXPECT_TRUE(haveSameBits(y, expected)) << kernel.name << " through the dispatcher";

            y = x;
            EXPECT_EQ(kernel.run(y.data(), y.data(), flag, memory.data() + 1), RvnStatusNoError);
            EXPECT_TRUE(haveSameBits(y, expected)) << kernel.name << " in place";
            EXPECT_EQ(std::count(memory.end() - behind, memory.end(), content), behind) << order;
        }
}

// From subnormal to large numbers, in every rounding mode: one rounding an operation, in the order
// of the loop.
TYPED_TEST(Wht, EveryRoundingIsThatOfTheLoop)
{
    constexpr int lowest = std::numeric_limits<TypeParam>::min_exponent;
    for (int order = 1; order <= 13; ++order)
        for (const int mode : {FE_TONEAREST, FE_DOWNWARD, FE_UPWARD, FE_TOWARDZERO}) {
            const auto& kernel = kernelOf<TypeParam>(Transform::WalshHadamard, order);
            const TypeParam S = kernel.scale(RvnScaleFwdByN);
            auto x = randomParts<TypeParam>(kernel.length(), 23);
            for (int i = 0; i < kernel.length(); ++i)
                x[i] = std::ldexp(x[i], i % 3 == 0 ? 100 : i % 3 == 1 ? lowest - 8 : 0);
            std::fesetround(mode);
            const auto expected = byLoop(x, S);
            const auto y = resultOf(kernel, x.data(), RvnScaleFwdByN);
            std::fesetround(FE_TONEAREST);
            EXPECT_TRUE(haveSameBits(y, expected)) << kernel.name << ", mode " << mode;
        }
}

TYPED_TEST(Wht, NoByteOfABufferBeyondTheTablesIsTouched)
{
    const GuardedMemory buffers((8192 + 1024) * sizeof(double));
    for (int order = 1; order <= 13; ++order) {
        const auto& kernel = kernelOf<TypeParam>(Transform::WalshHadamard, order);
        const std::size_t bytes = kernel.workElements() * sizeof(TypeParam);
        int32_t size = -1;
        EXPECT_EQ(this->query(order, &size), RvnStatusNoError);
        EXPECT_EQ(size, static_cast<int32_t>(bytes)) << order;
        for (const bool atEnd : {false, true}) {
            // Orders without work memory must not look at the pointer at all.
            void* const buffer =
                bytes == 0 ? buffers.template untouchable<void>() : buffers.place(bytes, atEnd);
            const auto x = randomParts<TypeParam>(kernel.length(), 19);
            std::vector y(x.size(), nan<TypeParam>);
            kernel.run(x.data(), y.data(), RvnScaleNone, buffer);
            EXPECT_TRUE(haveSameBits(y, byLoop(x, TypeParam{1}))) << kernel.name;
        }
    }
    for (const int order : {0, -1, 14, INT_MIN, INT_MAX}) {
        int32_t size = 4711;
        EXPECT_EQ(this->query(order, &size), RvnStatusSizeError);
        EXPECT_EQ(this->query(order, nullptr), RvnStatusSizeError);
        EXPECT_EQ(size, 4711) << order;
    }
}

} // namespace

} // namespace rvn::tests
