// The bodies that no power of two reaches are compiled as well as the others: each gives what its
// graph gives, bit for bit. They are not exported, so their generated files are built into this
// program.

#include "dct4/bodies.h"
#include "dct4/builder.h"
#include "kernelgen/evaluate.h"

#include <gtest/gtest.h>

#include <cmath>

namespace rvn::tests
{

namespace
{

using namespace dct4;

// More than any body of these reads or writes.
constexpr int room = 64;

template <typename Real> std::vector<Real> samples(double phase)
{
    std::vector<Real> values;
    for (int i = 0; i < room; ++i)
        values.push_back(static_cast<Real>(std::sin(1.7 * i * i + phase)));
    return values;
}

template <typename Real> struct Memory {
    std::vector<Real> source = samples<Real>(0);
    std::vector<Real> table = samples<Real>(1);
    std::vector<Real> target = std::vector<Real>(room, std::nan(""));

    // What the graph gives for these inputs stands at these places, and nothing else was written.
    void expect(BodyKind kind, int size, const std::vector<Real>& inputs,
                const std::vector<int>& places) const
    {
        std::vector<Real> expected(room, std::nan(""));
        const std::vector<Real> outputs =
            kernelgen::evaluate<Real>(bodyGraph(bodyPlan(kind, size)), inputs);
        for (std::size_t i = 0; i < places.size(); ++i)
            expected[places[i]] = outputs[i];
        for (int i = 0; i < room; ++i)
            EXPECT_TRUE(expected[i] == target[i] ||
                        (expected[i] != expected[i] && target[i] != target[i]))
                << nameOf(kind) << " " << size << ", element " << i;
    }
};

template <typename Real, typename Odd, typename TopRow, typename Inner2, typename Inner4>
void expectAll(Odd odd2, TopRow topRow1, Inner2 innerRow2, Inner4 innerRow4)
{
    Memory<Real> odd;
    odd2(odd.target.data(), odd.source.data(),
         {.near = 4, .far = 9, .step = 1, .stride = 1, .rowStep = 3, .count = 1});
    odd.expect(BodyKind::Odd, 2, {odd.source[9], odd.source[4]}, {0, 3});

    Memory<Real> top;
    topRow1(top.target.data(), top.source.data(), top.table.data(),
            {.far = 5, .stride = 7, .count = 1});
    top.expect(BodyKind::TopRow, 1, {top.source[0], top.source[1], top.table[0], top.table[1]},
               {5, 0});

    for (const int r : {2, 4}) {
        Memory<Real> inner;
        const InnerRows rows{.far = 40, .stride = 8, .rowStep = 3, .count = 1};
        (r == 2 ? innerRow2 : innerRow4)(inner.target.data(), inner.source.data(),
                                         inner.table.data(), nullptr, rows);
        std::vector<Real> inputs(inner.source.begin(), inner.source.begin() + 2 * r);
        inputs.insert(inputs.end(), inner.table.begin(), inner.table.begin() + 2 * (r - 1));
        std::vector<int> places;
        for (int s = 0; s < r / 2; ++s)
            places.insert(places.end(), {8 * s, 8 * s + 3, 40 + 8 * s, 43 + 8 * s});
        inner.expect(BodyKind::InnerRow, r, inputs, places);
    }
}

TEST(Dct4UnreachedBodies, GiveWhatTheirGraphsGive)
{
    expectAll<float>(owngDCT4_32f_odd_2, owngDCT4_32f_topRow_1, owngDCT4_32f_innerRow_2,
                     owngDCT4_32f_innerRow_4);
    expectAll<double>(owngDCT4_64f_odd_2, owngDCT4_64f_topRow_1, owngDCT4_64f_innerRow_2,
                      owngDCT4_64f_innerRow_4);
}

} // namespace

} // namespace rvn::tests
