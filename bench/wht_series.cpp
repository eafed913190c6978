// A row is an order k: what the contenders take, and how far ours is from the limit of scalar code.
//
// k 2^k additions and subtractions, on a processor that starts two of them a cycle, take
//
//     k 2^(k - 1) cycles
//
// The cycle is that of the moment: a chain of additions runs among the contenders in every round.

#include "wht_series.h"

#include "clock.h"
#include "input.h"
#include "means.h"
#include "wht_agreement.h"
#include "wht_contenders.h"

#include <memory>
#include <type_traits>

namespace rvn::bench
{

namespace
{

Layout layout()
{
    return {.size = "order",
            .sizes = {{.name = "order", .width = 6}, {.name = "points", .width = 7}},
            .contenders = whtContenderNames(),
            .firstPeer = firstWhtPeer,
            .ranges = {},
            .extras = {{.title = "over limit",
                        .summary = "time over the limit of two additions a cycle",
                        .key = "limit",
                        .names = {"ours"},
                        .printed = 1,
                        .format = "%.2f",
                        .meanName = "geometric mean",
                        .mean = geometricMean}}};
}

double cyclesOfLimit(int order)
{
    return order << (order - 1);
}

template <typename Element>
Row measureOrder(WhtBuffers<Element>& buffers, int order, const Options& options)
{
    const std::vector<Contender> contenders = whtContenders(buffers, order, options.placement);
    requireAgreement<Element>(contenders, buffers, order, options.placement);

    fillForTiming<Element>(buffers.source, options.placement);
    const TimingsAndCycles found =
        measureInCycles(contenders, options.repetitions, options.seconds);
    return {.sizes = {order, 1 << order},
            .timings = found.timings,
            .extras = {{found.cycles / cyclesOfLimit(order)}}};
}

template <typename Element> Series series(const Options& options)
{
    const auto buffers = std::make_shared<WhtBuffers<Element>>();
    return {.name = std::is_same_v<Element, float> ? "WHT_32f" : "WHT_64f",
            .layout = layout(),
            .sizes = options.orders,
            .measure = [=](int order) { return measureOrder(*buffers, order, options); }};
}

} // namespace

std::vector<std::string> whtMethod(const Options&)
{
    return {"WHT       all: RvnScaleBySqrtN; ours: a buffer of the caller, alloc: none, so that "
            "orders from 8",
            "          allocate; loop: two levels of butterflies a pass, AVX2 loop: the same "
            "vectorised;",
            "          limit: k 2^(k-1) cycles for order k, two additions a cycle, at the clock of "
            "the repetition"};
}

Series whtSeries(const Options& options, Precision precision)
{
    return precision == Precision::Double ? series<double>(options) : series<float>(options);
}

} // namespace rvn::bench
