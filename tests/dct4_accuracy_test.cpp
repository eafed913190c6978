// The DCT-IV of every power of two up to 2^17, and of 2^22 whose plan is a level deeper, is the
// defining sum, as accurately as log2 N stages can be in the element type; and where the arrays lie
// changes no bit.

#include "dct4_kernels.h"
#include "dct4_reference.h"

#include <algorithm>

namespace rvn::tests
{

namespace
{

constexpr int longest = 1 << 17;

template <typename Real> class Dct4Accuracy : public ::testing::Test
{
};

TYPED_TEST_SUITE(Dct4Accuracy, Reals);

// Each stage adds its own rounding errors. Short transforms are judged by many signals together,
// long ones by some of their outputs.
TYPED_TEST(Dct4Accuracy, TheErrorGrowsWithTheRootOfTheStages)
{
    for (int N = 2; N <= longest; N *= 2) {
        const Dct4Plan<TypeParam> plan(N);
        const CosineTable cosines(8 * N);
        std::vector<Wide> expected, found;
        for (int signal = 0; signal < std::max(1, 4096 / N); ++signal) {
            const auto x = randomParts<TypeParam>(N, 1000 * N + signal);
            const auto X = plan.transformed(x);
            for (int k = 0; k < N; k += 1 + N / 512) {
                expected.emplace_back(dct4Output(x, k, cosines));
                found.emplace_back(X[k]);
            }
        }
        EXPECT_LE(relativeError(found, expected),
                  0.47 * std::sqrt(std::log2(N)) * std::numeric_limits<TypeParam>::epsilon())
            << N;
    }
}

TYPED_TEST(Dct4Accuracy, APlanOfOneLevelMoreFitsItsBlockAndIsTheSumToo)
{
    constexpr long N = 1 << 22;
    constexpr double epsilon = std::numeric_limits<TypeParam>::epsilon();
    Dct4Plan<TypeParam> plan(N);
    EXPECT_LE(cursorOf(plan.block()), plan.block() + plan.bytes());

    const auto x = randomParts<TypeParam>(N, 11);
    const auto X = plan.transformed(x);
    for (const long k : {0L, 1234567L, N - 1}) {
        long double sum = 0;
        for (long n = 0; n < N; ++n)
            sum += x[n] * std::cos(std::numbers::pi_v<long double> / (4 * N) *
                                   static_cast<long double>((2 * n + 1) * (2 * k + 1) % (8 * N)));
        // The rms of the outputs is sqrt(N / 6).
        EXPECT_NEAR(static_cast<double>(X[k] - sum), 0, 20 * epsilon * std::sqrt(N / 6.0)) << k;
    }
    EXPECT_LE(relativeError(scaled(plan.transformed(X), 1), scaled(x, N / 2)), 6 * epsilon);
}

TYPED_TEST(Dct4Accuracy, SrcAndDstMayOverlapInAnyWayAndHaveAnyAlignment)
{
    for (int N = 2; N <= longest; N *= 2) {
        const Dct4Plan<TypeParam> plan(N);
        const auto x = randomParts<TypeParam>(N, 7);
        const auto expected = plan.transformed(x);
        const std::size_t bytes = N * sizeof(TypeParam);
        const std::size_t half = bytes / 2;
        const std::size_t places[][2] = {
            {0, 0},        {0, sizeof(TypeParam)}, {sizeof(TypeParam), 0},
            {0, half + 1}, {half + 3, 1},          {1, bytes + 2}};
        std::vector<std::byte> memory(3 * bytes + sizeof(TypeParam));
        for (const auto& [from, to] : places) {
            std::memcpy(&memory[from], x.data(), bytes);
            plan.run(reinterpret_cast<const TypeParam*>(&memory[from]),
                     reinterpret_cast<TypeParam*>(&memory[to]));
            EXPECT_EQ(std::memcmp(&memory[to], expected.data(), bytes), 0)
                << N << ": from " << from << " to " << to;
        }
    }
}

// Nor does anything of one call reach the next.
TYPED_TEST(Dct4Accuracy, ZerosGiveZerosAndANaNSpreadsOnce)
{
    const auto isNaN = [](TypeParam value) { return std::isnan(value); };
    for (int N = 2; N <= longest; N *= 2) {
        const Dct4Plan<TypeParam> plan(N);
        const std::vector<TypeParam> zeros(N);
        for (const int place : {0, N / 3, N - 1}) {
            auto x = randomParts<TypeParam>(N, 9);
            x[place] = std::numeric_limits<TypeParam>::quiet_NaN();
            EXPECT_TRUE(std::ranges::all_of(plan.transformed(x), isNaN)) << N << ", " << place;
            EXPECT_EQ(plan.transformed(zeros), zeros) << N;
        }
    }
}

} // namespace

} // namespace rvn::tests
