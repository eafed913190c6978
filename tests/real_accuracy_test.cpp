// Every kernel of the real DFT, of its inverse and of the Hartley transform computes its sum, slot
// by slot, and the layouts hold the same values.
//
// The reference is the matrix of each transform in long double, from its definition. The bounds
// stand a little above what correct kernels reach, so that one wrong sign, twiddle factor or slot
// is far outside.

#include "real_kernels.h"
#include "reference.h"

namespace rvn::tests
{

namespace
{

template <typename Real> class RealAccuracy : public ::testing::Test
{
protected:
    static constexpr bool isDouble = std::is_same_v<Real, double>;
    static constexpr double unitBound = isDouble ? 9e-16 : 3.5e-7; // of the largest entry
    static constexpr double randomBound = isDouble ? 5e-16 : 1.8e-7;
    static constexpr double twiceBound = isDouble ? 7.2e-16 : 3e-7;
};

TYPED_TEST_SUITE(RealAccuracy, Reals);

// What part `in` of the input contributes to part `out` of the output, for S = 1. In a half
// spectrum, part 2k - 1 is R(k) and part 2k is I(k).
template <typename Real> long double entry(const RealKernel<Real>& kernel, int out, int in)
{
    const int N = kernel.length;
    if (kernel.form == Form::Hartley)
        return unitRoot(out * in, N).real() + unitRoot(out * in, N).imag();
    const auto [part, n] = kernel.isForward() ? std::pair(out, in) : std::pair(in, out);
    const int k = (part + 1) / 2;
    const bool isImaginary = part > 0 && part % 2 == 0;
    const bool hasPartner = k > 0 && 2 * k < N;
    const Wide root = unitRoot(-n * k, N);
    return (kernel.isInverse() && hasPartner ? 2 : 1) * (isImaginary ? root.imag() : root.real());
}

// The largest entry: 1, with both parts in one value, or doubled.
template <typename Real> double largestEntry(const RealKernel<Real>& kernel)
{
    return kernel.form == Form::Hartley ? std::numbers::sqrt2 : kernel.isInverse() ? 2 : 1;
}

template <typename Real>
std::vector<Wide> definingSum(const RealKernel<Real>& kernel, const std::vector<Real>& parts)
{
    std::vector<Wide> sums(kernel.length);
    for (int out = 0; out < kernel.length; ++out)
        for (int in = 0; in < kernel.length; ++in)
            sums[out] += entry(kernel, out, in) * static_cast<long double>(parts[in]);
    return sums;
}

template <typename Real>
std::vector<Wide> scaled(const std::vector<Real>& values, long double factor)
{
    std::vector<Wide> wide;
    for (const Real& value : values)
        wide.push_back(factor * static_cast<Wide>(value));
    return wide;
}

TYPED_TEST(RealAccuracy, AUnitInAnyPartGivesItsColumnOfTheMatrix)
{
    for (const auto& kernel : everyRealKernel<TypeParam>())
        for (int in = 0; in < kernel.length; ++in) {
            const auto X =
                transformed(kernel, unitPart<TypeParam>(kernel.length, in), RvnScaleNone);
            for (int out = 0; out < kernel.length; ++out)
                ASSERT_LE(std::abs(X[out] - entry(kernel, out, in)),
                          this->unitBound * largestEntry(kernel))
                    << kernel.name << ", from part " << in << " to part " << out;
        }
}

TYPED_TEST(RealAccuracy, RandomDataHasItsSumUnderEveryFlag)
{
    for (const auto& kernel : everyRealKernel<TypeParam>())
        for (unsigned seed = 0; seed < 4; ++seed) {
            const auto x = randomParts<TypeParam>(kernel.length, seed);
            const auto expected = definingSum(kernel, x);
            for (const RvnScaleFlag flag : everyFlag)
                EXPECT_LE(relativeError(scaled(transformed(kernel, x, flag), 1),
                                        scaled(expected, kernel.scale(flag))),
                          this->randomBound)
                    << kernel.name << ", flag " << flag;
        }
}

TYPED_TEST(RealAccuracy, ForwardThenInverseReturnsTheSignal)
{
    for (int N = 2; N <= 64; ++N)
        for (int layout = 0; layout < 3; ++layout)
            for (const RvnScaleFlag flag : everyFlag) {
                const auto& forward = realKernel<TypeParam>(forwardForms[layout], N);
                const auto& inverse = realKernel<TypeParam>(inverseForms[layout], N);
                const auto x = randomParts<TypeParam>(N, 23);
                // The array as the forward kernel leaves it goes into the inverse one.
                const auto y = resultOf(inverse, resultOf(forward, x.data(), flag).data(), flag);
                EXPECT_LE(relativeError(scaled(y, 1), scaled(x, flag == RvnScaleNone ? N : 1)),
                          this->twiceBound)
                    << forward.name << ", flag " << flag;
            }
}

TYPED_TEST(RealAccuracy, HartleyTwiceReturnsTheSignal)
{
    for (int N = 2; N <= 64; ++N)
        for (const RvnScaleFlag flag : everyFlag) {
            const auto& kernel = realKernel<TypeParam>(Form::Hartley, N);
            const auto x = randomParts<TypeParam>(N, 29);
            const auto y = transformed(kernel, transformed(kernel, x, flag), flag);
            const long double factor = flag == RvnScaleBySqrtN ? 1
                                       : flag == RvnScaleNone  ? N
                                                               : 1.0L / N;
            EXPECT_LE(relativeError(scaled(y, 1), scaled(x, factor)), this->twiceBound)
                << kernel.name << ", flag " << flag;
        }
}

TYPED_TEST(RealAccuracy, TheLayoutsHoldTheSameBits)
{
    for (int N = 2; N <= 64; ++N)
        for (unsigned seed = 0; seed < 16; ++seed) {
            const auto x = randomParts<TypeParam>(N, seed, seed < 8 ? 0 : 8);
            const RvnScaleFlag flag = everyFlag[seed % 4];
            for (const auto& forms : {forwardForms, inverseForms}) {
                const auto ccs = transformed(realKernel<TypeParam>(forms[0], N), x, flag);
                for (int layout : {1, 2}) {
                    const auto& kernel = realKernel<TypeParam>(forms[layout], N);
                    EXPECT_TRUE(sameBits(transformed(kernel, x, flag), ccs))
                        << kernel.name << ", flag " << flag;
                }
            }
        }
}

// The documented slots of lengths 8 and 7, written out.
TYPED_TEST(RealAccuracy, EverySlotIsWhereTheHeaderShowsIt)
{
    const struct {
        Form form;
        int length;
        std::vector<int> parts; // by slot; -1: the constant 0
    } table[] = {{Form::ToCCS, 8, {0, -1, 1, 2, 3, 4, 5, 6, 7, -1}},
                 {Form::ToPack, 8, {0, 1, 2, 3, 4, 5, 6, 7}},
                 {Form::ToPerm, 8, {0, 7, 1, 2, 3, 4, 5, 6}},
                 {Form::ToCCS, 7, {0, -1, 1, 2, 3, 4, 5, 6}},
                 {Form::ToPack, 7, {0, 1, 2, 3, 4, 5, 6}},
                 {Form::ToPerm, 7, {0, 1, 2, 3, 4, 5, 6}}};
    for (const auto& [form, length, parts] : table) {
        const auto& kernel = realKernel<TypeParam>(form, length);
        const auto x = randomParts<TypeParam>(length, 37);
        const auto expected = definingSum(kernel, x);
        const auto X = resultOf(kernel, x.data(), RvnScaleNone);
        ASSERT_EQ(X.size(), parts.size());
        for (std::size_t slot = 0; slot < parts.size(); ++slot)
            EXPECT_NEAR(X[slot],
                        parts[slot] < 0 ? 0 : static_cast<double>(expected[parts[slot]].real()),
                        4 * this->unitBound)
                << kernel.name << ", slot " << slot;
    }
}

} // namespace

} // namespace rvn::tests
