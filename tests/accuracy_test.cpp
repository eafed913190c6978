// Every kernel computes the discrete Fourier transform, forward and inverse, in both precisions.
//
// The reference is the defining sum in long double. The bounds stand a little above what correct
// kernels reach, so that one wrong sign, twiddle factor or slot is far outside.

#include "reference.h"

#include <algorithm>

namespace rvn::tests
{

namespace
{

template <typename Element> class Accuracy : public ::testing::Test
{
protected:
    static constexpr bool isDouble = std::is_same_v<Element, Rvn64fc>;
    static constexpr double impulseBound = isDouble ? 1e-15 : 3.5e-7;
    static constexpr double randomBound = isDouble ? 4e-16 : 1.5e-7;
};

TYPED_TEST_SUITE(Accuracy, Elements);

TYPED_TEST(Accuracy, AnImpulseInAnyElementGivesTheRootsOfUnity)
{
    for (const auto& kernel : everyKernel<TypeParam>()) {
        const int N = kernel.length;
        for (int j = 0; j < N; ++j)
            for (const bool isImaginary : {false, true}) {
                const Wide unit = isImaginary ? Wide(0, 1) : Wide(1, 0);
                const TypeParam value = isImaginary ? TypeParam{0, 1} : TypeParam{1, 0};
                const auto X = transformed(kernel, impulse(N, j, value), RvnScaleNone);
                for (int k = 0; k < N; ++k) {
                    const Wide expected = unit * unitRoot(kernel.isInverse ? j * k : -j * k, N);
                    const Wide found(X[k].re, X[k].im);
                    ASSERT_LE(std::abs(found - expected), this->impulseBound)
                        << kernel.name << ", impulse in " << j << ", output " << k;
                }
            }
    }
}

TYPED_TEST(Accuracy, RandomSignalsHaveTheSpectrumOfTheDefiningSum)
{
    for (const auto& kernel : everyKernel<TypeParam>())
        for (unsigned seed = 0; seed < 4; ++seed) {
            const auto x = randomSignal<TypeParam>(kernel.length, seed);
            const auto X = transformed(kernel, x, RvnScaleNone);
            EXPECT_LE(relativeError(widened(X), directSum(widened(x), kernel.isInverse)),
                      this->randomBound)
                << kernel.name;
        }
}

TYPED_TEST(Accuracy, TheInverseIsTheForwardTransformWithExchangedParts)
{
    for (int N = 2; N <= 64; ++N) {
        const auto x = randomSignal<TypeParam>(N, 17);
        const auto forward =
            transformed(kernelOf<TypeParam>(N, false), crossed(x), RvnScaleBySqrtN);
        const auto inverse = transformed(kernelOf<TypeParam>(N, true), x, RvnScaleBySqrtN);
        EXPECT_TRUE(sameBits(inverse, crossed(forward))) << N;
    }
}

TYPED_TEST(Accuracy, ForwardThenInverseReturnsTheInput)
{
    for (int N = 2; N <= 64; ++N)
        for (const RvnScaleFlag flag : everyFlag) {
            const auto x = randomSignal<TypeParam>(N, 23);
            const auto X = transformed(kernelOf<TypeParam>(N, false), x, flag);
            const auto y = transformed(kernelOf<TypeParam>(N, true), X, flag);
            std::vector<Wide> expected = widened(x);
            for (Wide& value : expected)
                value *= flag == RvnScaleNone ? N : 1;
            EXPECT_LE(relativeError(widened(y), expected), 2 * this->randomBound)
                << N << ", flag " << flag;
        }
}

TYPED_TEST(Accuracy, AFirstElementAloneComesBackExactlyInEveryOutput)
{
    for (const auto& kernel : everyKernel<TypeParam>()) {
        const TypeParam first = randomSignal<TypeParam>(1, 31)[0];
        const auto X = transformed(kernel, impulse(kernel.length, 0, first), RvnScaleNone);
        EXPECT_TRUE(std::ranges::all_of(X, [&](TypeParam value) {
            return value.re == first.re && value.im == first.im;
        })) << kernel.name;
    }
}

TYPED_TEST(Accuracy, Length4IsExactOnWholeNumbers)
{
    const Signal<TypeParam> x = {{7, -3}, {-12, 5}, {1, 9}, {4, -20}};
    const Signal<TypeParam> expected = {{0, -9}, {31, 4}, {16, 21}, {-19, -28}};
    const auto X = transformed(kernelOf<TypeParam>(4, false), x, RvnScaleNone);
    EXPECT_TRUE(sameBits(X, expected));
}

} // namespace

} // namespace rvn::tests
