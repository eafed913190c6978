// What every kernel of the real DFT and of the Hartley transform promises besides its sum: statuses
// in their order, the exact factor S of a flag, any overlap and alignment, no access outside its
// arrays, which slots are read and which are constant, and what becomes of zeros, NaN and infinity.

#include "guarded_memory.h"
#include "real_kernels.h"
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

template <typename Real> constexpr Real nan = std::numeric_limits<Real>::quiet_NaN();

template <typename Real> std::size_t bytesOf(const std::vector<Real>& values)
{
    return values.size() * sizeof(Real);
}

template <typename Real>
RvnStatus runAt(const RealKernel<Real>& kernel, std::byte* src, std::byte* dst)
{
    return kernel.run(reinterpret_cast<Real*>(src), reinterpret_cast<Real*>(dst), RvnScaleNone);
}

template <typename Real> class RealContract : public ::testing::Test
{
};

TYPED_TEST_SUITE(RealContract, Reals);

TYPED_TEST(RealContract, RefusalsComeInOrderAndTouchNothing)
{
    for (const auto& kernel : everyRealKernel<TypeParam>())
        expectRefusals<TypeParam>(kernel);
}

// A unit in the first part comes out as S in every real part, and as 0 in every imaginary one.
TYPED_TEST(RealContract, AFlagSelectsTheDocumentedFactorExactly)
{
    for (const auto& kernel : everyRealKernel<TypeParam>())
        for (const RvnScaleFlag flag : everyFlag) {
            const TypeParam S = kernel.scale(flag);
            const auto X = transformed(kernel, unitPart<TypeParam>(kernel.length, 0), flag);
            for (int part = 0; part < kernel.length; ++part) {
                const bool isImaginary = kernel.isForward() && part > 0 && part % 2 == 0;
                ASSERT_EQ(X[part], isImaginary ? 0 : S) << kernel.name << ", flag " << flag;
            }
        }
}

TYPED_TEST(RealContract, FlagsWithTheSameFactorGiveTheSameBits)
{
    for (const auto& kernel : everyRealKernel<TypeParam>()) {
        const RvnScaleFlag first = kernel.isForward() ? RvnScaleInvByN : RvnScaleFwdByN;
        const RvnScaleFlag second =
            kernel.form == Form::Hartley ? RvnScaleInvByN : RvnScaleNone + 0;
        const auto x = randomParts<TypeParam>(kernel.length, 3);
        EXPECT_TRUE(sameBits(transformed(kernel, x, first), transformed(kernel, x, second)))
            << kernel.name;
    }
}

TYPED_TEST(RealContract, SrcAndDstMayOverlapInAnyWayAtAnyAlignment)
{
    for (const auto& kernel : everyRealKernel<TypeParam>()) {
        const auto x = arranged(randomParts<TypeParam>(kernel.length, 5), kernel.source());
        const auto expected = resultOf(kernel, x.data(), RvnScaleNone);
        const int bytes = static_cast<int>(std::max(bytesOf(x), bytesOf(expected)));
        for (const int offset : {0, 1, 3, 4, 8, 16, 24, 40, bytes / 2, bytes - 8, bytes - 1, bytes})
            for (const int sign : {1, -1}) {
                std::vector<std::byte> memory(4096);
                std::byte* const src = memory.data() + 1501;
                std::byte* const dst = src + sign * offset;
                std::memcpy(src, x.data(), bytesOf(x));
                ASSERT_EQ(runAt(kernel, src, dst), RvnStatusNoError);
                ASSERT_EQ(std::memcmp(dst, expected.data(), bytesOf(expected)), 0)
                    << kernel.name << ", dst - src = " << sign * offset;
            }
    }
}

// The source ends with the last slot that holds a part: from CCS, the slot of the constant behind
// it may not even exist.
TYPED_TEST(RealContract, NothingOutsideSrcAndDstIsTouched)
{
    const GuardedMemory sources(4096);
    const GuardedMemory results(4096);
    for (const auto& kernel : everyRealKernel<TypeParam>()) {
        auto x = arranged(randomParts<TypeParam>(kernel.length, 7), kernel.source());
        const auto expected = resultOf(kernel, x.data(), RvnScaleNone);
        if (kernel.form == Form::FromCCS && kernel.length % 2 == 0)
            x.pop_back();
        for (const bool atEnd : {false, true}) {
            std::byte* const src = sources.place(bytesOf(x), atEnd);
            std::byte* const dst = results.place(bytesOf(expected), atEnd);
            constexpr std::byte mark{0xa5};
            std::fill_n(results.first(), results.size(), mark);
            std::memcpy(src, x.data(), bytesOf(x));
            runAt(kernel, src, dst);
            EXPECT_EQ(std::memcmp(src, x.data(), bytesOf(x)), 0) << kernel.name << " wrote to src";
            EXPECT_EQ(std::memcmp(dst, expected.data(), bytesOf(expected)), 0) << kernel.name;
            std::fill_n(dst, bytesOf(expected), mark);
            EXPECT_EQ(std::count(results.first(), results.first() + results.size(), mark),
                      static_cast<std::ptrdiff_t>(results.size()))
                << kernel.name << " wrote outside dst";
        }
    }
}

