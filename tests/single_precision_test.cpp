// Which operations of a kernel are binary32 and which binary64, to the last bit.
//
// Sums and differences of binary32 values are binary32 operations; an expression with constants is
// evaluated in binary64 and rounded once where it ends. A forward real part that ends in such an
// expression is multiplied by S before that rounding, everything else by S in binary32. A few
// lengths are written out here from their formulas; at all lengths a compiled kernel equals its
// graph, interpreted. +0 and -0 compare equal.

#include "planned_graphs.h"
#include "reference.h"

#include "generator/graph/evaluate.h"

namespace rvn::tests
{

namespace
{

using enum Transform;
using Parts = std::vector<float>;
using Complex = std::complex<float>;
using Complexes = std::vector<Complex>;

constexpr double halfRoot3 = 0.8660254037844386;

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

Complex timesI(Complex x)
{
    return {-x.imag(), x.real()};
}

// The definition for an odd prime, its sums and differences from the first on.
Complexes direct(const Complexes& x)
{
    const int p = static_cast<int>(x.size());
    Complexes X(p, x[0]);
    for (int j = 1; j <= p / 2; ++j)
        X[0] += x[j] + x[p - j];
    for (int k = 1; k <= p / 2; ++k) {
        double A[] = {x[0].real(), x[0].imag()}, B[] = {0, 0};
        for (int j = 1; j <= p / 2; ++j) {
            const Complex s = x[j] + x[p - j], d = x[j] - x[p - j];
            A[0] += cosine(j * k, p) * s.real();
            A[1] += cosine(j * k, p) * s.imag();
            B[0] += sine(j * k, p) * d.real();
            B[1] += sine(j * k, p) * d.imag();
        }
        const Complex a(rounded(A[0]), rounded(A[1])), b(rounded(B[0]), rounded(B[1]));
        X[k] = a - timesI(b);
        X[p - k] = a + timesI(b);
    }
    return X;
}

// Through the formula on complex numbers, then times S.
template <Complexes (*formula)(const Complexes&)> Parts onPairs(const Parts& x, float S)
{
    Complexes signal;
    for (std::size_t part = 0; part < x.size(); part += 2)
        signal.emplace_back(x[part], x[part + 1]);
    Parts X;
    for (const Complex& bin : formula(signal))
        X.insert(X.end(), {S * bin.real(), S * bin.imag()});
    return X;
}

Parts forward3(const Parts& x, float S)
{
    const double wideS = S;
    const float t = x[1] + x[2], u = x[1] - x[2];
    return {S * (x[0] + t), rounded(wideS * (x[0] - 0.5 * t)), rounded(-(wideS * (halfRoot3 * u)))};
}

Parts forward5(const Parts& x, float S)
{
    const double wideS = S;
    const float t1 = x[1] + x[4], t2 = x[2] + x[3];
    const float u1 = x[1] - x[4], u2 = x[2] - x[3];
    Parts X = {S * ((x[0] + t1) + t2)};
    for (const int k : {1, 2}) {
        X.push_back(rounded(wideS * ((x[0] + cosine(k, 5) * t1) + cosine(2 * k, 5) * t2)));
        X.push_back(rounded(-(wideS * (sine(k, 5) * u1 + sine(2 * k, 5) * u2))));
    }
    return X;
}

Parts inverse5(const Parts& X, float S)
{
    const float r1 = 2 * X[1], s1 = 2 * X[2];
    const float r2 = 2 * X[3], s2 = 2 * X[4];
    Parts y(5);
    y[0] = S * ((X[0] + r1) + r2);
    for (const int n : {1, 2}) {
        const float A = rounded((X[0] + cosine(n, 5) * r1) + cosine(2 * n, 5) * r2);
        const float B = rounded(sine(n, 5) * s1 + sine(2 * n, 5) * s2);
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

TEST(SinglePrecision, ShortLengthsAreTheirFormulasBitForBit)
{
    const struct {
        Transform transform;
        int length;
        Parts (*formula)(const Parts&, float);
    } table[] = {{Forward, 3, onPairs<direct>}, {Forward, 5, onPairs<direct>},
                 {Forward, 7, onPairs<direct>}, {ToPack, 3, forward3},
                 {ToPack, 5, forward5},         {FromPack, 5, inverse5},
                 {Hartley, 3, hartley3}};
    for (const auto& [transform, length, formula] : table)
        for (const RvnScaleFlag flag : everyFlag)
            for (unsigned seed = 0; seed < 100; ++seed) {
                const auto& kernel = kernelOf<float>(transform, length);
                const Parts x = randomParts<float>(kernel.parts(), seed, seed % 3 == 0 ? 10 : 0);
                ASSERT_EQ(transformed(kernel, x, flag), formula(x, kernel.scale(flag)))
                    << kernel.name << ", " << inWords(flag) << ", seed " << seed;
            }
}

template <typename Real> class Model : public ::testing::Test
{
};

TYPED_TEST_SUITE(Model, Reals);

// The inverse complex transform is the forward one with real and imaginary parts exchanged on both
// sides.
template <typename Real>
std::vector<Real> exchanged(const Kernel<Real>& kernel, std::vector<Real> parts)
{
    if (kernel.transform == Inverse)
        for (std::size_t part = 0; part < parts.size(); part += 2)
            std::swap(parts[part], parts[part + 1]);
    return parts;
}

TYPED_TEST(Model, EveryCompiledKernelEqualsItsGraphBitForBit)
{
    using enum generator::Format;
    constexpr auto element = std::is_same_v<TypeParam, double> ? Binary64 : Binary32;
    for (const auto& kernel : everyKernel<TypeParam>()) {
        if (kernel.isWalshHadamard())
            continue;
        const generator::Graph& graph = graphOf(kernel).graph;
        const auto formats = generator::assignFormats(graph, element);
        for (unsigned seed = 0; seed < 8; ++seed) {
            const auto x = randomParts<TypeParam>(kernel.parts(), seed, seed < 4 ? 0 : 12);
            const auto parts = exchanged(kernel, x);
            const std::vector<double> inputs(parts.begin(), parts.end());
            const RvnScaleFlag flag = everyFlag[seed % 4];
            const TypeParam S = kernel.scale(flag);
            std::vector<TypeParam> X;
            const auto round = [&](std::size_t node, double value) {
                return formats[node].held == Binary32 ? static_cast<float>(value) : value;
            };
            for (const double value : generator::evaluate<double>(graph, inputs, round)) {
                const bool isWide = formats[graph.outputs[X.size()].node].held != element;
                X.push_back(isWide ? static_cast<TypeParam>(static_cast<double>(S) * value)
                                   : S * static_cast<TypeParam>(value));
            }
            ASSERT_EQ(transformed(kernel, x, flag), exchanged(kernel, X))
                << kernel.name << ", " << inWords(flag);
        }
    }
}

} // namespace

} // namespace rvn::tests
