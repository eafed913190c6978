// A row is an order k: what the contenders take, what this is for an element and over k 2^k, and
// how far it is from the limit of scalar code.

#include "wht_series.h"

#include "clock.h"
#include "extras.h"
#include "input.h"
#include "kernel_work.h"
#include "means.h"
#include "wht_agreement.h"
#include "wht_contenders.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <type_traits>

using namespace rvn::bench; // kernel_work.h

namespace
{

Layout layout()
{
    const Names names = judged(whtContenderNames(), firstWhtPeer);
    std::vector<Extra> extras = {{.title = "ns/element",
                                  .summary = "nanoseconds an element",
                                  .key = "element",
                                  .names = {names.front()},
                                  .printed = 1,
                                  .format = "%.3f",
                                  .meanName = "geometric mean",
                                  .mean = geometricMean},
                                 growthExtra(names)};
    std::ranges::copy(limitExtras(names), std::back_inserter(extras));
    return {.size = "order",
            .sizes = {{.name = "order", .width = 6}, {.name = "points", .width = 7}},
            .contenders = whtContenderNames(),
            .firstPeer = firstWhtPeer,
            .ranges = {},
            .extras = extras};
}

template <typename Element>
Row measureOrder(WhtBuffers<Element>& buffers, int order, const Options& options)
{
    const std::vector<Contender> contenders = whtContenders(buffers, order, options.placement);
    requireAgreement<Element>(contenders, buffers, order, options.placement);

    fillForTiming<Element>(buffers.source, options.placement);
    const TimingsAndCycles found =
        measureInCycles(contenders, options.repetitions, options.seconds);
    const int points = 1 << order;
    std::vector<std::vector<double>> extras = {{found.timings.front().nanoseconds / points},
                                               growth(found.timings, firstWhtPeer, points)};
    std::ranges::copy(overLimit(found, firstWhtPeer, whtWork(order)), std::back_inserter(extras));
    return {.sizes = {order, points}, .timings = found.timings, .extras = extras};
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
            "          growth: nanoseconds over k 2^k"};
}

Series whtSeries(const Options& options, Precision precision)
{
    return precision == Precision::Double ? series<double>(options) : series<float>(options);
}
