// The DCT-IV of every power of two up to 2^17 is the defining sum, as accurately as its splits can
// be in the element type; it is its own inverse up to N/2; and where the arrays lie changes no bit.

#include "dct4_kernels.h"
#include "dct4_model.h"

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

template <typename Real> std::vector<Wide> wide(const std::vector<Real>& x)
{
    return {x.begin(), x.end()};
}

template <typename Value> void append(std::vector<Wide>& all, const std::vector<Value>& more)
{
    all.insert(all.end(), more.begin(), more.end());
}

TEST(Dct4Reference, TheFastSumIsTheDefiningSum)
{
    for (int N = 2; N <= 1 << 11; N *= 2) {
        const auto x = randomParts<double>(N, N);
        EXPECT_LE(relativeError(dct4ByFourier(x), dct4BySum(x)), 1e-18) << N;
    }
    const auto x = randomParts<double>(longest, 1);
    const auto X = dct4ByFourier(x);
    const CosineTable cosines(8 * longest);
    for (const int k : {0, 1, 4095, 4096, longest / 2, longest - 1})
        EXPECT_NEAR(static_cast<double>(X[k].real() - dct4Output(x, k, cosines)), 0, 1e-14) << k;
}

// Short transforms are judged by many signals together.
TYPED_TEST(Dct4Accuracy, TheErrorIsThatOfTheSplits)
{
    for (int N = 2; N <= longest; N *= 2) {
        const Dct4Plan<TypeParam> plan(N);
        std::vector<Wide> expected, found, model;
        for (int signal = 0; signal < std::max(1, 4096 / N); ++signal) {
            const auto x = randomParts<TypeParam>(N, 1000 * N + signal);
            append(expected, dct4ByFourier(x));
            append(found, plan.transformed(x));
            append(model, Dct4Model<TypeParam>::transform(x));
        }
        EXPECT_LE(relativeError(found, expected), 1.5 * relativeError(model, expected)) << N;
    }
}

TYPED_TEST(Dct4Accuracy, TwiceGivesHalfOfNTimesTheInput)
{
    constexpr double tolerance = 10 * std::numeric_limits<TypeParam>::epsilon();
    for (int N = 2; N <= longest; N *= 2) {
        const Dct4Plan<TypeParam> plan(N);
        const auto x = randomParts<TypeParam>(N, 5);
        auto expected = wide(x);
        for (Wide& value : expected)
            value *= static_cast<long double>(N) / 2;
        EXPECT_LE(relativeError(wide(plan.transformed(plan.transformed(x))), expected), tolerance)
            << N;
    }
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
