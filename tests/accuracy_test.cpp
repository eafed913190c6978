// Every kernel computes its transform, part by part, in both precisions.
//
// The reference is the matrix of each transform in long double, from its definition. The bounds
// stand a little above what correct kernels reach, so that one wrong sign, twiddle factor or slot
// is far outside. Walsh-Hadamard transforms above 64 points are held against their loop elsewhere.

#include "reference.h"

namespace rvn::tests
{

namespace
{

template <typename Real> class Accuracy : public ::testing::Test
{
protected:
    static constexpr bool isDouble = std::is_same_v<Real, double>;
    static constexpr double unitBound = isDouble ? 9e-16 : 3.5e-7; // of the largest entry

    static double randomBound(const Kernel<Real>& kernel)
    {
        return kernel.isComplex() ? (isDouble ? 4e-16 : 1.5e-7) : isDouble ? 5e-16 : 1.8e-7;
    }

    // 1, with both parts in one value, or doubled.
    static double largestEntry(const Kernel<Real>& kernel)
    {
        return kernel.transform == Transform::Hartley      ? std::numbers::sqrt2
               : kernel.isInverse() && !kernel.isComplex() ? 2
                                                           : 1;
    }
};

TYPED_TEST_SUITE(Accuracy, Reals);

TYPED_TEST(Accuracy, AUnitInAnyPartGivesItsColumnOfTheMatrix)
{
    for (const auto& kernel : everyKernel<TypeParam>())
        for (int in = 0; in < kernel.parts() && kernel.length() <= 64; ++in) {
            const auto x = unitPart<TypeParam>(kernel.parts(), in);
            const auto X = transformed(kernel, x, RvnScaleNone);
            for (int out = 0; out < kernel.parts(); ++out)
                ASSERT_LE(std::abs(X[out] - entry(kernel, out, in)),
                          this->unitBound * this->largestEntry(kernel))
                    << kernel.name << ", from part " << in << " to part " << out;
        }
}

TYPED_TEST(Accuracy, RandomDataHasItsSumUnderEveryFlag)
{
    for (const auto& kernel : everyKernel<TypeParam>()) {
        if (kernel.length() > 64)
            continue;
        const Matrix matrix = matrixOf(kernel);
        for (unsigned seed = 0; seed < 4; ++seed) {
            const auto x = randomParts<TypeParam>(kernel.parts(), seed);
            const auto expected = product(matrix, x);
            for (const RvnScaleFlag flag : everyFlag)
                EXPECT_LE(relativeError(scaled(transformed(kernel, x, flag), 1),
                                        scaled(expected, kernel.scale(flag))),
                          this->randomBound(kernel))
                    << kernel.name << ", " << inWords(flag);
        }
    }
}

} // namespace

} // namespace rvn::tests
