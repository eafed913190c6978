// The plans of the Walsh-Hadamard transform: straight-line kernels up to order 7, passes over work
// memory above. Only the order is needed for the former.
//
// This table serves the kernel generator and the library's buffer-size queries.
#pragma once

#include <array>

namespace rvn::wht
{

inline constexpr int lowestOrder = 1;
inline constexpr int highestStraightLineOrder = 7;
inline constexpr int highestOrder = 13;

// The orders of the sub-transforms of each pass: rows of contiguous elements, then columns, whose
// stride is the length of a row, within blocks of 2^(rows + columns) elements; then, in the larger
// orders, final columns whose stride is a block.
struct BufferedPlan {
    int order;
    int rowOrder;
    int columnOrder;
    int finalOrder; // 0: the blocks are the whole transform

    constexpr int blockLength() const { return 1 << (rowOrder + columnOrder); }
    constexpr int blocks() const { return 1 << finalOrder; }

    // Elements of work memory: the whole transform, and with final columns one block behind it.
    constexpr int workElements() const
    {
        return (1 << order) + (finalOrder > 0 ? blockLength() : 0);
    }
};

// clang-format off
inline constexpr std::array<BufferedPlan, 6> bufferedPlans = {{
//   order  rows  columns  final columns
    {    8,    4,       4,             0},
    {    9,    4,       5,             0},
    {   10,    4,       6,             0},
    {   11,    6,       5,             0},
    {   12,    4,       4,             4},
    {   13,    4,       6,             3},
}};
// clang-format on

constexpr const BufferedPlan& bufferedPlan(int order)
{
    return bufferedPlans[order - highestStraightLineOrder - 1];
}

static_assert([] {
    int order = highestStraightLineOrder;
    for (const BufferedPlan& plan : bufferedPlans)
        if (plan.order != ++order || plan.rowOrder + plan.columnOrder + plan.finalOrder != order)
            return false;
    return order == highestOrder;
}());

} // namespace rvn::wht
