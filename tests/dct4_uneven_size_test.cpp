// The sizes 2^k + 1 from 9 on are planned and run as they always have been: no DCT-IV, with
// elements of src that are ignored and elements of dst that are not written, and with one element
// behind each array that is. Programs that hand over one element more may rely on it.
//
// The model is the top split with the quotients of N truncated, by direct sums: what is counted
// from the far end of the arrays then lies two places further.

#include "dct4_kernels.h"
#include "dct4_reference.h"
#include "guarded_memory.h"

#include <algorithm>

namespace rvn::tests
{

namespace
{

constexpr int shift = 2; // 2N less twice the power of two

struct Split {
    int size;
    int radix;
    int length() const { return size / radix; } // of a sub-sequence
};

constexpr Split splits[] = {{9, 2}, {17, 2}, {33, 4}, {65, 8}, {1025, 32}, {4097, 32}, {16385, 32}};

// Where the elements of sub-sequence j are read, t = -M/2 to M/2 - 1.
std::vector<int> placesRead(const Split& split, int j)
{
    std::vector<int> places;
    const int M = split.length();
    for (int t = -M / 2; t < M / 2; ++t) {
        const int place = j + 2 * split.radix * t;
        places.push_back(place < 0 ? shift - 1 - place : place);
    }
    return places;
}

// W[s] of row q is written at the place s + r, s = -r to r - 1.
std::vector<int> placesWritten(const Split& split, int q)
{
    std::vector<int> places;
    for (int s = -split.radix; s < split.radix; ++s)
        places.push_back(s < 0 ? shift - split.length() * s - 1 - q : q + split.length() * s);
    return places;
}

// Rows ascend; a later one replaces what an earlier one wrote.
template <typename Real>
std::vector<Wide> modelOf(const Split& split, const std::vector<Real>& src, std::vector<Wide> dst)
{
    const auto& [N, r] = split;
    std::vector<std::vector<Wide>> Y;
    for (int j = 0; j < r; ++j) {
        std::vector<Real> u;
        for (const int place : placesRead(split, j))
            u.push_back(src.at(place));
        Y.push_back(oddFrequencySum(u));
    }
    for (int q = 0; q < split.length() / 2; ++q) {
        std::vector<Wide> T;
        for (int j = 0; j < r; ++j)
            T.push_back(Y[j][q] * unitRoot((2L * q + 1) * (2 * j + 1), 8 * N));
        const std::vector<Wide> W = topRowSum(T);
        const std::vector<int> places = placesWritten(split, q);
        for (std::size_t s = 0; s < W.size(); ++s)
            dst.at(places[s]) = W[s];
    }
    return dst;
}

template <typename Real> class Dct4UnevenSizes : public ::testing::Test
{
protected:
    static constexpr Real unwritten = 4711;
    static constexpr double tolerance = 5 * std::numeric_limits<Real>::epsilon();
};

TYPED_TEST_SUITE(Dct4UnevenSizes, Reals);

TYPED_TEST(Dct4UnevenSizes, TheResultIsThatOfTheTruncatedSplit)
{
    for (const Split& split : splits) {
        const int N = split.size;
        const auto x = randomParts<TypeParam>(N + 1, 13);
        std::vector<TypeParam> X(N + 1, this->unwritten);
        Dct4Plan<TypeParam>(N).run(x.data(), X.data());
        const auto expected = modelOf(split, x, std::vector<Wide>(N + 1, this->unwritten));
        std::vector<Wide> written, expectedThere;
        for (int k = 0; k <= N; ++k) {
            if (expected[k] == Wide(this->unwritten)) {
                EXPECT_EQ(X[k], this->unwritten) << N << ", " << k;
                continue;
            }
            written.emplace_back(X[k]);
            expectedThere.push_back(expected[k]);
        }
        EXPECT_LE(relativeError(written, expectedThere), this->tolerance) << N;
    }
}

TYPED_TEST(Dct4UnevenSizes, OneElementBehindTheArraysIsTouchedAndNoOther)
{
    for (const Split& split : splits) {
        const int N = split.size;
        const std::size_t bytes = (N + 1) * sizeof(TypeParam);
        const GuardedMemory from(bytes);
        const GuardedMemory to(bytes);
        const Dct4Plan<TypeParam> plan(N);
        for (const bool atEnd : {false, true}) {
            auto* const src = reinterpret_cast<TypeParam*>(from.place(bytes, atEnd));
            auto* const dst = reinterpret_cast<TypeParam*>(to.place(bytes, atEnd));
            std::fill_n(src, N, TypeParam{0});
            src[N] = 1;
            plan.run(src, dst);
            EXPECT_TRUE(std::any_of(dst, dst + N, [](TypeParam value) { return value != 0; })) << N;
            EXPECT_NE(dst[N], 0) << N;
        }
    }
}

} // namespace

} // namespace rvn::tests
