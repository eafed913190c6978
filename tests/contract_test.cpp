// What every kernel promises besides its transform: statuses in their order, refusals that touch
// nothing, the exact factor S of a flag, any overlap and any alignment of src and dst, no access
// outside them, and NaN and infinity through the arithmetic.

#include "guarded_memory.h"
#include "reference.h"

#include <algorithm>
#include <climits>

namespace rvn::tests
{

namespace
{

template <typename Real> int bytesOf(const std::vector<Real>& values)
{
    return static_cast<int>(values.size() * sizeof(Real));
}

template <typename Real> void runAt(const Kernel<Real>& kernel, std::byte* src, std::byte* dst)
{
    EXPECT_EQ(kernel.run(reinterpret_cast<Real*>(src), reinterpret_cast<Real*>(dst), RvnScaleNone),
              RvnStatusNoError);
}

template <typename Real> class Contract : public ::testing::Test
{
};

TYPED_TEST_SUITE(Contract, Reals);

// A null src, then a null dst, then a bad flag is refused; memory that must not be touched is not.
TYPED_TEST(Contract, RefusalsComeInOrderAndTouchNothing)
{
    const GuardedMemory page(1);
    auto* const some = page.untouchable<TypeParam>();
    TypeParam* const none = nullptr;
    for (const auto& kernel : everyKernel<TypeParam>())
        for (TypeParam* const buffer : {none, some})
            for (const RvnScaleFlag flag :
                 {0,  1,  2,  3,  4,   5,       6,  7,  8,  9,       10,
                  12, 15, 16, 32, 257, 1 << 30, -1, -2, -8, INT_MIN, INT_MAX}) {
                const auto status = [&](TypeParam* src, TypeParam* dst) {
                    return kernel.run(src, dst, flag, buffer);
                };
                ASSERT_EQ(status(none, some), RvnStatusNullPointer)
                    << kernel.name << ", " << inWords(flag);
                ASSERT_EQ(status(some, none), RvnStatusNullPointer)
                    << kernel.name << ", " << inWords(flag);
                const bool isRefused = std::ranges::count(everyFlag, flag) == 0;
                ASSERT_TRUE(!isRefused || status(some, some) == RvnStatusFlagError)
                    << kernel.name << ", " << inWords(flag);
            }
}

// A unit in the first part comes out as S in every real part, and as 0 in every imaginary one. And
// flags with the same factor give the same bits.
TYPED_TEST(Contract, AFlagSelectsTheDocumentedFactorExactly)
{
    for (const auto& kernel : everyKernel<TypeParam>())
        for (const RvnScaleFlag flag : everyFlag) {
            const TypeParam S = kernel.scale(flag);
            const auto X = transformed(kernel, unitPart<TypeParam>(kernel.parts(), 0), flag);
            for (int part = 0; part < kernel.parts(); ++part) {
                const bool isImaginary = kernel.isComplex()
                                             ? part % 2 == 1
                                             : kernel.isForward() && part > 0 && part % 2 == 0;
                ASSERT_EQ(X[part], isImaginary ? 0 : S) << kernel.name << ", " << inWords(flag);
            }
            const auto x = randomParts<TypeParam>(kernel.parts(), 3);
            for (const RvnScaleFlag other : everyFlag)
                EXPECT_EQ(haveSameBits(transformed(kernel, x, flag), transformed(kernel, x, other)),
                          S == kernel.scale(other))
                    << kernel.name << ", " << inWords(flag) << " and " << inWords(other);
        }
}

TYPED_TEST(Contract, SrcAndDstMayOverlapInAnyWayAtAnyAlignment)
{
    for (const auto& kernel : everyKernel<TypeParam>()) {
        const auto x = arranged(randomParts<TypeParam>(kernel.parts(), 5), kernel.source());
        const auto expected = resultOf(kernel, x.data(), RvnScaleNone);
        const int bytes = std::max(bytesOf(x), bytesOf(expected));
        std::vector<std::byte> memory(3 * bytes + 16);
        std::byte* const src = memory.data() + bytes + 13;
        // By every element, or by some hundred steps; and beside them.
        const int element = sizeof(TypeParam);
        const int step = std::max(1, kernel.parts() / 256) * element;
        for (int offset = -bytes; offset <= bytes; offset += step)
            for (const int beside : {0, 1, element - 1}) {
                std::byte* const dst = src + std::min(offset + beside, bytes);
                std::memcpy(src, x.data(), bytesOf(x));
                runAt(kernel, src, dst);
                ASSERT_EQ(std::memcmp(dst, expected.data(), bytesOf(expected)), 0)
                    << kernel.name << ", dst - src = " << dst - src << " bytes";
            }
    }
}

// The source ends with the last slot that holds a part: from CCS, the slot of the constant behind
// it may not even exist.
TYPED_TEST(Contract, NothingOutsideSrcAndDstIsTouched)
{
    const GuardedMemory sources(1 << 16);
    const GuardedMemory results(1 << 16);
    for (const auto& kernel : everyKernel<TypeParam>()) {
        auto x = arranged(randomParts<TypeParam>(kernel.parts(), 7), kernel.source());
        const auto expected = resultOf(kernel, x.data(), RvnScaleNone);
        if (std::isnan(x.back()))
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

TYPED_TEST(Contract, ValuesAreNeverTestedAndNaNAndInfinityReachWhatDependsOnThem)
{
    for (const auto& kernel : everyKernel<TypeParam>())
        for (int in = 0; in < kernel.parts(); in += 1 + kernel.parts() / 128)
            for (const TypeParam value :
                 {nan<TypeParam>, std::numeric_limits<TypeParam>::infinity()}) {
                auto x = randomParts<TypeParam>(kernel.parts(), 11);
                x[in] = value;
                const auto X = transformed(kernel, x, RvnScaleNone, TypeParam{0});
                for (int out = 0; out < kernel.parts(); ++out)
                    ASSERT_FALSE(
                        (std::isnan(value) ? !std::isnan(X[out]) : std::isfinite(X[out])) &&
                        std::fabs(entry(kernel, out, in)) > 1e-9)
                        << kernel.name << ", " << value << " from part " << in << " to part "
                        << out;
            }
}

} // namespace

} // namespace rvn::tests
