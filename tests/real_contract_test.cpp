// What the kernels of the real DFT and the Hartley transform promise beyond the rest: in all
// layouts the same bits, which slots are constant and which are never read, and what becomes of
// zeros and of the largest numbers.

#include "reference.h"

#include <algorithm>

namespace rvn::tests
{

namespace
{

using enum Transform;

constexpr Transform forwardForms[] = {ToCCS, ToPack, ToPerm};
constexpr Transform inverseForms[] = {FromCCS, FromPack, FromPerm};

template <typename Real> class RealContract : public ::testing::Test
{
};

TYPED_TEST_SUITE(RealContract, Reals);

TYPED_TEST(RealContract, TheLayoutsHoldTheSameBits)
{
    for (int N = 2; N <= 64; ++N)
        for (unsigned seed = 0; seed < 16; ++seed) {
            const auto x = randomParts<TypeParam>(N, seed, seed < 8 ? 0 : 8);
            const RvnScaleFlag flag = everyFlag[seed % 4];
            for (const auto& forms : {forwardForms, inverseForms}) {
                const auto pack = transformed(kernelOf<TypeParam>(forms[1], N), x, flag);
                for (const Transform form : {forms[0], forms[2]}) {
                    const auto& kernel = kernelOf<TypeParam>(form, N);
                    EXPECT_TRUE(haveSameBits(transformed(kernel, x, flag), pack))
                        << kernel.name << ", " << inWords(flag);
                }
            }
        }
}

// Whatever the input; and the inverse does not read them, whatever they hold.
TYPED_TEST(RealContract, TheConstantSlotsAreStoredAsPositiveZerosAndNeverRead)
{
    using Values = std::vector<TypeParam>;
    for (int N = 2; N <= 64; ++N) {
        const auto& forward = kernelOf<TypeParam>(ToCCS, N);
        for (const RvnScaleFlag flag : everyFlag)
            for (const TypeParam filling : {nan<TypeParam>, -TypeParam{1}, -TypeParam{0}}) {
                const auto X = resultOf(forward, Values(N, filling).data(), flag);
                for (const int slot : {1, N % 2 == 0 ? N + 1 : 1})
                    EXPECT_TRUE(X[slot] == 0 && !std::signbit(X[slot]))
                        << forward.name << ", slot " << slot;
            }
        const auto& inverse = kernelOf<TypeParam>(FromCCS, N);
        const auto x = randomParts<TypeParam>(N, 9);
        const auto expected = transformed(inverse, x, RvnScaleNone);
        for (const TypeParam rest : {TypeParam{0}, TypeParam{-1e30f}})
            EXPECT_TRUE(haveSameBits(
                resultOf(inverse, arranged(x, Layout::CCS, rest).data(), RvnScaleNone), expected))
                << inverse.name << ", " << rest;
    }
}

TYPED_TEST(RealContract, ZerosGiveZerosAndNegatedPartsPositiveOnes)
{
    const struct {
        int length;
        std::vector<int> negatedBins;
    } table[] = {{3, {1}}, {4, {1}}, {5, {2}}, {6, {1}}, {7, {2}}, {8, {1, 2, 3}}};
    for (const TypeParam zero : {TypeParam{0}, -TypeParam{0}}) {
        for (const auto& kernel : everyKernel<TypeParam>()) {
            const std::vector<TypeParam> zeros(kernel.parts(), zero);
            EXPECT_EQ(transformed(kernel, zeros, RvnScaleFwdByN), zeros) << kernel.name;
        }
        for (const auto& [length, bins] : table)
            for (const Transform form : forwardForms) {
                const auto& kernel = kernelOf<TypeParam>(form, length);
                const auto X = transformed(kernel, std::vector(length, zero), RvnScaleNone);
                for (const int k : bins)
                    EXPECT_FALSE(std::signbit(X[2 * k])) << kernel.name << ", I(" << k << ")";
            }
    }
}

// But for some imaginary parts of these lengths, whose doubling stands in a constant.
TYPED_TEST(RealContract, TheInverseDoublesBothPartsOfABinFirstWhateverTheFlag)
{
    const std::vector<int> merged = {3, 9, 12, 15, 17, 21, 27, 30, 33, 34, 51, 54, 57, 63};
    constexpr TypeParam most = std::numeric_limits<TypeParam>::max();
    for (int N = 3; N <= 64; ++N)
        for (const Transform form : inverseForms)
            for (const RvnScaleFlag flag : everyFlag)
                for (int part = 1; part + 1 < N + N % 2; ++part) {
                    if (part % 2 == 0 && std::ranges::count(merged, N) > 0)
                        continue;
                    const auto& kernel = kernelOf<TypeParam>(form, N);
                    auto X = unitPart<TypeParam>(N, part);
                    X[part] = most * TypeParam{0.51f};
                    const auto x = transformed(kernel, X, flag);
                    for (int n = 0; n < N; ++n)
                        ASSERT_FALSE(std::isfinite(x[n]) &&
                                     std::fabs(entry(kernel, n, part)) > 1e-9)
                            << kernel.name << ", " << inWords(flag) << ", part " << part;
                }
}

// H[k] = R(k) - I(k) and H[N-k] = R(k) + I(k); or the inverse real DFT of the half spectrum with
// r(k) = x[k] + x[N-k], s(k) = x[N-k] - x[k]. The route of a length is settled.
TEST(HartleyContract, ALengthTakesItsRouteThroughTheRealTransforms)
{
    const std::vector<int> byOutputs = {2,  3,  4,  5,  6,  8,  9,  11, 16, 17, 19, 21, 22, 24,
                                        26, 29, 38, 39, 41, 47, 49, 50, 52, 57, 58, 59, 61, 63};
    for (int N = 2; N <= 64; ++N) {
        const bool isByOutputs = std::ranges::count(byOutputs, N) > 0;
        const auto x = randomParts<double>(N, 43);
        auto halves = x;
        for (int k = 1; 2 * k < N; ++k) {
            halves[2 * k - 1] = (x[k] + x[N - k]) / 2;
            halves[2 * k] = (x[N - k] - x[k]) / 2;
        }
        if (N % 2 == 0)
            halves[N - 1] = x[N / 2];
        const auto X = isByOutputs
                           ? transformed(kernelOf<double>(ToPack, N), x, RvnScaleNone)
                           : transformed(kernelOf<double>(FromPack, N), halves, RvnScaleNone);
        auto expected = X;
        for (int k = 1; isByOutputs && 2 * k < N; ++k) {
            expected[k] = X[2 * k - 1] - X[2 * k];
            expected[N - k] = X[2 * k - 1] + X[2 * k];
        }
        if (isByOutputs && N % 2 == 0)
            expected[N / 2] = X[N - 1];
        EXPECT_EQ(transformed(kernelOf<double>(Hartley, N), x, RvnScaleNone), expected) << N;
    }
}

} // namespace

} // namespace rvn::tests