TYPED_TEST(RealContract, TheConstantSlotsArePositiveZerosWhateverTheInput)
{
    for (int N = 2; N <= 64; ++N)
        for (const RvnScaleFlag flag : everyFlag)
            for (const TypeParam filling : {nan<TypeParam>, -TypeParam{1}, -TypeParam{0}}) {
                const auto& kernel = realKernel<TypeParam>(Form::ToCCS, N);
                const auto X = resultOf(kernel, std::vector<TypeParam>(N, filling).data(), flag);
                for (const int slot : N % 2 == 0 ? std::set{1, N + 1} : std::set{1})
                    EXPECT_TRUE(X[slot] == 0 && !std::signbit(X[slot]))
                        << kernel.name << ", slot " << slot;
            }
}

TYPED_TEST(RealContract, TheConstantSlotsDoNotReachTheInverse)
{
    for (int N = 2; N <= 64; ++N) {
        const auto& kernel = realKernel<TypeParam>(Form::FromCCS, N);
        const auto x = randomParts<TypeParam>(N, 9);
        const auto expected =
            transformed(realKernel<TypeParam>(Form::FromPack, N), x, RvnScaleNone);
        for (const TypeParam rest : {nan<TypeParam>, TypeParam{0}, TypeParam{-1e30f}}) {
            const auto slots = arranged(x, Layout::CCS, rest);
            EXPECT_TRUE(sameBits(resultOf(kernel, slots.data(), RvnScaleNone), expected))
                << kernel.name << ", " << rest;
        }
    }
}

TYPED_TEST(RealContract, ZerosGiveZerosAndNegatedPartsPositiveOnes)
{
    const struct {
        int length;
        std::set<int> negatedBins;
    } table[] = {{3, {1}}, {4, {1}}, {5, {2}}, {6, {1}}, {7, {2}}, {8, {1, 2, 3}}};
    for (const TypeParam zero : {TypeParam{0}, -TypeParam{0}}) {
        for (const auto& kernel : everyRealKernel<TypeParam>())
            for (const TypeParam value :
                 transformed(kernel, std::vector(kernel.length, zero), RvnScaleFwdByN))
                EXPECT_EQ(value, 0) << kernel.name;
        for (const auto& [length, bins] : table)
            for (const Form form : forwardForms) {
                const auto& kernel = realKernel<TypeParam>(form, length);
                const auto X = transformed(kernel, std::vector(length, zero), RvnScaleNone);
                for (const int k : bins)
                    EXPECT_FALSE(std::signbit(X[2 * k])) << kernel.name << ", I(" << k << ")";
            }
    }
}

// The mean of a signal depends on all of it, a signal on R(0) everywhere and its first element on
// the real bins.
TYPED_TEST(RealContract, NaNReachesWhatDependsOnIt)
{
    for (const auto& kernel : everyRealKernel<TypeParam>())
        for (int in = 0; in < kernel.length; ++in) {
            auto x = randomParts<TypeParam>(kernel.length, 11);
            x[in] = nan<TypeParam>;
            const auto X = transformed(kernel, x, RvnScaleNone);
            const bool isReal = in == 0 || in % 2 == 1;
            EXPECT_TRUE(std::isnan(X[0]) || (kernel.isInverse() && !isReal))
                << kernel.name << ", input " << in;
            EXPECT_TRUE(in > 0 || !kernel.isInverse() ||
                        std::ranges::all_of(X, [](TypeParam y) { return std::isnan(y); }))
                << kernel.name;
        }
}

TYPED_TEST(RealContract, TheInverseDoublesRealPartsFirstWhateverTheFlag)
{
    constexpr TypeParam most = std::numeric_limits<TypeParam>::max();
    for (int N = 3; N <= 64; ++N)
        for (const Form form : inverseForms)
            for (const RvnScaleFlag flag : everyFlag) {
                const auto& kernel = realKernel<TypeParam>(form, N);
                std::vector<TypeParam> x(N);
                x[1] = most * TypeParam{0.51f};
                EXPECT_FALSE(std::isfinite(transformed(kernel, x, flag)[0])) << kernel.name << flag;
            }
}

TYPED_TEST(RealContract, TheCallersRoundingModeIsObeyedAndKept)
{
    for (const auto& kernel : everyRealKernel<TypeParam>()) {
        const auto x = randomParts<TypeParam>(kernel.length, 13, 8);
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
