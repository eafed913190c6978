// The plans have the additions and multiplications, those by S and negations included, and a graph
// is refused unless it has them; the conversions are counted in the graph.

#include "kernel_work.h"

#include "dct4/plans.h"
#include "dct4/radix.h"
#include "dft_complex/kernels.h"
#include "dft_real/kernels.h"
#include "hartley/kernels.h"

#include <vector>

namespace rvn::bench
{

namespace
{

using dct4::BodyKind;
using kernelgen::Format;
using kernelgen::Graph;

constexpr int largestDct4Body = 32;
constexpr int largestOddBody = 64;

// An output that takes S in binary64 is rounded behind it; S itself is there in both formats.
Work withConversions(Work work, const Graph& graph, Precision precision)
{
    if (precision == Precision::Double)
        return work;
    const auto formats = kernelgen::assignFormats(graph, Format::Binary32);
    const kernelgen::Conversions conversions = kernelgen::countConversions(graph, formats);
    work.widenings = conversions.widenings;
    work.roundings = conversions.roundings + kernelgen::countScaledInBinary64(graph, formats);
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
    const dct4::BodyPlan& plan = dct4::bodyPlan(kind, size);
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
    const dft_complex::ComplexPlan& plan = dft_complex::complexPlan(length);
    return withConversions(
        {.additions = plan.additions, .multiplications = plan.multiplications + 2 * length},
        dft_complex::complexGraph(plan), precision);
}

Work realWork(int length, Precision precision, Direction direction)
{
    if (direction == Direction::Forward) {
        const dft_real::ForwardPlan& plan = planOf(dft_real::forwardPlans(), length);
        return withConversions(
            {.additions = plan.additions, .multiplications = plan.multiplications},
            dft_real::forwardGraph(plan), precision);
    }
    const dft_real::InversePlan& plan = planOf(dft_real::inversePlans(), length);
    return withConversions({.additions = plan.additions, .multiplications = plan.multiplications},
                           dft_real::inverseGraph(plan), precision);
}

Work hartleyWork(int length, Precision precision)
{
    const hartley::HartleyPlan& plan = planOf(hartley::hartleyPlans(), length);
    return withConversions({.additions = plan.additions, .multiplications = plan.multiplications},
                           hartley::hartleyGraph(plan), precision);
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
