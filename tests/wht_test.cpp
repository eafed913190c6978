// The Walsh-Hadamard kernels give, bit for bit, what one ascending loop of butterflies gives, in
// every way of calling; they refuse in the documented order, and touch no byte that is not theirs.

#include "guarded_memory.h"
#include "wht_kernels.h"

#include <cfenv>
#include <climits>
#include <cstring>
#include <limits>

#include <immintrin.h>

namespace rvn::tests
{

namespace
{

template <typename Real> class Wht : public ::testing::Test
{
protected:
    static constexpr bool isSingle = sizeof(Real) == sizeof(float);
    static constexpr auto dispatch = [](const Real* src, Real* dst, int32_t order,
                                        RvnScaleFlag flag, void* buffer) {
        if constexpr (isSingle)
            return rvngWHT_32f(src, dst, order, flag, buffer);
        else
            return rvngWHT_64f(src, dst, order, flag, buffer);
    };
    static constexpr auto query = isSingle ? rvngWHTGetBufferSize_32f : rvngWHTGetBufferSize_64f;

    static std::vector<Real> noNumbers(int count)
    {
        return std::vector<Real>(count, std::numeric_limits<Real>::quiet_NaN());
    }

    static bool sameBits(const std::vector<Real>& x, const std::vector<Real>& y)
    {
        return x.size() == y.size() &&
               std::memcmp(x.data(), y.data(), x.size() * sizeof(Real)) == 0;
    }
};

using Reals = ::testing::Types<float, double>;
TYPED_TEST_SUITE(Wht, Reals);

TYPED_TEST(Wht, EveryWayOfCallingEqualsTheLoopBitForBit)
{
    for (const auto& kernel : everyWhtKernel<TypeParam>())
        for (const RvnScaleFlag flag : everyWhtFlag) {
            const int N = kernel.points();
            const auto x = randomReals<TypeParam>(N, 100 + kernel.order);
            const auto expected = whtByLoop(x, kernel.order, flag);

            auto y = this->noNumbers(N);
            EXPECT_EQ(kernel.run(x.data(), y.data(), flag, nullptr), RvnStatusNoError);
            EXPECT_TRUE(this->sameBits(y, expected)) << kernel.name << " without a buffer";

            // A caller's buffer of any content, one byte off every alignment.
            std::vector<std::byte> memory(1 + sizeof(TypeParam) * workElements(kernel.order),
                                          std::byte{0xff});
            y = this->noNumbers(N);
            EXPECT_EQ(this->dispatch(x.data(), y.data(), kernel.order, flag, memory.data() + 1),
                      RvnStatusNoError);
            EXPECT_TRUE(this->sameBits(y, expected)) << kernel.name << " through the dispatcher";

            y = x;
            EXPECT_EQ(kernel.run(y.data(), y.data(), flag, memory.data() + 1), RvnStatusNoError);
            EXPECT_TRUE(this->sameBits(y, expected)) << kernel.name << " in place";
        }
}

TYPED_TEST(Wht, SrcAndDstMayOverlapInAnyWay)
{
    for (const auto& kernel : everyWhtKernel<TypeParam>()) {
        const int N = kernel.points();
        const int bytes = N * static_cast<int>(sizeof(TypeParam));
        const auto x = randomReals<TypeParam>(N, 7);
        const auto expected = whtByLoop(x, kernel.order, RvnScaleNone);
        for (const int offset : {-bytes / 2, -9, -1, 0, 1, 3, 8, bytes / 2 + 1}) {
            std::vector<std::byte> memory(3 * bytes + 32);
            std::byte* const src = memory.data() + bytes + 13;
            std::byte* const dst = src + offset;
            std::memcpy(src, x.data(), bytes);
            kernel.run(reinterpret_cast<TypeParam*>(src), reinterpret_cast<TypeParam*>(dst),
                       RvnScaleNone, nullptr);
            EXPECT_EQ(std::memcmp(dst, expected.data(), bytes), 0)
                << kernel.name << ", dst - src = " << offset;
        }
    }
}

// From subnormal to large numbers, in every rounding mode: one rounding an operation, in the order
// of the loop, and the caller's floating-point environment as it was.
TYPED_TEST(Wht, EveryRoundingIsThatOfTheLoop)
{
    for (const auto& kernel : everyWhtKernel<TypeParam>())
        for (const int mode : {FE_TONEAREST, FE_DOWNWARD, FE_UPWARD, FE_TOWARDZERO}) {
            auto x = randomReals<TypeParam>(kernel.points(), 23);
            constexpr int lowest = std::numeric_limits<TypeParam>::min_exponent;
            for (int i = 0; i < kernel.points(); ++i)
                x[i] = std::ldexp(x[i], i % 3 == 0 ? 100 : i % 3 == 1 ? lowest - 8 : 0);
            auto y = this->noNumbers(kernel.points());
            std::fesetround(mode);
            const auto expected = whtByLoop(x, kernel.order, RvnScaleFwdByN);
            const unsigned before = _mm_getcsr() & ~_MM_EXCEPT_MASK;
            kernel.run(x.data(), y.data(), RvnScaleFwdByN, nullptr);
            const unsigned after = _mm_getcsr() & ~_MM_EXCEPT_MASK;
            std::fesetround(FE_TONEAREST);
            EXPECT_TRUE(this->sameBits(y, expected)) << kernel.name << ", mode " << mode;
            EXPECT_EQ(before, after) << kernel.name;
        }
}

// Row j of the matrix, the sign of element k from the ones that j and k have in common.
TYPED_TEST(Wht, AnImpulseYieldsItsRowOfTheMatrix)
{
    for (const auto& kernel : everyWhtKernel<TypeParam>()) {
        const unsigned N = kernel.points();
        for (unsigned j = 0; j < N; j = N <= 256 ? j + 1 : 5 * j / 2 + 1) {
            std::vector<TypeParam> x(N);
            x[j] = 1;
            auto y = this->noNumbers(static_cast<int>(N));
            kernel.run(x.data(), y.data(), RvnScaleBySqrtN, nullptr);
            const TypeParam S = whtScale<TypeParam>(kernel.order, RvnScaleBySqrtN);
            for (unsigned k = 0; k < N; ++k)
                ASSERT_EQ(y[k], std::popcount(j & k) % 2 == 0 ? S : -S) << kernel.name << " " << j;
        }
    }
}

TYPED_TEST(Wht, NothingOutsideTheArraysAndTheTablesBytesIsTouched)
{
    constexpr std::size_t largest = (8192 + 1024) * sizeof(double);
    const GuardedMemory sources(largest);
    const GuardedMemory results(largest);
    const GuardedMemory buffers(largest);
    for (const auto& kernel : everyWhtKernel<TypeParam>()) {
        const auto x = randomReals<TypeParam>(kernel.points(), 19);
        const std::size_t bytes = x.size() * sizeof(TypeParam);
        const auto expected = whtByLoop(x, kernel.order, RvnScaleFwdByN);
        for (const bool atEnd : {false, true}) {
            std::byte* const src = sources.place(bytes, atEnd);
            std::byte* const dst = results.place(bytes, atEnd);
            std::memcpy(src, x.data(), bytes);
            // Orders without work memory must not look at the pointer at all.
            void* const buffer =
                workElements(kernel.order) == 0
                    ? buffers.template untouchable<void>()
                    : buffers.place(workElements(kernel.order) * sizeof(TypeParam), atEnd);
            EXPECT_EQ(kernel.run(reinterpret_cast<TypeParam*>(src),
                                 reinterpret_cast<TypeParam*>(dst), RvnScaleFwdByN, buffer),
                      RvnStatusNoError);
            EXPECT_EQ(std::memcmp(dst, expected.data(), bytes), 0) << kernel.name;
            EXPECT_EQ(std::memcmp(src, x.data(), bytes), 0) << kernel.name << " wrote to src";
        }
    }
}

TYPED_TEST(Wht, RefusalsComeInOrderAndTouchNothing)
{
    const GuardedMemory memory(1);
    auto* const some = memory.template untouchable<TypeParam>();
    TypeParam* const none = nullptr;
    for (const auto& kernel : everyWhtKernel<TypeParam>())
        for (const RvnScaleFlag flag : {0, 3, 5, 6, 7, 9, 12, 16, -1, INT_MIN, INT_MAX})
            for (void* const buffer : {static_cast<void*>(some), static_cast<void*>(none)}) {
                EXPECT_EQ(kernel.run(some, some, flag, buffer), RvnStatusFlagError) << kernel.name;
                for (const RvnScaleFlag any : {flag, RvnScaleNone + 0}) {
                    EXPECT_EQ(kernel.run(none, some, any, buffer), RvnStatusNullPointer);
                    EXPECT_EQ(kernel.run(some, none, any, buffer), RvnStatusNullPointer);
                }
            }
    for (const int order : {0, -1, 14, 15, 32, INT_MIN, INT_MAX})
        for (const RvnScaleFlag flag : {0, RvnScaleNone + 0})
            EXPECT_EQ(this->dispatch(none, none, order, flag, some), RvnStatusSizeError) << order;
}

TYPED_TEST(Wht, TheQueryTellsTheBytesOfTheTable)
{
    for (int order = 1; order <= 13; ++order) {
        int32_t size = -1;
        EXPECT_EQ(this->query(order, &size), RvnStatusNoError);
        EXPECT_EQ(size, workElements(order) * static_cast<int>(sizeof(TypeParam))) << order;
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
