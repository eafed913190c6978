// The fixed bodies of the DCT-IV engine, and the split of each.
//
//   Direct   the whole transform of N points: 2 by one rotation, 4 by lifting, the others by the
//            top split with the first radix, over odd-frequency transforms of N/radix points
//   Odd      the odd-frequency transform of L real points: 2 and 4 direct, the others by the inner
//            split with the first radix, and so on
//   TopRow   one output row of the top split with radix r: r twiddles, then the transpose of an
//            odd-frequency transform of 2r points, split by these radixes
//   InnerRow one output row of the inner split with radix r: r - 1 twiddles and a complex DFT of r
//            points, whole up to r = 8 and as r/4 by 4, with twiddles between, above
//
// The radixes are those of the bodies; which radix a level of a plan takes follows from its length
// alone (radix.cpp).
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

namespace rvn::generator
{

enum class BodyKind : std::uint8_t { Direct, Odd, TopRow, InnerRow };

struct BodyPlan {
    BodyKind kind;
    int size; // N, L or the radix
    std::array<int, 3> radixes;
    int multiplications;
    int additions;
    int subtractions; // negated outputs with them
    int negatedOutputs = 0;
};

// clang-format off
inline constexpr std::array<BodyPlan, 22> bodyPlans = {{
//   kind                 size  radixes    multiplications, additions, subtractions, negated outputs
    {BodyKind::Direct,       2, {},            4,   1,   1},
    {BodyKind::Direct,       4, {},            8,   5,   7},
    {BodyKind::Direct,       8, {2},          24,  16,  16},
    {BodyKind::Direct,      16, {4},          64,  44,  44},
    {BodyKind::Direct,      32, {2, 4},      144, 108, 108},

    {BodyKind::Odd,          2, {},            0,   0,   1, 1},
    {BodyKind::Odd,          4, {},            2,   3,   3},
    {BodyKind::Odd,          8, {2},          12,  12,  12},
    {BodyKind::Odd,         16, {4},          32,  34,  34},
    {BodyKind::Odd,         32, {2, 4},       96,  92,  92},
    {BodyKind::Odd,         64, {4, 4},      224, 224, 224},

    {BodyKind::TopRow,       1, {},            4,   1,   1},
    {BodyKind::TopRow,       2, {},           10,   5,   5},
    {BodyKind::TopRow,       4, {2},          28,  16,  16},
    {BodyKind::TopRow,       8, {2, 2},       72,  44,  44},
    {BodyKind::TopRow,      16, {2, 2, 2},   176, 112, 112},
    {BodyKind::TopRow,      32, {4, 4},      352, 256, 256},

    {BodyKind::InnerRow,     2, {},            4,   3,   3},
    {BodyKind::InnerRow,     4, {},           12,  11,  11},
    {BodyKind::InnerRow,     8, {},           32,  33,  33},
    {BodyKind::InnerRow,    16, {4, 4},       96,  88,  88},
    {BodyKind::InnerRow,    32, {8, 4},      224, 220, 220},
}};
// clang-format on

// Whether the splits end in odd-frequency transforms of 2 or 4 points; a whole inner row has none,
// and one in two stages is r/4 by 4.
constexpr bool isBody(const BodyPlan& plan)
{
    if (plan.kind == BodyKind::InnerRow)
        return plan.size <= 8 ? plan.radixes[0] == 0
                              : plan.radixes == std::array{plan.size / 4, 4, 0};
    int length = plan.kind == BodyKind::TopRow ? 2 * plan.size : plan.size;
    for (const int radix : plan.radixes) {
        if (radix == 0)
            break;
        if ((radix != 2 && radix != 4 && radix != 8) || length % radix != 0)
            return false;
        length /= radix;
    }
    return length == 2 || length == 4;
}

static_assert(std::ranges::all_of(bodyPlans, isBody));

constexpr const BodyPlan& bodyPlan(BodyKind kind, int size)
{
    const BodyPlan* plan = bodyPlans.data();
    while (plan->kind != kind || plan->size != size)
        ++plan;
    return *plan;
}

} // namespace rvn::generator
