// The plans have the additions and multiplications, those by S and negations included, and a graph
// is refused unless it has them; the conversions are counted in the graph.

#include "kernel_work.h"

#include "dct4/radix.h"
#include "generator/families.h"

#include <vector>

namespace rvn::bench
{

namespace
{

using namespace generator;

constexpr int largestDct4Body = 32;
constexpr int largestOddBody = 64;

Format formatOf(Precision precision)
{
    return precision == Precision::Double ? Format::Binary64 : Format::Binary32;
}

// An output that takes S in binary64 is rounded behind it; S itself is there in both formats.
Work workOf(const Kernel& kernel)
{
    Work work{.additions = kernel.row.additions, .multiplications = kernel.row.multiplications};
    if (kernel.format == Format::Binary64)
        return work;
    const Graph& graph = kernel.parts.front().graph;
    const auto [widenings, roundings] =
        countConversions(graph, assignFormats(graph, Format::Binary32));
    work.widenings = widenings;
    work.roundings = roundings + kernel.row.scaledInBinary64;
    return work;
}

template <typename Plans> const auto& planOf(const Plans& plans, int length)
{
    return plans[static_cast<std::size_t>(length - shortestLength)];
}

// The radix of a level of the DCT-IV above its fixed bodies.
int radixOf(int length)
{
    std::int32_t radix = 0;
    divisorsIntNonTriv(&radix, length / 2);
    return radix;
}

Work bodyWork(BodyKind kind, int size)
{
    const BodyPlan& plan = bodyPlan(kind, size);
    return {.additions = plan.additions + plan.subtractions,
            .multiplications = plan.multiplications};
}

// Of length = r M real numbers at odd frequencies: r transforms of M, and M/2 combining rows.
Work oddWork(int length)
{
    if (length <= largestOddBody)
        return bodyWork(BodyKind::Odd, length);
    const int radix = radixOf(length);
    const int part = length / radix;
    return radix * oddWork(part) + part / 2 * bodyWork(BodyKind::InnerRow, radix);
}

} // namespace

Work complexWork(int length, Precision precision)
{
    return workOf(complexKernel(complexPlan(length), formatOf(precision)));
}

Work realWork(int length, Precision precision, Direction direction)
{
    return workOf(direction == Direction::Forward
                      ? forwardRealKernel(planOf(forwardPlans(), length), formatOf(precision))
                      : inverseRealKernel(planOf(inversePlans(), length), formatOf(precision)));
}

Work hartleyWork(int length, Precision precision)
{
    return workOf(hartleyKernel(planOf(hartleyPlans(), length), formatOf(precision)));
}

Work whtWork(int order)
{
    return {.additions = order << order, .multiplications = 1 << order};
}

// Of size = r M points: r transforms of M numbers at odd frequencies, and M/2 rows of 2 r outputs.
Work dct4Work(int size)
{
    if (size <= largestDct4Body)
        return bodyWork(BodyKind::Direct, size);
    const int radix = radixOf(size);
    const int part = size / radix;
    return radix * oddWork(part) + part / 2 * bodyWork(BodyKind::TopRow, radix);
}

} // namespace rvn::bench
