// Which operations of a real 32f kernel are binary32 and which binary64, to the last bit.
//
// Sums and differences of binary32 values are binary32 operations; an expression with constants is
// evaluated in binary64 and rounded once where it ends. A forward part that ends in such an
// expression is multiplied by S before that rounding, everything else by S in binary32. In these
// inverse and Hartley kernels every expression is used twice, and so rounded before. A few lengths
// are written out here from their formulas; at all lengths a compiled kernel equals its graph,
// interpreted. +0 and -0 compare equal.

#include "real_kernels.h"
#include "reference.h"

#include "dft_real/kernels.h"
#include "hartley/kernels.h"
#include "kernelgen/evaluate.h"

namespace rvn::tests
{

namespace
{

using Parts = std::vector<float>; // a half spectrum: R(0), R(1), I(1), R(2), ...
using Formula = Parts (*)(const Parts&, float);

constexpr double halfRoot3 = 0.8660254037844386;

float rounded(double x)
{
    return static_cast<float>(x);
}

double cosine(int turns)
{
    return static_cast<double>(unitRoot(turns, 5).real());
}

double sine(int turns)
{
    return static_cast<double>(unitRoot(turns, 5).imag());
}

Parts forward2(const Parts& x, float S)
{
    return {S * (x[0] + x[1]), S * (x[0] - x[1])};
}

Parts forward3(const Parts& x, float S)
{
    const double wideS = S;
    const float t = x[1] + x[2], u = x[1] - x[2];
    return {S * (x[0] + t), rounded(wideS * (x[0] - 0.5 * t)), rounded(-(wideS * (halfRoot3 * u)))};
}

Parts forward4(const Parts& x, float S)
{
    const float p = x[0] + x[2], q = x[1] + x[3];
    return {S * (p + q), S * (x[0] - x[2]), -(S * (x[1] - x[3])), S * (p - q)};
}

Parts forward5(const Parts& x, float S)
{
    const double wideS = S;
    const float t1 = x[1] + x[4], t2 = x[2] + x[3];
    const float u1 = x[1] - x[4], u2 = x[2] - x[3];
    const auto real = [&](int k) {
        return rounded(wideS * ((x[0] + cosine(k) * t1) + cosine(2 * k) * t2));
    };
    const auto imaginary = [&](int k) {
        return rounded(-(wideS * (sine(k) * u1 + sine(2 * k) * u2)));
    };
    return {S * ((x[0] + t1) + t2), real(1), imaginary(1), real(2), imaginary(2)};
}

Parts inverse2(const Parts& X, float S)
{
    return forward2(X, S);
}

Parts inverse3(const Parts& X, float S)
{
    const float r = 2 * X[1];
    const float A = rounded(X[0] - 0.5 * r);
    const float B = rounded(2 * halfRoot3 * X[2]);
    return {S * (X[0] + r), S * (A - B), S * (A + B)};
}

Parts inverse4(const Parts& X, float S)
{
    const float p = X[0] + X[3], q = X[0] - X[3];
    const float r = 2 * X[1], s = 2 * X[2];
    return {S * (p + r), S * (q - s), S * (p - r), S * (q + s)};
}

Parts inverse5(const Parts& X, float S)
{
    const float r1 = 2 * X[1], s1 = 2 * X[2];
    const float r2 = 2 * X[3], s2 = 2 * X[4];
    Parts y(5);
    y[0] = S * ((X[0] + r1) + r2);
    for (const int n : {1, 2}) {
        const float A = rounded((X[0] + cosine(n) * r1) + cosine(2 * n) * r2);
        const float B = rounded(sine(n) * s1 + sine(2 * n) * s2);
        y[n] = S * (A - B);
        y[5 - n] = S * (A + B);
    }
    return y;
}

Parts hartley3(const Parts& x, float S)
{
    const float t = x[1] + x[2];
    const float a = rounded(x[0] - 0.5 * t);
    const float b = rounded(halfRoot3 * (x[1] - x[2]));
    return {S * (t + x[0]), S * (a + b), S * (a - b)};
}

Parts hartley4(const Parts& x, float S)
{
    const float p = x[0] + x[2], q = x[1] + x[3];
    const float u = x[0] - x[2], v = x[1] - x[3];
    return {S * (q + p), S * (v + u), S * (p - q), S * (u - v)};
}

TEST(RealSinglePrecision, ShortLengthsAreTheirFormulasBitForBit)
{
    const struct {
        Form form;
        int length;
        Formula formula;
    } table[] = {{Form::ToPack, 2, forward2},   {Form::ToPack, 3, forward3},
                 {Form::ToPack, 4, forward4},   {Form::ToPack, 5, forward5},
                 {Form::FromPack, 2, inverse2}, {Form::FromPack, 3, inverse3},
                 {Form::FromPack, 4, inverse4}, {Form::FromPack, 5, inverse5},
                 {Form::Hartley, 3, hartley3},  {Form::Hartley, 4, hartley4}};
    for (const auto& [form, length, formula] : table)
        for (const RvnScaleFlag flag : everyFlag)
            for (unsigned seed = 0; seed < 200; ++seed) {
                const auto& kernel = realKernel<float>(form, length);
                const Parts x = randomParts<float>(length, seed, seed % 3 == 0 ? 10 : 0);
                ASSERT_EQ(transformed(kernel, x, flag), formula(x, kernel.scale(flag)))
                    << kernel.name << ", flag " << flag << ", seed " << seed;
            }
}

// Rounded to binary32 before the factor 1/3, the first would be infinite, and 4.5 units of the
// second would become 4 and then 1.
TEST(RealSinglePrecision, ForwardExpressionsAreScaledBeforeTheyAreRounded)
{
    const auto& kernel = realKernel<float>(Form::ToPack, 3);
    constexpr float most = std::numeric_limits<float>::max();
    const Parts large = {0.9f * most, -0.45f * most, -0.45f * most};
    EXPECT_NEAR(transformed(kernel, large, RvnScaleFwdByN)[1] / most, 0.45, 1e-6);
    constexpr float unit = std::numeric_limits<float>::denorm_min();
    const Parts small = {0, -4 * unit, -5 * unit};
    EXPECT_EQ(transformed(kernel, small, RvnScaleFwdByN)[1], 2 * unit);
}

template <typename Real> class RealModel : public ::testing::Test
{
};

TYPED_TEST_SUITE(RealModel, Reals);

template <typename Real> kernelgen::Graph graphOf(const RealKernel<Real>& kernel)
{
    const int row = kernel.length - 2;
    return kernel.isForward()   ? dft_real::forwardGraph(dft_real::forwardPlans()[row])
           : kernel.isInverse() ? dft_real::inverseGraph(dft_real::inversePlans()[row])
                                : hartley::hartleyGraph(hartley::hartleyPlans()[row]);
}

TYPED_TEST(RealModel, EveryCompiledKernelEqualsItsGraphBitForBit)
{
    using enum kernelgen::Format;
    constexpr auto element = std::is_same_v<TypeParam, double> ? Binary64 : Binary32;
    for (const auto& kernel : everyRealKernel<TypeParam>()) {
        const kernelgen::Graph graph = graphOf(kernel);
        const auto formats = kernelgen::assignFormats(graph, element);
        for (unsigned seed = 0; seed < 8; ++seed) {
            const auto x = randomParts<TypeParam>(kernel.length, seed, seed < 4 ? 0 : 12);
            const std::vector<double> inputs(x.begin(), x.end());
            const RvnScaleFlag flag = everyFlag[seed % 4];
            const TypeParam S = kernel.scale(flag);
            std::vector<TypeParam> X;
            for (const double value : kernelgen::evaluate(graph, formats, inputs)) {
                const bool isWide = formats[graph.outputs[X.size()].node].held != element;
                X.push_back(isWide ? static_cast<TypeParam>(static_cast<double>(S) * value)
                                   : S * static_cast<TypeParam>(value));
            }
            ASSERT_EQ(transformed(kernel, x, flag), X) << kernel.name << ", flag " << flag;
        }
    }
}

} // namespace

} // namespace rvn::tests
