// Which operations of a kernel are binary32 and which binary64, to the last bit.
//
// Sums and differences of binary32 values are binary32 operations. An expression with constants is
// evaluated in binary64 and rounded once where it ends. Four lengths are written out here from
// their formulas; at all lengths a compiled kernel equals its graph, interpreted.

#include "reference.h"

#include "dft_complex/kernels.h"
#include "kernelgen/evaluate.h"

namespace rvn::tests
{

namespace
{

using Spectrum = Signal<Rvn32fc>;

Rvn32fc operator+(Rvn32fc x, Rvn32fc y)
{
    return {x.re + y.re, x.im + y.im};
}

Rvn32fc operator-(Rvn32fc x, Rvn32fc y)
{
    return {x.re - y.re, x.im - y.im};
}

Rvn32fc timesI(Rvn32fc x)
{
    return {-x.im, x.re};
}

float rounded(double x)
{
    return static_cast<float>(x);
}

double cosine(int turns, int N)
{
    return static_cast<double>(unitRoot(turns, N).real());
}

double sine(int turns, int N)
{
    return static_cast<double>(unitRoot(turns, N).imag());
}

Spectrum length3(const Spectrum& x)
{
    const Rvn32fc s = x[1] + x[2];
    const Rvn32fc d = x[1] - x[2];
    const double c = sine(1, 3);
    const Rvn32fc u = {rounded(x[0].re - 0.5 * s.re), rounded(x[0].im - 0.5 * s.im)};
    const Rvn32fc v = {rounded(c * d.re), rounded(c * d.im)};
    return {x[0] + s, u - timesI(v), u + timesI(v)};
}

Spectrum length5(const Spectrum& x)
{
    const Rvn32fc s1 = x[1] + x[4], s2 = x[2] + x[3];
    const Rvn32fc d1 = x[1] - x[4], d2 = x[2] - x[3];
    Spectrum X(5);
    X[0] = (x[0] + s1) + s2;
    for (const int k : {1, 2}) {
        const double c1 = cosine(k, 5), c2 = cosine(2 * k, 5);
        const double t1 = sine(k, 5), t2 = sine(2 * k, 5);
        const Rvn32fc A = {rounded((x[0].re + c1 * s1.re) + c2 * s2.re),
                           rounded((x[0].im + c1 * s1.im) + c2 * s2.im)};
        const Rvn32fc B = {rounded(t1 * d1.re + t2 * d2.re), rounded(t1 * d1.im + t2 * d2.im)};
        X[k] = A - timesI(B);
        X[5 - k] = A + timesI(B);
    }
    return X;
}

Spectrum length4(const Spectrum& x)
{
    const Rvn32fc t0 = x[0] + x[2], t1 = x[0] - x[2];
    const Rvn32fc t2 = x[1] + x[3], t3 = x[1] - x[3];
    return {t0 + t2, t1 - timesI(t3), t0 - t2, t1 + timesI(t3)};
}

Spectrum length8(const Spectrum& x)
{
    Spectrum sums, differences;
    for (int n = 0; n < 4; ++n) {
        sums.push_back(x[n] + x[n + 4]);
        differences.push_back(x[n] - x[n + 4]);
    }
    const auto turnedByAnEighth = [](Rvn32fc a) -> Rvn32fc {
        const float p = rounded(cosine(1, 8) * a.re);
        const float q = rounded(cosine(1, 8) * a.im);
        return {p + q, q - p};
    };
    const Rvn32fc third = turnedByAnEighth(differences[3]);
    differences[1] = turnedByAnEighth(differences[1]);
    differences[2] = {differences[2].im, -differences[2].re};
    differences[3] = {third.im, -third.re};
    const Spectrum even = length4(sums), odd = length4(differences);
    return {even[0], odd[0], even[1], odd[1], even[2], odd[2], even[3], odd[3]};
}

TEST(SinglePrecision, Lengths3And4And5And8AreTheirFormulasBitForBit)
{
    const struct {
        int length;
        Spectrum (*formula)(const Spectrum&);
    } table[] = {{3, length3}, {4, length4}, {5, length5}, {8, length8}};
    for (const auto& [length, formula] : table)
        for (const RvnScaleFlag flag : everyFlag)
            for (unsigned seed = 0; seed < 100; ++seed) {
                const auto& kernel = kernelOf<Rvn32fc>(length, seed % 2 == 1);
                const Spectrum x = randomSignal<Rvn32fc>(length, seed, seed % 3 == 0 ? 10 : 0);
                Spectrum X = kernel.isInverse ? crossed(formula(crossed(x))) : formula(x);
                for (Rvn32fc& bin : X)
                    bin = {scaleOf(kernel, flag) * bin.re, scaleOf(kernel, flag) * bin.im};
                ASSERT_TRUE(sameBits(transformed(kernel, x, flag), X)) << kernel.name << flag;
            }
}

// For X[1] and X[4], the binary32 sum of the first two terms would be infinite.
TEST(SinglePrecision, AnExpressionOverflowsOnlyWhereItIsRounded)
{
    constexpr float most = std::numeric_limits<float>::max();
    Spectrum x(5, {0.45f * most, 0});
    x[0].re = 0.9f * most;
    for (const bool isInverse : {false, true}) {
        const Spectrum X = transformed(kernelOf<Rvn32fc>(5, isInverse), x, RvnScaleNone);
        EXPECT_EQ(X[0].re, std::numeric_limits<float>::infinity());
        for (int k = 1; k < 5; ++k)
            EXPECT_NEAR(X[k].re / most, 0.45, 1e-6) << k;
    }
}

template <typename Element> class Model : public ::testing::Test
{
};

TYPED_TEST_SUITE(Model, Elements);

TYPED_TEST(Model, EveryCompiledKernelEqualsItsGraphBitForBit)
{
    using Real = Scalar<TypeParam>;
    constexpr auto format =
        std::is_same_v<Real, double> ? kernelgen::Format::Binary64 : kernelgen::Format::Binary32;
    for (const auto& kernel : everyKernel<TypeParam>()) {
        const kernelgen::Graph graph =
            dft_complex::complexGraph(dft_complex::complexPlan(kernel.length));
        const auto formats = kernelgen::assignFormats(graph, format);
        for (unsigned seed = 0; seed < 8; ++seed) {
            const auto x = randomSignal<TypeParam>(kernel.length, seed, seed < 4 ? 0 : 12);
            std::vector<double> inputs;
            for (const TypeParam& value : kernel.isInverse ? crossed(x) : x)
                inputs.insert(inputs.end(), {value.re, value.im});
            const std::vector<double> outputs = kernelgen::evaluate(graph, formats, inputs);
            const RvnScaleFlag flag = everyFlag[seed % 4];
            const Real S = scaleOf(kernel, flag);
            Signal<TypeParam> X;
            for (std::size_t k = 0; k < outputs.size(); k += 2)
                X.push_back(
                    {S * static_cast<Real>(outputs[k]), S * static_cast<Real>(outputs[k + 1])});
            ASSERT_TRUE(sameBits(transformed(kernel, x, flag), kernel.isInverse ? crossed(X) : X))
                << kernel.name;
        }
    }
}

} // namespace

} // namespace rvn::tests
