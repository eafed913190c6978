// What every kernel promises besides its transform: statuses in their order, refusals that touch
// nothing, the exact factor S of a flag, any overlap and any alignment of src and dst, no access
// outside them, and the caller's floating-point environment left alone.

#include "guarded_memory.h"
#include "kernels.h"
#include "refusals.h"

#include <algorithm>
#include <cfenv>
#include <climits>
#include <set>

#include <immintrin.h>

namespace rvn::tests
{

namespace
{

template <typename Element> class Contract : public ::testing::Test
{
};

TYPED_TEST_SUITE(Contract, Elements);

TYPED_TEST(Contract, RefusalsComeInOrderAndTouchNothing)
{
    for (const auto& kernel : everyKernel<TypeParam>())
        expectRefusals<TypeParam>(kernel);
}

// The factor itself: what a unit impulse becomes in every output.
TYPED_TEST(Contract, AFlagSelectsTheDocumentedFactorExactly)
{
    using Real = Scalar<TypeParam>;
    // Where rounding the root and then the quotient misses the nearest binary64 value by one ulp.
    const std::set<int> oneBelow = {2, 7, 8, 15, 19, 22, 28, 32, 34, 60, 63};
    const std::set<int> oneAbove = {3, 6, 12, 18, 24, 48, 59};
    for (const auto& kernel : everyKernel<TypeParam>()) {
        const int N = kernel.length;
        const auto nearest = static_cast<double>(1 / std::sqrt(static_cast<long double>(N)));
        const double bySqrtN = oneBelow.contains(N)   ? std::nextafter(nearest, 0.0)
                               : oneAbove.contains(N) ? std::nextafter(nearest, 1.0)
                                                      : nearest;
        const double forward[] = {1.0 / N, 1, bySqrtN, 1};
        const double inverse[] = {1, 1.0 / N, bySqrtN, 1};
        for (int i = 0; i < 4; ++i) {
            const auto S = static_cast<Real>(kernel.isInverse ? inverse[i] : forward[i]);
            const auto X = transformed(kernel, impulse<TypeParam>(N, 0, {1, 0}), everyFlag[i]);
            EXPECT_TRUE(std::ranges::all_of(X, [S](TypeParam x) { return x.re == S && x.im == 0; }))
                << kernel.name << ", flag " << everyFlag[i];
        }
    }
}

TYPED_TEST(Contract, SrcAndDstMayOverlapInAnyWayAtAnyAlignment)
{
    for (const auto& kernel : everyKernel<TypeParam>()) {
        const auto x = randomSignal<TypeParam>(kernel.length, 5);
        const auto expected = transformed(kernel, x, RvnScaleNone);
        const int bytes = static_cast<int>(x.size() * sizeof(TypeParam));
        for (const int offset : {0, 1, 3, 4, 8, 16, 24, 40, bytes / 2, bytes - 8, bytes - 1, bytes})
            for (const int sign : {1, -1}) {
                std::vector<std::byte> memory(4096);
                std::byte* const src = memory.data() + 1501;
                std::byte* const dst = src + sign * offset;
                std::memcpy(src, x.data(), bytes);
                const RvnStatus status =
                    kernel.run(reinterpret_cast<TypeParam*>(src), reinterpret_cast<TypeParam*>(dst),
                               RvnScaleNone);
                ASSERT_TRUE(status == RvnStatusNoError &&
                            std::memcmp(dst, expected.data(), bytes) == 0)
                    << kernel.name << ", dst - src = " << sign * offset;
            }
    }
}

TYPED_TEST(Contract, NothingOutsideSrcAndDstIsTouched)
{
    const GuardedMemory sources(4096);
    const GuardedMemory results(4096);
    for (const auto& kernel : everyKernel<TypeParam>()) {
        const auto x = randomSignal<TypeParam>(kernel.length, 7);
        const auto expected = transformed(kernel, x, RvnScaleNone);
        const std::size_t bytes = x.size() * sizeof(TypeParam);
        for (const bool atEnd : {false, true}) {
            std::byte* const src = sources.place(bytes, atEnd);
            std::byte* const dst = results.place(bytes, atEnd);
            constexpr std::byte mark{0xa5};
            std::fill_n(results.first(), results.size(), mark);
            std::memcpy(src, x.data(), bytes);
            kernel.run(reinterpret_cast<TypeParam*>(src), reinterpret_cast<TypeParam*>(dst),
                       RvnScaleNone);
            EXPECT_EQ(std::memcmp(src, x.data(), bytes), 0) << kernel.name << " wrote to src";
            EXPECT_EQ(std::memcmp(dst, expected.data(), bytes), 0) << kernel.name;
            std::fill_n(dst, bytes, mark);
            EXPECT_EQ(std::count(results.first(), results.first() + results.size(), mark),
                      static_cast<std::ptrdiff_t>(results.size()))
                << kernel.name << " wrote outside dst";
        }
    }
}

TYPED_TEST(Contract, ValuesAreNeverTestedAndNaNReachesEveryOutput)
{
    for (const auto& kernel : everyKernel<TypeParam>())
        for (int j = 0; j < kernel.length; ++j) {
            auto x = randomSignal<TypeParam>(kernel.length, 11);
            x[j] = allNaN<TypeParam>(1)[0];
            Signal<TypeParam> X(kernel.length);
            ASSERT_EQ(kernel.run(x.data(), X.data(), RvnScaleNone), RvnStatusNoError);
            ASSERT_TRUE(std::ranges::all_of(
                X, [](TypeParam value) { return std::isnan(value.re) && std::isnan(value.im); }))
                << kernel.name << ", input " << j;
        }
}

TYPED_TEST(Contract, TheCallersRoundingModeIsObeyedAndKept)
{
    for (const auto& kernel : everyKernel<TypeParam>()) {
        const auto x = randomSignal<TypeParam>(kernel.length, 13, 8);
        std::fesetround(FE_DOWNWARD);
        const auto down = transformed(kernel, x, RvnScaleBySqrtN);
        std::fesetround(FE_UPWARD);
        const unsigned before = _mm_getcsr();
        const auto up = transformed(kernel, x, RvnScaleBySqrtN);
        const unsigned after = _mm_getcsr();
        const int mode = std::fegetround();
        std::fesetround(FE_TONEAREST);
        EXPECT_EQ(mode, FE_UPWARD) << kernel.name;
        EXPECT_EQ(before & ~_MM_EXCEPT_MASK, after & ~_MM_EXCEPT_MASK) << kernel.name;
        EXPECT_FALSE(sameBits(down, up)) << kernel.name;
    }
}

} // namespace

} // namespace rvn::tests
